#pragma once

#include "platform/Respondent.h"
#include "printing/PrintOperation.h"

#include <QPointer>

/// How a print operation is begun.
using NewPrintOperation =
    std::function<PrintOperation *(PrintedText text, PrintInfo info, QWidget *window)>;

/// Lets the person print a text, by default into a file in a folder. One export of a window at a time:
/// until its dialog and its work have ended, another one isn't begun.
class PdfExport : public QObject {
    Q_OBJECT

public:
    PdfExport(const QString &folder, NewPrintOperation newOperation);

    /// Returns before the dialog is there. The file is `fileName`.pdf; where there is no such folder, or it
    /// doesn't answer, the person is told and nothing is written.
    void savePDF(const QString &fileName, const QString &text, QWidget *window);

private:
    void begin(const QString &fileName, const QString &text, QWidget *window);

    const QString m_folder;
    const NewPrintOperation m_newOperation;
    Respondent m_folderAnswers;
    bool m_isLooking = false;
    QPointer<PrintOperation> m_operation;
};
