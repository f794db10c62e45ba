#include "pdf/PdfDescription.h"

#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QUtil.hh>

void finishPdf(PdfFile &file, int pages, const std::string &title, const std::string &more)
{
    const int catalog = file.newObject();
    file.write(catalog,
               "<</Type /Catalog /Lang (ja) /ViewerPreferences <</DisplayDocTitle true>> /Pages "
                   + PdfFile::reference(pages) + more + ">>");
    const int information = file.newObject();
    const std::string now = QUtil::qpdf_time_to_pdf_time(QUtil::get_current_qpdf_time());
    file.write(information,
               "<</Title " + QPDFObjectHandle::newUnicodeString(title).unparse()
                   + " /Creator (Tarumine) /CreationDate (" + now + ")>>");
    file.finish(catalog, information);
}
