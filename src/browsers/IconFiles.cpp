#include "browsers/IconFiles.h"

#include "platform/Background.h"
#include "platform/RegularFile.h"
#include "worker/Errands.h"

namespace {

constexpr qint64 largestFile = 1 << 20; // bytes

} // namespace

QIcon IconFiles::icon(const QString &file)
{
    QIcon known = m_icons.value().value(file);
    if (m_asked.contains(file))
        return known;
    m_asked.insert(file);
    constexpr int side = 64; // enough for a list on a screen of high density
    const auto show = [this, file](const QImage &picture) {
        auto icons = m_icons.value();
        icons.insert(file, QIcon(QPixmap::fromImage(picture)));
        m_icons = icons;
    };
    inBackground(
        this, [file] { return smallPicture(file, side); }, show, Workers::waiting());
    return known;
}

QImage smallPicture(const QString &file, int side)
{
    const auto content = readRegularFile(file, largestFile);
    if (!content)
        return {};
    const SmallPicture picture = pictureByWorker(*content, side);
    const auto *pixels = reinterpret_cast<const uchar *>(picture.pixels.constData());
    return QImage(pixels, picture.width, picture.height, QImage::Format_ARGB32_Premultiplied).copy();
}
