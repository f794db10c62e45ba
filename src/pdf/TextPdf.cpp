#include "pdf/TextPdf.h"

#include "pdf/CompressedPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PdfFile.h"
#include "pdf/PdfStream.h"
#include "typesetting/Typesetter.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {

struct Cancelled { };

// One thread sets the pages; these turn them into streams beside it.
int threadsBeside()
{
    return std::clamp(int(std::thread::hardware_concurrency()) - 1, 1, 3);
}

std::vector<std::string> contents(std::u16string_view text, const PdfSettings &settings, FontList &fonts,
                                  DocumentFonts &codes, PdfProgress &progress)
{
    CompressedPages made(threadsBeside());
    int number = 0;
    const auto take = [&](Page &&page, std::size_t done) {
        ++number;
        if (settings.wants(number))
            made.add(std::move(page));
        progress.pages = number;
        progress.share = text.empty() ? 1.0 : double(done) / double(text.size());
        return !progress.cancelled && number != settings.lastPage;
    };
    Typesetter(fonts, codes, settings.format, take).set(text);
    if (progress.cancelled)
        throw Cancelled();
    return made.finished();
}

// As often, and in the order, in which they are wanted.
std::vector<QPDFObjectHandle> pages(QPDF &document, const std::vector<QPDFObjectHandle> &streams,
                                    const PdfSettings &settings, const PdfProgress &progress)
{
    constexpr std::size_t bytesOfPage = 1500; // in a document that is being made
    if (settings.hasRoom && !settings.hasRoom(streams.size() * std::size_t(settings.copies) * bytesOfPage))
        throw std::bad_alloc();
    std::vector<QPDFObjectHandle> all;
    const int rounds = settings.collated ? settings.copies : 1;
    const int repeats = settings.collated ? 1 : settings.copies;
    for (int round = 0; round < rounds; ++round) {
        if (progress.cancelled)
            throw Cancelled();
        for (const QPDFObjectHandle &stream : streams) {
            for (int i = 0; i < repeats; ++i)
                all.push_back(pdfPage(document, stream));
        }
    }
    return all;
}

void write(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
           PdfProgress &progress)
{
    FontList fonts(settings.fontFamily);
    if (!fonts.first())
        throw std::runtime_error("there is no font");
    DocumentFonts codes;
    std::vector<std::string> compressed = contents(text, settings, fonts, codes, progress);

    QPDF document;
    document.emptyPDF();
    std::vector<QPDFObjectHandle> streams;
    for (std::string &stream : compressed)
        streams.push_back(deflatedStream(document, std::exchange(stream, {})));
    if (settings.lastFirst)
        std::reverse(streams.begin(), streams.end());
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/Font", fontResources(document, codes, settings.grey));
    addPages(document, pages(document, streams, settings, progress), resources, settings.format);
    const auto unlessCancelled = [&](const char *bytes, std::size_t count) {
        return !progress.cancelled && output(bytes, count);
    };
    writePdfFile(document, settings.title, unlessCancelled);
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
    } catch (const std::bad_alloc &) {
        return progress.cancelled ? PdfResult::Cancelled : PdfResult::NoMemory;
    } catch (const std::exception &) {
        return progress.cancelled ? PdfResult::Cancelled : PdfResult::Failed;
    }
}
