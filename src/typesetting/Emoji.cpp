#include "typesetting/Emoji.h"

#include <unicode/uchar.h>

namespace {

bool isSkinTone(char32_t c)
{
    return c >= 0x1f3fb && c <= 0x1f3ff;
}

} // namespace

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
