#pragma once

#include "typesetting/DocumentFonts.h"
#include "typesetting/Language.h"

#include <vector>

/// A glyph in its line: where it differs from following its predecessor by that one's own advance.
struct Glyph {
    GlyphCode code;
    Millipoints excess = 0; // what its advance differs from its font's
    Millipoints right = 0;  // drawn this much to the right of its place
    Millipoints up = 0;     // and this much above it
};

/// Glyphs in the order of the text, wherever they stand: readers expect them so.
struct Line {
    Millipoints left = 0;     // of the sheet
    Millipoints baseline = 0; // from the bottom of the sheet
    std::size_t glyphs = 0;   // how many of the page's follow
    bool goesBack = false;    // to the left, for some of them
};

/// What a stretch of glyphs says together, where a reader wouldn't find that out from their codes and
/// places.
struct Saying {
    std::size_t first = 0; // of the page's glyphs
    std::size_t glyphs = 0;
    std::u16string text;
};

/// What the glyphs from here on belong to, up to the next passage.
struct Passage {
    std::size_t first = 0;       // of the page's glyphs
    std::uint32_t paragraph = 0; // by its number in the text, from 1; 0: to none, as the page's number does
    std::uint32_t address = 0;   // in the same way
    Language language = 0;       // of the paragraph
};

/// Glyphs in another language than their paragraph's.
struct Foreign {
    std::size_t first = 0; // of the page's glyphs
    std::size_t glyphs = 0;
    std::string language; // its tag
};

/// On the sheet.
struct Box {
    Millipoints left = 0, bottom = 0, right = 0, top = 0;
};

/// An address that can be followed, and where it stands: a box in each line.
struct Link {
    std::string target;
    std::uint32_t address = 0;
    std::vector<Box> boxes;
};

/// Passages, and what is within a line, come in the order of their glyphs; of sayings and foreign glyphs,
/// each is within one of the other kind, or apart from it.
struct Page {
    std::vector<Line> lines;
    std::vector<Glyph> glyphs;
    std::vector<Saying> sayings;
    std::vector<Passage> passages;
    std::vector<Foreign> foreign;
    std::vector<Link> links;
};

/// One of its lines, as a page of its own: what it draws, and what that says.
Page onlyLine(const Page &page, std::size_t line);
