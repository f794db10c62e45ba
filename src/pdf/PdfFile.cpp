#include "pdf/PdfFile.h"

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDFWriter.hh>
#include <qpdf/QUtil.hh>

#include <stdexcept>

namespace {

class OutputPipeline : public Pipeline {
public:
    explicit OutputPipeline(const PdfOutput &output)
        : Pipeline("output", nullptr)
        , m_output(output)
    {
    }
    void write(const unsigned char *bytes, std::size_t count) override
    {
        if (!m_output(reinterpret_cast<const char *>(bytes), count))
            throw std::runtime_error("the output takes no more");
    }
    void finish() override { }

private:
    const PdfOutput &m_output;
};

void describe(QPDF &document, const std::string &title)
{
    QPDFObjectHandle root = document.getRoot();
    root.replaceKey("/Lang", QPDFObjectHandle::newString("ja"));
    root.replaceKey("/ViewerPreferences", QPDFObjectHandle::parse("<</DisplayDocTitle true>>"));
    QPDFObjectHandle information = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(title));
    information.replaceKey("/Creator", QPDFObjectHandle::newString("Tarumine"));
    const std::string now = QUtil::qpdf_time_to_pdf_time(QUtil::get_current_qpdf_time());
    information.replaceKey("/CreationDate", QPDFObjectHandle::newString(now));
    document.getTrailer().replaceKey("/Info", information);
}

} // namespace

QPDFObjectHandle pdfPage(QPDF &document, QPDFObjectHandle content)
{
    QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
    page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
    page.replaceKey("/Parent", document.getRoot().getKey("/Pages"));
    page.replaceKey("/Contents", content);
    return document.makeIndirectObject(page);
}

void addPages(QPDF &document, const std::vector<QPDFObjectHandle> &pages, QPDFObjectHandle resources,
              const PageFormat &format)
{
    QPDFObjectHandle tree = document.getRoot().getKey("/Pages");
    tree.replaceKey("/Kids", QPDFObjectHandle::newArray(pages));
    tree.replaceKey("/Count", QPDFObjectHandle::newInteger(std::int64_t(pages.size())));
    tree.replaceKey("/Resources", document.makeIndirectObject(resources));
    tree.replaceKey(
        "/MediaBox",
        QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(0, 0, format.width, format.height)));
}

void writePdfFile(QPDF &document, const std::string &title, const PdfOutput &output)
{
    describe(document, title);
    OutputPipeline pipeline(output);
    QPDFWriter writer(document);
    writer.setOutputPipeline(&pipeline);
    writer.setMinimumPDFVersion("1.5");
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.write();
}
