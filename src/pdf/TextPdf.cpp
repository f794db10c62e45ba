#include "pdf/TextPdf.h"

#include "pdf/CompressedPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PdfDescription.h"
#include "pdf/TextTags.h"
#include "typesetting/FontSituation.h"
#include "typesetting/Typesetter.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace {

using Pages = std::deque<PageObjects>;

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

    /// Its object.
    int written(PageContent &&content)
    {
        int &number = known(content.bytes);
        if (number == 0) {
            number = m_file.newObject();
            m_file.writeStream(number, content.isDeflated ? "/Filter /FlateDecode" : "", content.bytes);
        }
        return number;
    }

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
    std::unordered_map<std::string, int> m_known;
    int m_other = 0;
};

// Pages that are there twice, or the last one first, can't be read one after the other.
bool isRead(const PdfSettings &settings)
{
    return settings.copies == 1 && !settings.lastFirst;
}

void withoutTags(Page &page)
{
    page.passages.clear();
    page.foreign.clear();
    page.links.clear();
}

Pages pagesOf(std::u16string_view text, const PdfSettings &settings, FontList &fonts, DocumentFonts &codes,
              PdfProgress &progress, PdfFile &file, TextTags &tags)
{
    Contents contents(file);
    Pages pages;
    std::size_t next = 0; // to get its content
    const auto keep = [&](PageContent &&content) {
        pages[next++].content = contents.written(std::move(content));
    };
    CompressedPages made(threadsBeside(), keep);
    int number = 0;
    const auto take = [&](Page &&page, std::size_t done) {
        ++number;
        if (settings.wants(number)) {
            if (!isRead(settings))
                withoutTags(page);
            pages.push_back(tags.add(page));
            made.add(std::move(page));
        }
        progress.pages = number;
        progress.share = text.empty() ? 1.0 : double(done) / double(text.size());
        return !progress.cancelled && number != settings.lastPage;
    };
    const auto goesOn = [&] { return !progress.cancelled; };
    Typesetter(fonts, codes, settings.format, take, goesOn).set(text);
    if (progress.cancelled)
        throw Cancelled();
    made.finish();
    return pages;
}

// As often, and in the order, in which they are wanted.
Pages repeated(Pages pages, const PdfSettings &settings)
{
    constexpr std::size_t bytesOfPage = 200; // in a document that is being made
    const std::size_t all = pages.size() * std::size_t(settings.copies);
    if (settings.hasRoom && !settings.hasRoom(all * bytesOfPage))
        throw std::bad_alloc();
    if (all > PdfFile::mostObjects)
        throw std::length_error("a document has no room for so many pages");
    if (isRead(settings))
        return pages;
    if (settings.lastFirst)
        std::reverse(pages.begin(), pages.end());
    Pages wanted;
    for (std::size_t i = 0; i < all; ++i)
        wanted.push_back(pages[settings.collated ? i % pages.size() : i / std::size_t(settings.copies)]);
    return wanted;
}

/// What the end of the file says of all that has been written; of millions of pages nothing else is kept.
struct Written {
    int pages = 0;
    std::string structure;
};

Written writeAll(std::u16string_view text, const PdfSettings &settings, FontList &fonts,
                 PdfProgress &progress, PdfFile &file)
{
    DocumentFonts codes;
    TextTags tags(file);
    const Pages made = repeated(pagesOf(text, settings, fonts, codes, progress, file, tags), settings);
    const auto look = [&] {
        if (progress.cancelled)
            throw Cancelled();
    };
    const std::string resources = "<</Font " + fontResources(file, codes, settings.grey, look) + ">>";
    const PageTree tree = writePages(file, made, resources, settings.format);
    return {tree.root, isRead(settings) ? tags.finish(made, tree) : ""};
}

void write(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
           PdfProgress &progress)
{
    FontList fonts(settings.fontFamily);
    if (!fontsSuffice(fonts, text))
        throw NoFonts();
    PdfFile file(
        [&](const char *bytes, std::size_t count) { return !progress.cancelled && output(bytes, count); });
    const auto [pages, structure] = writeAll(text, settings, fonts, progress, file);
    finishPdf(file, pages, {.title = settings.title, .structure = structure});
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
