#include "document/TextPattern.h"

#include "document/Folding.h"

#include <QStringMatcher>

#include <algorithm>

TextPattern::TextPattern(const QString &wanted, bool isExact)
    : m_wanted(isExact ? wanted : folded(wanted).text)
    , m_isExact(isExact)
{
}

std::vector<TextPattern::Hit> TextPattern::hitsIn(QStringView text) const
{
    std::vector<Hit> hits;
    if (isEmpty())
        return hits;
    const Folded compared = m_isExact ? Folded() : folded(text);
    const QStringView where = m_isExact ? text : QStringView(compared.text);
    const QStringMatcher matcher(m_wanted);
    for (qsizetype at = matcher.indexIn(where); at >= 0;) {
        const int start = compared.origin(at);
        qsizetype end = at + m_wanted.size();
        const int last = compared.origin(end - 1);
        while (end < where.size() && compared.origin(end) == last) // of a character that stands for several
            ++end;
        hits.push_back({start, end < where.size() ? compared.origin(end) : int(text.size())});
        at = matcher.indexIn(where, end);
    }
    return hits;
}

int TextPattern::longestHit() const
{
    constexpr int unitsForOne = 4; // a letter with marks, and what is left out in comparing
    return int(std::min<qsizetype>(m_wanted.size(), 1 << 20)) * (m_isExact ? 1 : unitsForOne) + 16;
}
