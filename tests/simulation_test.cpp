#include "platform/StandardOutput.h"
#include "simulation/Simulation.h"
#include "simulation/SimulationTask.h"
#include "simulation/SomeCircuit.h"

#include <QFile>
#include <QTest>
#include <QThread>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <thread>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// What `printing` puts out.
template <class Printing> QByteArray printed(Printing printing)
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

// Lines as "count line", one for each row of equal lines.
QByteArrayList counted(const QByteArray &output)
{
    QByteArrayList rows;
    QByteArrayList lines = output.split('\n');
    lines.removeLast();
    for (qsizetype i = 0, start = 0; i < lines.size(); ++i) {
        if (i + 1 < lines.size() && lines[i + 1] == lines[i])
            continue;
        rows += QByteArray::number(i + 1 - start) + ' ' + lines[i];
        start = i + 1;
    }
    return rows;
}

std::map<QByteArray, int> occurrences(const QByteArray &output)
{
    std::map<QByteArray, int> count;
    for (const QByteArray &line : output.split('\n'))
        ++count[line];
    return count;
}

// A standard output that is only read when the test says so.
class SlowReader {
public:
    SlowReader()
    {
        if (::pipe(m_ends) == 0)
            m_stream = ::fdopen(m_ends[1], "w");
        m_output = std::make_unique<StandardOutput>(m_stream);
    }

    StandardOutput &output() { return *m_output; }

    void startReading()
    {
        m_reader = std::thread([this] {
            char room[4096];
            for (ssize_t got = 0; (got = ::read(m_ends[0], room, sizeof room)) > 0;)
                m_read.append(room, got), m_bytesRead += got;
        });
    }

    qsizetype bytesRead() const { return m_bytesRead; }

    QByteArray readToEnd()
    {
        m_output.reset();
        std::fclose(m_stream);
        m_reader.join();
        ::close(m_ends[0]);
        return m_read;
    }

private:
    int m_ends[2] = {-1, -1};
    std::FILE *m_stream = nullptr;
    std::unique_ptr<StandardOutput> m_output;
    std::thread m_reader;
    QByteArray m_read;
    std::atomic<qsizetype> m_bytesRead = 0;
};

} // namespace

class SimulationTest : public QObject {
    Q_OBJECT

private slots:
    void aFreshCircuitHoldsZeros();
    void commandsPrintTheirLines_data();
    void commandsPrintTheirLines();
    void aRunPrintsTheSameLinesEveryTime();
    void statusIsSaidOnTheCallingThread();
    void overlappingRunsAreConcurrentAndKeepLinesWhole();
    void aRunOutlivesItsOwnerInSilence();
};

void SimulationTest::aFreshCircuitHoldsZeros()
{
    const SomeCircuit circuit;
    for (const qint64 value : {circuit.mode, circuit.port, circuit.vr1, circuit.cds, circuit.productcode})
        QCOMPARE(value, 0);
}

void SimulationTest::commandsPrintTheirLines_data()
{
    QTest::addColumn<std::function<void(SomeCircuit &)>>("command");
    QTest::addColumn<QByteArray>("lines");
    const auto row = [](const char *name, std::function<void(SomeCircuit &)> command,
                        const QByteArray &lines) { QTest::newRow(name) << std::move(command) << lines; };
    row(
        "a signal is a number", [](SomeCircuit &c) { c.signal(-1), c.signal(0); }, "-1\n0\n");
    row(
        "the largest number fits", [](SomeCircuit &c) { c.signal(INT64_MIN); }, "-9223372036854775808\n");
    row(
        "signal1(0) is one line", [](SomeCircuit &c) { c.signal1(0); }, "1\n");
    row(
        "signal0(3) is four lines", [](SomeCircuit &c) { c.signal0(3); }, "0\n0\n0\n0\n");
    row(
        "a negative count is no line", [](SomeCircuit &c) { c.signal0(-1), c.signal1(-5); }, "");
    row(
        "signals need no power", [](SomeCircuit &c) { c.PowerOff(), c.signal1(2); }, "1\n1\n1\n");
    row(
        "settings are silent",
        [](SomeCircuit &c) {
            c.modeSetting(1), c.portSetting(2), c.VRSetting(3), c.CDSSetting(4), c.sokutei(5), c.display(6),
                c.func1(7);
            c.signal(c.mode * 1000 + c.port * 100 + c.vr1 * 10 + c.cds);
        },
        "1234\n");
    row(
        "the product code is said and stored alone",
        [](SomeCircuit &c) {
            c.productcodeSetting(20250401);
            c.signal(c.productcode + c.mode + c.port + c.vr1 + c.cds);
        },
        "product code :20250401\n20250401\n");
}

