#include "browsers/BrowserChoice.h"
#include "browsers/BrowserPicker.h"
#include "browsers/InstalledBrowsers.h"
#include "platform/FileName.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/EntrySearch.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDBusConnection>
#include <QProcess>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <fstream>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Names = std::vector<std::string>;
namespace fs = std::filesystem;

namespace {

// A desktop that takes note of what it is asked for.
class ScriptedWorkspace : public Workspace {
public:
    bool openBundle(const fs::path &bundle) override
    {
        m_asked += u"open "_s + FileName::text(bundle.filename());
        m_lastBundle = bundle;
        return false; // whatever comes of it is nobody's concern
    }
    std::vector<RegisteredApplication> webBrowsers() const override
    {
        m_looking();
        return m_registered;
    }
    bool start(const RegisteredApplication &application) override
    {
        m_asked += u"start "_s + application.name;
        return !m_isUninstalled;
    }

    std::vector<RegisteredApplication> m_registered;
    std::function<void()> m_looking = [] {};
    QStringList m_asked;
    fs::path m_lastBundle;
    bool m_isUninstalled = false;
};

// A browser that has been running for a while, and waits on the bus to be asked for a window.
class RunningBrowser : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    int m_asked = 0;

public slots:
    void Activate(const QVariantMap &) { ++m_asked; }
};

// Tells what kind of process it has become.
constexpr auto reporter = R"(#!/bin/sh
files=$(ls -l /proc/$$/fd)
{ cat /proc/$$/stat; echo; tr '\0' '\n' </proc/$$/cmdline; echo "$files"; } >"$REPORT.part"
mv "$REPORT.part" "$REPORT"
)";

void write(const fs::path &file, const std::string &content, mode_t mode = 0644)
{
    fs::create_directories(file.parent_path());
    std::ofstream(file) << content;
    QCOMPARE(::chmod(file.c_str(), mode), 0);
}

std::string entry(const std::string &more)
{
    return "[Desktop Entry]\nType=Application\nName=Web\nExec=true %u\n" + more + "\n";
}

} // namespace

Q_DECLARE_METATYPE(Names)

class BrowsersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_root;
    BundleFolders m_folders;
    fs::path m_report;

    fs::path inRoot(const char *name) const { return fs::path(m_root->path().toStdString()) / name; }

    QByteArray report() const
    {
        QFile file(QString::fromStdString(m_report.string()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        m_folders = {.everybodys = inRoot("Applications"), .own = inRoot("home/Applications")};
        m_report = inRoot("report");
        qputenv("REPORT", m_report.c_str());
        fs::create_directories(m_folders.everybodys);
        fs::create_directories(m_folders.own);
    }

    void cleanup()
    {
        QThreadPool::globalInstance()->waitForDone();
        std::error_code missing;
        fs::permissions(m_folders.everybodys, fs::perms::owner_all, missing);
        fs::remove_all(inRoot("")); // also what has names that the toolkit can't say
    }

    // The first of all, as GIO looks at these folders once, and later hears of changes in its own time.
    void associationsNameBrowsersToo()
    {
        const fs::path data = qgetenv("XDG_DATA_HOME").toStdString();
        const fs::path config = qgetenv("XDG_CONFIG_HOME").toStdString();
        write(data / "applications/associated.desktop", entry("Icon=associated"));
        write(data / "applications/another.desktop", entry(""));
        QCOMPARE(Workspace().webBrowsers().size(), size_t(0));
        write(config / "mimeapps.list",
              "[Added Associations]\nx-scheme-handler/http=associated.desktop;gone.desktop;\n"
              "[Default Applications]\nx-scheme-handler/https=associated.desktop\n");
        const auto found = Workspace().webBrowsers();
        fs::remove(config / "mimeapps.list");
        QCOMPARE(found.size(), size_t(1));
        QCOMPARE(found[0].icon, u"associated"_s);
        write(inRoot("system/mimeapps.list"), "[Default Applications]\nx-scheme-handler/http=a.desktop\n");
        write(inRoot("others/mimeapps.list"), "[Default Applications]\ntext/plain=a.desktop\n");
        QVERIFY(searchRegistry({inRoot("others"), inRoot("system")}).hasAssociations);
        QVERIFY(!searchRegistry({inRoot("others")}).hasAssociations);
    }

    void theHomeFolderIsKnownWithoutTheEnvironment()
    {
        const QByteArray home = qgetenv("HOME");
        qunsetenv("HOME");
        const fs::path own = BundleFolders::standard().own;
        qputenv("HOME", home);
        if (const passwd *user = ::getpwuid(::geteuid()))
            QCOMPARE(own, fs::path(user->pw_dir) / "Applications");
        QCOMPARE(BundleFolders::standard().own, fs::path(home.toStdString()) / "Applications");
    }

    void bundlesAreFoundByTheirNames_data()
    {
        QTest::addColumn<Names>("everybodys");
        QTest::addColumn<Names>("own");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("one of each, in the order of the alphabet")
            << Names{"Safari.app",         "Google Chrome.app", "Firefox.app",
                     "Microsoft Edge.app", "Opera.app",         "Brave Browser.app",
                     "Vivaldi.app",        "Arc.app",           "Notes.app"}
            << Names{} << QStringList{u"Arc"_s,           u"Brave Browser"_s,  u"Firefox"_s,
                                      u"Google Chrome"_s, u"Microsoft Edge"_s, u"Opera"_s,
                                      u"Safari"_s,        u"Vivaldi"_s};
        QTest::newRow("small letters come after the capitals")
            << Names{"firefox developer edition.app", "Vivaldi.app"} << Names{}
            << QStringList{u"Vivaldi"_s, u"firefox developer edition"_s};
        QTest::newRow("part of a word is enough")
            << Names{"Searchlight.app", "Operator.app", "Knowledge.app"} << Names{}
            << QStringList{u"Knowledge"_s, u"Operator"_s, u"Searchlight"_s};
        QTest::newRow("the ending is exact")
            << Names{"Safari.APP", "Safari", "Safari.app~", ".app", "Arc.appx"} << Names{} << QStringList{};
        QTest::newRow("every ending goes, once")
            << Names{"Edge.app.app", "Op.appera.app", "Arc.ap.appp.app"} << Names{}
            << QStringList{u"Arc.app"_s, u"Edge"_s, u"Opera"_s};
        QTest::newRow("both folders hold it, in two compositions")
            << Names{"Safari.app", "Arc \u00e9.app"} << Names{"Safari.app", "Arc e\u0301.app"}
            << QStringList{u"Arc \u00e9"_s, u"Safari"_s};
        QTest::newRow("the order is that of code points, not of their halves")
            << Names{"Arc \U0001f98a.app", "Arc \uff21.app", "Arc z.app"} << Names{}
            << QStringList{u"Arc z"_s, u"Arc \uff21"_s, u"Arc \U0001f98a"_s};
        QTest::newRow("hidden names, and what subfolders hold")
            << Names{".Safari.app", "Utilities/Arc.app"} << Names{} << QStringList{u".Safari"_s};
    }
    void bundlesAreFoundByTheirNames()
    {
        QFETCH(Names, everybodys);
        QFETCH(Names, own);
        for (const std::string &name : everybodys)
            fs::create_directories(m_folders.everybodys / name);
        for (const std::string &name : own)
            fs::create_directories(m_folders.own / name);
        QTEST(installedBrowsers(m_folders, {}), "found");
    }

    void aFolderThatCannotBeListedIsSkipped_data()
    {
        QTest::addColumn<int>("fault");
        QTest::newRow("it is missing") << 0;
        QTest::newRow("a file stands in its place") << 1;
        QTest::newRow("a link that leads to itself") << 2;
        QTest::newRow("a link that leads nowhere") << 3;
        if (::geteuid() != 0) // who may read everything
            QTest::newRow("it may not be read") << 4;
    }
    void aFolderThatCannotBeListedIsSkipped()
    {
        QFETCH(int, fault);
        fs::create_directories(m_folders.own / "Opera.app");
        if (fault == 4)
            fs::permissions(m_folders.everybodys, fs::perms::none);
        else
            fs::remove(m_folders.everybodys);
        if (fault == 1)
            write(m_folders.everybodys, "");
        if (fault == 2)
            fs::create_symlink("Applications", m_folders.everybodys);
        if (fault == 3)
            fs::create_symlink("nowhere", m_folders.everybodys);
        QCOMPARE(installedBrowsers(m_folders, {}), QStringList{u"Opera"_s});
        m_folders.own = inRoot("none");
        QCOMPARE(installedBrowsers(m_folders, {}), QStringList());
    }

    void portableProgramsAreShownWithoutTheirVersion_data()
    {
        QTest::addColumn<std::string>("file");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("version and machine")
            << std::string("firefox-128.0.r2024-x86_64.AppImage") << QStringList{u"firefox"_s};
        QTest::newRow("a v before it")
            << std::string("Brave Browser v1.2.AppImage") << QStringList{u"Brave Browser"_s};
        QTest::newRow("the machine alone")
            << std::string("Vivaldi-aarch64.AppImage") << QStringList{u"Vivaldi"_s};
        QTest::newRow("no version") << std::string("Opera-Beta.AppImage") << QStringList{u"Opera-Beta"_s};
        QTest::newRow("a digit that is part of the name")
            << std::string("Chrome2.AppImage") << QStringList{u"Chrome2"_s};
        QTest::newRow("another program") << std::string("Krita-5.2.AppImage") << QStringList{};
        QTest::newRow("another ending") << std::string("firefox.appimage") << QStringList{};
    }
    void portableProgramsAreShownWithoutTheirVersion()
    {
        QFETCH(std::string, file);
        write(m_folders.own / file, "");
        QCOMPARE(installedBrowsers(m_folders, {}), QStringList()); // not executable
        fs::permissions(m_folders.own / file, fs::perms::owner_all);
        QTEST(installedBrowsers(m_folders, {}), "found");
    }

    void entriesDeclareBrowsers_data()
    {
        QTest::addColumn<std::string>("content");
        QTest::addColumn<bool>("isListed");
        QTest::newRow("by category") << entry("Categories=Network;WebBrowser;") << true;
        QTest::newRow("by what they open") << entry("MimeType=x-scheme-handler/https;") << true;
        QTest::newRow("a long entry")
            << entry(std::string(65'520, '#') + "\nCategories=WebBrowser;") << true;
        QTest::newRow("but not a word in passing") << entry("Comment=Not a WebBrowser") << false;
        QTest::newRow("nor a longer word") << entry("Categories=X-WebBrowserTools;") << false;
        QTest::newRow("nor a hidden one") << entry("Categories=WebBrowser;\nHidden=true") << false;
        QTest::newRow("nor one not to be shown")
            << entry("Categories=WebBrowser;\nNoDisplay=true") << false;
        QTest::newRow("nor one for another desktop")
            << entry("Categories=WebBrowser;\nOnlyShowIn=None;") << false;
        QTest::newRow("nor one whose program is missing")
            << entry("Categories=WebBrowser;\nTryExec=/nowhere/browser") << false;
        QTest::newRow("nor a nameless one")
            << std::string("[Desktop Entry]\nType=Application\nExec=true\nCategories=WebBrowser;\n")
            << false;
        QTest::newRow("nor rubbish") << std::string("WebBrowser\0\xff", 12) << false;
    }
    void entriesDeclareBrowsers()
    {
        QFETCH(std::string, content);
        QFETCH(bool, isListed);
        const fs::path folder = inRoot("registry");
        write(folder / "web.desktop", content);
        const auto found = DesktopEntries::webBrowsers({folder});
        QCOMPARE(found.size(), size_t(isListed));
        if (isListed) {
            QCOMPARE(found[0].name, u"Web"_s);
            QCOMPARE(found[0].entry, folder / "web.desktop");
        }
    }

    void anEntryHidesThoseOfItsIdThatComeLater()
    {
        const fs::path users = inRoot("users"), systems = inRoot("systems");
        write(users / "a.desktop", entry("Hidden=true"));
        write(users / "sub-b.desktop", entry("Categories=WebBrowser;\nIcon=mine"));
        write(systems / "a.desktop", entry("Categories=WebBrowser;"));
        write(systems / "sub/b.desktop", entry("Categories=WebBrowser;"));
        fs::create_directory_symlink(".", systems / "sub/round");
        fs::create_symlink("nowhere", systems / "c.desktop");
        QCOMPARE(::mkfifo((systems / "d.desktop").c_str(), 0600), 0);
        const auto found = DesktopEntries::webBrowsers({users, systems, inRoot("none")});
        QCOMPARE(found.size(), size_t(1));
        QCOMPARE(found[0].icon, u"mine"_s);
    }

    void registeredBrowsersJoinTheList()
    {
        fs::create_directories(m_folders.own / "Safari.app");
        const std::vector<RegisteredApplication> registered{{.name = u"ウェブ"_s}, {.name = u"Safari"_s}};
        QCOMPARE(installedBrowsers(m_folders, registered), QStringList({u"Safari"_s, u"ウェブ"_s}));
    }

    void namesOfAnyBytesSurvive_data()
    {
        QTest::addColumn<std::string>("name");
        QTest::newRow("UTF-8") << std::string("ブラウザ \U0001f98a");
        QTest::newRow("stray bytes") << std::string("a\xff\x80z\xc3");
        QTest::newRow("a character that is cut short") << std::string("\xe3\x83 \xf0\x9f\xa6");
        QTest::newRow("a surrogate, which UTF-8 has not") << std::string("\xed\xb2\x80");
        QTest::newRow("Shift_JIS") << std::string("\x83\x75\x83\x89");
    }
    void namesOfAnyBytesSurvive()
    {
        QFETCH(std::string, name);
        QCOMPARE(FileName::bytes(FileName::text(name)), name);
    }

    void bundlesOfEachKindStart_data()
    {
        QTest::addColumn<std::string>("bundle");
        QTest::addColumn<std::string>("program");
        QTest::addColumn<std::string>("executable");
        QTest::newRow("an executable file") << std::string("Arc.app") << std::string() << std::string();
        QTest::newRow("a folder's AppRun")
            << std::string("Arc.app") << std::string("AppRun") << std::string();
        QTest::newRow("a program of its name")
            << std::string("Arc.app") << std::string("Arc") << std::string();
        QTest::newRow("one among its contents")
            << std::string("Arc.app") << std::string("Contents/MacOS/Arc") << std::string();
        QTest::newRow("the one described")
            << std::string("Arc.app") << std::string("Contents/MacOS/arc-bin") << std::string("arc-bin");
        QTest::newRow("its description leads out of it")
            << std::string("Arc.app") << std::string("Contents/MacOS/Arc") << std::string("../../../x");
        QTest::newRow("a name that a shell would take apart")
            << std::string("-Arc $HOME; touch '\"x\" \n&.app") << std::string("AppRun") << std::string();
        QTest::newRow("a name that is no UTF-8")
            << std::string("Arc \xff.app") << std::string("Arc \xff") << std::string();
    }
    void bundlesOfEachKindStart()
    {
        QFETCH(std::string, bundle);
        QFETCH(std::string, program);
        QFETCH(std::string, executable);
        const fs::path whole = m_folders.own / bundle;
        const fs::path file = program.empty() ? whole : whole / program;
        write(file, reporter, 0755);
        if (program != "AppRun" && !program.empty())
            write(whole / "AppRun", "not executable");
        if (!executable.empty())
            write(whole / "Contents/Info.plist",
                  "<plist><dict><key>CFBundleName</key><string>x</string><key>CFBundleExecutable</key>"
                  "<string>"
                      + executable + "</string></dict></plist>");

        const int open =
            ::open(inRoot("secret").c_str(), O_CREAT | O_RDWR, 0600); // as a library may leave it
        QVERIFY(Workspace().openBundle(whole));
        QTRY_VERIFY(!report().isEmpty());
        ::close(open);
        const QByteArray told = report();
        QVERIFY(told.contains('\n' + QByteArray::fromStdString(file.string()) + '\n'));
        QCOMPARE(told.count("-> /dev/null"), 3);
        QVERIFY(!told.contains("secret"));
        const QList<QByteArray> stat =
            told.mid(told.lastIndexOf(") ", told.indexOf("\n\n")) + 2).split(' ');
        const QByteArray process = told.first(told.indexOf(' '));
        QCOMPARE(stat[3], process);                                 // its own session
        QTRY_VERIFY(!fs::exists("/proc/" + process.toStdString())); // and nothing is left of it
    }

    void whatIsNoProgramGoesToItsDefaultApplication()
    {
        write(inRoot("bin/xdg-open"), reporter, 0755);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QByteArray::fromStdString(inRoot("bin:").string()) + path);
        fs::create_directories(m_folders.own / "Arc %\xff.app");
        Workspace().openBundle(m_folders.own / "Arc %\xff.app");
        QTRY_VERIFY(report().contains("\nfile:///"));
        qputenv("PATH", path);
        QVERIFY(report().contains("/home/Applications/Arc%20%25%FF.app\n"));
    }

    void bundlesBringTheirIcons()
    {
        const fs::path bundle = m_folders.own / "Arc.app";
        write(bundle / "b.svg", "<svg/>");
        QVERIFY(Workspace().icon(bundle).endsWith(u"/Arc.app/b.svg"));
        write(bundle / "a.png", std::string(1 << 20, ' ')); // would hold up the window
        QVERIFY(Workspace().icon(bundle).endsWith(u"/b.svg"));
        write(bundle / ".DirIcon", "");
        QVERIFY(Workspace().icon(bundle).endsWith(u"/.DirIcon"));
        fs::remove(bundle / ".DirIcon");
        QCOMPARE(::mkfifo((bundle / ".DirIcon").c_str(), 0600), 0); // so would this
        QVERIFY(Workspace().icon(bundle).endsWith(u"/b.svg"));
        QVERIFY(Workspace().icon(bundle / "b.svg").isEmpty());
    }

    void whatFailsToStartIsNotHandedToAShell()
    {
        write(m_folders.own / "Arc.app", std::string(reporter).substr(std::string("#!/bin/sh\n").size()),
              0755);
        QVERIFY(!Workspace().openBundle(m_folders.own / "Arc.app"));
        QTest::qWait(100);
        QVERIFY(!fs::exists(m_report));
    }

    void aRegisteredApplicationStarts()
    {
        write(inRoot("a browser"), reporter, 0755);
        const fs::path file = inRoot("web.desktop");
        write(file, entry("Exec=\"" + inRoot("a browser").string() + "\" --new %U"));
        QVERIFY(Workspace().start({.name = u"Web"_s, .icon = {}, .entry = file}));
        QTRY_VERIFY(report().contains("--new\n"));
        QCOMPARE(report().count("-> /dev/null"), 3);
        fs::remove(file);
        QVERIFY(!Workspace().start({.name = u"Web"_s, .icon = {}, .entry = file}));
    }

    void aRunningApplicationIsAskedOnTheBus()
    {
        QProcess daemon;
        daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(daemon.waitForReadyRead());
        const QByteArray address = daemon.readLine().trimmed();
        auto bus = QDBusConnection::connectToBus(QString::fromLatin1(address), u"browser"_s);
        RunningBrowser browser;
        QVERIFY(bus.registerObject(u"/org/example/Web"_s, &browser, QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(u"org.example.Web"_s));
        const fs::path file = inRoot("org.example.Web.desktop");
        write(inRoot("a browser"), reporter, 0755);
        write(file, entry("DBusActivatable=true\nExec=\"" + inRoot("a browser").string() + '"'));
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        const bool isStarted = Workspace().start({.name = u"Web"_s, .icon = {}, .entry = file});
        const bool isAsked = QTest::qWaitFor([&browser] { return browser.m_asked > 0; });
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        QDBusConnection::disconnectFromBus(u"browser"_s);
        daemon.kill(); // which must not end us with it
        QVERIFY(daemon.waitForFinished());
        QTest::qWait(100);
        QVERIFY(isStarted && isAsked);
        QVERIFY(report().isEmpty());
    }

    void theChosenBrowserIsLaunchedFromTheFirstPlace_data()
    {
        QTest::addColumn<Names>("present");
        QTest::addColumn<bool>("isUninstalled");
        QTest::addColumn<QStringList>("asked");
        QTest::newRow("everybody's before one's own")
            << Names{"Applications/Arc.app", "home/Applications/Arc.app"} << false
            << QStringList{u"open Arc.app"_s};
        QTest::newRow("one's own") << Names{"home/Applications/Arc.app"} << false
                                   << QStringList{u"open Arc.app"_s};
        QTest::newRow("the registered one")
            << Names{"home/Applications/Arc-1.AppImage"} << false << QStringList{u"start Arc"_s};
        QTest::newRow("a portable one") << Names{"home/Applications/Arc-1.AppImage"} << true
                                        << QStringList{u"start Arc"_s, u"open Arc-1.AppImage"_s};
        QTest::newRow("none") << Names{} << true << QStringList{u"start Arc"_s};
    }
    void theChosenBrowserIsLaunchedFromTheFirstPlace()
    {
        QFETCH(Names, present);
        ScriptedWorkspace workspace;
        workspace.m_registered = {{.name = u"Arc"_s}, {.name = u"Other"_s}};
        for (const std::string &file : present)
            write(inRoot(file.c_str()), "", 0755);
        State<QStringList> browsers;
        State<QString> selected;
        BrowserChoice choice(browsers, selected, workspace, m_folders);
        choice.refill();
        QTRY_COMPARE(selected.value(), u"Arc"_s);
        QFETCH(bool, isUninstalled);
        workspace.m_isUninstalled = isUninstalled;
        fs::create_symlink("nowhere", m_folders.own / "Other.app"); // is found, but isn't there
        choice.launch();
        QTEST(workspace.m_asked, "asked");
        if (workspace.m_asked.value(0).startsWith(u"open"))
            QCOMPARE(workspace.m_lastBundle, inRoot(present.front().c_str()));
    }

    void thePickerStartsAnewWheneverItAppears()
    {
        ScriptedWorkspace workspace;
        fs::create_directories(m_folders.own / "Arc.app");
        fs::create_directories(m_folders.own / "Safari.app");
        State<QStringList> browsers;
        State<QString> selected;
        BrowserChoice choice(browsers, selected, workspace, m_folders);
        const std::unique_ptr<QWidget> picker(BrowserPicker(browsers, selected, choice));
        auto *list = picker->findChild<QComboBox *>();
        QCOMPARE(list->count(), 0);
        picker->show();
        QTRY_COMPARE(list->currentText(), u"Arc"_s);
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(selected.value(), u"Safari"_s);
        fs::create_directories(m_folders.own / "Opera.app");
        picker->hide();
        picker->show();
        QTRY_COMPARE(list->count(), 3);
        QCOMPARE(selected.value(), u"Arc"_s);
    }

    void theLastAppearanceCounts()
    {
        ScriptedWorkspace workspace;
        QSemaphore firstMayEnd;
        std::atomic<int> looks = 0;
        workspace.m_looking = [&] {
            if (looks++ == 0)
                firstMayEnd.acquire();
        };
        State<QStringList> browsers;
        State<QString> selected;
        BrowserChoice choice(browsers, selected, workspace, m_folders);
        QThreadPool::globalInstance()->setMaxThreadCount(2);
        choice.refill();
        QTRY_COMPARE(looks.load(), 1);
        fs::create_directories(m_folders.own / "Arc.app");
        choice.refill();
        QTRY_COMPARE(selected.value(), u"Arc"_s);
        fs::remove(m_folders.own / "Arc.app");
        firstMayEnd.release();
        QThreadPool::globalInstance()->waitForDone();
        QTest::qWait(50);
        QCOMPARE(selected.value(), u"Arc"_s);
    }
};

QTEST_MAIN(BrowsersTest)
#include "browsers_test.moc"
