#include <gio/gio.h> // first: Qt has a macro for a name in it

#include "Testing.h"
#include "browsers/BrowserChoice.h"
#include "browsers/BrowserPicker.h"
#include "browsers/IconFiles.h"
#include "browsers/InstalledBrowsers.h"
#include "platform/FileName.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/EntrySearch.h"

#include <QComboBox>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QProcess>
#include <QSemaphore>

#include <csignal>
#include <fstream>
#include <mutex>

#include <dlfcn.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using Names = std::vector<std::string>;
namespace fs = std::filesystem;

namespace {

QSemaphore directoryMayAnswer(1);

// A desktop that takes note of what it is asked for.
class ScriptedWorkspace : public Workspace {
public:
    ~ScriptedWorkspace() override
    {
        while (!Workers::waiting().isIdle()) // they may still have something to say to it
            QThread::yieldCurrentThread();
    }

    bool openBundle(const fs::path &bundle) override
    {
        note(u"open "_s + FileName::text(bundle));
        return false; // whatever comes of it is nobody's concern
    }
    std::vector<RegisteredApplication> webBrowsers() const override
    {
        const auto found = m_registered; // before it may take its time
        m_looking();
        return found;
    }
    bool isRegistered(const RegisteredApplication &) const override { return !m_isUninstalled; }
    bool start(const RegisteredApplication &application) override
    {
        note(u"start "_s + application.name + FileName::text(application.entry));
        return true;
    }
    QStringList asked()
    {
        const std::lock_guard lock(m_mutex);
        return m_asked;
    }

    std::vector<RegisteredApplication> m_registered;
    std::function<void()> m_looking = [] {};
    bool m_isUninstalled = false;

private:
    void note(const QString &what)
    {
        const std::lock_guard lock(m_mutex);
        m_asked += what;
    }

    std::mutex m_mutex;
    QStringList m_asked;
};

// A choice of browsers on such a desktop.
struct Scene {
    ScriptedWorkspace workspace;
    State<QStringList> browsers;
    State<QString> selected;
    BrowserChoice choice;

    explicit Scene(const BundleFolders &folders, std::vector<RegisteredApplication> registered = {})
        : choice(browsers, selected, workspace, folders)
    {
        workspace.m_registered = std::move(registered);
    }
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
{ cat /proc/$$/stat; grep SigIgn /proc/$$/status; echo; tr '\0' '\n' </proc/$$/cmdline; echo "$files"; } >"$REPORT.part"
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

// In the place of the system's own: a directory service that takes its time.
extern "C" int getpwuid_r(uid_t id, passwd *entry, char *room, size_t size, passwd **found)
{
    directoryMayAnswer.acquire();
    const QSemaphoreReleaser asBefore(directoryMayAnswer);
    const auto real = reinterpret_cast<decltype(&getpwuid_r)>(::dlsym(RTLD_NEXT, "getpwuid_r"));
    return real(id, entry, room, size, found);
}

class BrowsersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_root;
    BundleFolders m_folders;
    fs::path m_report;

    fs::path inRoot(const std::string &name) const { return fs::path(m_root->path().toStdString()) / name; }

    QByteArray report() const { return contentOf(FileName::text(m_report)); }

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        m_folders = {.system = inRoot("Applications"), .own = inRoot("home/Applications")};
        m_report = inRoot("report");
        qputenv("REPORT", m_report.c_str());
        fs::create_directories(m_folders.system);
        fs::create_directories(m_folders.own);
    }

    void cleanup()
    {
        QTRY_VERIFY(Workers::waiting().isIdle());
        std::error_code missing;
        fs::permissions(m_folders.system, fs::perms::owner_all, missing);
        fs::remove_all(inRoot("")); // also what has names that Qt can't say
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
        directoryMayAnswer.acquire();
        QElapsedTimer time;
        time.start();
        QCOMPARE(BundleFolders::standard().own, fs::path("/Applications"));
        QVERIFY(time.elapsed() < 1000);
        directoryMayAnswer.release();
        const fs::path own = BundleFolders::standard().own;
        qputenv("HOME", home);
        if (const passwd *user = ::getpwuid(::geteuid()))
            QCOMPARE(own, fs::path(user->pw_dir) / "Applications");
        QCOMPARE(BundleFolders::standard().own, fs::path(home.toStdString()) / "Applications");
    }

