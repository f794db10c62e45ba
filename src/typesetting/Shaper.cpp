#include "typesetting/Shaper.h"

#include "typesetting/Emoji.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <functional>

namespace {

constexpr std::size_t longestWord = 64;      // units; longer ones are shaped in pieces
constexpr std::size_t longestUnit = 256;     // no heap of marks is longer, and so no cell
constexpr std::size_t unitsToKeep = 400'000; // of words: some ten megabytes, shaped
constexpr std::size_t contextLength = 16;    // what a font may want to see on either side

// Whether a character isn't drawn for itself, for what comes next.
bool isJoined(char32_t c, UScriptCode script, char32_t next, CharacterKind nextKind)
{
    switch (nextKind) {
    case CharacterKind::Joiner:
        return true;
    case CharacterKind::Letter: // a whole syllable goes on, too
        return script == USCRIPT_HANGUL && isJamo(next);
    case CharacterKind::Picture:
        return isToned(c, next);
    default:
        return false;
    }
}

bool goTogether(UScriptCode a, UScriptCode b)
{
    return a == b || a <= USCRIPT_INHERITED || b <= USCRIPT_INHERITED;
}

hb_script_t harfBuzzScript(UScriptCode script)
{
    return hb_script_from_string(uscript_getShortName(script), -1);
}

void add(Cells &to, const Cells &more, std::uint8_t level)
{
    to.glyphs.insert(to.glyphs.end(), more.glyphs.begin(), more.glyphs.end());
    for (Cell cell : more.cells) {
        cell.level = level;
        to.cells.push_back(cell);
    }
}

// Cuts a text into one part for each of `count` glyphs: a character each, and all that is left to the last.
std::u16string_view partFor(std::size_t glyph, std::size_t count, std::u16string_view text)
{
    for (std::size_t i = 0; i < glyph; ++i)
        text.remove_prefix(characterAt(text, 0).length);
    return glyph + 1 == count ? text : text.substr(0, characterAt(text, 0).length);
}

} // namespace

std::size_t Shaper::Hash::operator()(const WordView &word) const
{
    return std::hash<std::u16string_view>()(word.text) ^ (std::hash<const void *>()(word.font) * 31)
        ^ (std::size_t(word.script) << 1) ^ std::size_t(word.rightToLeft);
}

Shaper::Shaper(FontList &fonts, DocumentFonts &codes, const Extent &room)
    : m_fonts(fonts)
    , m_codes(codes)
    , m_room(room)
    , m_characters(fonts, codes, room)
    , m_buffer(hb_buffer_create())
{
}

std::size_t Shaper::shapeNext(std::u16string_view text, std::size_t from, std::size_t limit,
                              std::uint8_t level, Cells &to)
{
    using enum CharacterKind;
    const auto [c, length] = characterAt(text, from);
    const Character &character = m_characters[c];
    const Next next = characterAt(text.substr(0, limit), from + length);
    const bool joined =
        next.length > 0 && isJoined(c, character.script, next.character, m_characters[next.character].kind);

    const bool seen = character.kind == Solid || character.kind == Blank;
    const bool alone =
        (seen && !joined && level % 2 == 0) || character.kind == Invisible || character.kind == Tab;
    if (alone) [[likely]] {
        // In place: to copy what has just been put together from bytes would take longer than all the rest.
        Cell &cell = to.cells.emplace_back();
        cell.font = character.font;
        cell.length = std::uint16_t(length);
        cell.language = character.language;
        cell.glyphs = 1;
        cell.advance = character.advance;
        cell.kind = character.kind;
        cell.level = level;
        cell.spacing = character.spacing;
        cell.marks = character.marks;
        to.glyphs.push_back(character.glyph);
        return length;
    }

    const std::u16string_view rest = text.substr(from, limit - from);
    const bool pictured = character.kind == Picture || isMadePicture(c, rest.substr(length));
    Unit unit = pictured ? pictureUnit(rest) : letterUnit(rest);
    if (next.character == asText)
        unit.font = m_fonts.fontFor(c);
    const std::size_t firstCell = to.cells.size();
    shape(text, from, unit, level, to);
    if (character.kind == Blank && unit.length == length)
        to.cells[firstCell].kind = Blank;
    return unit.length;
}

