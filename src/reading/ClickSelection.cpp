#include "reading/ClickSelection.h"

#include "document/PiecedDocument.h"
#include "reading/TextPane.h"
#include "reading/WordStep.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethod>
#include <QScrollBar>

ClickSelection::ClickSelection(TextPane &pane)
    : m_pane(pane)
{
}

void ClickSelection::doubleClick(const QPoint &point)
{
    QGuiApplication::inputMethod()->commit();
    m_first = wordUnder(point);
    m_pane.setTextCursor(m_first);
    m_place = point;
    m_sinceSecond.start();
    m_isDown = true;
}

bool ClickSelection::isThird(const QPoint &point) const
{
    return m_sinceSecond.isValid() && m_sinceSecond.elapsed() < QApplication::doubleClickInterval()
        && (point - m_place).manhattanLength() < QApplication::startDragDistance();
}

// The end of the line may be far away; who clicked looks at its beginning.
void ClickSelection::thirdClick(const QPoint &point)
{
    const int scrolled = m_pane.verticalScrollBar()->value();
    m_pane.setTextCursor(m_pane.piecedDocument().lineAround(m_pane.cursorForPosition(point).position()));
    m_pane.verticalScrollBar()->setValue(scrolled);
    m_sinceSecond.invalidate();
    m_isDown = true;
}

void ClickSelection::drag(const QPoint &point)
{
    if (m_first.isNull())
        return;
    const QTextCursor last = wordUnder(point);
    QTextCursor both = m_first;
    const bool forward = last.selectionEnd() >= m_first.selectionEnd();
    both.setPosition(forward ? m_first.selectionStart() : m_first.selectionEnd());
    both.setPosition(forward ? last.selectionEnd() : last.selectionStart(), QTextCursor::KeepAnchor);
    m_pane.setTextCursor(both);
}

// What the mouse selects, the middle button pastes, where the desktop has that custom.
void ClickSelection::release()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (m_isDown && clipboard->supportsSelection())
        clipboard->setMimeData(m_pane.selected(), QClipboard::Selection);
    m_first = QTextCursor();
    m_isDown = false;
}

// A point is nearest to the place before or behind the character that it is on. Past the end of a line it
// is on the last one.
QTextCursor ClickSelection::wordUnder(const QPoint &point) const
{
    QTextCursor place = m_pane.cursorForPosition(point);
    const bool isBeforePlace = point.x() < m_pane.cursorRect(place).left();
    if ((isBeforePlace || place.atBlockEnd()) && !place.atBlockStart())
        place.movePosition(QTextCursor::PreviousCharacter);
    return wordAround(m_pane.piecedDocument(), place.position());
}
