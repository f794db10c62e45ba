#pragma once

#include <QPoint>
#include <QTextCursor>

class TextPane;

/// What a double click selects in a pane, and what it takes in when it is dragged on: whole words.
class WordSelection {
public:
    explicit WordSelection(TextPane &pane);

    void begin(const QPoint &clicked);
    void extend(const QPoint &dragged);
    void end() { m_first = QTextCursor(); }

private:
    QTextCursor wordUnder(const QPoint &point) const;

    TextPane &m_pane;
    QTextCursor m_first; // null when none is under way
};
