#include "Testing.h"
#include "preferences/AppStorage.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

#include <QTemporaryDir>

#include <csignal>
#include <limits>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class PreferencesTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    int m_files = 0;

    QString newFile() { return m_folder.filePath(u"store-%1.conf"_s.arg(++m_files)); }

    QString fileWith(const QByteArray &content) { return written(newFile(), content); }

private slots:
    void integersAreReadFromWhateverIsStored_data()
    {
        cases<QByteArray, qint64>({
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
        });
    }
    void integersAreReadFromWhateverIsStored()
    {
        const auto [line, expected] = values<QByteArray, qint64>();
        const UserDefaults store(fileWith("[General]\n" + line + '\n'));
        QCOMPARE(store.integer(Key::CatPX5), expected);
    }

    void valuesSurviveARestart()
    {
        const QString file = newFile();
        const QString awkward = u" a=b;c, \"引用\"\n🚙\\x[General]%41 "_s;
        {
            UserDefaults store(file);
            store.setInteger(3, Key::CatPX5);
            store.setString(u"🛍"_s, Key::BagPX5);
            store.setString(awkward, Key::StringKeyPX5);
            store.setString(u""_s, Key::FirmPX5);
        }
        const UserDefaults store(file);
        QCOMPARE(store.integer(Key::CatPX5), 3);
        QCOMPARE(store.string(Key::BagPX5), u"🛍"_s);
        QCOMPARE(store.string(Key::StringKeyPX5), awkward);
        QCOMPARE(store.string(Key::FirmPX5), u""_s);
        QCOMPARE(store.string(Key::CarPX5), std::nullopt);
    }

    // Not read through a store: one in this process takes a file of the same age and size for the same.
    void aValueIsOnDiskWhenItsSetterReturns()
    {
        const QString file = newFile();
        for (int value = 1; value <= 200; ++value) {
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                UserDefaults(file).setInteger(value, Key::CatPX5);
                raise(SIGKILL);
            }
            waitpid(child, nullptr, 0);
            QCOMPARE(contentOf(file), QByteArray("[General]\nCatPX5=") + QByteArray::number(value) + '\n');
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
            QTest::qSleep(1 + round % 7);
            kill(child, SIGKILL);
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

        // What another process wrote is taken over at the next write of ours, and not lost by it.
        UserDefaults(file).setInteger(5, Key::IntKeyToggle2);
        one = 0;
        QCOMPARE(unrelated.value(), 5);
        QCOMPARE(UserDefaults(file).integer(Key::IntKeyToggle2), 5);
    }
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "preferences_test.moc"
