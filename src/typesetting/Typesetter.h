#pragma once

#include "typesetting/LineBreaks.h"
#include "typesetting/LinePlacing.h"
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
        bool anyForeign = false;  // of another language than the paragraph
        bool anyBorrowed = false; // that as a word alone would not be told of
        bool anyBlank = false;
        bool endsParagraph = false;
    };

    void beginPassage(const Paragraph &paragraph);
    bool setParagraph(const Paragraph &paragraph);
    bool fillLine(const Paragraph &paragraph);
    void measureTab(Cell &cell, Glyph &glyph, Millipoints x) const;
    std::size_t breakBefore(std::size_t overflowing, std::size_t at);
    bool hasRoomForHyphen(std::size_t cell);
    bool placeLine(std::size_t cells);
    LineContent contentOf(std::span<const Cell> line) const;
    void hyphenate(std::span<Cell> line, Glyph &glyph);
    void partFromNext();
    Spread spreadOf(std::span<const Cell> line, const LineContent &content);
    Extent extentOf(std::span<const Cell> line) const;
    void forgetPlaced();
    bool finishPage();
    void addNumber();

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
    Passage m_passage;          // what its glyphs are part of
    std::uint32_t m_passages = 0;
    bool m_goesOnBelow = false; // which the text's next line is part of, too
    Addresses m_addresses;
    // Shaped, but not placed yet: from m_first on.
    Cells m_pending;
    std::size_t m_first = 0;
    std::size_t m_firstGlyph = 0;
    std::size_t m_lineStart = 0; // the units of the paragraph where that begins
    std::size_t m_shaped = 0;    // and where it ends
    std::size_t m_runEnd = 0;

    Page m_page;
    int m_pages = 0;
    Millipoints m_used = 0; // of the page's height
    std::size_t m_done = 0; // units of the text
};