    void bundlesAreFoundByTheirNames_data()
    {
        cases<QString, QString>({
            {"one of each, in the order of the alphabet",
             u"Safari.app|Google Chrome.app|Firefox.app|Microsoft Edge.app|Opera.app|Brave Browser.app|"
             "Vivaldi.app|Arc.app|Notes.app"_s,
             u"Arc|Brave Browser|Firefox|Google Chrome|Microsoft Edge|Opera|Safari|Vivaldi"_s},
            {"part of a word is enough, and small letters come last",
             u"Searchlight.app|Operator.app|knowledge.app|firefox developer edition.app"_s,
             u"Operator|Searchlight|firefox developer edition|knowledge"_s},
            {"the ending is exact, and subfolders are not looked into",
             u"Safari.APP|Safari|Safari.app~|.app|Arc.appx|.Safari.app|Utilities/Arc.app"_s, u".Safari"_s},
            {"every ending goes, once", u"Edge.app.app|Op.appera.app|Arc.ap.appp.app"_s,
             u"Arc.app|Edge|Opera"_s},
            {"the first folder's composition counts", u"Safari.app|Arc \u00e9.app"_s,
             u"Arc \u00e9|Safari"_s},
            {"the order is that of code points, not of their halves",
             u"Arc \U0001f98a.app|Arc \uff21.app|Arc z.app"_s, u"Arc z|Arc \uff21|Arc \U0001f98a"_s},
        });
    }
    void bundlesAreFoundByTheirNames()
    {
        const auto [bundles, found] = values<QString, QString>();
        for (const QString &bundle : bundles.split(u'|')) { // both folders hold it, in two compositions
            const QString decomposed = bundle.normalized(QString::NormalizationForm_D);
            fs::create_directories(m_folders.system / bundle.toStdString());
            fs::create_directories(m_folders.own / decomposed.toStdString());
        }
        QCOMPARE(installedBrowsers(m_folders, {}).join(u'|'), found);
    }

    void aFolderThatCannotBeListedIsSkipped()
    {
        const fs::path folder = m_folders.system;
        std::vector<std::function<void()>> faults{
            [] {}, // it is missing
            [&] { write(folder, "no folder"); },
            [&] { fs::create_symlink("Applications", folder); }, // a link that leads to itself
            [&] { fs::create_symlink("nowhere", folder); },
        };
        if (::geteuid() != 0) // who may read everything
            faults.push_back(
                [&] { fs::create_directory(folder), fs::permissions(folder, fs::perms::none); });
        fs::create_directories(m_folders.own / "Opera.app");
        for (const auto &fault : faults) {
            fs::remove(folder);
            fault();
            QCOMPARE(installedBrowsers(m_folders, {}), QStringList{u"Opera"_s});
            QCOMPARE(installedBrowsers({folder, inRoot("none")}, {}), QStringList());
        }
    }

    void portableProgramsAreShownWithoutTheirVersion()
    {
        const Names files{"firefox-128.0.r2024-x86_64.AppImage",
                          "Brave Browser v1.2.AppImage",
                          "Vivaldi-aarch64.AppImage",
                          "Opera-Beta.AppImage",
                          "Chrome2.AppImage",
                          "Krita-5.2.AppImage",
                          "Safari.appimage"};
        for (const std::string &file : files)
            write(m_folders.own / file, "");
        QCOMPARE(installedBrowsers(m_folders, {}), QStringList()); // not executable
        for (const std::string &file : files)
            fs::permissions(m_folders.own / file, fs::perms::owner_all);
        QCOMPARE(installedBrowsers(m_folders, {}).join(u'|'),
                 u"Brave Browser|Chrome2|Opera-Beta|Vivaldi|firefox"_s);
    }

