#pragma once

#include <QObject>
#include <QPointer>

#include <list>
#include <memory>

class MainWindow;
class SettingsWindow;

/// The application: its main windows, its one settings window, and what concerns them all.
class TarumineApp : public QObject {
    Q_OBJECT

public:
    /// Runs the application until the user quits; the exit status of the process.
    static int main(int argc, char *argv[]);

    TarumineApp();
    ~TarumineApp() override;

    void newWindow();
    void showSettings();
    void openHelpSite();
    void openManual(QWidget *window);

    const std::list<std::unique_ptr<MainWindow>> &windows() const { return m_windows; }

private:
    void forget(MainWindow *window);

    std::list<std::unique_ptr<MainWindow>> m_windows;
    std::unique_ptr<SettingsWindow> m_settings;
    int m_windowsOpened = 0;
};
