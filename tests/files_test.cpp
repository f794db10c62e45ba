#include "Testing.h"
#include "platform/FileContent.h"
#include "platform/FileName.h"
#include "platform/Memory.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class FilesTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

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
        WholeFile file(folder.filePath(u"link.pdf"_s).toStdString());
        QVERIFY(file.write("new content", 11));
        QCOMPARE(readRegularFile(path, 100), "old");
        QVERIFY(file.commit());
        QCOMPARE(readRegularFile(path, 100), "new content");
        QVERIFY(QFileInfo(folder.filePath(u"link.pdf"_s)).isSymLink());
        QCOMPARE(QFileInfo(path).permissions() & 0x077, QFile::Permissions());
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden).size(), 2);
    }

    void whatCannotBecomeAFileSaysWhy()
    {
        QCOMPARE(WholeFile(m_folder.path().toStdString()).error(), EISDIR);
        QCOMPARE(WholeFile(m_folder.filePath(u"gone/a.pdf"_s).toStdString()).error(), ENOENT);
        QCOMPARE(WholeFile("/dev/null").error(), EINVAL); // a device is never replaced
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
