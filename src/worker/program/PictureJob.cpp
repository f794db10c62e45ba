#include "platform/linux/SharedMemory.h"
#include "worker/program/Job.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QRegularExpression>

#include <cstring>

using namespace Protocol;
using namespace Qt::StringLiterals;

namespace {

const QByteArrayList formats{"png", "xpm", "jpeg", "ico", "webp", "gif", "bmp", "svg"};

// What Qt looks up and loads when it is first needed: later, that can't be read.
std::vector<std::string> prepare()
{
    ::unsetenv("QT_QPA_PLATFORMTHEME");
    static int count = 3;
    static char name[] = "tarumine-worker", option[] = "-platform", platform[] = "minimal";
    static char *words[]{name, option, platform, nullptr};
    new QGuiApplication(count, words); // without fonts: words in a drawing are left out
    QBuffer nothing;
    nothing.open(QBuffer::ReadOnly);
    for (const QByteArray &format : formats)
        QImageReader(&nothing, format).canRead();
    return {};
}

// A drawing may name other files, grow while it is read, or be packed so that one can't see what is in it.
bool isSelfContained(const QByteArray &drawing)
{
    static const QRegularExpression others(u"[<:]image[\\s/>]|<!ENTITY|\\x00|^\\x1f\\x8b"_s);
    return !others.match(QString::fromLatin1(drawing)).hasMatch();
}

QImage picture(QByteArray content, int side)
{
    constexpr int largestSide = 2048; // pixels
    QBuffer buffer(&content);
    buffer.open(QBuffer::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    const bool isDrawing = format == "svg";
    if (!formats.contains(format) || (isDrawing && !isSelfContained(content)))
        return {};
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (size.isEmpty() || (!isDrawing && std::max(size.width(), size.height()) > largestSide))
        return {};
    if (isDrawing) {
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
        return reader.read();
    }
    const QImage whole = reader.read();
    return whole.width() <= side && whole.height() <= side
        ? whole
        : whole.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

bool handOver(const QImage &image, std::uint32_t side)
{
    const auto width = std::uint32_t(image.width()), height = std::uint32_t(image.height());
    if (image.isNull() || width > side || height > side)
        return false;
    const auto size = std::size_t(image.sizeInBytes());
    const Mapped result(ResultFile, size, Mapped::For::Writing);
    if (result.data())
        std::memcpy(result.data(), image.constBits(), size);
    return result.data() != nullptr;
}

Report work(const Handed &handed)
{
    const PictureOrder &order = handed.order.picture;
    Report report = newReport(Report::Kind::Ended);
    const QByteArray content(handed.behind.data(), qsizetype(handed.behind.size()));
    const QImage image =
        picture(content, int(order.side)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    report.result = handOver(image, order.side) ? Report::Result::Done : Report::Result::Failed;
    report.width = std::uint32_t(image.width());
    report.height = std::uint32_t(image.height());
    return report;
}

} // namespace

extern "C" [[gnu::visibility("default")]] const JobModule job{prepare, work};
