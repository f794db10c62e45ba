#pragma once

#include "typesetting/FontList.h"
#include "typesetting/LineExtent.h"
#include "typesetting/Page.h"
#include "typesetting/Spacing.h"

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

struct CellMarks {
    bool isTall : 1 = false;   // reaches beyond what a line has room for
    bool isUnsaid : 1 = false; // its glyphs don't tell a reader its text
};

struct Character {
    CharacterKind kind = CharacterKind::Unknown;
    bool isPrepended = false; // to a number, and drawn around or over it
    Spacing spacing = Spacing::Other;
    CellMarks marks;
    UScriptCode script = USCRIPT_COMMON;
    Language language = Languages::common;
    const FontFile *font = nullptr;
    Glyph glyph;             // of a character that is shaped by itself
    Millipoints advance = 0; // of that glyph
};

/// What is known about each character; each is looked at once.
class CharacterTable {
public:
    CharacterTable(FontList &fonts, DocumentFonts &codes, const Extent &room);

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
    void makeTab(Character &character, char32_t c);

    FontList &m_fonts;
    DocumentFonts &m_codes;
    Extent m_room;
    std::vector<std::unique_ptr<Block>> m_blocks;
};

/// Whether this is a part of a Hangul syllable.
bool isJamo(char32_t c);

/// Whether characters of this script stand in squares of their own, not moved by their neighbours.
bool isSetSolid(UScriptCode script);
