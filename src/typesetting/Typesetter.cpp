#include "typesetting/Typesetter.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

namespace {

constexpr Millipoints tabStop = 4 * Millipoints(textSize) * 1000; // four squares
constexpr std::size_t mostCellsOfLine = 2048;                     // where nothing has a width
constexpr std::size_t mostUnitsOfLine = 16'000;                   // which a document takes as one string
constexpr char16_t softHyphen = u'\u00ad';
constexpr char16_t ideographicBlank = u'\u3000';
constexpr std::u16string_view blanks = u" \t\u3000";
constexpr std::u16string_view endsOfPassages = u"\n\r\f\u3000"; // by which the next line begins

} // namespace

Typesetter::Typesetter(FontList &fonts, DocumentFonts &codes, const PageFormat &format, Sink sink,
                       std::function<bool()> goesOn)
    : m_codes(codes)
    , m_line(lineExtent(fonts))
    , m_shaper(fonts, codes, roomForInk(m_line))
    , m_format(format)
    , m_sink(std::move(sink))
    , m_goesOn(std::move(goesOn))
    , m_lineWidth(Millipoints(format.lineWidth() * 1000))
    , m_textHeight(Millipoints(format.textHeight() * 1000))
{
}

bool Typesetter::set(std::u16string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const Paragraph paragraph = paragraphAt(text, at);
        m_done = at;
        beginPassage(paragraph);
        m_goesOnBelow = m_passage.paragraph != 0 && paragraph.next < text.size() && !paragraph.endsPage
            && endsOfPassages.find(text[paragraph.next]) == endsOfPassages.npos;
        if (!setParagraph(paragraph) || (paragraph.endsPage && !finishPage()))
            return false;
        if (paragraph.endsPage)
            m_passage = {};
        at = paragraph.next;
    }
    m_done = text.size();
    return (m_pages > 0 && m_page.lines.empty()) || finishPage();
}

// What readers call a paragraph may have several lines of the text: an empty one ends it, and so does a
// square that the next one begins with.
void Typesetter::beginPassage(const Paragraph &paragraph)
{
    const bool isBlank = paragraph.text.find_first_not_of(blanks) == paragraph.text.npos;
    const bool isIndented = !isBlank && paragraph.text.front() == ideographicBlank;
    if (isBlank)
        m_passage = {};
    else if (m_passage.paragraph == 0 || isIndented)
        m_passage = {.paragraph = ++m_passages, .language = Languages::mostOf(paragraph.text)};
    m_addresses.setParagraph(paragraph.maybeAddresses ? paragraph.text : std::u16string_view());
}

bool Typesetter::setParagraph(const Paragraph &paragraph)
{
    m_text = paragraph.text;
    m_isJapanese = false;
    m_breaks.setParagraph(paragraph.text);
    m_directions.setParagraph(paragraph);
    m_pending.cells.clear();
    m_pending.glyphs.clear();
    m_first = m_firstGlyph = m_lineStart = m_shaped = m_runEnd = 0;
    const std::size_t begin = m_done;
    if (paragraph.text.empty())
        return paragraph.endsPage || placeLine(0);
    while (m_lineStart < paragraph.text.size()) {
        if ((m_goesOn && !m_goesOn()) || !fillLine(paragraph))
            return false;
        m_done = begin + m_lineStart;
    }
    return true;
}

