#include "typesetting/LinePlacing.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// From where to where a cell reaches.
struct Place {
    Millipoints left = 0;
    Millipoints right = 0;
};
using Places = std::vector<Place>; // of cells in the order of the text

Millipoints widthOf(std::span<const Cell> line, std::size_t cell, const Spread &spread)
{
    const Gap gap = cell + 1 < line.size() ? gapBetween(line[cell], line[cell + 1]) : Gap{};
    return line[cell].advance + gap.room + spread[std::size_t(gap.stretch)];
}

Places placesInOrder(std::span<const Cell> line, const Spread &spread, Millipoints left)
{
    Places places(line.size());
    for (std::size_t cell = 0; cell < line.size(); ++cell) {
        places[cell] = {left, left + widthOf(line, cell, spread)};
        left = places[cell].right;
    }
    return places;
}

// What hangs over at the end of a line of a paragraph that runs to the left lies beyond its left end, and
// the rest ends at the right one.
Places placesSeen(std::span<const Cell> line, UBiDiLevel base, Millipoints left, Millipoints width)
{
    std::vector<UBiDiLevel> levels;
    Millipoints own = 0;
    for (const Cell &cell : line) {
        levels.push_back(cell.level);
        own += cell.advance;
    }
    if (base % 2 != 0)
        left += width - std::clamp(own, 0, width);
    for (std::size_t i = line.size(); i > 0 && line[i - 1].kind == CharacterKind::Blank; --i)
        levels[i - 1] = base;
    Places places(line.size());
    for (const std::int32_t cell : Directions::visualOrder(levels)) {
        places[std::size_t(cell)] = {left, left + widthOf(line, std::size_t(cell), {})};
        left = places[std::size_t(cell)].right;
    }
    return places;
}

// Each cell to its place, from the end of the one before it in the text.
void moveTo(const Places &places, const BrokenLine &line)
{
    Glyph *next = line.glyphs.data();
    for (std::size_t cell = 0; cell + 1 < places.size(); ++cell) {
        next += line.cells[cell].glyphs;
        next[-1].excess += places[cell + 1].left - places[cell].right;
    }
}

/// Tells readers what the cells of a line belong to, in the order of the text.
class Marker {
public:
    Marker(Page &page, const BrokenLine &line)
        : m_page(page)
        , m_line(line)
    {
    }

    /// Whether another mark begins with this cell.
    bool isBorder(std::size_t cell) const { return cell > 0 && markOf(cell) != markOf(cell - 1); }

    /// The next cell; `glyph` is the first of the page's that belongs to its mark.
    void take(std::size_t cell, std::size_t glyph, const Place &place)
    {
        const LineMark *mark = markOf(cell);
        if (mark != m_mark || !m_isBegun)
            begin(mark, glyph);
        if (mark && mark->address)
            extendLink(*mark->address, place);
    }

    void end(std::size_t glyph)
    {
        if (m_isForeign)
            m_page.foreign.back().glyphs = glyph - m_page.foreign.back().first;
        m_isForeign = false;
    }

private:
    const LineMark *markOf(std::size_t cell) const
    {
        const auto &marks = m_line.marks;
        const auto after =
            std::upper_bound(marks.begin(), marks.end(), cell,
                             [](std::size_t at, const LineMark &mark) { return at < mark.begin; });
        return after != marks.begin() && cell < std::prev(after)->end ? &*std::prev(after) : nullptr;
    }

    void begin(const LineMark *mark, std::size_t glyph)
    {
        end(glyph);
        m_mark = mark;
        m_isBegun = true;
        Passage passage = m_line.paragraph;
        passage.first = glyph;
        passage.address = mark && mark->address ? mark->address->number : 0;
        const auto goesOn = [&](const Passage &last) {
            return last.paragraph == passage.paragraph && last.address == passage.address;
        };
        if (m_page.passages.empty() || !goesOn(m_page.passages.back()))
            m_page.passages.push_back(passage);
        if (!mark || mark->language == Languages::common)
            return;
        if (const std::string &tag = Languages::tag(mark->language); !tag.empty()) {
            m_page.foreign.push_back({.first = glyph, .language = tag});
            m_isForeign = true;
        }
    }

