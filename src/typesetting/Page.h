#pragma once

#include "typesetting/DocumentFonts.h"

#include <vector>

/// A glyph in its line: where it differs from following its predecessor by that one's own advance.
struct Glyph {
    GlyphCode code;
    Millipoints excess = 0; // what its advance differs from its font's
    Millipoints right = 0;  // drawn this much to the right of its place
    Millipoints up = 0;     // and this much above it
};

/// Glyphs from left to right.
struct Line {
    Millipoints left = 0;     // of the sheet
    Millipoints baseline = 0; // from the bottom of the sheet
    std::size_t glyphs = 0;   // how many of the page's follow
};

/// What a stretch of glyphs says together, where a reader wouldn't find that out from their codes and
/// places.
struct Saying {
    std::size_t first = 0; // of the page's glyphs
    std::size_t glyphs = 0;
    std::u16string text;
};

struct Page {
    std::vector<Line> lines;
    std::vector<Glyph> glyphs;
    std::vector<Saying> sayings; // in the order of their glyphs, each within a line
};

/// One of its lines, as a page of its own.
Page onlyLine(const Page &page, std::size_t line);
