#pragma once

#include "typesetting/FontFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// How a page names a glyph: a font of the document, and a code in it.
struct GlyphCode {
    std::uint16_t font : 14 = 0;
    std::uint16_t isPicture : 1 = 0; // the codes of pictures are single bytes
    std::uint16_t isMute : 1 = 0;    // stands for no text at all
    std::uint16_t code = 0;
};

/// The fonts of a document. A code stands for one glyph and also for one text, so that the text can be
/// taken out of the document exactly: where two texts share a glyph (日 and the radical ⽇ do), the same
/// face appears as two fonts, which differ in nothing but the texts of their codes.
class DocumentFonts {
public:
    static constexpr std::size_t picturesPerFont = 255; // single bytes, but for the last one

    struct Entry {
        hb_codepoint_t glyph = 0;
        std::u16string text;
    };
    struct Font {
        const FontFile *file = nullptr;
        std::unordered_map<std::uint16_t, Entry> codes;
    };

    GlyphCode code(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);

    const std::vector<Font> &fonts() const { return m_fonts; }

private:
    GlyphCode outlineCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);
    GlyphCode pictureCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);
    std::uint16_t added(const FontFile &file);

    std::vector<Font> m_fonts;
    std::unordered_map<const FontFile *, std::vector<std::uint16_t>>
        m_ofFile; // in the order of their making
};
