#include "Testing.h"
#include "printing/PdfExport.h"
#include "printing/PrintServer.h"
#include "printing/PrintWork.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>

#include <atomic>
#include <csignal>
#include <functional>
#include <map>
#include <thread>
#include <vector>

#include <cups/cups.h>
#include <poll.h>
#include <sys/resource.h>

namespace {

// A print system with one printer, at a socket of its own.
class PrintSystem {
public:
    explicit PrintSystem(const QString &socket)
        : m_addresses(httpAddrGetList(qPrintable(socket), AF_LOCAL, nullptr), httpAddrFreeList)
        , m_listener(httpAddrListen(&m_addresses->addr, 0))
        , m_thread([this] { serve(); })
    {
    }
    ~PrintSystem()
    {
        end();
        httpAddrClose(&m_addresses->addr, m_listener);
    }
    void end() // what it has been told is to be looked at after that
    {
        m_ends = true;
        if (m_thread.joinable())
            m_thread.join();
    }

    std::atomic<bool> isMute = false;    // takes what it is told and says nothing
    ipp_status_t answer = IPP_STATUS_OK; // to a new job
    std::function<void()> onDocument = [] {};
    std::map<ipp_op_t, std::map<std::string, std::string>> asked;
    QByteArray document;

private:
    // Several connections at a time: the client's library has one of its own beside ours.
    void serve()
    {
        std::vector<http_t *> clients;
        while (!m_ends) {
            std::vector<pollfd> watched{{m_listener, POLLIN, 0}};
            for (http_t *client : clients)
                watched.push_back({httpGetFd(client), POLLIN, 0});
            ::poll(watched.data(), watched.size(), 20);
            for (std::size_t i = watched.size() - 1; i > 0; --i) {
                if (!isMute && watched[i].revents && !serveRequest(clients[i - 1])) {
                    httpClose(clients[i - 1]);
                    clients.erase(clients.begin() + std::ptrdiff_t(i - 1));
                }
            }
            if (watched[0].revents)
                clients.push_back(httpAcceptConnection(m_listener, 1));
        }
        for (http_t *client : clients)
            httpClose(client);
    }

    bool serveRequest(http_t *http)
    {
        char resource[1024];
        http_state_t state = HTTP_STATE_WAITING;
        while (state == HTTP_STATE_WAITING)
            state = httpReadRequest(http, resource, sizeof(resource));
        if (state != HTTP_STATE_POST)
            return false;
        http_status_t status = HTTP_STATUS_CONTINUE;
        while (status == HTTP_STATUS_CONTINUE)
            status = httpUpdate(http);
        if (httpGetExpect(http) == HTTP_STATUS_CONTINUE)
            httpWriteResponse(http, HTTP_STATUS_CONTINUE);
        const std::unique_ptr<ipp_t, decltype(&ippDelete)> request(ippNew(), ippDelete);
        ipp_state_t read = IPP_STATE_IDLE;
        while (read != IPP_STATE_DATA && read != IPP_STATE_ERROR)
            read = ippRead(http, request.get());
        return read == IPP_STATE_DATA && respond(http, request.get());
    }

    bool respond(http_t *http, ipp_t *request)
    {
        const ipp_op_t operation = ippGetOperation(request);
        auto &attributes = asked[operation];
        for (auto *one = ippFirstAttribute(request); one; one = ippNextAttribute(request)) {
            char value[1024] = {};
            ippAttributeString(one, value, sizeof(value));
            attributes[ippGetName(one) ? ippGetName(one) : ""] = value;
        }
        if (operation == IPP_OP_SEND_DOCUMENT && !takeDocument(http))
            return false;
        if (isMute)
            return true;
        const std::unique_ptr<ipp_t, decltype(&ippDelete)> response(ippNewResponse(request), ippDelete);
        ippSetStatusCode(response.get(), operation == IPP_OP_CREATE_JOB ? answer : IPP_STATUS_OK);
        if (operation == IPP_OP_CREATE_JOB)
            ippAddInteger(response.get(), IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", 7);
        ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr, "office");
        ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_URI, "printer-uri-supported", nullptr,
                     "ipp://localhost/printers/office");
        httpSetField(http, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
        httpSetLength(http, ippLength(response.get()));
        if (httpWriteResponse(http, HTTP_STATUS_OK) < 0)
            return false;
        const bool written = ippWrite(http, response.get()) == IPP_STATE_DATA;
        httpFlushWrite(http);
        return written;
    }

