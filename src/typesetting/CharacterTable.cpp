#include "typesetting/CharacterTable.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace {

// Of format characters, some are drawn: around the number of a verse, for one.
bool isInvisible(char32_t c)
{
    constexpr auto controls = U_GC_CC_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_GET_GC_MASK(UChar32(c)) & controls)
        || u_hasBinaryProperty(UChar32(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

bool isJoiner(char32_t c)
{
    const bool tag = c >= 0xe0020 && c <= 0xe007f;
    const bool zeroWidthJoiner = c == 0x200c || c == 0x200d;
    return tag || zeroWidthJoiner || (U_GET_GC_MASK(UChar32(c)) & U_GC_M_MASK);
}

bool isWide(char32_t c)
{
    const int width = u_getIntPropertyValue(UChar32(c), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

bool isSolid(char32_t c, UScriptCode script)
{
    if (isJamo(c))
        return false;
    constexpr auto noLetter = U_GC_S_MASK | U_GC_Z_MASK | U_GC_CO_MASK | U_GC_CN_MASK;
    const bool latin = c < 0x250;
    return isSetSolid(script) || isWide(c) || (!latin && (U_GET_GC_MASK(UChar32(c)) & noLetter));
}

std::u16string textOf(char32_t c)
{
    if (c <= 0xffff)
        return {char16_t(c)};
    return {char16_t(U16_LEAD(c)), char16_t(U16_TRAIL(c))};
}

CharacterKind kindOf(char32_t c, UScriptCode script)
{
    using enum CharacterKind;
    if (c == U' ' || c == U'\u3000')
        return Blank;
    if (c == U'\t' || c == U'\n')
        return Tab;
    if (isJoiner(c))
        return Joiner;
    if (isInvisible(c))
        return Invisible;
    if (u_hasBinaryProperty(UChar32(c), UCHAR_EMOJI_PRESENTATION))
        return Picture;
    return isSolid(c, script) ? Solid : Letter;
}

bool isPrepended(char32_t c)
{
    return u_hasBinaryProperty(UChar32(c), UCHAR_PREPENDED_CONCATENATION_MARK);
}

// What goes around a number belongs to the script in which it is used, though others may use it, too.
UScriptCode scriptOf(char32_t c)
{
    UErrorCode error = U_ZERO_ERROR;
    std::array<UScriptCode, 32> scripts{};
    if (isPrepended(c)
        && uscript_getScriptExtensions(UChar32(c), scripts.data(), int(scripts.size()), &error) > 0)
        return scripts.front();
    error = U_ZERO_ERROR;
    return uscript_getScript(UChar32(c), &error);
}

} // namespace

bool isJamo(char32_t c)
{
    return (c >= 0x1100 && c <= 0x11ff) || (c >= 0xa960 && c <= 0xa97f) || (c >= 0xd7b0 && c <= 0xd7ff);
}

bool isSetSolid(UScriptCode script)
{
    switch (script) {
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_KATAKANA_OR_HIRAGANA:
    case USCRIPT_BOPOMOFO:
    case USCRIPT_HANGUL:
    case USCRIPT_YI:
        return true;
    default:
        return false;
    }
}

CharacterTable::CharacterTable(FontList &fonts, DocumentFonts &codes, const Extent &room)
    : m_fonts(fonts)
    , m_codes(codes)
    , m_room(room)
    , m_blocks(0x1100)
{
}

const Character &CharacterTable::lookedAt(char32_t c)
{
    auto &block = m_blocks[c >> 8];
    if (!block)
        block = std::make_unique<Block>();
    Character &character = (*block)[c & 0xff];

    character.script = scriptOf(c);
    character.language = Languages::of(character.script);
    character.kind = kindOf(c, character.script);
    character.isPrepended = isPrepended(c);
    character.spacing = spacingOf(c, character.script);
    switch (character.kind) {
    case CharacterKind::Invisible:
        character.font = m_fonts.first();
        character.glyph.code = m_codes.code(*character.font, DocumentFonts::nothing, textOf(c));
        break;
    case CharacterKind::Tab:
        makeTab(character, c);
        break;
    case CharacterKind::Picture:
        character.font = m_fonts.pictureFontFor(c);
        break;
    case CharacterKind::Solid:
    case CharacterKind::Blank:
        character.font = m_fonts.fontFor(c);
        shape(character, c);
        break;
    default:
        character.font = m_fonts.fontFor(c);
    }
    character.marks.isUnsaid = character.glyph.code.isUnsaid;
    const bool halved = character.spacing == Spacing::Opening || character.spacing == Spacing::Closing;
    if (halved && !canLoseHalf(*character.font, c, character.spacing))
        character.spacing = Spacing::Japanese;
    return character;
}

// The glyph is the one that the font has for a Japanese reader.
void CharacterTable::shape(Character &character, char32_t c)
{
    const HarfBuzz<hb_buffer_t> buffer(hb_buffer_create());
    const auto codepoint = hb_codepoint_t(c);
    hb_buffer_add_utf32(buffer.get(), &codepoint, 1, 0, 1);
    hb_buffer_guess_segment_properties(buffer.get());
    hb_buffer_set_language(buffer.get(), hb_language_from_string("ja", -1));
    hb_shape(character.font->font(), buffer.get(), nullptr, 0);

    unsigned count = 0;
    const hb_glyph_info_t *info = hb_buffer_get_glyph_infos(buffer.get(), &count);
    const hb_glyph_position_t *position = hb_buffer_get_glyph_positions(buffer.get(), &count);
    if (count != 1 || position->x_offset || position->y_offset) {
        character.kind = CharacterKind::Letter; // not that simple in this font
        return;
    }
    character.glyph.code = m_codes.code(*character.font, info->codepoint, textOf(c));
    character.advance = position->x_advance;
    character.glyph.excess = position->x_advance - character.font->advance(info->codepoint);
    character.marks.isTall = !m_room.holds(inkOf(*character.font, info->codepoint, 0));
}

// It is a blank, whose width is known only where it stands: it begins with none. So is the end of a line in
// the midst of a paragraph.
void CharacterTable::makeTab(Character &character, char32_t c)
{
    character.font = m_fonts.first();
    hb_codepoint_t blank = 0;
    hb_font_get_nominal_glyph(character.font->font(), U' ', &blank);
    character.glyph.code = m_codes.code(*character.font, blank, textOf(c));
    character.glyph.excess = -character.font->advance(blank);
}
