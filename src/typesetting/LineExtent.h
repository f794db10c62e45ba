#pragma once

#include "typesetting/FontList.h"

/// How far something reaches above and below its baseline; both are positive lengths.
struct Extent {
    Millipoints ascent = 0;
    Millipoints descent = 0;

    bool holds(const Extent &other) const { return other.ascent <= ascent && other.descent <= descent; }
};

/// The extent of every line, so that their distance is even: there is room for the text's own font and for
/// Japanese, whichever fonts these are.
Extent lineExtent(FontList &fonts);

/// How far something may reach in such a line before it touches the neighbouring ones.
Extent roomForInk(const Extent &line);

/// Makes room for a glyph with this ink, but never more than twice what a line has.
void grow(Extent &extent, const Extent &ink, const Extent &line);

/// Of what a glyph draws, moved up by that much.
Extent inkOf(const FontFile &font, hb_codepoint_t glyph, Millipoints up);
