#pragma once

#include "typesetting/Directions.h"
#include "typesetting/LineBreaks.h"
#include "typesetting/LineSpacing.h"
#include "typesetting/PageFormat.h"

#include <functional>

/// Sets a text in lines and fills pages with them, one after the other; what it keeps does not grow
/// with the text.
class Typesetter {
public:
    /// Takes each page as soon as it is full, and how far into the text it reaches (units); false ends
    /// the work.
    using Sink = std::function<bool(Page &&page, std::size_t done)>;

    /// `fonts` must have a first one. `goesOn` is asked before each line; empty: it does.
    Typesetter(FontList &fonts, DocumentFonts &codes, const PageFormat &format, Sink sink,
               std::function<bool()> goesOn = {});

    /// An empty text makes an empty page. False when it was ended.
    bool set(std::u16string_view text);

private:
    struct LineContent {
        std::size_t units = 0;
        std::size_t glyphs = 0;
        bool runsLeft = false; // all of it, or a part
        bool anyTall = false;
        bool endsParagraph = false;
    };

    bool setParagraph(const Paragraph &paragraph);
    bool fillLine(const Paragraph &paragraph);
    void measureTab(Cell &cell, Glyph &glyph, Millipoints x) const;
    std::size_t breakBefore(std::size_t overflowing, std::size_t at);
    bool hasRoomForHyphen(std::size_t cell);
    bool placeLine(std::size_t cells);
    LineContent contentOf(std::span<const Cell> line) const;
    void hyphenate(std::span<Cell> line, Glyph &glyph);
    void placeInOrder(std::span<const Cell> line, const LineContent &content);
    void sayWhatIsMisread(std::span<const Cell> line, const Spread &spread);
    void placeInVisualOrder(std::span<const Cell> line);
    Extent extentOf(std::span<const Cell> line) const;
    void forgetPlaced();
    bool finishPage();

    DocumentFonts &m_codes;
    const Extent m_line;
    Shaper m_shaper;
    LineBreaks m_breaks;
    Directions m_directions;
    PageFormat m_format;
    Sink m_sink;
    std::function<bool()> m_goesOn;
    Millipoints m_lineWidth;
    Millipoints m_textHeight;

    std::u16string_view m_text; // of the paragraph
    bool m_isJapanese = false;  // and how it is set
    // Shaped, but not placed yet: from m_first on.
    Cells m_pending;
    std::size_t m_first = 0;
    std::size_t m_firstGlyph = 0;
    std::size_t m_lineStart = 0; // the units of the paragraph where that begins
    std::size_t m_shaped = 0;    // and where it ends
    std::size_t m_runEnd = 0;

    Page m_page;
    bool m_anyPage = false;
    Millipoints m_used = 0; // of the page's height
    std::size_t m_done = 0; // units of the text
};
