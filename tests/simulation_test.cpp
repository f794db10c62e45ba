#include "Testing.h"
#include "platform/StandardOutput.h"
#include "simulation/Simulation.h"
#include "simulation/SimulationTask.h"
#include "simulation/SomeCircuit.h"

#include <QCryptographicHash>
#include <QTemporaryFile>
#include <QThread>

#include <functional>

namespace {

// What `printing` puts out.
QByteArray printed(const std::function<void(StandardOutput &)> &printing)
{
    std::FILE *file = std::tmpfile();
    {
        StandardOutput output(file);
        printing(output);
    }
    std::rewind(file);
    QFile content;
    content.open(file, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    return content.readAll();
}

} // namespace

class SimulationTest : public QObject {
    Q_OBJECT

private slots:
    void commandsPrintTheirLines()
    {
        const auto play = [](StandardOutput &output) {
            SomeCircuit c(output);
            c.signal(c.mode + c.port + c.vr1 + c.cds + c.productcode); // they start at 0
            c.modeSetting(1), c.portSetting(2), c.VRSetting(3), c.CDSSetting(4), c.sokutei(5), c.display(6);
            c.func1(7);
            c.signal(c.mode * 1000 + c.port * 100 + c.vr1 * 10 + c.cds);
            c.productcodeSetting(20250401), c.signal(c.productcode);
            c.signal(-1), c.signal0(3);
            c.signal1(0), c.PowerOff(), c.signal1(2); // signals need no power
        };
        QCOMPARE(printed(play), "0\n1234\nproduct code :20250401\n20250401\n-1\n0\n0\n0\n0\n1\n1\n1\n1\n");
    }

    // The sum was made by another program, from the tables as they were drawn up.
    void aRunPrintsItsLinesByteForByte()
    {
        const QByteArray run = printed(simulation);
        QCOMPARE(run.count('\n'), 904'777);
        QCOMPARE(QCryptographicHash::hash(run, QCryptographicHash::Sha256).toHex(),
                 QByteArray("42fd60c6865d4393211fbd7c013262abf3c761d972b51fb70cb95a795616810b"));
    }

    void overlappingRunsAreIndependentAndKeepLinesWhole()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        std::FILE *stream = std::fopen(qPrintable(file.fileName()), "w");
        StandardOutput output(stream);
        QStringList said;
        QList<QThread *> threads;
        const auto say = [&](const QString &text) { said += text, threads += QThread::currentThread(); };
        QObject owner;
        {
            QObject gone; // its run goes on, and says nothing any more
            startSimulation(&gone, say, output);
        }
        startSimulation(&owner, say, output);
        output.post("OK tapped\n");
        QCOMPARE(said, QStringList(2, u"スレッド動作中"_s));
        const QByteArray run = printed(simulation), all = run + run + "OK tapped\n";
        QTRY_COMPARE_WITH_TIMEOUT(file.size(), all.size(), 20'000); // nothing is left behind in a buffer
        QTRY_COMPARE(said.size(), 3);
        QCOMPARE(said.last(), u"動作完了"_s);
        QCOMPARE(threads, QList<QThread *>(3, thread()));

        QByteArrayList lines = file.readAll().split('\n'), expected = all.split('\n');
        std::sort(lines.begin(), lines.end());
        std::sort(expected.begin(), expected.end());
        QVERIFY(lines == expected);
    }
};

QTEST_GUILESS_MAIN(SimulationTest)
#include "simulation_test.moc"
