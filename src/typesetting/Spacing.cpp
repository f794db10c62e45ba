#include "typesetting/Spacing.h"

#include <unicode/uchar.h>

#include <string_view>

namespace {

constexpr std::u32string_view opening = U"「『（［｛〈《【〔〖〘〝｟";
constexpr std::u32string_view closing = U"」』）］｝〉》】〕〗〙〟｠、。，．";
constexpr std::u32string_view dots = U"・：；";
constexpr std::u32string_view units = U"￥＄￡￠％‰℃℉°′″№";
constexpr std::u32string_view inseparable = U"…‥—―";

bool isOneOf(std::u32string_view all, char32_t c)
{
    return all.find(c) != all.npos;
}

bool isWesternScript(UScriptCode script)
{
    return script == USCRIPT_LATIN || script == USCRIPT_GREEK || script == USCRIPT_CYRILLIC;
}

bool isWide(char32_t c)
{
    const int width = u_getIntPropertyValue(UChar32(c), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

// Whether the font's own feature for half widths takes the half away that is blank.
bool isHalved(const FontFile &font, char32_t c, Spacing spacing)
{
    const HarfBuzz<hb_buffer_t> buffer(hb_buffer_create());
    const auto codepoint = hb_codepoint_t(c);
    hb_buffer_add_utf32(buffer.get(), &codepoint, 1, 0, 1);
    hb_buffer_guess_segment_properties(buffer.get());
    const hb_feature_t half{HB_TAG('h', 'a', 'l', 't'), 1, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
    hb_shape(font.font(), buffer.get(), &half, 1);
    unsigned count = 0;
    const hb_glyph_position_t *position = hb_buffer_get_glyph_positions(buffer.get(), &count);
    return count == 1 && position->x_advance == halfSquare
        && position->x_offset == (spacing == Spacing::Opening ? -halfSquare : 0);
}

// Whether nothing is drawn in that half.
bool isBlankThere(const FontFile &font, hb_codepoint_t glyph, Spacing spacing)
{
    constexpr Millipoints slightly = square / 25;
    hb_glyph_extents_t ink{};
    if (!hb_font_get_glyph_extents(font.font(), glyph, &ink))
        return false;
    return spacing == Spacing::Opening ? ink.x_bearing >= halfSquare - slightly
                                       : ink.x_bearing + ink.width <= halfSquare + slightly;
}

} // namespace

Spacing spacingOf(char32_t c, UScriptCode script)
{
    using enum Spacing;
    if (c == U' ')
        return Blank;
    if (c == U'\u3000')
        return Square;
    if (isOneOf(inseparable, c))
        return Inseparable;
    if (isOneOf(units, c))
        return Unit;
    if (isOneOf(dots, c))
        return Dot;
    if (isOneOf(opening, c))
        return Opening;
    if (isOneOf(closing, c))
        return Closing;
    if (script == USCRIPT_HANGUL)
        return Other; // has blanks between its words
    const auto category = U_GET_GC_MASK(UChar32(c));
    if (isWesternScript(script) && !isWide(c))
        return category & U_GC_L_MASK ? Western : Other;
    if (c < 0x250)
        return category & U_GC_ND_MASK ? Western : Other;
    const bool kana = script == USCRIPT_KATAKANA || script == USCRIPT_HIRAGANA;
    return kana || isWide(c) ? Japanese : Other;
}

bool canLoseHalf(const FontFile &font, char32_t c, Spacing spacing)
{
    hb_codepoint_t glyph = 0;
    if (!hb_font_get_nominal_glyph(font.font(), c, &glyph) || font.advance(glyph) != square)
        return false;
    return isHalved(font, c, spacing) || isBlankThere(font, glyph, spacing);
}
