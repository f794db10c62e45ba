#include "Testing.h"
#include "platform/linux/Confinement.h"
#include "platform/linux/DetachedProgram.h"
#include "worker/Errand.h"

#include <csignal>
#include <functional>

#include <fcntl.h>
#include <linux/io_uring.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

// What a process tries that was taken over by the bytes it works on: in a child, from within.
class ConfinementTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder, m_fonts;
    const QByteArray m_secret = written(m_folder.filePath(u"secret"_s), "secret").toUtf8();
    const QByteArray m_font = written(m_fonts.filePath(u"font"_s), "font").toUtf8();
    const QByteArray m_new = m_folder.filePath(u"new"_s).toUtf8();

    struct Attempt {
        const char *name;
        std::function<long()> made; // -1: refused
        int sinceLandlock = 0;      // what only Landlock refuses
    };

    static long startsProgram()
    {
        char *words[]{const_cast<char *>("true"), nullptr};
        return ::execve("/bin/true", words, environ);
    }

    static long opensSocket()
    {
        for (int family = 0; family < AF_MAX; ++family) {
            for (const int type : {SOCK_STREAM, SOCK_DGRAM, SOCK_RAW, SOCK_SEQPACKET}) {
                if (::socket(family, type, 0) >= 0)
                    return family;
            }
        }
        int pair[2];
        return ::socketpair(AF_UNIX, SOCK_STREAM, 0, pair);
    }

    static long readsParent(pid_t parent)
    {
        char byte;
        const iovec here{&byte, 1}, there{const_cast<char *>("x"), 1};
        return ::process_vm_readv(parent, &here, 1, &there, 1, 0);
    }

    QList<Attempt> attempts(pid_t parent, int picked, int memory) const
    {
        const char *secret = m_secret.constData(), *fresh = m_new.constData(), *font = m_font.constData();
        const auto reopened = [](int file, int how) {
            return ::open(qPrintable(u"/proc/self/fd/%1"_s.arg(file)), how);
        };
        return {
            {"reading", [=] { return ::open(secret, O_RDONLY); }, 1},
            {"reading a folder", [=] { return ::open("/", O_RDONLY | O_DIRECTORY); }, 1},
            {"reading again what was handed over", [=] { return reopened(picked, O_RDONLY); }, 1},
            {"writing", [=] { return ::open(secret, O_WRONLY); }},
            {"writing and reading", [=] { return ::open(font, O_RDWR); }},
            {"emptying", [=] { return ::open(secret, O_RDONLY | O_TRUNC); }},
            {"shortening", [=] { return ::truncate(secret, 0); }},
            {"shortening memory", [=] { return ::ftruncate(memory, 0); }},
            {"creating", [=] { return ::open(fresh, O_RDONLY | O_CREAT, 0600); }},
            {"creating without a name", [=] { return ::open("/tmp", O_RDWR | O_TMPFILE, 0600); }},
            {"creating a folder", [=] { return ::mkdir(fresh, 0700); }},
            {"creating a FIFO", [=] { return ::mkfifo(fresh, 0600); }},
            {"linking", [=] { return ::link(secret, fresh); }},
            {"linking by name", [=] { return ::symlink(secret, fresh); }},
            {"moving", [=] { return ::rename(secret, fresh); }},
            {"removing", [=] { return ::unlink(secret); }},
            {"allowing", [=] { return ::chmod(secret, 0777); }},
            {"writing what was handed over", [=] { return reopened(picked, O_RDWR); }},
            {"writing memory that was handed over", [=] { return reopened(memory, O_RDWR); }},
            {"starting a program", startsProgram},
            {"starting what is in memory",
             [=] { return ::syscall(SYS_execveat, memory, "", nullptr, nullptr, AT_EMPTY_PATH); }},
            {"a process of its own", [] { return ::syscall(SYS_clone, SIGCHLD, 0, 0, 0, 0); }},
            {"a world of its own", [] { return ::unshare(CLONE_NEWUSER); }},
            {"code made on the way",
             [] {
                 void *made =
                     ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
                 return made == MAP_FAILED ? -1L : 0L;
             }},
            {"a socket", opensSocket},
            {"ending the parent", [=] { return ::kill(parent, 0); }},
            {"a signal by way of a file", [=] { return ::fcntl(picked, F_SETOWN, parent); }},
            {"tracing the parent", [=] { return ::ptrace(PTRACE_SEIZE, parent, nullptr, nullptr); }},
            {"the parent's memory", [=] { return readsParent(parent); }},
            {"the parent's files", [=] { return ::syscall(SYS_pidfd_open, parent, 0); }},
            {"a ring of work for the kernel",
             [] {
                 io_uring_params parameters{};
                 return ::syscall(SYS_io_uring_setup, 1, &parameters);
             }},
            {"limits",
             [] {
                 rlimit none{};
                 return ::setrlimit(RLIMIT_CPU, &none);
             }},
            {"more memory to be handed on", [] { return ::memfd_create("x", 0); }},
            {"a terminal's keys", [] { return ::ioctl(0, 0x5412, "x"); }}, // TIOCSTI
        };
    }

    // The names of what was not refused.
    QByteArray allowed(int landlock, bool readsFiles) const
    {
        int results[2];
        if (::pipe(results) != 0)
            return "no pipe";
        const pid_t parent = ::getpid();
        const pid_t child = ::fork();
        if (child == 0) {
            const int picked = ::open(m_secret, O_RDONLY), memory = ::memfd_create("x", MFD_ALLOW_SEALING);
            (void)!::write(memory, "#!/bin/true\n", 12);
            ::fcntl(memory, F_ADD_SEALS, F_SEAL_SHRINK);
            const QList<Attempt> all = attempts(parent, picked, memory);
            const std::vector<std::string> readable{m_fonts.path().toStdString()};
            const auto reached = confine(readsFiles ? readable : std::vector<std::string>(), landlock);
            const auto say = [&](const char *what) { (void)!::write(results[1], what, strlen(what)); };
            if (!reached.systemCalls || reached.landlock > landlock)
                say("[not confined]");
            for (const Attempt &attempt : all) {
                if ((reached.landlock >= attempt.sinceLandlock || !readsFiles) && attempt.made() != -1)
                    say(attempt.name);
            }
            if (readsFiles != (::open(m_font, O_RDONLY) >= 0))
                say("[fonts]");
            ::_exit(0);
        }
        ::close(results[1]);
        QByteArray told;
        char room[4096];
        for (ssize_t got = 0; (got = ::read(results[0], room, sizeof room)) > 0;)
            told.append(room, got);
        ::close(results[0]);
        int status = 0;
        ::waitpid(child, &status, 0);
        return status == 0 ? told : told + "[killed]";
    }

    static Protocol::Order anything()
    {
        Protocol::Order order = newOrder(Protocol::Job::Decode, 1);
        order.decode = {.bytes = 1, .characters = 1, .isPicked = 0};
        return order;
    }

