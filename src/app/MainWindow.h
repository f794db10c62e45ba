#pragma once

#include "main_window/ContentView.h"

#include <QMainWindow>

/// A main window: a content view, and around it what every window of the desktop has. The window is
/// as large as the bounds of its content and its own bars allow.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    ContentView &content() { return m_content; }

signals:
    void closed();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void boundSize();

    ContentView m_content;
    Frame *m_frame;
    QToolBar *m_toolbar;
};
