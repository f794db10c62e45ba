#include "document/TextSearch.h"

#include "document/ReadingText.h"
#include "platform/Background.h"

#include <algorithm>
#include <utility>

namespace {

// Characters that are taken out of the document at once, on the user-interface thread: the first few hits
// come the sooner.
constexpr int firstStretch = 16 << 10, laterStretch = 128 << 10;

using Hits = std::vector<TextPattern::Hit>;

const TextPattern::Hit *firstFrom(const Hits &hits, int place)
{
    const auto found = std::lower_bound(hits.begin(), hits.end(), place,
                                        [](const auto &hit, int start) { return hit.start < start; });
    return found == hits.end() ? nullptr : &*found;
}

const TextPattern::Hit *lastBefore(const Hits &hits, int place)
{
    const auto behind = std::lower_bound(hits.begin(), hits.end(), place,
                                         [](const auto &hit, int start) { return hit.start < start; });
    return behind == hits.begin() ? nullptr : &*std::prev(behind);
}

TextSearch::Found found(const TextPattern::Hit &hit, bool isWrapped)
{
    return {hit, isWrapped};
}

} // namespace

TextSearch::TextSearch(ReadingText &text)
    : m_text(text)
{
    connect(&text, &ReadingText::complete, this, [this] {
        if (std::exchange(m_waits, false))
            search();
    });
}

void TextSearch::start(const TextPattern &pattern, int from)
{
    stop();
    m_pattern = pattern;
    m_begin = m_reached = from;
    m_isDone = pattern.isEmpty();
    if (!m_isDone)
        search();
}

void TextSearch::stop()
{
    ++m_searches;
    m_behind.clear();
    m_before.clear();
    m_stretches = 0;
    m_isBefore = m_waits = false;
    m_isDone = true;
}

// One stretch, and a little of the next, into which a hit may reach.
void TextSearch::search()
{
    const PiecedDocument &document = m_text.document();
    const int from = m_reached;
    int to = from + (m_stretches++ == 0 ? firstStretch : laterStretch);
    if (m_isBefore)
        to = std::min(to, m_begin);
    const int start = document.positionOf(from), end = document.positionOf(to + m_pattern.longestHit());
    inBackground(
        this,
        [pattern = m_pattern, text = document.text(start, end), from, to] {
            Hits hits = pattern.hitsIn(text);
            for (Hit &hit : hits)
                hit = {hit.start + from, hit.end + from};
            while (!hits.empty() && hits.back().start >= to)
                hits.pop_back();
            return hits;
        },
        [this, search = m_searches, from, to](const Hits &hits) {
            if (search == m_searches)
                take(hits, to);
        });
}

void TextSearch::take(const Hits &hits, int to)
{
    Hits &side = m_isBefore ? m_before : m_behind;
    side.insert(side.end(), hits.begin(), hits.end());
    m_reached = hits.empty() ? to : std::max(to, hits.back().end);
    const bool isEnd = isAtEnd(m_reached);
    if (isCut() || (m_isBefore && m_reached >= m_begin) || (isEnd && (m_isBefore || m_begin == 0)))
        return finish();
    if (isEnd && !m_text.isComplete()) {
        m_waits = true;
    } else {
        if (isEnd) {
            m_isBefore = true;
            m_reached = 0;
        }
        search();
    }
    emit progressed();
}

bool TextSearch::isAtEnd(int to) const
{
    const PiecedDocument &document = m_text.document();
    return document.positionOf(to) >= document.characterCount() - 1;
}

void TextSearch::finish()
{
    m_isDone = true;
    emit progressed();
}

std::optional<TextSearch::Found> TextSearch::next(int place) const
{
    if (place >= m_begin) {
        if (const Hit *hit = firstFrom(m_behind, place))
            return found(*hit, false);
        if (!m_isDone && !m_isBefore)
            return std::nullopt;
        if (!m_before.empty())
            return found(m_before.front(), true);
    } else if (const Hit *hit = firstFrom(m_before, place)) {
        return found(*hit, false);
    }
    if (!m_isDone)
        return std::nullopt;
    if (const Hit *hit = m_behind.empty() ? nullptr : &m_behind.front())
        return found(*hit, place >= m_begin);
    return m_before.empty() ? Found() : found(m_before.front(), true);
}

std::optional<TextSearch::Found> TextSearch::previous(int place) const
{
    if (place > m_begin) {
        if (const Hit *hit = lastBefore(m_behind, place))
            return found(*hit, false);
    }
    if (!m_isDone)
        return std::nullopt;
    if (const Hit *hit = lastBefore(m_before, place))
        return found(*hit, false);
    if (!m_behind.empty())
        return found(m_behind.back(), true);
    return m_before.empty() ? Found() : found(m_before.back(), true);
}

std::optional<int> TextSearch::number(const Hit &hit) const
{
    if (!m_isDone)
        return std::nullopt;
    const bool isBehind = hit.start >= m_begin;
    const Hits &side = isBehind ? m_behind : m_before;
    const Hit *found = firstFrom(side, hit.start);
    if (!found || !(*found == hit))
        return std::nullopt;
    return int(found - side.data()) + 1 + (isBehind ? int(m_before.size()) : 0);
}
