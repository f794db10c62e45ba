#include "Testing.h"
#include "preferences/AppStorage.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

#include <QElapsedTimer>
#include <QSettings>
#include <QTimer>

#include <csignal>
#include <limits>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

class PreferencesTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    int m_files = 0;

    QString newFile() { return m_folder.filePath(u"store-%1.conf"_s.arg(++m_files)); }

    QString fileWith(const QByteArray &content) { return written(newFile(), content); }

private slots:
    void integersAreReadFromWhateverIsStored()
    {
        const std::tuple<const char *, QByteArray, qint64> lines[]{
            {"an absent key reads as 0", "BirdPX5=3", 0},
            {"a number", "CatPX5=3", 3},
            {"a negative number", "CatPX5=-4", -4},
            {"zeros before a number are nothing but zeros", "CatPX5=010", 10},
            {"a string's leading number", "CatPX5=12 monkeys", 12},
            {"a string without a number", "CatPX5=neko", 0},
            {"an empty string", "CatPX5=", 0},
            {"a fraction is cut off", "CatPX5=2.9", 2},
            {"a list is no number", "CatPX5=3, 4", 0},
            {"a binary value is no number", "CatPX5=@Rect(1 2 3 4)", 0},
            {"Japanese digits are no number", "CatPX5=３", 0},
            {"too large a number is the largest", "CatPX5=99999999999999999999",
             std::numeric_limits<qint64>::max()},
        };
        for (const auto &[name, line, expected] : lines)
            QVERIFY2(UserDefaults(fileWith("[General]\n" + line + '\n')).integer(Key::CatPX5) == expected,
                     name);
    }

    void valuesSurviveARestart()
    {
        const QString file = newFile();
        const QString awkward = u"\ufeff a=b;c, \"引用\"\n\u0001f🚙\\x[General]%41\0; "_s;
        {
            UserDefaults store(file);
            store.setInteger(3, Key::CatPX5);
            store.setString(u"🛍"_s, Key::BagPX5);
            store.setString(awkward, Key::StringKeyPX5);
            store.setString(u""_s, Key::FirmPX5);
            store.setString(u"@Point(1 2)"_s, Key::CarPX5);
        }
        const UserDefaults store(file);
        QCOMPARE(store.integer(Key::CatPX5), 3);
        QCOMPARE(store.string(Key::BagPX5), u"🛍"_s);
        QCOMPARE(store.string(Key::StringKeyPX5), awkward);
        QCOMPARE(store.string(Key::FirmPX5), u""_s);
        QCOMPARE(store.string(Key::CarPX5), u"@Point(1 2)"_s);
        QCOMPARE(store.string(Key::BirdPX5), std::nullopt);

        // By the format that everybody knows, and so are those that Qt writes.
        QSettings known(file, QSettings::IniFormat);
        QCOMPARE(known.value(Key::StringKeyPX5).toString(), awkward);
        QCOMPARE(known.value(Key::CarPX5).toString(), u"@Point(1 2)"_s);
        known.setValue(Key::BagPX5, awkward.chopped(3)); // Qt has another way to write a zero
        known.sync();
        QCOMPARE(store.string(Key::BagPX5), awkward.chopped(3));
    }

    void whatWeDoNotKnowStaysAsItIs()
    {
        const QString file = fileWith("\xef\xbb\xbf; \"mine\r\n[general]\r\nCatPX5 = 1\r\n"
                                      "Other=\"a\\\"\nb\", @Rect(1)\nCatPX5=2\n\n[Else]\nCatPX5=8");
        UserDefaults store(file);
        QCOMPARE(store.integer(Key::CatPX5), 2);
        store.setInteger(3, Key::CatPX5);
        store.setInteger(4, Key::BirdPX5);
        QCOMPARE(contentOf(file),
                 "; \"mine\r\n[general]\r\nCatPX5 = 1\r\nOther=\"a\\\"\nb\", @Rect(1)\n"
                 "CatPX5=3\nBirdPX5=4\n\n[Else]\nCatPX5=8\n");
    }

    void aValueIsOnDiskWhenItsSetterReturns()
    {
        const QString file = newFile();
        const UserDefaults reader(file);
        for (int value = 1; value <= 200; ++value) {
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                UserDefaults(file).setInteger(value, Key::CatPX5);
                raise(SIGKILL);
            }
            waitpid(child, nullptr, 0);
            QCOMPARE(contentOf(file), QByteArray("[General]\nCatPX5=") + QByteArray::number(value) + '\n');
            QCOMPARE(reader.integer(Key::CatPX5), value); // though the file may be of the same age and size
        }
    }

    void aKilledWriterLeavesTheOldValueOrTheNew()
    {
        const QString file = newFile();
        UserDefaults(file).setString(QString(5000, u'0'), Key::FirmPX5);
        for (int round = 0; round < 40; ++round) {
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                UserDefaults store(file);
                for (char16_t digit = u'1';; digit = digit == u'9' ? u'1' : digit + 1)
                    store.setString(QString(5000, QChar(digit)), Key::FirmPX5);
            }
            for (const QByteArray before = contentOf(file); contentOf(file) == before;)
                QThread::yieldCurrentThread();
            kill(child, SIGKILL); // while it writes on
            waitpid(child, nullptr, 0);
            const QByteArray read = contentOf(file).sliced(qstrlen("[General]\nFirmPX5="));
            QCOMPARE(read.size(), 5001);
            QCOMPARE(read.count(read.front()), 5000);
        }
        QCOMPARE(QDir(m_folder.path()).entryList({u"*unreadable*"_s}), QStringList());
    }

    void anUnreadableStoreIsKeptAsideAndReplaced()
    {
        for (const QByteArray &unreadable :
             {QByteArray("<xml>\nCatPX5\n</xml>\n"), QByteArray("[General]\nBirdPX5=3\nCat"),
              QByteArray::fromHex("7f454c46020101000a0b00ff00fe0a00001b")}) {
            const QString file = fileWith(unreadable);
            {
                UserDefaults store(file);
                QCOMPARE(store.integer(Key::BirdPX5), 0);
                store.setInteger(3, Key::CatPX5);
            }
            QCOMPARE(UserDefaults(file).integer(Key::CatPX5), 3);

            const QString pattern = QFileInfo(file).fileName() + u".unreadable-*"_s;
            const QStringList kept = QDir(m_folder.path()).entryList({pattern});
            QCOMPARE(kept.size(), 1);
            QCOMPARE(contentOf(m_folder.filePath(kept.first())), unreadable);
        }
    }

    void aStoreThatCannotBeWrittenWorksForTheRun()
    {
        const QString folder = newFile(); // where the file should be
        QDir().mkpath(folder);
        for (const QString &file : {fileWith("no folder") + u"/tarumine/Tarumine.conf"_s, folder,
                                    u"/proc/nowhere/.config/Tarumine.conf"_s}) {
            UserDefaults store(file);
            AppStorage<qint64> cat(Key::CatPX5, store);
            cat = 3;
            QCOMPARE(cat.value(), 3);
            QCOMPARE(store.integer(Key::CatPX5), 3);
        }
    }

    void everyFieldOnAKeyFollowsIt()
    {
        const QString file = newFile();
        UserDefaults store(file);
        AppStorage<qint64> one(Key::IntKeyToggle1, store), other(Key::IntKeyToggle1, store);
        AppStorage<qint64> unrelated(Key::IntKeyToggle2, store);
        one = 1;
        QCOMPARE(other.value(), 1);
        QCOMPARE(unrelated.value(), 0);

        // So it does when another process writes, whether that replaces the file or writes into it.
        store.watch();
        UserDefaults(file).setInteger(5, Key::IntKeyToggle2);
        QTRY_COMPARE(unrelated.value(), 5);
        for (char digit = '0'; digit <= '9';
             ++digit) { // with nothing but its content to tell one from another
            written(file, QByteArray("[General]\nIntKeyToggle2=") + digit + '\n');
            QCOMPARE(store.integer(Key::IntKeyToggle2), digit - '0');
        }
        written(file, "[General]\nIntKeyToggle2=6\n");
        QTRY_COMPARE(unrelated.value(), 6);
        one = 0;
        QCOMPARE(UserDefaults(file).integer(Key::IntKeyToggle2), 6);

        const QString later = m_folder.filePath(u"later/deeper/store.conf"_s);
        UserDefaults early(later);
        AppStorage<qint64> field(Key::IntKeyToggle1, early);
        early.watch();
        UserDefaults(later).setInteger(1, Key::IntKeyToggle1);
        QTRY_COMPARE(field.value(), 1);
    }

    void aValueWaitsForAStoreThatIsHeldByAnother()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(u"held"_s));
        const QString file = m_folder.filePath(u"held/store.conf"_s);
        QFile::link(u"nowhere"_s, file + u".lock"_s); // as Qt's own kind of store would be held, for ever
        UserDefaults store(file), other(file);
        AppStorage<qint64> cat(Key::CatPX5, store);
        other.setInteger(7, Key::CatPX5);
        QCOMPARE(contentOf(file), "[General]\nCatPX5=7\n");

        const int holder = ::open(qPrintable(QFileInfo(file).path()), O_RDONLY | O_CLOEXEC);
        QCOMPARE(::flock(holder, LOCK_EX), 0);
        QElapsedTimer time;
        time.start();
        cat = 3;
        store.setString(u"🚙"_s, Key::CarPX5);
        QVERIFY(time.elapsed() < 1000);
        QCOMPARE(cat.value(), 3);
        QCOMPARE(store.integer(Key::CatPX5), 3);
        QCOMPARE(contentOf(file), "[General]\nCatPX5=7\n");
        written(file, "[General]\nCatPX5=7\nBirdPX5=5\n"); // by who holds it
        ::close(holder);
        QTRY_COMPARE(contentOf(file), "[General]\nCatPX5=3\nBirdPX5=5\nCarPX5=🚙\n");

        const int another = ::open(qPrintable(QFileInfo(file).path()), O_RDONLY | O_CLOEXEC);
        QCOMPARE(::flock(another, LOCK_EX), 0);
        cat = 4;
        ::close(another);
        QTimer::singleShot(0, this, &QCoreApplication::quit); // before the next try
        QCoreApplication::exec();
        QVERIFY(contentOf(file).contains("CatPX5=4"));
    }
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "preferences_test.moc"
