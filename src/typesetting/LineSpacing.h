#pragma once

#include "typesetting/Shaper.h"

#include <span>

/// What stands between two cells that follow each other in a line.
inline Gap gapBetween(const Cell &before, const Cell &after)
{
    return before.level == 0 && after.level == 0 ? gapBetween(before.spacing, after.spacing) : Gap{};
}

/// By how much the gaps of a line grow, by their willingness.
using Spread = std::array<Millipoints, 4>;

/// Makes the line as wide as that, if it can be without holes; what hangs over at its end doesn't count.
Spread spreadOver(std::span<const Cell> line, Millipoints width);

/// Whether a line is Japanese for the most part.
bool isJapanese(std::span<const Cell> line);

/// Moves the glyphs of the cells apart, or together. Returns whether the line has anything that a reader
/// wouldn't see.
bool setApart(std::span<const Cell> line, std::span<Glyph> glyphs, const Spread &spread);

/// Whether readers, who go by places, would see blanks between characters that are set apart, or a new line
/// where they close up. (Between words, there is one.)
inline bool isMisread(Millipoints apart, Stretch stretch)
{
    return apart < -square / 5 || (apart > square / 10 && stretch >= Stretch::WesternBoundary);
}

inline bool isMisread(const Cell &before, const Cell &after, const Spread &spread)
{
    const Gap gap = gapBetween(before, after);
    return isMisread(gap.room + spread[std::size_t(gap.stretch)], gap.stretch);
}