    bool takeDocument(http_t *http)
    {
        char room[8192];
        ssize_t got = 0;
        while ((got = httpRead2(http, room, sizeof(room))) > 0) {
            document.append(room, got);
            onDocument();
        }
        return got == 0;
    }

    std::unique_ptr<http_addrlist_t, decltype(&httpAddrFreeList)> m_addresses;
    int m_listener;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace

class PrintingTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    const QString m_socket = m_folder.filePath(u"print.sock"_s);
    PdfProgress m_progress;

    // Why a text doesn't get there: nothing if it does, or if it isn't said.
    QString failure(const PrintTarget &target = {.queue = u"office"_s})
    {
        const PrintOutcome outcome = print(u"本文"_s, {}, target, m_progress);
        return outcome.result == PdfResult::Failed ? outcome.reason : QString();
    }

    // One after the other, what the person sees and does until an export has ended.
    struct Export {
        QWidget window;
        std::unique_ptr<PdfExport> pdf;
        QPointer<PrintOperation> operation;
        Export(const QString &folder, const QString &text)
            : pdf(std::make_unique<PdfExport>(folder, [this](auto said, auto info, QWidget *over) {
                operation = newPrintOperation(std::move(said), std::move(info), over);
                return operation.data();
            }))
        {
            window.show();
            pdf->savePDF(u"a"_s, text, &window);
        }

        // Of the window and modal for it alone, as all of its dialogs are.
        template <class Dialog> Dialog *shown() const
        {
            auto *dialog = window.findChild<Dialog *>();
            const bool isOurs =
                dialog && dialog->isVisible() && dialog->windowModality() == Qt::WindowModal;
            return isOurs ? dialog : nullptr;
        }
        bool begun(QPrintDialog *&dialog) const
        {
            return QTest::qWaitFor([&] { return (dialog = shown<QPrintDialog>()); });
        }
        bool ended() const
        {
            return QTest::qWaitFor([&] { return !operation; }, 20'000);
        }
    };

private slots:
    void initTestCase() { cupsSetServer(qPrintable(m_socket)); }

    void aPrinterGetsTheDocumentAndWhatWasChosen()
    {
        PrintSystem system(m_socket);
        const PrintTarget target{
            .queue = u"office/duplex"_s,
            .options = {{"copies", "2"}, {"media", "A5"}, {"sides", "two-sided-long-edge"}}};
        const PrintOutcome outcome = print(u"本文"_s, {.title = "名称未設定"}, target, m_progress);
        system.end();
        QCOMPARE(outcome.result, PdfResult::Written);
        auto &job = system.asked[IPP_OP_CREATE_JOB];
        QVERIFY(QByteArray(job["printer-uri"].c_str()).endsWith("/printers/office"));
        QCOMPARE(job["job-name"], "名称未設定");
        QCOMPARE(job["copies"], "2");
        QCOMPARE(job["sides"], "two-sided-long-edge");
        QVERIFY(system.document.startsWith("%PDF-") && system.document.trimmed().endsWith("%%EOF"));
        QCOMPARE(system.asked.count(IPP_OP_CANCEL_JOB), 0u);
    }

    void whatIsChosenInTheDialogIsAskedOfThePrinter()
    {
        PrintSystem system(m_socket);
        QPrinter printer;
        printer.setPrinterName(u"office"_s);
        QCOMPARE(printer.outputFormat(), QPrinter::NativeFormat);
        printer.setPageSize(QPageSize(QPageSize::A5));
        printer.setCopyCount(3);
        printer.setCollateCopies(false);
        printer.setPageOrder(QPrinter::LastPageFirst);
        printer.setColorMode(QPrinter::GrayScale);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(u"2-3,5"_s));

        const PrintTarget target = chosenTarget(printer);
        QCOMPARE(target.queue, u"office"_s);
        QVERIFY(target.file.isEmpty());
        const std::map<std::string, std::string> options(target.options.begin(), target.options.end());
        const std::map<std::string, std::string> expected{
            {"media", "A5"},        {"copies", "3"},
            {"Collate", "false"},   {"outputorder", "reverse"},
            {"sides", "one-sided"}, {"print-color-mode", "monochrome"}};
        QVERIFY(options == expected);
        const PdfSettings pages = chosenPages(printer, {.width = 100});
        QCOMPARE(pages.copies, 1); // the printer makes the others
        QCOMPARE(pages.lastPage, 5);
        QString wanted;
        for (int page = 1; page < 7; ++page)
            wanted += pages.wants(page) ? QString::number(page) : u"-"_s;
        QCOMPARE(wanted, u"-23-5-"_s);
    }