    void entriesDeclareBrowsers_data()
    {
        const std::string category = "Categories=WebBrowser;\n";
        cases<std::string, bool>({
            {"by category", entry("Categories=Network;WebBrowser;"), true},
            {"by what they open", entry("MimeType=x-scheme-handler/https;"), true},
            {"a long entry", entry(std::string(65'520, '#') + '\n' + category), true},
            {"but not a word in passing", entry("Comment=Not a WebBrowser"), false},
            {"nor a longer word", entry("Categories=X-WebBrowserTools;"), false},
            {"nor a hidden one", entry(category + "Hidden=true"), false},
            {"nor one not to be shown", entry(category + "NoDisplay=true"), false},
            {"nor one for another desktop", entry(category + "OnlyShowIn=None;"), false},
            {"nor one whose program is missing", entry(category + "TryExec=/nowhere/browser"), false},
            {"nor a nameless one", "[Desktop Entry]\nType=Application\nExec=true\n" + category, false},
            {"nor rubbish", {"WebBrowser\0\xff", 12}, false},
        });
    }
    void entriesDeclareBrowsers()
    {
        const auto [content, isListed] = values<std::string, bool>();
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
        write(inRoot("elsewhere") / "e.desktop", entry("Categories=WebBrowser;\nIcon=linked"));
        fs::create_symlink(inRoot("elsewhere") / "e.desktop", systems / "e.desktop");
        fs::create_directory_symlink(".", systems / "sub/round");
        fs::create_symlink("nowhere", systems / "c.desktop");
        QCOMPARE(::mkfifo((systems / "d.desktop").c_str(), 0600), 0);
        const auto found = DesktopEntries::webBrowsers({users, systems, inRoot("none")});
        QCOMPARE(found.size(), size_t(2));
        QCOMPARE(found[0].icon, u"mine"_s);
        QCOMPARE(found[1].icon, u"linked"_s);
    }

    void namesOfAnyBytesSurvive()
    {
        for (const std::string name :
             {"ブラウザ \U0001f98a \U0001f480", "stray \xff\x80z\xc3", "cut short \xe3\x83 \xf0\x9f\xa6",
              "a surrogate, which UTF-8 has not \xed\xb2\x80", "Shift_JIS \x83\x75\x83\x89",
              "\xef\xbb\xbf\xef\xbb\xbfwhat else is a mark", "\xff\xef\xbb\xbf and within \xef\xbb\xbf",
              "composed \xc3\xa9, and not: e\xcc\x81"})
            QCOMPARE(FileName::bytes(FileName::text(name)), name);
    }

    void bundlesOfEachKindStart_data()
    {
        cases<std::string, std::string, std::string>({
            {"an executable file", "Arc.app", "", ""},
            {"a folder's AppRun", "Arc.app", "AppRun", ""},
            {"a program of its name", "Arc.app", "Arc", ""},
            {"one among its contents", "Arc.app", "Contents/MacOS/Arc", ""},
            {"the one described", "Arc.app", "Contents/MacOS/arc-bin", "arc-bin"},
            {"its description leads out of it", "Arc.app", "Contents/MacOS/Arc", "../../../x"},
            {"a name that a shell would take apart", "-Arc $HOME; touch '\"x\" \n&.app", "AppRun", ""},
            {"a name that is no UTF-8", "Arc \xff.app", "Arc \xff", ""},
        });
    }
    void bundlesOfEachKindStart()
    {
        const auto [bundle, program, executable] = values<std::string, std::string, std::string>();
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

        std::signal(SIGPIPE, SIG_IGN);
        // As a library may leave it.
        const int open = ::open(inRoot("secret").c_str(), O_CREAT | O_RDWR, 0600);
        QVERIFY(Workspace().openBundle(whole));
        QTRY_VERIFY(!report().isEmpty());
        ::close(open);
        const QByteArray told = report();
        QVERIFY(told.contains('\n' + QByteArray::fromStdString(file.string()) + '\n'));
        QCOMPARE(told.count("-> /dev/null"), 3);
        QVERIFY(!told.contains("secret"));
        const QByteArray ignored = told.sliced(told.indexOf("SigIgn:\t") + 8, 16);
        QVERIFY(!(ignored.toULongLong(nullptr, 16) >> (SIGPIPE - 1) & 1)); // though we do
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
        QTRY_COMPARE(childProcesses(), QStringList()); // who would have reported by then
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

    void aRunningApplicationIsAskedOnTheBusWhoseEndIsNotOurs()
    {
        QProcess daemon;
        daemon.start(u"setpriv"_s,
                     u"--pdeathsig TERM dbus-daemon --session --nofork --print-address"_s.split(u' '));
        QVERIFY(daemon.waitForReadyRead());
        const QByteArray address = daemon.readLine().trimmed();
        auto bus = QDBusConnection::connectToBus(QString::fromLatin1(address), u"browser"_s);
        RunningBrowser browser;
        QVERIFY(bus.registerObject(u"/org/example/Web"_s, &browser, QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(u"org.example.Web"_s));
        const fs::path file = inRoot("org.example.Web.desktop");
        write(file, entry("DBusActivatable=true"));
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        GDBusConnection *connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        const bool isStarted = Workspace().start({.name = u"Web"_s, .icon = {}, .entry = file});
        const bool isAsked = QTest::qWaitFor([&browser] { return browser.m_asked > 0; });
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        QDBusConnection::disconnectFromBus(u"browser"_s);
        bool isSurvived = false; // what GIO does about it comes before what those do who are told after
        const auto note = +[](GDBusConnection *, gboolean, GError *, bool *noted) { *noted = true; };
        g_signal_connect_after(connection, "closed", G_CALLBACK(note), &isSurvived);
        daemon.kill();
        QVERIFY(daemon.waitForFinished());
        QTRY_VERIFY(isSurvived);
        g_object_unref(connection);
        QVERIFY(isStarted && isAsked);
    }

    void theChosenBrowserIsLaunchedFromTheFirstPlace_data()
    {
        const std::string own = "home/Applications/Arc.app", portable = "home/Applications/Arc-1.AppImage";
        cases<Names, bool, QString>({
            {"everybody's before one's own",
             {"Applications/Arc.app", own},
             false,
             u"open Applications/Arc.app"_s},
            {"one's own", {own}, false, u"open home/Applications/Arc.app"_s},
            {"the registered one", {portable}, false, u"start Arc"_s},
            {"a portable one", {portable}, true, u"open home/Applications/Arc-1.AppImage"_s},
        });
    }
    void theChosenBrowserIsLaunchedFromTheFirstPlace()
    {
        const auto [present, isUninstalled, asked] = values<Names, bool, QString>();
        Scene scene(m_folders, {{.name = u"ウェブ"_s}, {.name = u"Arc"_s}});
        fs::create_symlink("nowhere", m_folders.system / "Arc.app");
        for (const std::string &file : present) {
            fs::remove(inRoot(file));
            write(inRoot(file), "", 0755);
        }
        scene.choice.refill();
        QTRY_COMPARE(scene.selected.value(), u"Arc"_s);
        QCOMPARE(scene.browsers.value(), QStringList({u"Arc"_s, u"ウェブ"_s}));
        scene.workspace.m_isUninstalled = isUninstalled;
        scene.choice.launch();
        QTRY_COMPARE(scene.workspace.asked().replaceInStrings(m_root->path() + u'/', QString()),
                     QStringList(asked));
    }

    void aNameIsNoWayOutOfTheFolder()
    {
        write(inRoot("home/Downloads/Arc.app"), "", 0755);
        write(inRoot("home/Applications/Arc"), "", 0755);
        for (const QString &name : {u"../Downloads/Arc"_s, u"Arc"_s + QChar(u'\0')}) {
            Scene scene(m_folders, {{.name = name}});
            scene.choice.refill();
            QTRY_COMPARE(scene.selected.value(), name);
            scene.choice.launch();
            QTRY_COMPARE(scene.workspace.asked(), QStringList(u"start "_s + name));
        }
    }

    void programsOfOneNameAreToldApart()
    {
        write(inRoot("registry/web.desktop"), "");
        fs::create_symlink("registry", inRoot("same"));
        Scene scene(m_folders);
        for (const char *entry :
             {"registry/web.desktop", "registry/org.example.web.desktop", "same/web.desktop",
              "registry/sub/web.desktop", "registry/top/web.desktop"})
            scene.workspace.m_registered.push_back({.name = u"Web"_s, .icon = {}, .entry = inRoot(entry)});
        scene.choice.refill();
        const QString top = FileName::text(inRoot("registry/top/web.desktop"));
        const QStringList names{u"Web"_s, u"Web ("_s + top + u')', u"Web (org.example.web)"_s,
                                u"Web (web)"_s};
        QTRY_COMPARE(scene.browsers.value(), names);
        QStringList expected;
        for (const char *entry :
             {"web.desktop", "top/web.desktop", "org.example.web.desktop", "sub/web.desktop"}) {
            scene.selected = names[expected.size()];
            expected += u"start "_s + scene.selected + FileName::text(inRoot("registry") / entry);
            scene.choice.launch();
            QTRY_COMPARE(scene.workspace.asked(), expected);
        }
    }

    void picturesAreReadWithoutAnybodyWaiting()
    {
        const auto drawing = [](const std::string &content) {
            return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                   "width='90000' height='45000'><rect width='90000' height='45000'/>"
                + content + "</svg>";
        };
        const auto pixels = [](int width, int height) {
            return png(QImage(width, height, QImage::Format_Mono)).toStdString();
        };
        const std::tuple<const char *, std::string, QSize> pictures[]{
            {"a drawing, however large", drawing(""), {64, 32}},
            {"a picture", pixels(300, 150), {64, 32}},
            {"a small one", pixels(16, 16), {16, 16}},
            {"a gigantic one", pixels(5000, 5000), {}},
            {"another file", drawing("<image width='9' height='9' xlink:href='/dev/zero'/>"), {}},
            {"a drawing that grows", "<!DOCTYPE svg [<!ENTITY a 'x'>]>" + drawing("&a;"), {}},
            {"no picture", "none", {}},
        };
        for (const auto &[name, content, size] : pictures) {
            write(inRoot("icon"), content);
            const QImage picture = smallPicture(FileName::text(inRoot("icon")), 64);
            QVERIFY2(size.isValid() ? picture.size() == size : picture.isNull(), name);
        }
    }

    void theIconsOfFilesAreShownWhenTheyAreRead()
    {
        QImage picture(32, 32, QImage::Format_RGB32);
        picture.fill(Qt::red);
        const QString good = FileName::text(inRoot("good.png")), fifo = FileName::text(inRoot("fifo.png"));
        picture.save(good);
        QCOMPARE(::mkfifo(qPrintable(fifo), 0600), 0);
        Scene scene(m_folders,
                    {{.name = u"A"_s, .icon = fifo, .entry = "a"},
                     {.name = u"B"_s, .icon = good, .entry = "b"},
                     {.name = u"C"_s, .icon = u"../../good"_s, .entry = "c"}});
        const std::unique_ptr<QWidget> picker(BrowserPicker(scene.browsers, scene.selected, scene.choice));
        picker->show();
        auto *list = picker->findChild<QComboBox *>();
        QTRY_COMPARE(list->count(), 3);
        list->showPopup();
        QTRY_VERIFY(!list->itemIcon(1).isNull());
        QCOMPARE(list->itemIcon(1).pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
        QVERIFY(list->itemIcon(0).isNull() && list->itemIcon(2).isNull());
        list->hidePopup();
    }

    void whatDoesNotAnswerIsDoneWithout()
    {
        Scene scene(m_folders, {{.name = u"AA Web"_s}});
        QSemaphore mayAnswer;
        scene.workspace.m_looking = [&mayAnswer] { mayAnswer.acquire(); };
        fs::create_directories(m_folders.own / "Arc.app");
        QElapsedTimer time;
        time.start();
        scene.choice.refill();
        scene.choice.launch(); // of what isn't known yet
        QTRY_COMPARE(scene.workspace.asked(),
                     QStringList(u"open "_s + FileName::text(m_folders.own / "Arc.app")));
        QVERIFY(time.elapsed() < 2000);
        fs::create_directories(m_folders.own / "Opera.app");
        scene.choice.refill(); // doesn't ask once more who hasn't answered yet
        QTRY_COMPARE(scene.browsers.value(), QStringList({u"Arc"_s, u"Opera"_s}));
        mayAnswer.release();
        QTRY_COMPARE(scene.browsers.value(), QStringList({u"AA Web"_s, u"Arc"_s, u"Opera"_s}));
        QCOMPARE(scene.selected.value(), u"Arc"_s);
    }

    void thePickerStartsAnewWheneverItAppears()
    {
        Scene scene(m_folders);
        fs::create_directories(m_folders.own / "Arc.app");
        fs::create_directories(m_folders.own / "Safari.app");
        const std::unique_ptr<QWidget> picker(BrowserPicker(scene.browsers, scene.selected, scene.choice));
        auto *list = picker->findChild<QComboBox *>();
        QCOMPARE(list->count(), 0);
        picker->show();
        QTRY_COMPARE(list->currentText(), u"Arc"_s);
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(scene.selected.value(), u"Safari"_s);
        fs::create_directories(m_folders.own / "Opera.app");
        picker->hide();
        picker->show();
        QTRY_COMPARE(list->count(), 3);
        QCOMPARE(scene.selected.value(), u"Arc"_s);
    }

    void theLastAppearanceCounts()
    {
        Scene scene(m_folders, {{.name = u"Arc"_s}});
        QSemaphore firstLooks, firstMayEnd;
        std::atomic<int> looks = 0;
        scene.workspace.m_looking = [&] {
            if (looks++ == 0)
                firstLooks.release(), firstMayEnd.acquire();
        };
        scene.choice.refill();
        firstLooks.acquire();
        scene.workspace.m_registered.clear(); // what it saw is gone since
        fs::create_directories(m_folders.own / "Safari.app");
        scene.choice.refill();
        QTRY_COMPARE(scene.browsers.value(), QStringList(u"Safari"_s));
        firstMayEnd.release();
        hearFrom(Workers::waiting());
        QCOMPARE(scene.browsers.value(), QStringList(u"Safari"_s));
    }
};

QTEST_MAIN(BrowsersTest)
#include "browsers_test.moc"
