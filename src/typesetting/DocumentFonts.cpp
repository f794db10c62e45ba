#include "typesetting/DocumentFonts.h"

#include <algorithm>
#include <stdexcept>

GlyphCode DocumentFonts::code(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const bool drawn = file.isDrawn() || glyph == missing || glyph == nothing;
    GlyphCode code = drawn ? drawnCode(file, glyph, text) : outlineCode(file, glyph, text);
    code.isMute = text.empty();
    code.isUnsaid = code.isUnsaid || !std::all_of(text.begin(), text.end(), canBeMapped);
    return code;
}

GlyphCode DocumentFonts::outlineCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const std::uint16_t code = file.code(glyph);
    std::vector<std::uint16_t> &known = m_outlines[&file];
    for (const std::uint16_t font : known) {
        const auto [entry, isNew] =
            m_fonts[font].codes.try_emplace(code, Entry{glyph, std::u16string(text)});
        if (isNew || entry->second.text == text)
            return {.font = font, .code = code};
    }
    if (known.size() == mostTextsOfGlyph)
        return {.font = known.front(), .isUnsaid = 1, .code = code};
    const std::uint16_t font = added(file, false);
    known.push_back(font);
    m_fonts[font].codes.try_emplace(code, Entry{glyph, std::u16string(text)});
    return {.font = font, .code = code};
}

GlyphCode DocumentFonts::drawnCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    auto &known = m_drawn[{&file, glyph}];
    if (const auto found = known.find(text); found != known.end())
        return found->second;
    const bool sign = glyph == missing || glyph == nothing;
    if (known.size() == (sign ? mostTextsOfSign : mostTextsOfGlyph)) {
        GlyphCode other = known.begin()->second;
        other.isUnsaid = 1;
        return other;
    }
    return known.emplace(text, newDrawnCode(file, glyph, text)).first->second;
}

GlyphCode DocumentFonts::newDrawnCode(const FontFile &file, hb_codepoint_t glyph, std::u16string_view text)
{
    const auto last = m_lastDrawn.find(&file);
    const bool full = last == m_lastDrawn.end() || m_fonts[last->second].codes.size() == drawnPerFont;
    const std::uint16_t font = full ? added(file, true) : last->second;
    m_lastDrawn[&file] = font;
    const auto code = std::uint16_t(m_fonts[font].codes.size());
    m_fonts[font].codes.try_emplace(code, Entry{glyph, std::u16string(text)});
    return {.font = font, .isDrawn = 1, .code = code};
}

std::uint16_t DocumentFonts::added(const FontFile &file, bool isDrawn)
{
    if (m_fonts.size() == mostFonts)
        throw std::length_error("a document has no room for so many fonts");
    m_fonts.push_back({&file, isDrawn, {}});
    return std::uint16_t(m_fonts.size() - 1);
}
