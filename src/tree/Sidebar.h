#pragma once

#include "view/State.h"

#include <QUuid>

#include <optional>
#include <vector>

class QWidget;
struct Node;

/// The outline of `roots`, folders collapsed; the highlighted row is the one whose id is `selection`.
/// A click on empty space, Ctrl+click on the selected row and Escape clear the selection.
/// The nodes must outlive the widget.
QWidget *Sidebar(const std::vector<Node> &roots, State<std::optional<QUuid>> &selection);
