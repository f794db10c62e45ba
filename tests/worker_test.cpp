#include "Testing.h"
#include "browsers/IconFiles.h"
#include "preferences/UserDefaults.h"
#include "printing/PrintWork.h"
#include "reading/TextLoading.h"
#include "worker/Errand.h"

#include <QDir>

using Protocol::Report;
using namespace std::chrono_literals;

// The worker beside this program is the real one, but what it does for a living is misbehaving_job.cpp.
class WorkerTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    // What a worker might leave behind.
    QStringList traces() const
    {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System) + childProcesses()
            + QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    class Panel : public OpenPanel {
    public:
        void runModal(std::function<void(ModalResponse)> ended) override { answer = std::move(ended); }
        std::optional<QUrl> url() const override { return picked; }

        std::function<void(ModalResponse)> answer;
        std::optional<QUrl> picked;
    };

    static bool aLoadChangesNothing(const QString &path)
    {
        ReadingText text;
        UserDefaults store(path + u".conf"_s);
        State<qint64> sp1, sp2;
        Panel panel;
        TextLoading loading(text, sp1, sp2, store, [&panel](QWidget *) { return &panel; });
        QObject ended;
        bool hasEnded = false;
        connect(&loading, &TextLoading::ended, &ended, [&] { hasEnded = true; });
        text.setValue(u"書いたこと"_s);
        loading.openText(nullptr);
        panel.picked = QUrl::fromLocalFile(path);
        panel.answer(ModalResponse::OK);
        return QTest::qWaitFor([&] { return hasEnded; }, 30'000) && text.value() == u"書いたこと"_s;
    }

private slots:
    void whateverItDoesAnOperationFailsAndNothingElse_data()
    {
        const QString noPages = u"ページを作れませんでした。"_s;
        cases<QString>({
            {"it crashes", noPages},
            {"it is leaving without a word", noPages},
            {"half a report", noPages},
            {"another introduction", noPages},
            {"shrinking of what it was given", noPages},
            {"nothing behind it", noPages},
            {"2 GB are claimed", noPages},
            {"everything is claimed", noPages},
            {"a flood", noPages},
            {"it says that it failed", noPages},
#ifndef TARUMINE_SANITIZED
            {"memory without an end", u"メモリが足りません。"_s},
#endif
        });
    }
    void whateverItDoesAnOperationFailsAndNothingElse()
    {
        const auto [reason] = values<QString>();
        const QString what = QString::fromLatin1(QTest::currentDataTag());
        const bool floods = what == u"a flood"_s; // of documents alone: the others have no more room
        const QString text =
            written(m_folder.filePath(u"text"_s), "\xff " + (floods ? "it failed" : what.toLatin1()));
        const QStringList before = traces();

        QVERIFY(aLoadChangesNothing(text));
        QVERIFY(smallPicture(text, 64).isNull());
        PdfProgress progress;
        const PrintOutcome outcome = print(what, {}, {.file = m_folder.filePath(u"made.pdf"_s)}, progress);
        QCOMPARE(outcome.result, PdfResult::Failed);
        QCOMPARE(outcome.reason, reason);
        QTRY_COMPARE(traces(), before);
    }

    void whatNeverEndsIsEnded()
    {
        const QStringList before = traces();
        for (const std::string_view what : {"loop", "silence"}) {
            Errand errand{.order = newOrder(Protocol::Job::Decode, 1), .behind = {what}};
            errand.order.seconds = 1;
            errand.output = [](const char *, std::size_t) { return true; };
            errand.patience = what == "loop" ? 40'000ms : 200ms;
            QElapsedTimer time;
            time.start();
            QCOMPARE(done(errand).result, Report::Result::Failed);
            QVERIFY(time.elapsed() < 20'000);
        }
        QTRY_COMPARE(traces(), before);
    }

    void aWorkerOfAnotherReleaseDoesNothing()
    {
        Errand errand{.order = newOrder(Protocol::Job::Decode, 1), .behind = {"2 GB"}};
        errand.output = [](const char *, std::size_t) { return true; };
        QCOMPARE(done(errand).result, Report::Result::Done); // it isn't looked at here
        int reports = 0;
        errand.heard = [&reports](const Report &) { ++reports; };
        errand.order.release[0] = '9';
        QCOMPARE(done(errand).result, Report::Result::Failed);
        QCOMPARE(reports, 0);
    }
};

QTEST_MAIN(WorkerTest)
#include "worker_test.moc"
