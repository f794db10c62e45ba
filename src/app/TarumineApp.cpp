#include "app/TarumineApp.h"

#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/SettingsWindow.h"
#include "platform/ApplicationFolders.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QMessageBox>
#include <QTimer>
#include <QTranslator>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// The application speaks Japanese whatever the locale, and so do the toolkit's own dialogs.
void speakJapanese(QTranslator &toolkit)
{
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    if (toolkit.load(u":/translations/qtbase_ja.qm"_s))
        QCoreApplication::installTranslator(&toolkit);
}

} // namespace

int TarumineApp::main(int argc, char *argv[])
{
    QApplication::setApplicationName(u"tarumine"_s);
    QApplication::setApplicationDisplayName(u"Tarumine"_s);
    QApplication::setApplicationVersion(QStringLiteral(TARUMINE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral(TARUMINE_APPLICATION_ID));
    QApplication application(argc, argv);
    QTranslator toolkit;
    speakJapanese(toolkit);

    TarumineApp app;
    app.newWindow();
    return QApplication::exec();
}

TarumineApp::TarumineApp() = default;
TarumineApp::~TarumineApp() = default;

void TarumineApp::newWindow()
{
    auto &window = m_windows.emplace_back(std::make_unique<MainWindow>());
    const int number = ++m_windowsOpened;
    window->setWindowTitle(number == 1 ? u"Tarumine"_s : u"Tarumine %1"_s.arg(number));
    addMenus(*window, *this);
    connect(window.get(), &MainWindow::closed, this, [this, closed = window.get()] {
        // Not at once: the window is still in the middle of closing.
        QMetaObject::invokeMethod(this, [this, closed] { forget(closed); }, Qt::QueuedConnection);
    });
    window->resize(window->sizeHint());
    window->show();
}

void TarumineApp::forget(MainWindow *window)
{
    m_windows.remove_if([window](const auto &open) { return open.get() == window; });
}

void TarumineApp::showSettings()
{
    if (!m_settings)
        m_settings = std::make_unique<SettingsWindow>();
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
    auto *missing = new QMessageBox(QMessageBox::Information, u"Tarumine"_s, tr("添付マニュアルが見つかりません。"),
                                    QMessageBox::Ok, window);
    missing->setAttribute(Qt::WA_DeleteOnClose);
    missing->setWindowModality(Qt::WindowModal);
    missing->open();
}
