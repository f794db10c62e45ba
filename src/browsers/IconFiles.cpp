#include "browsers/IconFiles.h"

#include "platform/Background.h"
#include "platform/RegularFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 1 << 20; // bytes
constexpr int largestSide = 2048;       // pixels

// A drawing may name other files, grow while it is read, or be packed so that one can't see what is in it.
bool isSelfContained(const QByteArray &drawing)
{
    static const QRegularExpression others(u"[<:]image[\\s/>]|<!ENTITY|\\x00|^\\x1f\\x8b"_s);
    return !others.match(QString::fromLatin1(drawing)).hasMatch();
}

bool isSafe(const QByteArray &format, const QByteArray &content)
{
    if (format == "svg")
        return isSelfContained(content);
    return QByteArrayList{"png", "xpm", "jpeg", "ico", "webp", "gif", "bmp"}.contains(format);
}

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
    QByteArray content = readRegularFile(file, largestFile).value_or(QByteArray());
    QBuffer buffer(&content);
    buffer.open(QBuffer::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!isSafe(format, content))
        return {};
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    const bool isDrawing = format == "svg";
    if (size.isEmpty() || (!isDrawing && std::max(size.width(), size.height()) > largestSide))
        return {};
    if (isDrawing) {
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
        return reader.read();
    }
    const QImage picture = reader.read();
    return picture.width() <= side && picture.height() <= side
        ? picture
        : picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}
