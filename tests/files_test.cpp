#include "platform/ApplicationFolders.h"
#include "platform/Host.h"
#include "platform/RegularFile.h"

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
};

QTEST_GUILESS_MAIN(FilesTest)
#include "files_test.moc"