private slots:
    void everythingElseIsRefused_data()
    {
        cases<int, bool>({
            {"no Landlock, nothing to read", 0, false},
            {"no Landlock", 0, true},
            {"the first Landlock", 1, true},
            {"the second", 2, true},
            {"the third", 3, true},
            {"the newest", INT_MAX, true},
            {"the newest, nothing to read", INT_MAX, false},
        });
    }
    void everythingElseIsRefused()
    {
        const auto [landlock, readsFiles] = values<int, bool>();
        QCOMPARE(allowed(landlock, readsFiles), QByteArray());
        QCOMPARE(contentOf(QString::fromUtf8(m_secret)), QByteArray("secret"));
        QVERIFY(!QFile::exists(QString::fromUtf8(m_new)));
    }

    void aWorkerIsConfinedAndABrowserIsNot()
    {
        Protocol::Report ready{};
        QByteArray status;
        Errand errand{.order = anything(), .behind = {"a"}};
        const int memory = ::memfd_create("result", 0);
        QCOMPARE(::ftruncate(memory, 2), 0);
        errand.result = memory;
        errand.heard = [&](const Protocol::Report &report) {
            if (report.kind != Protocol::Report::Kind::Ready)
                return;
            ready = report;
            const auto children = contentOf(u"/proc/self/task/%1/children"_s.arg(::gettid())).simplified();
            status = contentOf(u"/proc/%1/status"_s.arg(QString::fromLatin1(children)));
        };
        QCOMPARE(done(errand).result, Protocol::Report::Result::Done);
        ::close(memory);
        const long newest = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, 1);
        QCOMPARE(long(ready.landlock), std::max(newest, 0L));
        QCOMPARE(ready.systemCalls, 1u);
        QVERIFY2(status.contains("NoNewPrivs:\t1\n") && status.contains("Seccomp:\t2\n"), status);

        const QString file = m_folder.filePath(u"status"_s);
        QVERIFY(startDetached({"/bin/sh", "-c", "cat /proc/self/status > " + file.toStdString()}));
        QTRY_VERIFY(contentOf(file).contains("Seccomp:"));
        QVERIFY(contentOf(file).contains("NoNewPrivs:\t0\n") && contentOf(file).contains("Seccomp:\t0\n"));
    }
};

QTEST_GUILESS_MAIN(ConfinementTest)
#include "confinement_test.moc"
