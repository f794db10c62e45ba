#pragma once

class QObject;
class QWidget;

// Qt's dialogs open other dialogs in event loops of their own, with the parent on the stack below. Whatever
// such a loop runs in must not be deleted before it has returned.

/// Deletes an object as soon as no such loop is under way.
void deleteWhenUnwound(QObject *object);

/// Closes the dialogs of a window, the latest first, so that their loops return: they are cancelled.
void cancelDialogs(QWidget *window);