// An emoji with all that belongs to it: colour of skin, flag, family.
Shaper::Unit Shaper::pictureUnit(std::u16string_view text)
{
    const auto [first, length] = characterAt(text, 0);
    Unit unit{.length = length, .font = m_fonts.pictureFontFor(first)};
    char32_t last = first;
    while (unit.length < longestUnit) {
        const auto [c, more] = characterAt(text, unit.length);
        if (more == 0)
            break;
        const bool flag = isFlagHalf(c) && isFlagHalf(last) && unit.length == 2;
        const bool joined = (last == zeroWidthJoiner && isPictograph(c)) || isToned(last, c);
        if (!flag && !joined && m_characters[c].kind != CharacterKind::Joiner)
            break;
        unit.length += more;
        last = c;
    }
    return unit;
}

// A word, as far as its letters are of one font and one script; of what is set solid, a single
// character with its marks.
Shaper::Unit Shaper::letterUnit(std::u16string_view text)
{
    const auto [first, length] = characterAt(text, 0);
    const Character &start = m_characters[first];
    Unit unit{.length = length, .font = start.font, .script = start.script};
    const bool takesLetters = start.kind == CharacterKind::Letter && !start.isPrepended;
    bool allCovered = true;
    std::size_t last = 0; // where the last letter begins
    while (true) {
        const auto [c, more] = characterAt(text, unit.length);
        if (more == 0)
            break;
        const Character &next = m_characters[c];
        const bool joins = next.kind == CharacterKind::Joiner
            || (start.isPrepended && u_isdigit(UChar32(c)))
            || (start.script == USCRIPT_HANGUL && !takesLetters && isJamo(c));
        const bool follows = takesLetters && next.kind == CharacterKind::Letter && !next.isPrepended
            && next.font == unit.font && goTogether(next.script, unit.script);
        if (!joins && !follows)
            break;
        if (unit.length >= (joins ? longestUnit : longestWord)) {
            unit.whole = false;
            break;
        }
        if (c == asPicture && last > 0) { // the letter before it begins an emoji
            unit.length = last;
            break;
        }
        if (joins)
            allCovered = allCovered && (next.font == unit.font || unit.font->covers(c));
        else
            last = unit.length;
        if (unit.script <= USCRIPT_INHERITED)
            unit.script = next.script;
        unit.length += more;
    }
    if (!allCovered)
        unit.font = fontForAll(text.substr(0, unit.length));
    return unit;
}

// The font of the first character that has all of them, so that marks find their letters.
const FontFile *Shaper::fontForAll(std::u16string_view text)
{
    const auto coversAll = [&](const FontFile *font) {
        for (std::size_t at = 0; at < text.size();) {
            const auto [c, length] = characterAt(text, at);
            if (!font->covers(c) && !u_hasBinaryProperty(UChar32(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT))
                return false;
            at += length;
        }
        return true;
    };
    for (std::size_t at = 0; at < text.size();) {
        const auto [c, length] = characterAt(text, at);
        if (const FontFile *font = m_characters[c].font; font && coversAll(font))
            return font;
        at += length;
    }
    return m_characters[characterAt(text, 0).character].font;
}

void Shaper::shape(std::u16string_view text, std::size_t from, const Unit &unit, std::uint8_t level,
                   Cells &to)
{
    const std::u16string_view own = text.substr(from, unit.length);
    const bool rightToLeft = level % 2 != 0;
    const WordView view{unit.font, unit.script, rightToLeft, own};
    if (unit.whole) {
        if (const auto known = m_words.find(view); known != m_words.end())
            return add(to, known->second, level);
    }

    const std::size_t before = std::min(from, contextLength);
    const std::u16string_view seen = text.substr(from - before, before + unit.length + contextLength);
    hb_buffer_t *buffer = m_buffer.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_set_flags(buffer, HB_BUFFER_FLAG_DO_NOT_INSERT_DOTTED_CIRCLE);
    hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t *>(seen.data()), int(seen.size()),
                        unsigned(before), int(unit.length));
    hb_buffer_set_direction(buffer, rightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, harfBuzzScript(unit.script));
    hb_buffer_set_language(buffer, hb_language_from_string("ja", -1));
    const hb_feature_t setSolid{HB_TAG('k', 'e', 'r', 'n'), 0, HB_FEATURE_GLOBAL_START,
                                HB_FEATURE_GLOBAL_END};
    hb_shape(unit.font->font(), buffer, &setSolid, isSetSolid(unit.script) ? 1 : 0);

    Cells shaped;
    readCells(unit, seen.substr(0, before + unit.length), rightToLeft, shaped);
    add(to, shaped, level);
    if (!unit.whole)
        return;
    m_wordsUnits += own.size() + 1;
    if (m_wordsUnits > unitsToKeep) {
        m_words.clear();
        m_wordsUnits = own.size() + 1;
    }
    m_words.emplace(Word{view.font, view.script, view.rightToLeft, std::u16string(own)}, std::move(shaped));
}

