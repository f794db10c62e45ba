#pragma once

#include "view/State.h"

#include <QString>

#include <functional>

class QWidget;

/// What the alert's buttons do, besides closing it.
struct AlertActions {
    std::function<void()> ok;
    std::function<void()> cancel;
};

/// Shows an alert with the title `alertMessage`, modal for the window that `widget` is in, while
/// `showAlert` is true. Return presses OK; Escape and the close button press キャンセル. Either sets
/// `showAlert` back to false. An alert that ends with its window, or with the application,
/// presses nothing.
QWidget *alertWhen(State<bool> &showAlert, const State<QString> &alertMessage, AlertActions act,
                   QWidget *widget);
