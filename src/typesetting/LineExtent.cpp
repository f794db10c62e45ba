#include "typesetting/LineExtent.h"

#include <algorithm>

Extent lineExtent(FontList &fonts)
{
    constexpr auto least = Millipoints(1.4 * textSize * 1000); // below that, Japanese is hard to read
    const FontFile &own = *fonts.first();
    const FontFile &japanese = *fonts.fontFor(U'あ');
    Extent extent{std::max(own.ascent(), japanese.ascent()), std::max(own.descent(), japanese.descent())};
    const Millipoints height = extent.ascent + extent.descent + own.lineGap();
    const Millipoints more = std::max(least - height, 0);
    return {extent.ascent + more / 2, extent.descent + own.lineGap() + more - more / 2};
}

// Up to where letters of the neighbours begin.
Extent roomForInk(const Extent &line)
{
    constexpr auto letterAscent = Millipoints(0.9 * textSize * 1000);
    constexpr auto letterDescent = Millipoints(0.2 * textSize * 1000);
    const Millipoints pitch = line.ascent + line.descent;
    return {std::max(line.ascent, pitch - letterDescent), std::max(line.descent, pitch - letterAscent)};
}

void grow(Extent &extent, const Extent &ink, const Extent &line)
{
    const Extent room = roomForInk(line);
    const auto wanted = [](Millipoints usual, Millipoints over) {
        return usual + std::clamp(over, 0, usual);
    };
    extent.ascent = std::max(extent.ascent, wanted(line.ascent, ink.ascent - room.ascent));
    extent.descent = std::max(extent.descent, wanted(line.descent, ink.descent - room.descent));
}

Extent inkOf(const FontFile &font, hb_codepoint_t glyph, Millipoints up)
{
    const auto [top, bottom] = font.ink(glyph);
    return {top + up, -(bottom + up)};
}
