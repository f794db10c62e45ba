#pragma once

#include "view/State.h"

#include <QLatin1StringView>
#include <QString>

#include <array>
#include <optional>
#include <variant>

class UserDefaults;

/// A small event that a toolbar button records in the preferences store and confirms in the alert.
struct Event {
    QString label;
    QLatin1StringView key;
    std::variant<qint64, QString> fact; ///< what is stored under the key
    std::optional<qint64> stage;        ///< where the journey goes, if it goes anywhere
    QString message;                    ///< what the alert says
};

/// The six events in the order of their buttons.
const std::array<Event, 6> &events();

/// Stage, store, message, alert, in this order.
void perform(const Event &event, UserDefaults &store, State<qint64> &btnStatus,
             State<QString> &alertMessage, State<bool> &showAlert);
