#include "typesetting/Typesetter.h"

#include <algorithm>
#include <utility>

namespace {

constexpr Millipoints tabStop = 4 * Millipoints(textSize) * 1000; // four squares
constexpr std::size_t mostCellsOfLine = 8192;                     // where nothing has a width

} // namespace

Typesetter::Typesetter(FontList &fonts, DocumentFonts &codes, const PageFormat &format, Sink sink)
    : m_shaper(fonts, codes)
    , m_format(format)
    , m_sink(std::move(sink))
    , m_ownFont(*fonts.first())
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
    m_breaks.setParagraph(paragraph.text);
    m_directions.setParagraph(paragraph);
    m_pending.cells.clear();
    m_pending.glyphs.clear();
    m_first = m_firstGlyph = m_lineStart = m_shaped = m_runEnd = 0;
    const std::size_t begin = m_done;
    if (paragraph.text.empty())
        return paragraph.endsPage || placeLine(0);
    while (m_lineStart < paragraph.text.size()) {
        if (!fillLine(paragraph))
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
        if (next.kind == CharacterKind::Tab)
            measureTab(next, m_pending.glyphs[glyph], x);
        const bool tooWide =
            next.kind != CharacterKind::Blank && x + next.advance > m_lineWidth && next.advance > 0;
        if ((tooWide && cell > m_first) || cell - m_first == mostCellsOfLine)
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
        if (at == wanted && at > m_lineStart)
            return cell;
        // It would be inside a ligature: look before that.
    }
    return overflowing; // there is nothing but one long word
}

bool Typesetter::placeLine(std::size_t cells)
{
    const Extent extent = extentOf(cells);
    const Millipoints height = extent.ascent + extent.descent + m_ownFont.lineGap();
    if (m_used + height > m_textHeight && !m_page.lines.empty() && !finishPage())
        return false;
    Line line{.baseline = Millipoints((m_format.height - m_format.top) * 1000) - m_used - extent.ascent};
    placeCells(cells, line);
    m_page.lines.push_back(line);
    m_used += height;
    forgetPlaced();
    return true;
}

void Typesetter::placeCells(std::size_t cells, Line &line)
{
    const auto begin = m_pending.cells.begin() + std::ptrdiff_t(m_first);
    const auto end = begin + std::ptrdiff_t(cells);
    bool anyLeft = m_directions.base() % 2 != 0;
    Millipoints width = 0;
    for (auto cell = begin; cell != end; ++cell) {
        anyLeft = anyLeft || cell->level != 0;
        width += cell->advance;
        line.glyphs += cell->glyphs;
        m_lineStart += cell->length;
    }
    line.left = Millipoints(m_format.left * 1000);
    if (anyLeft) {
        // What hangs over lies beyond the left end then, and the rest ends at the right one.
        if (m_directions.base() % 2 != 0)
            line.left += m_lineWidth - std::clamp(width, 0, m_lineWidth);
        placeInVisualOrder(cells);
    } else {
        const auto glyphs = m_pending.glyphs.begin() + std::ptrdiff_t(m_firstGlyph);
        m_page.glyphs.insert(m_page.glyphs.end(), glyphs, glyphs + std::ptrdiff_t(line.glyphs));
    }
    m_first += cells;
    m_firstGlyph += line.glyphs;
}

void Typesetter::placeInVisualOrder(std::size_t cells)
{
    std::vector<UBiDiLevel> levels(cells);
    std::vector<std::size_t> firstGlyphs(cells);
    std::size_t glyph = m_firstGlyph;
    for (std::size_t i = 0; i < cells; ++i) {
        const Cell &cell = m_pending.cells[m_first + i];
        levels[i] = cell.level;
        firstGlyphs[i] = glyph;
        glyph += cell.glyphs;
    }
    for (std::size_t i = cells; i > 0 && m_pending.cells[m_first + i - 1].kind == CharacterKind::Blank; --i)
        levels[i - 1] = m_directions.base();
    for (const std::int32_t place : Directions::visualOrder(levels)) {
        const auto from = m_pending.glyphs.begin() + std::ptrdiff_t(firstGlyphs[std::size_t(place)]);
        const Cell &cell = m_pending.cells[m_first + std::size_t(place)];
        m_page.glyphs.insert(m_page.glyphs.end(), from, from + std::ptrdiff_t(cell.glyphs));
    }
}

// A line is as high as the text's own font, or higher where another one needs it.
Typesetter::Extent Typesetter::extentOf(std::size_t cells) const
{
    Extent extent{m_ownFont.ascent(), m_ownFont.descent()};
    const FontFile *last = &m_ownFont;
    for (std::size_t i = 0; i < cells; ++i) {
        const FontFile *font = m_pending.cells[m_first + i].font;
        if (font == last)
            continue;
        extent.ascent = std::max(extent.ascent, font->ascent());
        extent.descent = std::max(extent.descent, font->descent());
        last = font;
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
