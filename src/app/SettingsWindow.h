#pragma once

#include "settings/SettingsView.h"

#include <QWidget>

/// The settings in a window of their own, as large as their bounds allow.
class SettingsWindow : public QWidget {
    Q_OBJECT

public:
    SettingsWindow();
    ~SettingsWindow() override;

private:
    SettingsView m_settings;
    Frame *m_frame;
};
