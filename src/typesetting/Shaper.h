#pragma once

#include "typesetting/CharacterTable.h"

#include <string_view>
#include <unordered_map>

/// What can't be broken: a character, or several that share their glyphs.
struct Cell {
    const FontFile *font = nullptr;
    std::uint16_t length = 0; // UTF-16 units of text
    Language language = Languages::common;
    std::uint32_t glyphs = 0;
    Millipoints advance = 0;
    CharacterKind kind = CharacterKind::Letter;
    std::uint8_t level = 0; // of its direction: odd runs from right to left
    Spacing spacing = Spacing::Other;
    CellMarks marks;
};

/// Cells in the order of the text, and the glyphs of all of them; those of a cell from left to right.
struct Cells {
    std::vector<Cell> cells;
    std::vector<Glyph> glyphs;
};

/// Turns text into cells. Words and characters come again and again, so each is shaped once.
class Shaper {
public:
    /// Cells that reach beyond `room` are marked.
    Shaper(FontList &fonts, DocumentFonts &codes, const Extent &room);

    /// Appends the cells of what comes next in `text` at `from`, up to `limit` at most; the text
    /// around it counts as its context. Returns how many units those are.
    std::size_t shapeNext(std::u16string_view text, std::size_t from, std::size_t limit, std::uint8_t level,
                          Cells &to);

    /// What stands for a soft hyphen at the end of a line, behind a cell in this font.
    std::pair<Glyph, Millipoints> hyphen(const FontFile &font);

private:
    /// A stretch of text that is shaped as a whole.
    struct Unit {
        std::size_t length = 0;
        const FontFile *font = nullptr;
        UScriptCode script = USCRIPT_COMMON;
        bool whole = true; // not cut out of a longer word
    };
    struct Word {
        const FontFile *font = nullptr;
        UScriptCode script = USCRIPT_COMMON;
        bool rightToLeft = false;
        std::u16string text;
    };
    struct WordView {
        const FontFile *font = nullptr;
        UScriptCode script = USCRIPT_COMMON;
        bool rightToLeft = false;
        std::u16string_view text;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const WordView &word) const;
        std::size_t operator()(const Word &word) const
        {
            return (*this)(WordView{word.font, word.script, word.rightToLeft, word.text});
        }
    };
    struct Equal {
        using is_transparent = void;
        template <class A, class B> bool operator()(const A &a, const B &b) const
        {
            return a.text == b.text && a.font == b.font && a.script == b.script
                && a.rightToLeft == b.rightToLeft;
        }
    };

    Unit pictureUnit(std::u16string_view text);
    Unit letterUnit(std::u16string_view text);
    const FontFile *fontForAll(std::u16string_view text);
    void shape(std::u16string_view text, std::size_t from, const Unit &unit, std::uint8_t level, Cells &to);
    void readCells(const Unit &unit, std::u16string_view text, bool rightToLeft, Cells &to);
    void readGlyphs(std::u16string_view text, unsigned leftmost, bool rightToLeft, Cell &cell, Cells &to);

    FontList &m_fonts;
    DocumentFonts &m_codes;
    Extent m_room;
    CharacterTable m_characters;
    HarfBuzz<hb_buffer_t> m_buffer;
    std::unordered_map<Word, Cells, Hash, Equal> m_words;
    std::size_t m_wordsUnits = 0; // how long all of them are
};
