#pragma once

#include "typesetting/Shaper.h"

#include <span>
#include <vector>

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

/// What readers, who go by codes and places, would get wrong in a line.
struct Misread {
    bool anyUnsaid = false;         // a cell's own text
    std::vector<std::size_t> apart; // cells that would be taken for apart from the next one

    explicit operator bool() const { return anyUnsaid || !apart.empty(); }
};

/// Moves the glyphs of the cells apart, or together.
Misread setApart(std::span<const Cell> line, std::span<Glyph> glyphs, const Spread &spread);
