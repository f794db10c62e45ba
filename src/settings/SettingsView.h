#pragma once

#include "preferences/AppStorage.h"

class Frame;

/// The content of the settings window: nine terms, each on or off, written through at once. A term
/// is shown as on exactly when its key holds 1.
class SettingsView {
public:
    explicit SettingsView(UserDefaults &store = UserDefaults::standard());

    /// The view; the fields must outlive it.
    Frame *body();

private:
    AppStorage<qint64> intToggle1;
    AppStorage<qint64> intToggle2;
    AppStorage<qint64> intToggle3;
    AppStorage<qint64> intToggle4;
    AppStorage<qint64> intToggle5;
    AppStorage<qint64> intToggle6;
    AppStorage<qint64> intToggle7;
    AppStorage<qint64> intToggle8;
    AppStorage<qint64> intToggle9;
};
