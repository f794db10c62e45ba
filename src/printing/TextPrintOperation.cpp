#include "printing/TextPrintOperation.h"

#include "platform/Background.h"
#include "printing/PrintServer.h"
#include "view/Notice.h"
#include "view/Unwinding.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFontInfo>
#include <QPrintDialog>
#include <QProgressBar>
#include <QProgressDialog>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace {

// Qt's dialog begins with the default printer, if there is one; the last of its list is the file.
void chooseFile(QPrintDialog &panel)
{
    if (auto *printers = panel.findChild<QComboBox *>(QStringLiteral("printers")))
        printers->setCurrentIndex(printers->count() - 1);
}

// What can be chosen for a text alone.
QWidget *textTab(QCheckBox *numbers)
{
    auto *tab = new QWidget;
    tab->setWindowTitle(TextPrintOperation::tr("テキスト"));
    auto *layout = new QVBoxLayout(tab);
    layout->addWidget(numbers);
    layout->addStretch();
    return tab;
}

constexpr qint64 worthShowing = 500; // milliseconds

} // namespace

TextPrintOperation::TextPrintOperation(PrintedText text, PrintInfo info, QWidget *window)
    : PrintOperation(std::move(text), std::move(info), window)
{
    m_look.setInterval(100ms);
    connect(&m_look, &QTimer::timeout, this, &TextPrintOperation::showProgress);
}

// The panel looks at the printer to its end.
TextPrintOperation::~TextPrintOperation()
{
    m_progress->cancelled = true;
    delete m_panel;
}

void TextPrintOperation::runOperation(std::function<void(bool)> ended)
{
    m_ended = std::move(ended);
    inBackground(
        this, PrintServer::answers, [this](bool answers) { begin(answers); }, Workers::waiting());
}

void TextPrintOperation::begin(bool serverAnswers)
{
    PrintServer::leaveAlone(!serverAnswers);
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    preset(*m_printer, m_info);
    if (m_showsPrintPanel)
        showPanel();
    else
        start(false);
}

void TextPrintOperation::showPanel()
{
    m_panel = new QPrintDialog(m_printer.get(), window());
    m_panel->setWindowModality(Qt::WindowModal);
    m_panel->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange
                        | QAbstractPrintDialog::PrintCollateCopies
                        | QAbstractPrintDialog::PrintShowPageSize);
    m_numbers = new QCheckBox(tr("ページ番号を付ける(&G)"));
    m_numbers->setObjectName(QStringLiteral("numbers"));
    m_panel->setOptionTabs({textTab(m_numbers)});
    const auto finished = [this](int result) {
        deleteWhenUnwound(m_panel);
        if (result == QDialog::Accepted)
            start(m_numbers->isChecked());
        else
            end(false);
    };
    // Once: it can be accepted again while it still asks whether to replace a file.
    connect(m_panel, &QDialog::finished, this, finished, Qt::SingleShotConnection);
    m_panel->open();
    if (m_info.jobDisposition == PrintInfo::JobDisposition::Save)
        chooseFile(*m_panel);
}

void TextPrintOperation::start(bool isNumbered)
{
    m_target = chosenTarget(*m_printer);
    PdfSettings settings = chosenPages(*m_printer, m_text);
    settings.format.isNumbered = isNumbered;
    settings.fontFamily = QFontInfo(QApplication::font()).family().toStdString();
    settings.title = QFileInfo(m_info.jobSavingPath).completeBaseName().toStdString();
    m_started.start();
    if (m_showsProgressPanel)
        m_look.start();
    inBackground(
        this,
        [text = m_text.string, settings, target = m_target, progress = m_progress] {
            return print(text, settings, target, *progress);
        },
        [this](const PrintOutcome &outcome) { finish(outcome); }, Workers::waiting());
}

void TextPrintOperation::showProgress()
{
    if (!m_progressPanel && m_started.elapsed() >= worthShowing) {
        m_progressPanel = new QProgressDialog(window());
        m_progressPanel->setWindowModality(Qt::WindowModal);
        m_progressPanel->setWindowTitle(tr("簡易PDF"));
        m_progressPanel->setCancelButtonText(tr("キャンセル"));
        m_progressPanel->findChild<QProgressBar *>()->setAccessibleName(tr("進み具合"));
        m_progressPanel->setRange(0, 1000);
        m_progressPanel->setMinimumDuration(0);
        m_progressPanel->setAutoClose(false);
        m_progressPanel->setAutoReset(false);
        connect(m_progressPanel, &QProgressDialog::canceled, this, &TextPrintOperation::cancel);
        m_progressPanel->open();
    }
    if (!m_progressPanel)
        return;
    const QString name = m_target.queue.isEmpty() ? QFileInfo(m_target.file).fileName() : m_target.queue;
    m_progressPanel->setLabelText(
        tr("「%1」を書き出しています… %L2 ページ").arg(name).arg(m_progress->pages.load()));
    m_progressPanel->setValue(int(m_progress->share.load() * 1000));
}

// The work may be held up by a printer or a folder that doesn't answer; then it ends without us.
void TextPrintOperation::cancel()
{
    m_progress->cancelled = true;
    QTimer::singleShot(500ms, this, [this] { finish({.result = PdfResult::Cancelled}); });
}

void TextPrintOperation::finish(const PrintOutcome &outcome)
{
    if (std::exchange(m_hasFinished, true))
        return;
    m_look.stop();
    delete m_progressPanel;
    if (outcome.result == PdfResult::Failed)
        showFailure(outcome.reason);
    else
        end(outcome.result == PdfResult::Written);
}

void TextPrintOperation::showFailure(const QString &reason)
{
    const QString what = m_target.queue.isEmpty()
        ? tr("「%1」を保存できませんでした。").arg(QFileInfo(m_target.file).fileName())
        : tr("「%1」に印刷できませんでした。").arg(m_target.queue);
    const auto *notice = showNotice(QMessageBox::Warning, what, reason, window());
    connect(notice, &QDialog::finished, this, [this] { end(false); });
}

void TextPrintOperation::end(bool success)
{
    const auto ended = std::exchange(m_ended, nullptr);
    deleteWhenUnwound(this);
    if (ended)
        ended(success);
}

extern "C" Q_DECL_EXPORT PrintOperation *makePrintOperation(PrintedText &&text, PrintInfo &&info,
                                                            QWidget *window)
{
    return new TextPrintOperation(std::move(text), std::move(info), window);
}
