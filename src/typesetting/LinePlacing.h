#pragma once

#include "typesetting/Directions.h"
#include "typesetting/LineMarks.h"
#include "typesetting/LineSpacing.h"

/// A line that has been broken off a paragraph, and what goes with it.
struct BrokenLine {
    std::span<const Cell> cells;
    std::span<Glyph> glyphs; // of these cells
    std::u16string_view text;
    std::span<const LineMark> marks;
    Passage paragraph; // without its place
    Extent extent;
};

/// Both append the line's glyphs to the page, of which it is the last line, and what readers are told of
/// them.
void placeInOrder(Page &page, const BrokenLine &line, const Spread &spread);
/// For lines in which something runs to the left; `base` is the level of the paragraph. `width` is that of
/// all lines.
void placeAsSeen(Page &page, const BrokenLine &line, UBiDiLevel base, Millipoints width);
