#pragma once

#include <functional>

class QToolBar;
struct Event;

/// The event buttons: the first at the leading end of the window's toolbar, the others together at
/// its trailing end. Those that have no room are in the menu of the toolbar's own overflow button; for
/// that, the bar must not be the child of a QMainWindow.
QToolBar *EventToolbar(const std::function<void(const Event &)> &pressed);
