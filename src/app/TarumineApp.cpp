#include "app/TarumineApp.h"

#include "app/Japanese.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/SettingsWindow.h"
#include "platform/ApplicationFolders.h"
#include "platform/Process.h"
#include "view/ClearStyle.h"
#include "view/Modifiers.h"
#include "view/Notice.h"
#include "view/Unwinding.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// In all sizes in which somebody may show it.
QIcon ownIcon()
{
    QIcon icon;
    for (const int size : {16, 22, 32, 48, 64, 128})
        icon.addFile(u":/icons/app-%1.png"_s.arg(size));
    return icon;
}

} // namespace

int TarumineApp::main(int argc, char *argv[])
{
    QApplication::setApplicationName(u"tarumine"_s);
    QApplication::setApplicationVersion(QStringLiteral(TARUMINE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral(TARUMINE_APPLICATION_ID));
    adoptJapaneseLocale();
    const JapaneseApplication application(argc, argv);
    QApplication::setStyle(new ClearStyle(QApplication::style())); // around the one that is there
    installJapaneseTexts();

    TarumineApp app;
    app.newWindow();
    // Not needed for the first picture of the window, so it follows after it.
    QTimer::singleShot(0, [] { QApplication::setWindowIcon(ownIcon()); });
    const int status = QApplication::exec();
    // The windows and Qt go in order, unless something holds them up.
    Process::endWithin(std::chrono::milliseconds(500), status);
    return status;
}

TarumineApp::TarumineApp() = default;
TarumineApp::~TarumineApp() = default;

void TarumineApp::newWindow()
{
    auto &window = m_windows.emplace_back(std::make_unique<MainWindow>());
    const int number = ++m_windowsOpened;
    window->setWindowTitle(number == 1 ? u"Tarumine"_s : u"Tarumine %1"_s.arg(number));
    addMenus(*window, *this);
    connect(window.get(), &MainWindow::closed, this, [this, closed = window.get()] { forget(closed); });
    window->resize(window->sizeHint());
    window->show();
}

void TarumineApp::forget(MainWindow *window)
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                    [window](const auto &open) { return open.get() == window; });
    if (found == m_windows.end())
        return;
    deleteWhenUnwound(found->release());
    m_windows.erase(found);
}

void TarumineApp::showSettings()
{
    if (!m_settings) {
        m_settings = std::make_unique<SettingsWindow>();
        onKeys(
            {QKeySequence::New}, [this] { newWindow(); }, m_settings.get());
        onKeys({quitKey()}, &QCoreApplication::quit, m_settings.get());
    }
    m_settings->setWindowState(m_settings->windowState() & ~Qt::WindowMinimized);
    m_settings->show();
    m_settings->raise();
    m_settings->activateWindow();
}

void TarumineApp::openHelpSite()
{
    Surroundings::standard().workspace.open(QUrl(QStringLiteral(TARUMINE_HELP_SITE)));
}

void TarumineApp::openManual(QWidget *window)
{
    if (const auto manual = ApplicationFolders::resource(u"Tarumine"_s, u"pdf"_s)) {
        Surroundings::standard().workspace.open(*manual);
        return;
    }
    showNotice(QMessageBox::Information, tr("添付マニュアルが見つかりません。"), {}, window);
}