// Shapes until the line is full, or the paragraph at its end.
bool Typesetter::fillLine(const Paragraph &paragraph)
{
    Millipoints x = 0;
    std::size_t cell = m_first;
    std::size_t glyph = m_firstGlyph;
    std::size_t at = m_lineStart;
    for (;; ++cell) {
        if (cell == m_pending.cells.size()) {
            if (m_shaped == paragraph.text.size())
                return placeLine(cell - m_first);
            if (m_shaped == m_runEnd)
                m_runEnd = m_directions.endOfRun(m_shaped);
            m_shaped += m_shaper.shapeNext(paragraph.text, m_shaped, m_runEnd,
                                           m_directions.levelAt(m_shaped), m_pending);
        }
        Cell &next = m_pending.cells[cell];
        if (cell > m_first)
            x += gapBetween(m_pending.cells[cell - 1], next).room;
        if (next.kind == CharacterKind::Tab)
            measureTab(next, m_pending.glyphs[glyph], x);
        const Millipoints end = x + next.advance - (next.spacing == Spacing::Closing ? halfSquare : 0);
        const bool tooWide = next.kind != CharacterKind::Blank && end > m_lineWidth && next.advance > 0;
        const bool tooMuch = cell - m_first == mostCellsOfLine || at - m_lineStart > mostUnitsOfLine;
        if ((tooWide && cell > m_first) || tooMuch)
            return placeLine(breakBefore(cell, at) - m_first);
        x += next.advance;
        glyph += next.glyphs;
        at += next.length;
    }
}

void Typesetter::measureTab(Cell &cell, Glyph &glyph, Millipoints x) const
{
    const Millipoints advance = tabStop - x % tabStop;
    glyph.excess += advance - cell.advance;
    cell.advance = advance;
}

// The cell to begin the next line with, so that `overflowing`, which stands at `at`, is on it.
std::size_t Typesetter::breakBefore(std::size_t overflowing, std::size_t at)
{
    std::size_t cell = overflowing;
    while (at > m_lineStart) {
        const std::size_t wanted = m_breaks.lastBreak(m_lineStart, at);
        while (at > wanted)
            at -= m_pending.cells[--cell].length;
        if (at == wanted && at > m_lineStart) {
            if (m_text[at - 1] != softHyphen || hasRoomForHyphen(cell))
                return cell;
            at -= m_pending.cells[--cell].length;
        }
        // It would be inside a ligature: look before that.
    }
    return overflowing; // there is nothing but one long word
}

// Behind the cells before this one, of which the last is a soft hyphen.
bool Typesetter::hasRoomForHyphen(std::size_t cell)
{
    Millipoints width = 0;
    for (std::size_t i = m_first; i < cell; ++i)
        width += m_pending.cells[i].advance;
    return width + m_shaper.hyphen(*m_pending.cells[cell - 1].font).second <= m_lineWidth;
}

bool Typesetter::placeLine(std::size_t cells)
{
    const std::span<Cell> line(m_pending.cells.data() + m_first, cells);
    const LineContent content = contentOf(line);
    const std::span glyphs(m_pending.glyphs.data() + m_firstGlyph, content.glyphs);
    if (content.units > 0 && !content.endsParagraph
        && m_text[m_lineStart + content.units - 1] == softHyphen)
        hyphenate(line, glyphs.back());
    const Extent extent = content.anyTall ? extentOf(line) : m_line;
    const Millipoints height = extent.ascent + extent.descent;
    if (m_used + height > m_textHeight && !m_page.lines.empty() && !finishPage())
        return false;
    const Millipoints top = Millipoints((m_format.height - m_format.top) * 1000) - m_used;
    m_page.lines.push_back({Millipoints(m_format.left * 1000), top - extent.ascent, content.glyphs});
    const auto &addresses = m_addresses.inLine(m_lineStart, m_lineStart + content.units);
    std::vector<LineMark> marks;
    if (content.anyForeign || (content.anyBorrowed && content.anyBlank) || !addresses.empty())
        marks = marksOf(line, m_lineStart, addresses, m_passage.language);
    const BrokenLine broken{line,  glyphs,    m_text.substr(m_lineStart, content.units),
                            marks, m_passage, extent};
    if (content.runsLeft)
        placeAsSeen(m_page, broken, m_directions.base(), m_lineWidth);
    else
        placeInOrder(m_page, broken, spreadOf(line, content));
    if (content.endsParagraph && m_goesOnBelow)
        partFromNext();
    m_used += height;
    m_lineStart += content.units;
    m_first += cells;
    m_firstGlyph += content.glyphs;
    forgetPlaced();
    return true;
}