    void extendLink(const Address &address, const Place &place)
    {
        auto &links = m_page.links;
        if (links.empty() || links.back().address != address.number)
            links.push_back({address.target, address.number, {}});
        const Millipoints baseline = m_page.lines.back().baseline;
        const Millipoints bottom = baseline - m_line.extent.descent;
        auto &boxes = links.back().boxes;
        if (boxes.empty() || boxes.back().bottom != bottom || boxes.back().right != place.left)
            boxes.push_back({place.left, bottom, place.left, baseline + m_line.extent.ascent});
        boxes.back().right = place.right;
    }

    Page &m_page;
    const BrokenLine &m_line;
    const LineMark *m_mark = nullptr;
    bool m_isBegun = false;
    bool m_isForeign = false;
};

// Much that says another text than it should is said at once.
bool goesWithNext(std::span<const Cell> cells, std::size_t cell)
{
    return cell + 1 < cells.size() && cells[cell + 1].marks.isUnsaid && cells[cell].level == 0
        && cells[cell + 1].level == 0;
}

// What a reader would take apart goes into one saying, with all that is bound up with it. Where that is
// marked in two ways, the first glyph of the second goes with the saying before, its text with the one
// behind: so none is across. Returns the cells of these glyphs.
std::vector<std::size_t> say(const Misread &misread, Page &page, const BrokenLine &line,
                             const Marker &marker)
{
    const auto &cells = line.cells;
    const auto canLend = [&](std::size_t cell) {
        return cell + 1 < cells.size() && !marker.isBorder(cell + 1);
    };
    std::vector<std::size_t> lent;
    auto next = misread.apart.begin();
    Saying saying{.first = page.glyphs.size()};
    std::size_t unit = 0;
    std::size_t units = 0;
    bool isNeeded = false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const bool isLent = !lent.empty() && lent.back() == i;
        const bool isApart = next != misread.apart.end() && *next == i;
        next += isApart;
        units += cells[i].length;
        saying.glyphs += isLent ? 0 : cells[i].glyphs;
        isNeeded = isNeeded || isLent || isApart || cells[i].marks.isUnsaid;
        const bool isBound = isLent || isApart || (cells[i].marks.isUnsaid && goesWithNext(cells, i));
        if (isBound && (isLent || !marker.isBorder(i + 1)))
            continue;
        if (isApart && canLend(i + 1)) {
            lent.push_back(i + 1);
            saying.glyphs += cells[i + 1].glyphs;
        }
        if (isNeeded) {
            saying.text = line.text.substr(unit, units);
            page.sayings.push_back(saying);
        }
        saying.first += std::exchange(saying.glyphs, 0);
        unit += std::exchange(units, 0);
        isNeeded = false;
    }
    return lent;
}

void append(Page &page, const BrokenLine &line, const std::vector<std::size_t> &lent, const Places &places,
            Marker &marker)
{
    std::size_t glyph = page.glyphs.size();
    page.glyphs.insert(page.glyphs.end(), line.glyphs.begin(), line.glyphs.end());
    auto nextLent = lent.begin();
    for (std::size_t cell = 0; cell < places.size(); ++cell) {
        const bool isLent = nextLent != lent.end() && *nextLent == cell;
        nextLent += isLent;
        marker.take(cell, glyph + (isLent ? line.cells[cell].glyphs : 0), places[cell]);
        glyph += line.cells[cell].glyphs;
    }
    marker.end(glyph);
}

} // namespace

void placeInOrder(Page &page, const BrokenLine &line, const Spread &spread)
{
    Marker marker(page, line);
    std::vector<std::size_t> lent;
    if (const Misread misread = setApart(line.cells, line.glyphs, spread))
        lent = say(misread, page, line, marker);
    // Without marks, all is like the first cell.
    const auto told = line.marks.empty() && !line.cells.empty() ? line.cells.first(1) : line.cells;
    append(page, line, lent, placesInOrder(told, spread, page.lines.back().left), marker);
}

void placeAsSeen(Page &page, const BrokenLine &line, UBiDiLevel base, Millipoints width)
{
    Marker marker(page, line);
    std::vector<std::size_t> lent;
    if (const Misread misread = setApart(line.cells, line.glyphs, {}))
        lent = say(misread, page, line, marker);
    Line &placed = page.lines.back();
    const Places places = placesSeen(line.cells, base, placed.left, width);
    moveTo(places, line);
    if (!places.empty())
        placed.left = places.front().left;
    placed.goesBack = true;
    append(page, line, lent, places, marker);
}
