#pragma once

#include "printing/PrintOperation.h"
#include "printing/PrintWork.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <memory>

class QCheckBox;
class QPrintDialog;
class QProgressDialog;

/// The print dialog, then the work on another thread with its progress, then what went wrong.
class TextPrintOperation : public PrintOperation {
    Q_OBJECT

public:
    TextPrintOperation(PrintedText text, PrintInfo info, QWidget *window);
    ~TextPrintOperation() override;

    void runOperation(std::function<void(bool)> ended) override;

private:
    void begin(bool serverAnswers);
    void showPanel();
    void start(bool isNumbered);
    void showProgress();
    void cancel();
    void finish(const PrintOutcome &outcome);
    void showFailure(const QString &reason);
    void end(bool success);

    std::unique_ptr<QPrinter> m_printer;
    PrintTarget m_target;
    // Shared with the thread that does the work: it may see the end of this.
    std::shared_ptr<PdfProgress> m_progress = std::make_shared<PdfProgress>();
    QPointer<QPrintDialog> m_panel;
    QPointer<QCheckBox> m_numbers; // in the panel
    QPointer<QProgressDialog> m_progressPanel;
    QTimer m_look;
    QElapsedTimer m_started;
    bool m_hasFinished = false;
    std::function<void(bool)> m_ended;
};
