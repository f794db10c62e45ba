#pragma once

class QAccessibleInterface;
class QObject;
class QString;

/// What a screen reader is told of a TextPane, nothing for other objects: the text as it is, whatever
/// the blocks are in which it is shown. For QAccessible::installFactory.
QAccessibleInterface *paneAccessible(const QString &className, QObject *object);
