#include "pdf/TextPdf.h"

#include "pdf/FontObjects.h"
#include "pdf/PageContents.h"
#include "pdf/PdfStream.h"
#include "typesetting/Typesetter.h"

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDFWriter.hh>
#include <qpdf/QUtil.hh>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace {

struct Cancelled { };

class OutputPipeline : public Pipeline {
public:
    OutputPipeline(const PdfOutput &output, const PdfProgress &progress)
        : Pipeline("output", nullptr)
        , m_output(output)
        , m_progress(progress)
    {
    }
    void write(const unsigned char *bytes, std::size_t count) override
    {
        if (m_progress.cancelled)
            throw Cancelled();
        if (!m_output(reinterpret_cast<const char *>(bytes), count))
            throw std::runtime_error("the output takes no more");
    }
    void finish() override { }

private:
    const PdfOutput &m_output;
    const PdfProgress &m_progress;
};

// One thread sets the pages; these turn them into streams beside it.
int threadsBeside()
{
    return std::clamp(int(std::thread::hardware_concurrency()) - 1, 1, 3);
}

std::vector<std::string> contents(std::u16string_view text, const PdfSettings &settings, FontList &fonts,
                                  DocumentFonts &codes, PdfProgress &progress)
{
    PageContents made(threadsBeside());
    int number = 0;
    const auto take = [&](Page &&page, std::size_t done) {
        ++number;
        if (!settings.wants || settings.wants(number))
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

void addPages(QPDF &document, const std::vector<QPDFObjectHandle> &streams, const PdfSettings &settings,
              QPDFObjectHandle tree)
{
    QPDFObjectHandle pages = QPDFObjectHandle::newArray();
    const auto add = [&](QPDFObjectHandle stream) {
        QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
        page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
        page.replaceKey("/Parent", tree);
        page.replaceKey("/Contents", stream);
        pages.appendItem(document.makeIndirectObject(page));
    };
    const int rounds = settings.collated ? settings.copies : 1;
    const int repeats = settings.collated ? 1 : settings.copies;
    for (int round = 0; round < rounds; ++round) {
        for (const QPDFObjectHandle &stream : streams) {
            for (int i = 0; i < repeats; ++i)
                add(stream);
        }
    }
    tree.replaceKey("/Kids", pages);
    tree.replaceKey("/Count", QPDFObjectHandle::newInteger(pages.getArrayNItems()));
}

void describe(QPDF &document, const PdfSettings &settings)
{
    QPDFObjectHandle root = document.getRoot();
    root.replaceKey("/Lang", QPDFObjectHandle::newString("ja"));
    root.replaceKey("/ViewerPreferences", QPDFObjectHandle::parse("<</DisplayDocTitle true>>"));
    QPDFObjectHandle information = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(settings.title));
    information.replaceKey("/Creator", QPDFObjectHandle::newString("Tarumine"));
    const std::string now = QUtil::qpdf_time_to_pdf_time(QUtil::get_current_qpdf_time());
    information.replaceKey("/CreationDate", QPDFObjectHandle::newString(now));
    document.getTrailer().replaceKey("/Info", information);
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
    QPDFObjectHandle tree = document.getRoot().getKey("/Pages");
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/Font", fontResources(document, codes, settings.grey));
    tree.replaceKey("/Resources", document.makeIndirectObject(resources));
    tree.replaceKey("/MediaBox",
                    QPDFObjectHandle::newArray(
                        QPDFObjectHandle::Rectangle(0, 0, settings.format.width, settings.format.height)));
    std::vector<QPDFObjectHandle> streams;
    for (std::string &stream : compressed)
        streams.push_back(deflatedStream(document, std::exchange(stream, {})));
    if (settings.lastFirst)
        std::reverse(streams.begin(), streams.end());
    addPages(document, streams, settings, tree);
    describe(document, settings);

    OutputPipeline pipeline(output, progress);
    QPDFWriter writer(document);
    writer.setOutputPipeline(&pipeline);
    writer.setMinimumPDFVersion("1.5");
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.write();
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
    } catch (const std::exception &) {
        return PdfResult::Failed;
    }
}
