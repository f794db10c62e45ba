#include "platform/ApplicationFolders.h"
#include "platform/Host.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"
#include "reading/TextDecoding.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class FilesTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString write(const QString &name, const QByteArray &content)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
            qFatal("can't write %s", qPrintable(name));
        return file.fileName();
    }

private slots:
    void ordinaryFilesAreReadWhole()
    {
        QByteArray large(3 << 20, 'x');
        large += "end";
        QCOMPARE(readRegularFile(write(u"large.txt"_s, large), 1 << 30), large);
        QCOMPARE(readRegularFile(write(u"空.txt"_s, {}), 1 << 30), QByteArray());
        QFile::link(m_folder.filePath(u"large.txt"_s), m_folder.filePath(u"link.txt"_s));
        QCOMPARE(readRegularFile(m_folder.filePath(u"link.txt"_s), 1 << 30), large);
        // This one claims to be empty.
        QVERIFY(readRegularFile(u"/proc/self/status"_s, 1 << 20).value_or(QByteArray()).contains("VmRSS"));
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
    }

    void nothingButAnOrdinaryFileIsRead_data()
    {
        QTest::addColumn<QString>("path");
        const QString fifo = m_folder.filePath(u"fifo.txt"_s);
        QVERIFY(mkfifo(qPrintable(fifo), 0600) == 0);
        QTest::newRow("a FIFO without a writer") << fifo;
        QTest::newRow("a folder") << m_folder.path();
        QTest::newRow("an endless device") << u"/dev/zero"_s;
        QTest::newRow("the terminal") << u"/dev/tty"_s;
        QTest::newRow("nothing") << m_folder.filePath(u"absent.txt"_s);
        QTest::newRow("no name") << QString();
        QFile::link(m_folder.filePath(u"gone.txt"_s), m_folder.filePath(u"dangling.txt"_s));
        QTest::newRow("a dangling link") << m_folder.filePath(u"dangling.txt"_s);
        QFile::link(m_folder.filePath(u"loop.txt"_s), m_folder.filePath(u"loop.txt"_s));
        QTest::newRow("a link to itself") << m_folder.filePath(u"loop.txt"_s);
        QTest::newRow("a file below a file") << write(u"file.txt"_s, "x") + u"/x.txt"_s;
        if (geteuid() != 0) {
            const QString secret = write(u"secret.txt"_s, "x");
            QFile::setPermissions(secret, {});
            QTest::newRow("an unreadable file") << secret;
        }
    }
    void nothingButAnOrdinaryFileIsRead()
    {
        QFETCH(QString, path);
        QCOMPARE(readRegularFile(path, 1 << 20), std::nullopt);
    }

    void textIsDecodedToTheLastByteOrNotAtAll_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<std::optional<QString>>("expected");
        using Expected = std::optional<QString>;

        QTest::newRow("nothing") << QByteArray("") << Expected(u""_s);
        QTest::newRow("Japanese and emoji") << QByteArray("日本語🐱👨‍👩‍👧\n")
                                            << Expected(u"日本語🐱👨‍👩‍👧\n"_s);
        QTest::newRow("the byte order mark is no text")
            << QByteArray("\xef\xbb\xbf猫") << Expected(u"猫"_s);
        QTest::newRow("a mark further in is") << QByteArray("猫\xef\xbb\xbf") << Expected(u"猫\ufeff"_s);
        QTest::newRow("line ends are kept") << QByteArray("a\r\nb\rc\n") << Expected(u"a\r\nb\rc\n"_s);
        QTest::newRow("a zero byte is a character")
            << QByteArray("a\0b", 3) << Expected(QString(u"a"_s + QChar(0) + u'b'));
        QTest::newRow("U+FFFD itself") << QByteArray("\xef\xbf\xbd") << Expected(u"\ufffd"_s);
        QTest::newRow("cut off in a character") << QByteArray("日本\xe8\xaa") << Expected();
        QTest::newRow("a stray tail byte") << QByteArray("a\x80z") << Expected();
        QTest::newRow("an overlong form") << QByteArray("\xc0\xaf") << Expected();
        QTest::newRow("half a surrogate pair") << QByteArray("\xed\xa0\xbd") << Expected();
        QTest::newRow("beyond Unicode") << QByteArray("\xf4\x90\x80\x80") << Expected();
        QTest::newRow("a PNG file") << QByteArray::fromHex("89504e470d0a1a0a0000000d49484452")
                                    << Expected();
    }
    void textIsDecodedToTheLastByteOrNotAtAll()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodedText(bytes), "expected");
    }
};

QTEST_GUILESS_MAIN(FilesTest)
#include "files_test.moc"
