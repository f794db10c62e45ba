#include "worker/Errands.h"

#include "decoding/LargeText.h"
#include "platform/FileContent.h"
#include "platform/linux/SharedMemory.h"
#include "worker/Errand.h"

#include <algorithm>
#include <semaphore>

using namespace Protocol;

namespace {

std::string_view view(QByteArrayView bytes)
{
    return {bytes.data(), std::size_t(bytes.size())};
}

template <class Item> std::string_view bytesOf(const Item *items, std::size_t count)
{
    return {reinterpret_cast<const char *>(items), count * sizeof(Item)};
}

PaperOrder paperOrder(std::u16string_view text, const PdfSettings &settings)
{
    const PageFormat &format = settings.format;
    return {.width = format.width,
            .height = format.height,
            .top = format.top,
            .bottom = format.bottom,
            .left = format.left,
            .right = format.right,
            .longestLine = format.longestLine,
            .lastPage = settings.lastPage,
            .copies = settings.copies,
            .collated = settings.collated,
            .lastFirst = settings.lastFirst,
            .grey = settings.grey,
            .numbered = format.isNumbered,
            .ranges = settings.ranges.size(),
            .characters = text.size(),
            .family = settings.fontFamily.size(),
            .title = settings.title.size()};
}

// In bytes; far more than any document has.
std::size_t largestDocument(std::size_t characters, const PdfSettings &settings)
{
    constexpr std::size_t fonts = 256 << 20, perCharacter = 100;
    return fonts + perCharacter * characters * std::size_t(std::max(1, settings.copies));
}

void show(const Report &report, PdfProgress &progress)
{
    constexpr double whole = 1e6;
    if (report.kind != Report::Kind::Progress)
        return;
    progress.pages = int(std::min(report.pages, std::uint32_t(std::numeric_limits<int>::max())));
    progress.share = std::min(1.0, report.share / whole);
}

// A folder may hold thousands of icons, and each is a process. Given back also when memory runs out.
class Turn {
public:
    Turn() { atOnce.acquire(); }
    ~Turn() { atOnce.release(); }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;

private:
    static inline std::counting_semaphore<> atOnce{4};
};

} // namespace

std::optional<QString> textByWorker(const FileContent &file, const QByteArray &encoding)
{
    const auto bytes = std::size_t(file.bytes().size());
    const bool isPicked = file.descriptor() >= 0;
    Errand errand{.order = newOrder(Job::Decode, bytes), .picked = file.descriptor()};
    errand.order.decode = {.bytes = bytes, .characters = bytes, .isPicked = isPicked};
    encoding.toStdString().copy(errand.order.decode.encoding, sizeof errand.order.decode.encoding - 1);
    if (!isPicked)
        errand.behind = {view(file.bytes())};
    SharedMemory text(bytes * sizeof(char16_t));
    errand.result = text.number();
    QString result;
    // While the worker finds out what it has before it, there is time to find memory for what it will say.
    errand.heard = [&](const Report &report) {
        if (report.kind != Report::Kind::Ready || bytes <= LargeText::bytes)
            return;
        const Mapped touched(text.number(), bytes, Mapped::For::Writing);
        result = QString(qsizetype(bytes), Qt::Uninitialized);
        populate(reinterpret_cast<char *>(result.data()), bytes);
    };
    const Report report = done(errand);
    if (report.result != Report::Result::Done || report.size > bytes || !text.seal())
        return std::nullopt;
    const Mapped decoded(text.number(), report.size * sizeof(char16_t), Mapped::For::Reading);
    if (report.size > 0 && !decoded.data())
        return std::nullopt;
    result.resize(qsizetype(report.size));
    copyByHalves(decoded.bytes(), reinterpret_cast<char *>(result.data()));
    return result;
}

PdfResult pdfByWorker(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
                      PdfProgress &progress)
{
    const std::size_t most = largestDocument(text.size(), settings);
    std::size_t written = 0;
    Errand errand{.order = newOrder(Job::Paper, text.size() * sizeof(char16_t))};
    errand.order.paper = paperOrder(text, settings);
    errand.behind = {bytesOf(settings.ranges.data(), settings.ranges.size()),
                     bytesOf(text.data(), text.size()), settings.fontFamily, settings.title};
    errand.output = [&](const char *bytes, std::size_t count) {
        written += count;
        return written <= most && !progress.cancelled && output(bytes, count);
    };
    errand.heard = [&progress](const Report &report) { show(report, progress); };
    errand.goesOn = [&progress] { return !progress.cancelled; };
    const Report report = done(errand);
    if (progress.cancelled)
        return PdfResult::Cancelled;
    switch (report.result) {
    case Report::Result::Done:
        return report.size == written ? PdfResult::Written : PdfResult::Failed;
    case Report::Result::NoMemory:
        return PdfResult::NoMemory;
    case Report::Result::NoFonts:
        return PdfResult::NoFonts;
    default: // also of what there is no name for
        return PdfResult::Failed;
    }
}

SmallPicture pictureByWorker(const QByteArray &file, int side)
{
    Errand errand{.order = newOrder(Job::Picture, std::size_t(file.size())), .behind = {view(file)}};
    errand.order.picture = {.side = std::uint32_t(side)};
    SharedMemory pixels(std::size_t(side) * std::size_t(side) * sizeof(std::uint32_t));
    errand.result = pixels.number();
    const Turn turn;
    const Report report = done(errand);
    const auto most = std::uint32_t(side);
    if (report.result != Report::Result::Done || report.width > most || report.height > most
        || !pixels.seal())
        return {};
    const std::size_t size = std::size_t(report.width) * report.height * sizeof(std::uint32_t);
    const Mapped picture(pixels.number(), size, Mapped::For::Reading);
    return {int(report.width), int(report.height),
            QByteArray(picture.data(), qsizetype(picture.bytes().size()))};
}
