#include "typesetting/Typesetter.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

constexpr Millipoints tabStop = 4 * Millipoints(textSize) * 1000; // four squares
constexpr std::size_t mostCellsOfLine = 2048;                     // where nothing has a width
constexpr std::size_t mostUnitsOfLine = 16384;
constexpr char16_t softHyphen = u'\u00ad';

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
        if (!setParagraph(paragraph) || (paragraph.endsPage && !finishPage()))
            return false;
        at = paragraph.next;
    }
    m_done = text.size();
    return (m_anyPage && m_page.lines.empty()) || finishPage();
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
    if (content.units > 0 && !content.endsParagraph
        && m_text[m_lineStart + content.units - 1] == softHyphen)
        hyphenate(line, m_pending.glyphs[m_firstGlyph + content.glyphs - 1]);
    const Extent extent = content.anyTall ? extentOf(line) : m_line;
    const Millipoints height = extent.ascent + extent.descent;
    if (m_used + height > m_textHeight && !m_page.lines.empty() && !finishPage())
        return false;
    const Millipoints top = Millipoints((m_format.height - m_format.top) * 1000) - m_used;
    m_page.lines.push_back({Millipoints(m_format.left * 1000), top - extent.ascent, content.glyphs});
    if (content.runsLeft)
        placeInVisualOrder(line);
    else
        placeInOrder(line, content);
    m_used += height;
    m_lineStart += content.units;
    m_first += cells;
    m_firstGlyph += content.glyphs;
    forgetPlaced();
    return true;
}

Typesetter::LineContent Typesetter::contentOf(std::span<const Cell> line) const
{
    LineContent content{.runsLeft = m_directions.base() % 2 != 0};
    for (const Cell &cell : line) {
        content.runsLeft = content.runsLeft || cell.level != 0;
        content.anyTall = content.anyTall || cell.marks.isTall;
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

void Typesetter::placeInOrder(std::span<const Cell> line, const LineContent &content)
{
    if (!content.endsParagraph)
        m_isJapanese = m_isJapanese || isJapanese(line);
    const bool spreads = m_isJapanese && !content.endsParagraph;
    const Spread spread = spreads ? spreadOver(line, m_lineWidth) : Spread{};
    const std::span glyphs(m_pending.glyphs.data() + m_firstGlyph, content.glyphs);
    if (setApart(line, glyphs, spread))
        sayWhatIsMisread(line, spread);
    m_page.glyphs.insert(m_page.glyphs.end(), glyphs.begin(), glyphs.end());
}

// What a reader would take apart goes into one saying, with all that is bound up with it.
void Typesetter::sayWhatIsMisread(std::span<const Cell> line, const Spread &spread)
{
    Saying saying{.first = m_page.glyphs.size()};
    std::size_t unit = m_lineStart;
    std::size_t units = 0;
    bool isNeeded = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Cell &cell = line[i];
        saying.glyphs += cell.glyphs;
        units += cell.length;
        isNeeded = isNeeded || cell.marks.isUnsaid;
        if (i + 1 < line.size() && isMisread(cell, line[i + 1], spread)) {
            isNeeded = true;
            continue;
        }
        if (isNeeded) {
            saying.text = m_text.substr(unit, units);
            m_page.sayings.push_back(saying);
        }
        saying.first += std::exchange(saying.glyphs, 0);
        unit += std::exchange(units, 0);
        isNeeded = false;
    }
}

void Typesetter::placeInVisualOrder(std::span<const Cell> line)
{
    setApart(line, std::span(m_pending.glyphs).subspan(m_firstGlyph), {});
    struct Begin {
        std::size_t glyph;
        std::size_t unit;
    };
    std::vector<UBiDiLevel> levels;
    std::vector<Begin> begins;
    Begin begin{m_firstGlyph, m_lineStart};
    Millipoints width = 0;
    for (const Cell &cell : line) {
        levels.push_back(cell.level);
        begins.push_back(begin);
        begin = {begin.glyph + cell.glyphs, begin.unit + cell.length};
        width += cell.advance;
    }
    // What hangs over lies beyond the left end then, and the rest ends at the right one.
    if (m_directions.base() % 2 != 0)
        m_page.lines.back().left += m_lineWidth - std::clamp(width, 0, m_lineWidth);
    for (std::size_t i = line.size(); i > 0 && line[i - 1].kind == CharacterKind::Blank; --i)
        levels[i - 1] = m_directions.base();
    for (const std::int32_t place : Directions::visualOrder(levels)) {
        const auto [glyph, unit] = begins[std::size_t(place)];
        const Cell &cell = line[std::size_t(place)];
        if (cell.marks.isUnsaid)
            m_page.sayings.push_back(
                {m_page.glyphs.size(), cell.glyphs, std::u16string(m_text.substr(unit, cell.length))});
        const auto from = m_pending.glyphs.begin() + std::ptrdiff_t(glyph);
        m_page.glyphs.insert(m_page.glyphs.end(), from, from + std::ptrdiff_t(cell.glyphs));
    }
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
    m_used = 0;
    m_anyPage = true;
    return m_sink(std::exchange(m_page, {}), m_done);
}