    void whatIsChosenForAFileIsDoneByTheDocument()
    {
        PrintInfo info;
        info.paperSize = {420, 595}; // A5
        info.leftMargin = 30;
        info.bottomMargin = 40;
        info.jobDisposition = PrintInfo::JobDisposition::Save;
        info.jobSavingPath = m_folder.filePath(u"a.pdf"_s);
        QPrinter printer;
        preset(printer, info);
        printer.setCopyCount(2);
        printer.setPageOrder(QPrinter::LastPageFirst);
        printer.setColorMode(QPrinter::GrayScale);

        const PrintTarget target = chosenTarget(printer);
        QCOMPARE(target.file, info.jobSavingPath);
        QVERIFY(target.queue.isEmpty() && target.options.empty());
        const PdfSettings pages = chosenPages(printer, {.width = 100});
        QCOMPARE(pages.format.width, 420.0);
        printer.setPageOrientation(QPageLayout::Landscape);
        QCOMPARE(chosenPages(printer, {.width = 100}).format.width, 595.0);
        QCOMPARE(pages.format.height, 595.0);
        QCOMPARE(pages.format.left, 30.0);
        QCOMPARE(pages.format.bottom, 40.0);
        QCOMPARE(pages.format.longestLine, 100.0);
        QVERIFY(pages.copies == 2 && pages.lastFirst && pages.grey && pages.ranges.empty());
    }

    void aPrinterThatTakesNoJobsSaysWhy()
    {
        {
            PrintSystem system(m_socket);
            system.answer = IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS;
            QVERIFY(!failure().isEmpty());
            system.end();
            QVERIFY(system.document.isEmpty());
        }
        QVERIFY(!failure().isEmpty()); // nobody is there
    }

    void aPrintSystemThatNeverAnswersIsLeftAlone()
    {
        QVERIFY(!PrintServer::answers()); // nobody is there
        PrintSystem system(m_socket);
        QVERIFY(PrintServer::answers());
        system.isMute = true;
        QElapsedTimer time;
        time.start();
        QVERIFY(!PrintServer::answers());
        PrintServer::leaveAlone(true);
        QPrintDialog(std::make_unique<QPrinter>().get());
        QVERIFY(time.elapsed() < 2000);
        PrintServer::leaveAlone(false);
        cupsSetServer(qPrintable(m_socket));

        time.restart();
        QVERIFY(!failure().isEmpty());
        QVERIFY(time.elapsed() < 3000);
    }

    void aPrintSystemThatFallsSilentIsWaitedForUntilTheJobIsCancelled()
    {
        PrintSystem system(m_socket);
        PdfProgress progress;
        QElapsedTimer time;
        system.onDocument = [&] {
            system.isMute = true;
            time.start();
            progress.cancelled = true;
        };
        QCOMPARE(print(u"本文"_s, {}, {.queue = u"office"_s}, progress).result, PdfResult::Cancelled);
        QVERIFY(time.elapsed() < 5000);
    }

    void aCancelledJobIsTakenBack()
    {
        PrintSystem system(m_socket);
        PdfProgress progress;
        system.onDocument = [&] { progress.cancelled = true; };
        QString text; // of which a document can't be made small
        for (char16_t i = 0; i < 3000; ++i)
            text += QChar(u'一' + i * 7);
        const PrintOutcome outcome = print(text.repeated(5), {}, {.queue = u"office"_s}, progress);
        system.end();
        QCOMPARE(outcome.result, PdfResult::Cancelled);
        QCOMPARE(system.asked[IPP_OP_CANCEL_JOB]["job-id"], "7");
        QVERIFY(!system.document.contains("%%EOF"));
    }

