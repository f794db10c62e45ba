#pragma once

#include "document/TextPattern.h"

#include <QObject>

#include <optional>
#include <vector>

class ReadingText;

/// Looks for a pattern in the text of a reading pane, from the caret to the end and then from the
/// beginning, stretch by stretch: the first hit is there at once, and the rest comes in the background.
/// Hits are places in the text, so it doesn't matter where its seams are; who edits the text starts anew.
class TextSearch : public QObject {
    Q_OBJECT

public:
    using Hit = TextPattern::Hit;

    explicit TextSearch(ReadingText &text);

    void start(const TextPattern &pattern, int from);
    void stop();

    /// All of the text has been looked through, or there are more hits than anybody counts.
    bool isDone() const { return m_isDone; }
    bool isCut() const { return count() >= mostHits; }
    int count() const { return int(m_behind.size() + m_before.size()); }

    /// The hit next to a place in the text, and whether it is on the other side of the text's end; `hit` is
    /// absent when there is none. Nothing while that isn't known yet.
    struct Found {
        std::optional<Hit> hit;
        bool isWrapped = false;
    };
    std::optional<Found> next(int place) const;
    std::optional<Found> previous(int place) const;

    /// Which of all hits it is, from 1; nothing while that isn't known yet.
    std::optional<int> number(const Hit &hit) const;

    static constexpr int mostHits = 1'000'000;

signals:
    /// There are more hits, or there will be no more.
    void progressed();

private:
    using Hits = std::vector<Hit>;
    void search();
    void take(const Hits &hits, int to);
    bool isAtEnd(int to) const;
    void finish();

    ReadingText &m_text;
    TextPattern m_pattern;
    Hits m_behind, m_before; // where the search began, each in the order of the text
    int m_begin = 0;
    int m_reached = 0;
    int m_stretches = 0;
    int m_searches = 0;
    bool m_isBefore = false;
    bool m_isDone = true;
    bool m_waits = false; // for text that is still to come
};
