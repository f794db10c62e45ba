#pragma once

#include "document/TextPattern.h"

#include <QObject>

#include <utility>
#include <vector>

class TextPane;

/// Marks what a pattern finds in the part of a pane that is in view, wherever that is scrolled and whatever
/// is written there.
class HitMarks : public QObject {
    Q_OBJECT

public:
    explicit HitMarks(TextPane &pane);

    /// From now on; an empty pattern marks nothing.
    void show(const TextPattern &pattern);

protected:
    bool eventFilter(QObject *pane, QEvent *event) override; // its colours

private:
    using Places = std::vector<std::pair<int, int>>; // positions in the document

    void markSoon();
    void mark();
    Places hitsInView() const;

    TextPane &m_pane;
    TextPattern m_pattern;
    Places m_marked;
    qint64 m_palette = 0; // in whose colours
    bool m_isDue = false;
};
