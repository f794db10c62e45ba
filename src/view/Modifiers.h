#pragma once

#include "view/State.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QToolButton;
class QWidget;

// Decorators: each returns the widget it was given.

/// Hidden, and taking no room, while `condition` is false.
QWidget *visibleWhen(std::function<bool()> condition, QWidget *widget);

/// Runs `action` each time the widget comes on screen anew; uncovering or un-minimising a window
/// does not count.
QWidget *onAppear(std::function<void()> action, QWidget *widget);

/// Runs `action` once, when the window that holds the widget has been painted: for what the first
/// picture of a window shall not wait for.
void afterFirstPaint(std::function<void()> action, QWidget *widget);

/// Ends the application wherever the keyboard is, also where a window waits for a dialog.
inline QKeySequence quitKey()
{
    return Qt::CTRL | Qt::Key_Q;
}

/// Runs `action` when any of the keys is pressed in the window of the widget.
QWidget *onKeys(const QList<QKeySequence> &keys, std::function<void()> action, QWidget *widget);

/// Marks the button behind which a bar keeps what it has no room for with a sign in the colour of the
/// text; Qt's own picture is dark also where the bar is. `title` is its accessible name.
void markOverflow(QToolButton *button, const QString &title);

/// In letters larger by a factor than those around it, also when these change.
QWidget *enlarged(double factor, QWidget *text);

/// Breaks the lines of a Text where it has no room, and centres them.
QWidget *wrapped(QWidget *text);