// Words of the next line aren't to be read as one with those of this.
void Typesetter::partFromNext()
{
    if (m_passage.language == Languages::japanese)
        return;
    Cells end;
    m_shaper.shapeNext(u"\n", 0, 1, 0, end);
    m_page.glyphs.insert(m_page.glyphs.end(), end.glyphs.begin(), end.glyphs.end());
    m_page.lines.back().glyphs += end.glyphs.size();
}

Spread Typesetter::spreadOf(std::span<const Cell> line, const LineContent &content)
{
    if (content.endsParagraph)
        return {};
    m_isJapanese = m_isJapanese || isJapanese(line);
    return m_isJapanese ? spreadOver(line, m_lineWidth) : Spread{};
}

Typesetter::LineContent Typesetter::contentOf(std::span<const Cell> line) const
{
    LineContent content{.runsLeft = m_directions.base() % 2 != 0};
    for (const Cell &cell : line) {
        content.runsLeft = content.runsLeft || cell.level != 0;
        content.anyTall = content.anyTall || cell.marks.isTall;
        if (cell.language != m_passage.language && cell.language != Languages::common)
            (Languages::isBorrowed(cell.language) ? content.anyBorrowed : content.anyForeign) = true;
        content.anyBlank = content.anyBlank || cell.kind == CharacterKind::Blank;
        content.glyphs += cell.glyphs;
        content.units += cell.length;
    }
    content.endsParagraph = m_lineStart + content.units == m_text.size();
    return content;
}

// At the end of a line, a soft hyphen is seen.
void Typesetter::hyphenate(std::span<Cell> line, Glyph &glyph)
{
    const FontFile *font = line.size() > 1 ? line[line.size() - 2].font : line.back().font;
    std::tie(glyph, line.back().advance) = m_shaper.hyphen(*font);
    line.back().font = font;
}

// As high as all lines, or higher where a character needs that.
Extent Typesetter::extentOf(std::span<const Cell> line) const
{
    Extent extent = m_line;
    std::size_t glyph = m_firstGlyph;
    for (const Cell &cell : line) {
        for (std::size_t i = glyph; cell.marks.isTall && i < glyph + cell.glyphs; ++i)
            grow(extent, inkOf(*cell.font, m_codes.glyph(m_pending.glyphs[i].code), m_pending.glyphs[i].up),
                 m_line);
        glyph += cell.glyphs;
    }
    return extent;
}

void Typesetter::forgetPlaced()
{
    constexpr std::size_t many = 4096;
    if (m_first < many)
        return;
    m_pending.cells.erase(m_pending.cells.begin(), m_pending.cells.begin() + std::ptrdiff_t(m_first));
    m_pending.glyphs.erase(m_pending.glyphs.begin(),
                           m_pending.glyphs.begin() + std::ptrdiff_t(m_firstGlyph));
    m_first = m_firstGlyph = 0;
}

bool Typesetter::finishPage()
{
    ++m_pages;
    if (m_format.isNumbered)
        addNumber();
    m_used = 0;
    return m_sink(std::exchange(m_page, {}), m_done);
}

// In the middle, as part of no paragraph.
void Typesetter::addNumber()
{
    const std::string digits = std::to_string(m_pages);
    const std::u16string text(digits.begin(), digits.end());
    Cells cells;
    for (std::size_t at = 0; at < text.size();)
        at += m_shaper.shapeNext(text, at, text.size(), 0, cells);
    Millipoints width = 0;
    for (const Cell &cell : cells.cells)
        width += cell.advance;
    m_page.passages.push_back({.first = m_page.glyphs.size()});
    m_page.lines.push_back({(Millipoints(m_format.width * 1000) - width) / 2,
                            Millipoints(m_format.numberBaseline() * 1000), cells.glyphs.size()});
    m_page.glyphs.insert(m_page.glyphs.end(), cells.glyphs.begin(), cells.glyphs.end());
}
