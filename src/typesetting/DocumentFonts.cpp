#include "typesetting/DocumentFonts.h"

GlyphCode DocumentFonts::code(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const bool drawn = file.glyphs() == FontFile::Glyphs::Pictures || glyph == missing || glyph == nothing;
    GlyphCode code = drawn ? drawnCode(file, glyph, text) : outlineCode(file, glyph, text);
    code.isMute = text.empty();
    return code;
}

GlyphCode DocumentFonts::outlineCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const std::uint16_t code = file.code(glyph);
    for (const std::uint16_t font : m_outlines[&file]) {
        const auto [entry, isNew] = m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
        if (isNew || entry->second.text == text)
            return {.font = font, .code = code};
    }
    const std::uint16_t font = added(file, false);
    m_outlines[&file].push_back(font);
    m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
    return {.font = font, .code = code};
}

GlyphCode DocumentFonts::drawnCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    GlyphCode &known = m_drawn[{&file, glyph, std::u16string(text)}];
    if (known.isDrawn)
        return known;
    const auto last = m_lastDrawn.find(&file);
    const bool full = last == m_lastDrawn.end() || m_fonts[last->second].codes.size() == drawnPerFont;
    const std::uint16_t font = full ? added(file, true) : last->second;
    m_lastDrawn[&file] = font;
    const auto code = std::uint16_t(m_fonts[font].codes.size());
    m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
    known = {.font = font, .isDrawn = 1, .code = code};
    return known;
}

std::uint16_t DocumentFonts::added(const FontFile &file, bool isDrawn)
{
    m_fonts.push_back({&file, isDrawn, {}});
    return std::uint16_t(m_fonts.size() - 1);
}