    void anExportIsWhatThePersonMakesOfIt()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.pdf"_s);
        const QString longer = u"長い文章。"_s.repeated(2'500'000); // takes a while
        QPrintDialog *dialog = nullptr;
        {
            Export cancelled(folder.path(), u"本文"_s);
            QVERIFY(cancelled.begun(dialog));
            QVERIFY(!dialog->findChild<QCheckBox *>(u"numbers"_s)->isChecked());
            cancelled.pdf->savePDF(u"b"_s, u"別"_s, &cancelled.window); // one at a time
            dialog->reject();
            QVERIFY(cancelled.ended());
            QVERIFY(!QFile::exists(file));
            QVERIFY(!cancelled.shown<QPrintDialog>());
        }
        {
            Export done(folder.path(), u"本文"_s);
            QVERIFY(done.begun(dialog));
            dialog->accept();
            QVERIFY(done.ended());
            QVERIFY(contentOf(file).startsWith("%PDF-"));
            QVERIFY(QFile::remove(file));
        }
        {
            Export failing(folder.path(), u"本文"_s);
            QVERIFY(failing.begun(dialog));
            dialog->printer()->setOutputFileName(folder.filePath(u"gone/<b>.pdf"_s));
            dialog->done(QDialog::Accepted); // as if the folder had gone by now
            QTRY_VERIFY(failing.shown<QMessageBox>());
            auto *notice = failing.shown<QMessageBox>();
            QCOMPARE(notice->text(), u"「<b>.pdf」を保存できませんでした。"_s);
            QCOMPARE(notice->textFormat(), Qt::PlainText);
            QVERIFY(!notice->informativeText().isEmpty());
            notice->accept();
            QVERIFY(failing.ended());
        }
        {
            Export stopped(folder.path(), longer);
            QVERIFY(stopped.begun(dialog));
            dialog->accept();
            QTRY_VERIFY(stopped.shown<QProgressDialog>());
            const auto *progress = stopped.shown<QProgressDialog>();
            QTRY_VERIFY(progress->value() > 0 && progress->labelText().contains(u"「a.pdf」"_s));
            QElapsedTimer clock;
            clock.start();
            titled(u"キャンセル"_s, progress->findChildren<QPushButton *>())->click();
            QVERIFY(stopped.ended());
            QVERIFY2(clock.elapsed() < 1500, QByteArray::number(clock.elapsed()));
            QVERIFY(!QFile::exists(file));
        }
        {
            auto closed = std::make_unique<Export>(folder.path(), longer);
            QVERIFY(closed->begun(dialog));
            dialog->accept();
            QTRY_VERIFY(closed->shown<QProgressDialog>());
            const QPointer<PrintOperation> operation = closed->operation;
            closed.reset();
            QVERIFY(!operation);
        }
        Export next(folder.path(), longer); // as long as what was stopped, had that gone on
        QVERIFY(next.begun(dialog));
        dialog->printer()->setOutputFileName(folder.filePath(u"next.pdf"_s));
        dialog->done(QDialog::Accepted);
        QVERIFY(next.ended());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"next.pdf"_s));
    }

    void whatCannotBeSavedSaysWhy()
    {
        QCOMPARE(failure({.file = m_folder.filePath(u"gone/a.pdf"_s)}),
                 u"保存先のフォルダがありません。"_s);
        QCOMPARE(failure({.file = m_folder.path()}), u"その名前のフォルダがあります。"_s);
        if (QFile::exists(u"/sys/kernel"_s)) // where not even root writes
            QCOMPARE(failure({.file = u"/sys/a.pdf"_s}), u"そこに書き込むことは許可されていません。"_s);
        QVERIFY(!failure({.file = u"/dev/null"_s}).isEmpty());
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{4000, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small); // as where there is no more room
        const QString full = failure({.file = m_folder.filePath(u"full.pdf"_s)});
        ::setrlimit(RLIMIT_FSIZE, &before);
        QCOMPARE(full, u"ファイルが大きすぎます。"_s);
        QVERIFY(!QFile::exists(m_folder.filePath(u"full.pdf"_s)));
        const PrintOutcome endless = print(u"本文"_s, {.copies = 2'000'000'000},
                                           {.file = m_folder.filePath(u"b.pdf"_s)}, m_progress);
        QCOMPARE(endless.reason, u"メモリが足りません。"_s);
        QVERIFY(!QFile::exists(m_folder.filePath(u"b.pdf"_s)));
        PdfProgress cancelled;
        cancelled.cancelled = true;
        const QString file = m_folder.filePath(u"a.pdf"_s);
        QCOMPARE(print(u"本文"_s, {}, {.file = file}, cancelled).result, PdfResult::Cancelled);
        QVERIFY(!QFile::exists(file));
    }
};

QTEST_MAIN(PrintingTest)
#include "printing_test.moc"
