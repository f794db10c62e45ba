#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QTextCursor>

class TextPane;

/// What several clicks at one place select in a pane: two a word, and more words when the mouse is dragged
/// on; three a line. Qt's own would select what it holds for a word first, and paint all of it.
class ClickSelection {
public:
    explicit ClickSelection(TextPane &pane);

    void doubleClick(const QPoint &point);
    bool isThird(const QPoint &point) const;
    void thirdClick(const QPoint &point);
    void drag(const QPoint &point);
    void release();

private:
    QTextCursor wordUnder(const QPoint &point) const;

    TextPane &m_pane;
    QTextCursor m_first; // the word that a drag goes out from; null when none is under way
    QPoint m_place;
    QElapsedTimer m_sinceSecond;
    bool m_isDown = false;
};
