#include "printing/PdfExport.h"

#include <QFileInfo>

namespace {

constexpr double textWidth = 550; // points

PrintInfo printInfo(const QString &path)
{
    constexpr double margin = 20; // points
    PrintInfo info = PrintInfo::sharedPrintInfo();
    info.horizontalPagination = PrintInfo::Pagination::Automatic;
    info.verticalPagination = PrintInfo::Pagination::Automatic;
    info.paperSize = {595, 842}; // A4
    info.topMargin = margin;
    info.bottomMargin = margin;
    info.leftMargin = margin;
    info.rightMargin = margin;
    info.horizontallyCentered = false;
    info.verticallyCentered = false;
    info.jobDisposition = PrintInfo::JobDisposition::Save;
    info.jobSavingPath = path;
    return info;
}

} // namespace

void savePDF(const QString &fileName, const QString &text, const QString &folder,
             const NewPrintOperation &newOperation, QWidget *window)
{
    if (!QFileInfo(folder).isDir())
        return;
    const QString path = folder + u'/' + fileName + QStringLiteral(".pdf");
    PrintOperation *operation = newOperation({textWidth, text}, printInfo(path), window);
    operation->setShowsPrintPanel(true);
    operation->setShowsProgressPanel(true);
    operation->runOperation([](bool) {});
}