void SimulationTest::commandsPrintTheirLines()
{
    QFETCH(std::function<void(SomeCircuit &)>, command);
    QTEST(printed([&](StandardOutput &output) {
              SomeCircuit circuit(output);
              command(circuit);
          }),
          "lines");
}

void SimulationTest::aRunPrintsTheSameLinesEveryTime()
{
    QFile table(QFINDTESTDATA("simulation_lines.txt"));
    QVERIFY(table.open(QIODevice::ReadOnly));
    const QByteArrayList expected = table.readAll().trimmed().split('\n');
    const QByteArray run = printed(simulation);
    QCOMPARE(counted(run), expected);
    QCOMPARE(run.count('\n'), 904'777);
    QVERIFY(run.endsWith("\nproduct code :20250401\n"));
}

void SimulationTest::statusIsSaidOnTheCallingThread()
{
    SlowReader reader;
    QObject owner;
    QStringList said;
    QList<QThread *> threads;
    // The reader takes nothing yet: whoever waited for the run here would wait for ever.
    startSimulation(
        &owner, [&](const QString &text) { said += text, threads += QThread::currentThread(); },
        reader.output());
    QCOMPARE(said, QStringList{u"スレッド動作中"_s});
    reader.startReading();
    QTRY_COMPARE(said, (QStringList{u"スレッド動作中"_s, u"動作完了"_s}));
    QCOMPARE(threads, QList<QThread *>(2, thread()));
    QTRY_COMPARE(reader.bytesRead(), printed(simulation).size()); // nothing is left behind in a buffer
    reader.readToEnd();
}

// Also where the machine has one processor, and the toolkit's own pool is taken by something else.
void SimulationTest::overlappingRunsAreConcurrentAndKeepLinesWhole()
{
    SlowReader reader;
    QObject owner;
    int ended = 0;
    const auto count = [&](const QString &text) { ended += text == u"動作完了"_s; };
    startSimulation(&owner, count, reader.output());
    startSimulation(&owner, count, reader.output());
    reader.output().post("OK tapped\n");
    reader.startReading();
    QTRY_COMPARE_WITH_TIMEOUT(ended, 2, 20'000);

    const QByteArray both = reader.readToEnd();
    auto expected = occurrences(printed(simulation));
    for (auto &[line, times] : expected)
        times *= 2;
    expected[""] = 1; // what follows the last line
    expected["OK tapped"] = 1;
    QVERIFY(occurrences(both) == expected);
    QVERIFY(both.lastIndexOf("revision2\n") < both.indexOf("product code"));
}

void SimulationTest::aRunOutlivesItsOwnerInSilence()
{
    static SlowReader &reader = *new SlowReader; // nothing tells when the run's thread is done with it
    QStringList said;
    {
        QObject owner;
        startSimulation(
            &owner, [&](const QString &text) { said += text; }, reader.output());
    }
    reader.startReading();
    QTRY_COMPARE(reader.bytesRead(), printed(simulation).size());
    QTest::qWait(50);
    QCOMPARE(said, QStringList{u"スレッド動作中"_s});
}

QTEST_GUILESS_MAIN(SimulationTest)
#include "simulation_test.moc"
