#include "printing/PdfExport.h"

#include "view/Announcement.h"
#include "view/Notice.h"

#include <QFileInfo>

namespace {

constexpr double textWidth = 550; // points

PrintInfo printInfo(const QString &path)
{
    constexpr double margin = 20; // points
    PrintInfo info = PrintInfo::sharedPrintInfo();
    info.horizontalPagination = PrintInfo::Pagination::Automatic;
    info.verticalPagination = PrintInfo::Pagination::Automatic;
    info.paperSize = {a4.width, a4.height};
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

PdfExport::PdfExport(const QString &folder, NewPrintOperation newOperation)
    : m_folder(folder)
    , m_newOperation(std::move(newOperation))
{
}

void PdfExport::savePDF(const QString &fileName, const QString &text, QWidget *window)
{
    if (m_isLooking || m_operation)
        return;
    m_isLooking = true;
    const auto isFolder = [folder = m_folder] { return std::optional(QFileInfo(folder).isDir()); };
    m_folderAnswers.ask(window, isFolder, [=, this](std::optional<bool> is) {
        m_isLooking = false;
        if (is == true)
            begin(fileName, text, window);
        else
            showNotice(QMessageBox::Warning, tr("PDFを保存できません。"),
                       is ? tr("ダウンロードフォルダがありません。")
                          : tr("ダウンロードフォルダが応答しません。"),
                       window);
    });
}

void PdfExport::begin(const QString &fileName, const QString &text, QWidget *window)
{
    const QString path = m_folder + u'/' + fileName + QStringLiteral(".pdf");
    m_operation = m_newOperation({textWidth, text}, printInfo(path), window);
    m_operation->setShowsPrintPanel(true);
    m_operation->setShowsProgressPanel(true);
    m_operation->runOperation([window](bool isDone) {
        if (isDone) // a failure has a notice, which is heard by itself
            announce(tr("書き出しました"), window);
    });
}
