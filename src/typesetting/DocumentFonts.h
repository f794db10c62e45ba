#pragma once

#include "typesetting/FontFile.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// How a page names a glyph: a font of the document, and a code in it.
struct GlyphCode {
    std::uint16_t font : 13 = 0;
    std::uint16_t isDrawn : 1 = 0;  // by the document itself: such codes are single bytes
    std::uint16_t isMute : 1 = 0;   // stands for no text at all
    std::uint16_t isUnsaid : 1 = 0; // stands for another text than it has here: the page has to say it
    std::uint16_t code = 0;
};

/// The fonts of a document. A code stands for one glyph and also for one text, so that the text can be
/// taken out of the document exactly: where two texts share a glyph (日 and the radical ⽇ do), the same
/// face appears as two fonts, which differ in nothing but the texts of their codes. A glyph has some texts
/// of its own at most, so that no text makes fonts without end.
///
/// Some glyphs the document draws itself: pictures, a box for what no font has, and nothing for what can't
/// be seen. They are fonts of a kind of their own.
class DocumentFonts {
public:
    static constexpr std::size_t drawnPerFont = 255; // single bytes, but for the last one
    static constexpr std::size_t mostFonts = 1 << 13;
    static constexpr std::size_t mostTextsOfGlyph = 8;
    static constexpr std::size_t mostTextsOfSign = 4 * drawnPerFont; // for the box, and for nothing
    static constexpr hb_codepoint_t missing = 0;                     // the glyph of what a font hasn't
    static constexpr hb_codepoint_t nothing = ~hb_codepoint_t(0);

    struct Entry {
        hb_codepoint_t glyph = missing;
        std::u16string text;
    };
    struct Font {
        const FontFile *file = nullptr;
        bool isDrawn = false;
        std::unordered_map<std::uint16_t, Entry> codes;
    };

    /// Whether a code may stand for it, as archives have it.
    static bool canBeMapped(char16_t unit) { return unit != 0 && unit != 0xfeff && unit != 0xfffe; }

    /// Throws when there would be more fonts than `mostFonts`.
    GlyphCode code(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);

    hb_codepoint_t glyph(GlyphCode code) const { return m_fonts[code.font].codes.at(code.code).glyph; }
    const std::vector<Font> &fonts() const { return m_fonts; }

private:
    GlyphCode outlineCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);
    GlyphCode drawnCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);
    GlyphCode newDrawnCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text);
    std::uint16_t added(const FontFile &file, bool isDrawn);

    std::vector<Font> m_fonts;
    std::unordered_map<const FontFile *, std::vector<std::uint16_t>>
        m_outlines; // in the order of their making
    std::map<std::pair<const FontFile *, hb_codepoint_t>, std::map<std::u16string, GlyphCode, std::less<>>>
        m_drawn;
    std::unordered_map<const FontFile *, std::uint16_t> m_lastDrawn;
};
