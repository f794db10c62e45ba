#include "pdf/TextPdf.h"

#include "pdf/CompressedPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PageTree.h"
#include "pdf/PdfDescription.h"
#include "pdf/PdfObjects.h"
#include "typesetting/FontSituation.h"
#include "typesetting/Typesetter.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace {

struct Cancelled { };
struct NoFonts { };

// One thread sets the pages; these turn them into streams beside it.
int threadsBeside()
{
    return std::clamp(int(std::thread::hardware_concurrency()) - 1, 1, 3);
}

// Writes contents as they come, and those that are equal once, as far as they are remembered.
class Contents {
public:
    explicit Contents(PdfFile &file)
        : m_file(file)
    {
    }

    void add(PageContent &&content)
    {
        int &number = known(content.bytes);
        if (number == 0) {
            number = m_file.newObject();
            m_file.writeStream(number, content.isDeflated ? "/Filter /FlateDecode" : "", content.bytes);
        }
        m_numbers.push_back(number);
    }

    /// Of each page, in order.
    std::vector<int> numbers() && { return std::move(m_numbers); }

private:
    int &known(const std::string &bytes)
    {
        constexpr std::size_t remembered = 1024;
        constexpr std::size_t longest = 4096;
        if (bytes.size() > longest)
            return m_other = 0;
        if (m_known.size() == remembered)
            m_known.clear();
        return m_known[bytes];
    }

    PdfFile &m_file;
    std::vector<int> m_numbers;
    std::unordered_map<std::string, int> m_known;
    int m_other = 0;
};

std::vector<int> contents(std::u16string_view text, const PdfSettings &settings, FontList &fonts,
                          DocumentFonts &codes, PdfProgress &progress, PdfFile &file)
{
    Contents written(file);
    CompressedPages made(threadsBeside(), [&](PageContent &&content) { written.add(std::move(content)); });
    int number = 0;
    const auto take = [&](Page &&page, std::size_t done) {
        ++number;
        if (settings.wants(number))
            made.add(std::move(page));
        progress.pages = number;
        progress.share = text.empty() ? 1.0 : double(done) / double(text.size());
        return !progress.cancelled && number != settings.lastPage;
    };
    const auto goesOn = [&] { return !progress.cancelled; };
    Typesetter(fonts, codes, settings.format, take, goesOn).set(text);
    if (progress.cancelled)
        throw Cancelled();
    made.finish();
    return std::move(written).numbers();
}

// As often, and in the order, in which they are wanted.
std::vector<int> repeated(std::vector<int> pages, const PdfSettings &settings)
{
    constexpr std::size_t bytesOfPage = 100; // in a document that is being made
    const std::size_t all = pages.size() * std::size_t(settings.copies);
    if (settings.hasRoom && !settings.hasRoom(all * bytesOfPage))
        throw std::bad_alloc();
    if (all > PdfFile::mostObjects)
        throw std::length_error("a document has no room for so many pages");
    if (settings.lastFirst)
        std::reverse(pages.begin(), pages.end());
    std::vector<int> wanted;
    wanted.reserve(all);
    for (std::size_t i = 0; i < all; ++i)
        wanted.push_back(pages[settings.collated ? i % pages.size() : i / std::size_t(settings.copies)]);
    return wanted;
}

void write(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
           PdfProgress &progress)
{
    FontList fonts(settings.fontFamily);
    if (!fontsSuffice(fonts, text))
        throw NoFonts();
    PdfFile file(
        [&](const char *bytes, std::size_t count) { return !progress.cancelled && output(bytes, count); });
    DocumentFonts codes;
    const std::vector<int> made = contents(text, settings, fonts, codes, progress, file);

    QPDF document;
    document.emptyPDF();
    PdfObjects objects(file);
    const auto look = [&] {
        if (progress.cancelled)
            throw Cancelled();
    };
    const std::string resources =
        "<</Font " + objects.written(fontResources(document, codes, settings.grey, look)) + ">>";
    const PageTree pages = writePages(file, repeated(made, settings), resources, settings.format);
    finishPdf(file, pages.root, settings.title);
}

} // namespace

PdfResult writeTextPdf(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
                       PdfProgress &progress)
{
    try {
        write(text, settings, output, progress);
        return PdfResult::Written;
    } catch (const Cancelled &) {
        return PdfResult::Cancelled;
    } catch (const NoFonts &) {
        return PdfResult::NoFonts;
    } catch (const std::bad_alloc &) {
        return progress.cancelled ? PdfResult::Cancelled : PdfResult::NoMemory;
    } catch (const std::exception &) {
        return progress.cancelled ? PdfResult::Cancelled : PdfResult::Failed;
    }
}
