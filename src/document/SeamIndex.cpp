#include "document/SeamIndex.h"

#include "document/PiecedDocument.h"

#include <QTextBlock>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {
constexpr int blocksPerMark = 128;
constexpr int end = std::numeric_limits<int>::max();
} // namespace

SeamIndex::SeamIndex(const PiecedDocument &document)
    : m_document(document)
{
}

// Adds marks behind `from`, up to the block at `until`; returns the seams before that one, with its own.
int SeamIndex::count(std::vector<Mark> &marks, Mark from, int until) const
{
    int seams = from.seams, blocks = 0, position = from.block;
    for (auto block = m_document.findBlock(from.block); block.isValid(); block = block.next()) {
        if (position > from.block)
            seams += m_document.isSeamBefore(block) ? 1 : 0;
        if (position > from.block && ++blocks % blocksPerMark == 0 && position < until)
            marks.push_back({position, seams});
        position += block.length(); // of the next one, which is quicker than to ask it
        if (position > until)
            break;
    }
    return seams;
}

// The last one before a place. Of the two sides of a seam, which are as many characters behind the
// beginning, the first one counts.
const SeamIndex::Mark &SeamIndex::markFor(int place, bool placeIsCharacters)
{
    if (m_marks.empty()) {
        m_marks.push_back({0, 0});
        count(m_marks, {0, 0}, end);
    }
    const auto isBehind = [=](int wanted, const Mark &mark) {
        return placeIsCharacters ? wanted <= mark.block - mark.seams : wanted < mark.block;
    };
    return *std::prev(std::upper_bound(std::next(m_marks.begin()), m_marks.end(), place, isBehind));
}

int SeamIndex::seamsBefore(int position)
{
    std::vector<Mark> none;
    return count(none, markFor(position, false), position);
}

int SeamIndex::positionBehind(int characters)
{
    const Mark near = markFor(characters, true);
    int position = characters + near.seams;
    for (auto block = m_document.findBlock(near.block).next();
         block.isValid() && block.position() <= position; block = block.next())
        position += m_document.isSeamBefore(block) ? 1 : 0;
    return std::clamp(position, 0, m_document.characterCount() - 1);
}

// The marks behind what was removed go along with their blocks; between the last one before the change and
// the first one behind it, seams are counted again.
void SeamIndex::follow(int position, int removed, int added)
{
    if (m_marks.empty())
        return;
    const auto firstAfter = [this](int place) {
        return std::find_if(std::next(m_marks.begin()), m_marks.end(),
                            [place](const Mark &mark) { return mark.block > place; });
    };
    std::vector<Mark> later(firstAfter(position + removed), m_marks.end());
    for (Mark &mark : later)
        mark.block += added - removed;
    m_marks.erase(firstAfter(position), m_marks.end());
    const int next = later.empty() ? end : later.front().block;
    if (!later.empty() && m_document.findBlock(next).position() != next)
        return forget();
    const Mark last = m_marks.back();
    const int seams = count(m_marks, last, next);
    const int more = later.empty() ? 0 : seams - later.front().seams;
    for (const Mark &mark : later)
        m_marks.push_back({mark.block, mark.seams + more});
}
