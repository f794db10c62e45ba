#pragma once

#include "settings/SettingsView.h"

#include <QMainWindow>

/// The settings in a window of their own, as large as their bounds allow.
class SettingsWindow : public QMainWindow {
    Q_OBJECT

public:
    SettingsWindow();
    ~SettingsWindow() override;

private:
    SettingsView m_settings;
    Frame *m_frame;
};
