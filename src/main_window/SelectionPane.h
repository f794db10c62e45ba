#pragma once

#include "view/State.h"

#include <QUuid>

#include <optional>

class QWidget;

/// Says that nothing is selected in the sidebar or, whichever row is, who and where the user is.
QWidget *SelectionPane(const State<std::optional<QUuid>> &selection, const State<QString> &hostName,
                       const State<QString> &userName);
