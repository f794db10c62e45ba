#include "reading/WordSelection.h"

#include "document/PiecedDocument.h"
#include "reading/TextPane.h"
#include "reading/WordStep.h"

WordSelection::WordSelection(TextPane &pane)
    : m_pane(pane)
{
}

void WordSelection::begin(const QPoint &clicked)
{
    m_first = wordUnder(clicked);
    m_pane.setTextCursor(m_first);
}

void WordSelection::extend(const QPoint &dragged)
{
    if (m_first.isNull())
        return;
    const QTextCursor last = wordUnder(dragged);
    QTextCursor both = m_first;
    const bool forward = last.selectionEnd() >= m_first.selectionEnd();
    both.setPosition(forward ? m_first.selectionStart() : m_first.selectionEnd());
    both.setPosition(forward ? last.selectionEnd() : last.selectionStart(), QTextCursor::KeepAnchor);
    m_pane.setTextCursor(both);
}

// A point is nearest to the place before or behind the character that it is on. Past the end of a line it
// is on the last one.
QTextCursor WordSelection::wordUnder(const QPoint &point) const
{
    QTextCursor place = m_pane.cursorForPosition(point);
    const bool isBeforePlace = point.x() < m_pane.cursorRect(place).left();
    if ((isBeforePlace || place.atBlockEnd()) && !place.atBlockStart())
        place.movePosition(QTextCursor::PreviousCharacter);
    return wordAround(m_pane.piecedDocument(), place.position());
}
