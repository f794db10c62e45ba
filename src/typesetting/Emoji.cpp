#include "typesetting/Emoji.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace {

bool isSkinTone(char32_t c)
{
    return c >= 0x1f3fb && c <= 0x1f3ff;
}

} // namespace

Next characterAt(std::u16string_view text, std::size_t at)
{
    if (at >= text.size())
        return {};
    const char16_t unit = text[at];
    if (!U16_IS_SURROGATE(unit))
        return {unit, 1};
    if (U16_IS_SURROGATE_LEAD(unit) && at + 1 < text.size() && U16_IS_TRAIL(text[at + 1]))
        return {char32_t(U16_GET_SUPPLEMENTARY(unit, text[at + 1])), 2};
    return {0xfffd, 1};
}

bool isFlagHalf(char32_t c)
{
    return c >= 0x1f1e6 && c <= 0x1f1ff;
}

bool isPictograph(char32_t c)
{
    return u_hasBinaryProperty(UChar32(c), UCHAR_EXTENDED_PICTOGRAPHIC);
}

bool isToned(char32_t c, char32_t next)
{
    return isSkinTone(next) && u_hasBinaryProperty(UChar32(c), UCHAR_EMOJI_MODIFIER_BASE);
}

bool isMadePicture(char32_t c, std::u16string_view rest)
{
    const Next next = characterAt(rest, 0);
    switch (next.character) {
    case asPicture:
        return u_hasBinaryProperty(UChar32(c), UCHAR_EMOJI);
    case zeroWidthJoiner:
        return isPictograph(c) && isPictograph(characterAt(rest, next.length).character);
    default:
        return isToned(c, next.character);
    }
}
