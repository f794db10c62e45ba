#pragma once

#include "typesetting/FontFile.h"

#include <unicode/uscript.h>

#include <array>
#include <cstddef>
#include <cstdint>

/// What a character is for the room between it and its neighbours, by the rules of Japanese typesetting.
enum class Spacing : std::uint8_t {
    Other,
    Western,     // letters and digits
    Blank,       // between western words
    Japanese,    // fills its square
    Opening,     // a bracket with half a square of blank before it
    Closing,     // a bracket, a comma, a full stop with half a square of blank behind it
    Dot,         // in the middle of its square
    Square,      // a blank one
    Unit,        // goes with a number: ￥ ％ ℃
    Inseparable, // …… ――
};

/// How a line that is spread out to the full width uses the place between two characters, the most willing
/// first.
enum class Stretch : std::uint8_t { Blank, WesternBoundary, Any, None };

/// What stands between two characters: a room beside their own blanks (negative: less than these), and
/// whether that may grow.
struct Gap {
    Millipoints room = 0;
    Stretch stretch = Stretch::None;
};

constexpr Millipoints square = Millipoints(textSize * 1000);
constexpr Millipoints halfSquare = square / 2;
constexpr Millipoints quarterSquare = square / 4;

Spacing spacingOf(char32_t c, UScriptCode script);

/// Whether this font leaves half a square blank beside such an opening or closing character.
bool canLoseHalf(const FontFile &font, char32_t c, Spacing spacing);

namespace spacing {

constexpr std::size_t kinds = std::size_t(Spacing::Inseparable) + 1;
using Gaps = std::array<std::array<Gap, kinds>, kinds>;

constexpr bool isJapanese(Spacing s)
{
    return s >= Spacing::Japanese;
}

constexpr Gap gapOf(Spacing before, Spacing after)
{
    using enum Spacing;
    if (before == Blank)
        return {0, Stretch::Blank};
    if (after == Blank)
        return {};
    if ((before == Western && after == Japanese) || (before == Japanese && after == Western))
        return {quarterSquare, Stretch::WesternBoundary};
    if (before == Inseparable && after == Inseparable)
        return {};
    const bool closed =
        before == Closing && (after == Opening || after == Closing || after == Dot || after == Square);
    const bool opened = after == Opening && (before == Opening || before == Dot || before == Square);
    const bool between = isJapanese(before) && isJapanese(after);
    const bool beside = isJapanese(before) != isJapanese(after) && (before == Other || after == Other);
    return {closed || opened ? -halfSquare : 0, between || beside ? Stretch::Any : Stretch::None};
}

constexpr Gaps allGaps()
{
    Gaps gaps{};
    for (std::size_t before = 0; before < kinds; ++before) {
        for (std::size_t after = 0; after < kinds; ++after)
            gaps[before][after] = gapOf(Spacing(before), Spacing(after));
    }
    return gaps;
}

inline constexpr Gaps gaps = allGaps();

} // namespace spacing

inline Gap gapBetween(Spacing before, Spacing after)
{
    return spacing::gaps[std::size_t(before)][std::size_t(after)];
}
