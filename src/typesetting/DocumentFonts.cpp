#include "typesetting/DocumentFonts.h"

GlyphCode DocumentFonts::code(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    GlyphCode code = file.glyphs() == FontFile::Glyphs::Pictures ? pictureCode(file, glyph, text)
                                                                 : outlineCode(file, glyph, text);
    code.isMute = text.empty();
    return code;
}

GlyphCode DocumentFonts::outlineCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const std::uint16_t code = file.code(glyph);
    for (const std::uint16_t font : m_ofFile[&file]) {
        const auto [entry, isNew] = m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
        if (isNew || entry->second.text == text)
            return {.font = font, .code = code};
    }
    const std::uint16_t font = added(file);
    m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
    return {.font = font, .code = code};
}

GlyphCode DocumentFonts::pictureCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    std::vector<std::uint16_t> &ofFile = m_ofFile[&file];
    for (const std::uint16_t font : ofFile) {
        for (const auto &[code, entry] : m_fonts[font].codes) {
            if (entry.glyph == glyph && entry.text == text)
                return {.font = font, .isPicture = 1, .code = code};
        }
    }
    const bool full = ofFile.empty() || m_fonts[ofFile.back()].codes.size() == picturesPerFont;
    const std::uint16_t font = full ? added(file) : ofFile.back();
    const auto code = std::uint16_t(m_fonts[font].codes.size());
    m_fonts[font].codes.try_emplace(code, glyph, std::u16string(text));
    return {.font = font, .isPicture = 1, .code = code};
}

std::uint16_t DocumentFonts::added(const FontFile &file)
{
    const auto font = std::uint16_t(m_fonts.size());
    m_fonts.push_back({&file, {}});
    m_ofFile[&file].push_back(font);
    return font;
}
