#pragma once

#include "typesetting/FontList.h"
#include "typesetting/Page.h"

#include <unicode/uscript.h>

#include <array>
#include <memory>
#include <vector>

/// How a character takes part in a line.
enum class CharacterKind : std::uint8_t {
    Unknown, // not looked at yet
    Solid,   // drawn by a glyph of its own, whatever its neighbours are
    Letter,  // shaped together with its neighbours
    Joiner,  // belongs to the character before it
    Picture, // begins an emoji
    Blank,   // what a line may end with beyond its width
    Tab,
    Invisible, // in the text, but nothing to be seen
};

struct Character {
    CharacterKind kind = CharacterKind::Unknown;
    UScriptCode script = USCRIPT_COMMON;
    const FontFile *font = nullptr;
    Glyph glyph;             // of a character that is shaped by itself
    Millipoints advance = 0; // of that glyph
};

/// What is known about each character; each is looked at once.
class CharacterTable {
public:
    CharacterTable(FontList &fonts, DocumentFonts &codes);

    const Character &operator[](char32_t c)
    {
        const auto &block = m_blocks[c >> 8];
        if (block && (*block)[c & 0xff].kind != CharacterKind::Unknown) [[likely]]
            return (*block)[c & 0xff];
        return lookedAt(c);
    }

private:
    using Block = std::array<Character, 256>;

    const Character &lookedAt(char32_t c);
    void shape(Character &character, char32_t c);
    void makeTab(Character &character);

    FontList &m_fonts;
    DocumentFonts &m_codes;
    std::vector<std::unique_ptr<Block>> m_blocks;
};

/// Whether characters of this script stand in squares of their own, not moved by their neighbours.
bool isSetSolid(UScriptCode script);