void Shaper::readCells(const Unit &unit, std::u16string_view text, bool rightToLeft, Cells &to)
{
    unsigned count = 0;
    const hb_glyph_info_t *infos = hb_buffer_get_glyph_infos(m_buffer.get(), &count);
    // The glyphs come from left to right, the cells go as the text does.
    const auto logical = [&](unsigned i) { return rightToLeft ? count - 1 - i : i; };
    for (unsigned begin = 0, end = 0; begin < count; begin = end) {
        const unsigned cluster = infos[logical(begin)].cluster;
        while (end < count && infos[logical(end)].cluster == cluster)
            ++end;
        const std::size_t textEnd = end < count ? infos[logical(end)].cluster : text.size();
        const std::u16string_view own = text.substr(cluster, textEnd - cluster);
        const Character &first = m_characters[characterAt(own, 0).character];
        Cell cell{unit.font, std::uint16_t(own.size()), first.language, end - begin};
        cell.spacing = first.spacing;
        readGlyphs(own, std::min(logical(begin), logical(end - 1)), rightToLeft, cell, to);
        to.cells.push_back(cell);
    }
}

void Shaper::readGlyphs(std::u16string_view text, unsigned leftmost, bool rightToLeft, Cell &cell,
                        Cells &to)
{
    const hb_glyph_info_t *info = hb_buffer_get_glyph_infos(m_buffer.get(), nullptr) + leftmost;
    const hb_glyph_position_t *position = hb_buffer_get_glyph_positions(m_buffer.get(), nullptr) + leftmost;
    for (unsigned i = 0; i < cell.glyphs; ++i, ++info, ++position) {
        const auto part = partFor(rightToLeft ? cell.glyphs - 1 - i : i, cell.glyphs, text);
        const hb_codepoint_t glyph = info->codepoint;
        const Millipoints width = cell.font->advance(glyph);
        const GlyphCode code = m_codes.code(*cell.font, glyph, part);
        to.glyphs.push_back({code, position->x_advance - width, position->x_offset, position->y_offset});
        // A mark that is drawn over its letter, but has a width: readers go by where it begins.
        const bool isMisread = i > 0 && !rightToLeft && width > 0 && position->x_advance == 0;
        cell.marks.isUnsaid = cell.marks.isUnsaid || code.isUnsaid || isMisread;
        cell.marks.isTall =
            cell.marks.isTall || !m_room.holds(inkOf(*cell.font, glyph, position->y_offset));
        cell.advance += position->x_advance;
    }
}

std::pair<Glyph, Millipoints> Shaper::hyphen(const FontFile &font)
{
    for (const char32_t c : {U'-', U'\u2010'}) {
        hb_codepoint_t glyph = 0;
        if (hb_font_get_nominal_glyph(font.font(), c, &glyph))
            return {{m_codes.code(font, glyph, u"\u00ad")}, font.advance(glyph)};
    }
    return {{m_codes.code(font, DocumentFonts::nothing, u"\u00ad")}, 0};
}
