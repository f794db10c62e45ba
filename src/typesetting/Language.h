#pragma once

#include <unicode/uscript.h>

#include <cstdint>
#include <string>
#include <string_view>

/// A language, as far as it can be told from the script: that is its number. What Japanese is written in
/// has one together; common to all languages is 0.
using Language = std::uint16_t;

namespace Languages {

constexpr Language common = USCRIPT_COMMON;
constexpr Language japanese = USCRIPT_JAPANESE;

Language of(UScriptCode script);

/// In which most of a text is written, by its beginning; Japanese, if there is nothing to tell.
Language mostOf(std::u16string_view text);

/// Its tag; empty if no language is likely.
const std::string &tag(Language language);

/// Whether single words of it stand in texts of other languages, as names and units do, and belong to
/// these.
constexpr bool isBorrowed(Language language)
{
    return language == USCRIPT_LATIN;
}

} // namespace Languages
