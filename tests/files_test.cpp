#include "Testing.h"
#include "platform/FileContent.h"
#include "platform/FileName.h"
#include "platform/Memory.h"
#include "platform/Mounts.h"
#include "platform/Process.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
QStringList synced; // the names of what was put on disk
}

// In the place of the system's own, which it calls.
extern "C" int fsync(int file)
{
    synced += QFileInfo(QFile::symLinkTarget(u"/proc/self/fd/%1"_s.arg(file))).fileName();
    return int(::syscall(SYS_fsync, file));
}

class FilesTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    // A group of processes, and what is told of its memory.
    struct Group {
        QString path;
        const char *max, *current, *high = nullptr;
    };

    QString write(const QString &name, const QByteArray &content) const
    {
        return written(m_folder.filePath(name), content);
    }

private slots:
    void ordinaryFilesAreReadWhole()
    {
        const QByteArray large = QByteArray(3 << 20, 'x') + "end";
        QCOMPARE(readRegularFile(write(u"large.txt"_s, large), 1 << 30), large);
        QCOMPARE(readRegularFile(write(u"空.txt"_s, {}), 1 << 30), QByteArray());
        const QString odd = FileName::text(m_folder.path().toStdString() + "/\xff\xef\xbb\xbf.txt");
        std::ofstream(FileName::bytes(odd)) << "of no text";
        QCOMPARE(readRegularFile(odd, 100), "of no text");
        QCOMPARE(FileContent::of(odd, 100, 9)->bytes(), "of no text");
        std::filesystem::remove(FileName::bytes(odd)); // which Qt can't do
        QFile::link(m_folder.filePath(u"large.txt"_s), m_folder.filePath(u"link.txt"_s));
        QCOMPARE(readRegularFile(m_folder.filePath(u"link.txt"_s), 1 << 30), large);
        // This one claims to be empty.
        QVERIFY(readRegularFile(u"/proc/self/status"_s, 1 << 20).value_or(QByteArray()).contains("VmRSS"));
    }

    void whatWasReadStaysWhateverBecomesOfTheFile()
    {
        const QByteArray large = QByteArray("0123456789\n").repeated(300'000);
        const QString path = write(u"growing.log"_s, large);
        const auto open = [&path] { return ::open(qPrintable(path), O_WRONLY | O_NONBLOCK | O_TRUNC); };
        auto quiet = FileContent::of(path, 1 << 30, 1 << 20);
        QVERIFY(quiet && quiet->bytes() == large);
        const int refused = open();
        QVERIFY(quiet->bytes() == large);
        if (refused >= 0) { // where nobody can be made to wait
            ::close(refused);
            write(u"growing.log"_s, large);
        }
        quiet.reset();

        const int writer = ::open(qPrintable(path), O_WRONLY);
        const auto busy = FileContent::of(path, 1 << 30, 1 << 20);
        QCOMPARE(::ftruncate(writer, 10), 0);
        ::close(writer);
        QVERIFY(busy && busy->bytes() == large);
        QVERIFY(!FileContent::of(path, 9, 1 << 20));
        QCOMPARE(FileContent::of(path, 10, 1 << 20)->bytes(), large.first(10));
    }

    void thereIsAsMuchMemoryAsTheProcessMayHave()
    {
        constexpr qint64 gibibyte = 1 << 30;
        const auto pages = readRegularFile(u"/proc/self/statm"_s, 1 << 20).value().split(' ').first();
        rlimit before{};
        QCOMPARE(::getrlimit(RLIMIT_AS, &before), 0);
        const rlimit little{rlim_t(pages.toLongLong() * ::sysconf(_SC_PAGESIZE) + gibibyte),
                            before.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_AS, &little), 0);
        const qint64 left = availableMemory();
        QCOMPARE(::setrlimit(RLIMIT_AS, &before), 0);
        QVERIFY(left <= gibibyte && left >= std::min(availableMemory(), gibibyte) / 2);
    }

    void aGroupHasNoMoreThanThoseThatItIsIn_data()
    {
        constexpr qint64 mebibyte = 1 << 20;
        cases<const char *, std::vector<Group>, qint64>({
            {"no groups at all", "", {}, 1024 * mebibyte},
            {"the group that one sees as the first",
             "0::/\n",
             {{{}, "104857600", "41943040"}},
             62 * mebibyte},
            {"a limit above",
             "1:name=systemd:/a/b\n0::/user.slice/run.scope\n",
             {{u"user.slice"_s, "83886080", "2097152"}, {u"user.slice/run.scope"_s, "max", "1048576"}},
             80 * mebibyte},
            {"where it is slowed down",
             "0::/run.scope\n",
             {{u"run.scope"_s, "83886080", "12582912", "52428800"}},
             40 * mebibyte},
            {"groups of the first generation",
             "5:cpu,cpuacct:/x\n4:memory:/jobs/one\n0::/\n",
             {{u"memory/jobs"_s, "31457280", "1048576"},
              {u"memory/jobs/one"_s, "9223372036854771712", "1048576"}},
             29 * mebibyte},
            {"of these, one that is seen as the first",
             "4:memory:/docker/one\n",
             {{u"memory/"_s, "20971520", "1048576"}},
             19 * mebibyte},
        });
    }
    void aGroupHasNoMoreThanThoseThatItIsIn()
    {
        const auto [own, groups, left] = values<const char *, std::vector<Group>, qint64>();
        const QTemporaryDir root;
        const auto put = [&root](const QString &file, const char *content) {
            const QString path = root.filePath(file);
            QDir().mkpath(QFileInfo(path).path());
            written(path, content);
        };
        put(u"proc/meminfo"_s, "MemFree: 1 kB\nMemAvailable: 1048576 kB\n");
        if (*own)
            put(u"proc/self/cgroup"_s, own);
        for (const Group &group : groups) {
            const QString file = u"sys/fs/cgroup/"_s + group.path + u"/memory."_s;
            const bool isOld = group.path.startsWith(u"memory/"_s);
            put(file + (isOld ? u"limit_in_bytes"_s : u"max"_s), group.max);
            put(file + (isOld ? u"usage_in_bytes"_s : u"current"_s), group.current);
            put(file + u"stat"_s,
                isOld ? "active_file 7\ntotal_active_file 0\ntotal_inactive_file 0\n"
                      : "anon 9\nactive_file 1048576\ninactive_file 1048576\n");
            if (group.high)
                put(file + u"high"_s, group.high);
        }
        QCOMPARE(availableMemory(root.path().toStdString()), left);
    }

    void aFileAppearsWholeOrNotAtAll()
    {
        const QDir folder(m_folder.filePath(u"whole"_s));
        QVERIFY(folder.mkpath(u"."_s));
        const QString path = write(u"whole/text.pdf"_s, "old");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        {
            WholeFile given(path.toStdString());
            QVERIFY(given.write("half", 4));
        } // given up
        QCOMPARE(readRegularFile(path, 100), "old");
        QFile::link(path, folder.filePath(u"link.pdf"_s));
        if (::geteuid() == 0) // who may give a file away
            QCOMPARE(::chown(qPrintable(path), 12, 34), 0);
        for (int number = 1; number <= 100; ++number) // left behind by somebody of our number
            write(u"whole/.tarumine-%1-%2.part"_s.arg(::getpid()).arg(number), {});
        WholeFile file(folder.filePath(u"link.pdf"_s).toStdString());
        QVERIFY(file.write("new content", 11));
        QCOMPARE(readRegularFile(path, 100), "old");
        synced.clear();
        QVERIFY(file.commit());
        QCOMPARE(readRegularFile(path, 100), "new content");
        const mode_t mask = ::umask(027); // as whoever is there wants new files
        WholeFile fresh(folder.filePath(u"new.pdf"_s).toStdString());
        QVERIFY(fresh.commit());
        ::umask(mask);
        struct stat made { };
        QCOMPARE(::stat(qPrintable(folder.filePath(u"new.pdf"_s)), &made), 0);
        QCOMPARE(made.st_mode & 0777, 0640u);
        QVERIFY(QFileInfo(folder.filePath(u"link.pdf"_s)).isSymLink());
        QCOMPARE(QFileInfo(path).permissions() & 0x077, QFile::Permissions());
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden).size(), 103);
        QCOMPARE(QFileInfo(path).groupId(), ::geteuid() == 0 ? 34u : ::getegid());
        QCOMPARE(QFileInfo(path).ownerId(), ::geteuid() == 0 ? 12u : ::geteuid());
        QCOMPARE(synced.value(1),
                 QFileInfo(folder.path()).fileName()); // after the file, and when it was named

        QFile::link(u"later.pdf"_s, folder.filePath(u"early.pdf"_s));
        WholeFile later(folder.filePath(u"early.pdf"_s).toStdString());
        QVERIFY(later.write("x", 1) && later.commit());
        QVERIFY(QFileInfo(folder.filePath(u"early.pdf"_s)).isSymLink());
        QCOMPARE(contentOf(folder.filePath(u"later.pdf"_s)), "x");
    }

    void whatCannotBecomeAFileSaysWhy()
    {
        QCOMPARE(WholeFile(m_folder.path().toStdString()).error(), EISDIR);
        QCOMPARE(WholeFile(m_folder.filePath(u"gone/a.pdf"_s).toStdString()).error(), ENOENT);
        QCOMPARE(WholeFile("/dev/null").error(), EINVAL); // a device is never replaced
        QFile::link(u"loop.pdf"_s, m_folder.filePath(u"loop.pdf"_s));
        QCOMPARE(WholeFile(m_folder.filePath(u"loop.pdf"_s).toStdString()).error(), ELOOP);
        const QDir folder(m_folder.filePath(u"vanishing"_s));
        QVERIFY(folder.mkpath(u"."_s));
        WholeFile file(folder.filePath(u"a.pdf"_s).toStdString());
        QVERIFY(file.write("text", 4));
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(!file.commit());
        QVERIFY(file.error() != 0);

        WholeFile full(m_folder.filePath(u"full.pdf"_s).toStdString());
        rlimit before{};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        const rlimit small{4, before.rlim_max};
        const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
        const bool written = full.write("a longer text", 13);
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signalBefore);
        QVERIFY(!written);
        QCOMPARE(full.error(), EFBIG);
        QVERIFY(!full.write("x", 1) && !full.commit()); // once some is lost, the rest is no use
        QVERIFY(!QFile::exists(m_folder.filePath(u"full.pdf"_s)));
    }

    void whoMayNotAnswerStandsInTheListOfMounts()
    {
        const QString list =
            write(u"mountinfo"_s,
                  "21 1 8:1 / / rw - ext4 /dev/sda rw\n"
                  "36 21 0:52 / /mnt/the\\040nas rw,relatime shared:1 master:2 - nfs4 nas:/ rw\n"
                  "37 21 0:53 / /home/fuse rw - tmpfs tmpfs rw\n"
                  "38 21 0:54 / /run/gvfs rw - fuse.gvfsd-fuse gvfsd rw\n"
                  "broken\n");
        QCOMPARE(Mounts::remote(list.toStdString()),
                 std::vector<std::string>({"/mnt/the nas", "/run/gvfs"}));
    }

    void theProcessEndsInTimeAlsoWithoutAThread()
    {
#ifdef __SANITIZE_THREAD__
        QSKIP("The thread sanitizer knows no threads in a process that was forked.");
#endif
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            const rlimit none{0, 0};
            if (::setrlimit(RLIMIT_NPROC, &none) != 0 || (::geteuid() == 0 && ::setuid(65534) != 0))
                ::_exit(1); // root may have as many as it likes
            Process::endWithin(std::chrono::milliseconds(50), 7);
            for (;;)
                ::pause();
        }
        int status = 0;
        const auto hasEnded = [&] { return ::waitpid(child, &status, WNOHANG) == child; };
        const bool inTime = QTest::qWaitFor(hasEnded, 2000);
        if (!inTime)
            ::kill(child, SIGKILL);
        QVERIFY(inTime && WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 7);
    }

    void nothingButAnOrdinaryFileIsRead()
    {
        const QString fifo = m_folder.filePath(u"fifo.txt"_s), loop = m_folder.filePath(u"loop.txt"_s);
        const QString absent = m_folder.filePath(u"absent.txt"_s);
        const QString dangling = m_folder.filePath(u"dangling.txt"_s);
        const QString secret = write(u"secret.txt"_s, "x");
        QCOMPARE(mkfifo(qPrintable(fifo), 0600), 0);
        QFile::link(absent, dangling);
        QFile::link(loop, loop);
        QFile::setPermissions(secret, {});
        for (const QString &path : {fifo, m_folder.path(), u"/dev/zero"_s, u"/dev/tty"_s, absent, QString(),
                                    dangling, loop, write(u"file.txt"_s, "x") + u"/x.txt"_s, secret}) {
            if (path == secret && geteuid() == 0)
                continue; // who may read everything
            QVERIFY2(!readRegularFile(path, 1 << 20), qPrintable(path));
            QVERIFY2(!FileContent::of(path, 1 << 20, 9), qPrintable(path));
        }
    }
};

QTEST_GUILESS_MAIN(FilesTest)
#include "files_test.moc"
