#include "platform/Process.h"
#include "platform/StandardOutput.h"
#include "simulation/Simulation.h"

#include <QProcess>
#include <QTest>

#include <csignal>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

// The two ends of a pipe; the far end is read by hand.
class Pipe {
public:
    Pipe()
    {
        if (::pipe2(m_ends, O_CLOEXEC) == 0)
            m_stream = ::fdopen(m_ends[1], "w");
    }
    ~Pipe()
    {
        ::close(m_ends[0]);
        std::fclose(m_stream);
    }

    std::FILE *stream() { return m_stream; }
    int writingEnd() const { return m_ends[1]; }

    // So many bytes, or those that came until nothing had come for ten seconds.
    QByteArray read(qsizetype count)
    {
        QByteArray all;
        char room[4096];
        for (pollfd end{m_ends[0], POLLIN, 0}; all.size() < count && ::poll(&end, 1, 10'000) > 0;) {
            const ssize_t got = ::read(m_ends[0], room, sizeof room);
            if (got <= 0)
                break;
            all.append(room, got);
        }
        return all;
    }

private:
    int m_ends[2] = {-1, -1};
    std::FILE *m_stream = nullptr;
};

// This program once more, in a process of its own, playing `part`.
struct Actor {
    QProcess process;

    Actor(const char *part, std::function<void()> prepareDescriptors)
    {
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.setChildProcessModifier(std::move(prepareDescriptors));
        process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(part)});
    }
    int status()
    {
        const bool ended = process.waitForFinished(10'000);
        return ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
};

int printAll()
{
    simulation();
    StandardOutput::standard().post("OK tapped\n");
    return ::open("/etc/passwd", O_RDONLY) > 2 ? 7 : 1; // no file becomes a standard one
}

// Until nothing more goes into the pipe that nobody reads.
void runIntoAStandstill()
{
    std::thread([] { simulation(); }).detach();
    for (pollfd end{STDOUT_FILENO, POLLOUT, 0}; ::poll(&end, 1, 0) > 0;)
        std::this_thread::yield();
}

// As a library does on its own account.
int exitAmidARun()
{
    runIntoAStandstill();
    std::exit(0);
}

int endAmidARun()
{
    runIntoAStandstill();
    StandardOutput::standard().post("OK tapped\n");
    return 7;
}

} // namespace

class StandardOutputTest : public QObject {
    Q_OBJECT

private slots:
    void postedLinesAreReadableAtOnceAndInOrder()
    {
        Pipe pipe;
        StandardOutput output(pipe.stream());
        QByteArray expected;
        for (int i = 0; i < 900; ++i) {
            const std::string line = "line " + std::to_string(i) + '\n';
            output.post(line);
            expected += line.c_str();
        }
        QCOMPARE(pipe.read(expected.size()), expected);
        output.post("OK tapped\n");
        QCOMPARE(pipe.read(10), "OK tapped\n");
    }

    void everyReaderIsSurvived()
    {
        const auto replace = [](int file) { ::dup2(file, 1); };
        const auto lose = [=] {
            int ends[2];
            if (::pipe(ends) == 0)
                replace(ends[1]), ::close(ends[0]), ::close(ends[1]);
        };
        const std::pair<const char *, std::function<void()>> readers[]{
            {"a file that can't grow", [=] { replace(::open("/dev/full", O_WRONLY)); }},
            {"nowhere", [] { ::close(0), ::close(1), ::close(2); }},
            {"something that can't be written", [=] { replace(::open("/dev/null", O_RDONLY)); }},
            {"a pipe whose reader has gone", lose},
        };
        for (const auto &[name, prepare] : readers)
            QVERIFY2(Actor("printAll", prepare).status() == 7, name);
    }

    void aProcessEndsAmidARunThatNobodyReads()
    {
        for (const auto &[part, status] : {std::pair("endAmidARun", 7), {"exitAmidARun", EXIT_FAILURE}}) {
            Pipe pipe;
            Actor actor(part, [&pipe] { ::dup2(pipe.writingEnd(), 1); });
            QVERIFY(actor.process.waitForStarted());
            QCOMPARE(actor.status(), status);
        }
    }
};

int main(int argc, char *argv[])
{
    const QByteArrayView part = argc > 1 ? argv[1] : "";
    const std::pair<QByteArrayView, int (*)()> parts[] = {
        {"printAll", printAll}, {"endAmidARun", endAmidARun}, {"exitAmidARun", exitAmidARun}};
    for (const auto &[name, act] : parts) {
        if (part == name) {
            Process::begin();
            Process::end(act());
        }
    }
    QCoreApplication application(argc, argv);
    std::signal(SIGPIPE, SIG_IGN); // as in the application, for the pipes that are closed here
    StandardOutputTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "standard_output_test.moc"
