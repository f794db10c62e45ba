#pragma once

#include <unicode/utf16.h>

#include <cstddef>
#include <string_view>

/// Which characters make an emoji together.

constexpr char32_t asPicture = 0xfe0f;
constexpr char32_t asText = 0xfe0e;
constexpr char32_t zeroWidthJoiner = 0x200d;

struct Next {
    char32_t character = 0;
    std::size_t length = 0; // units; 0 at the end
};

/// What stands there; a half of a pair is U+FFFD.
inline Next characterAt(std::u16string_view text, std::size_t at)
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

bool isFlagHalf(char32_t c);
bool isPictograph(char32_t c);

/// A skin tone belongs to a person, and is a picture of its own behind anything else.
bool isToned(char32_t c, char32_t next);

/// What is text by default becomes a picture by what follows it.
bool isMadePicture(char32_t c, std::u16string_view rest);
