#include "reading/SeamStep.h"

#include "document/PiecedDocument.h"

#include <QKeyEvent>

#include <algorithm>
#include <initializer_list>

namespace {

bool isAnyOf(const QKeyEvent &event, std::initializer_list<QKeySequence::StandardKey> keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [&event](QKeySequence::StandardKey key) { return event.matches(key); });
}

bool selects(const QKeyEvent &event)
{
    return isAnyOf(event, {QKeySequence::SelectPreviousChar, QKeySequence::SelectNextChar});
}

bool goesBackward(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Backspace
        || isAnyOf(event, {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar});
}

bool goesForward(const QKeyEvent &event)
{
    return isAnyOf(event,
                   {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, QKeySequence::Delete,
                    QKeySequence::DeleteEndOfLine});
}

} // namespace

QTextCursor acrossSeam(const PiecedDocument &document, QTextCursor cursor, const QKeyEvent &event)
{
    if (cursor.hasSelection() && !selects(event))
        return cursor;
    int to = cursor.position();
    if (goesBackward(event))
        to = document.acrossSeamBackward(to);
    else if (goesForward(event))
        to = document.acrossSeamForward(to);
    if (to != cursor.position())
        cursor.setPosition(to, selects(event) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    return cursor;
}
