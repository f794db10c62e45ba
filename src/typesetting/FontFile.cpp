#include "typesetting/FontFile.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_CID_H
#include <hb-ot.h>

#include <optional>
#include <sstream>
#include <string_view>

namespace {

bool hasTable(hb_face_t *face, const char *name)
{
    const HarfBuzz<hb_blob_t> table(hb_face_reference_table(face, hb_tag_from_string(name, 4)));
    return hb_blob_get_length(table.get()) > 0;
}

// With gradients and the like: version 1 of the table for colours.
bool isPainted(hb_face_t *face)
{
    const HarfBuzz<hb_blob_t> table(hb_face_reference_table(face, HB_TAG('C', 'O', 'L', 'R')));
    unsigned length = 0;
    const char *data = hb_blob_get_data(table.get(), &length);
    constexpr std::string_view noGlyphs("\0\0\0\0", 4);
    constexpr unsigned offset = 14; // of those glyphs, behind the layers of version 0
    return length >= offset + 4 && data[1] >= 1 && std::string_view(data + offset, 4) != noGlyphs;
}

// As the font's maker allows, who may forbid it, or want all of it there, or its pictures only.
bool mayBeEmbedded(hb_face_t *face)
{
    constexpr unsigned restricted = 0x2, preview = 0x4, editable = 0x8, whole = 0x100, pictures = 0x200;
    constexpr std::size_t place = 8;
    const HarfBuzz<hb_blob_t> table(hb_face_reference_table(face, HB_TAG('O', 'S', '/', '2')));
    unsigned length = 0;
    const char *data = hb_blob_get_data(table.get(), &length);
    if (length < place + 2)
        return true;
    const unsigned rights = unsigned(static_cast<unsigned char>(data[place])) << 8
        | static_cast<unsigned char>(data[place + 1]);
    const bool isForbidden = (rights & restricted) && !(rights & (preview | editable));
    return !isForbidden && !(rights & (whole | pictures));
}

std::optional<FontFile::Glyphs> kindOfGlyphs(hb_face_t *face)
{
    if (hb_ot_color_has_png(face))
        return FontFile::Glyphs::Pictures;
    if (isPainted(face)) {
        if (HB_VERSION_ATLEAST(7, 0, 0)) // which can tell how
            return FontFile::Glyphs::Painted;
        return {};
    }
    if (hb_ot_color_has_layers(face))
        return FontFile::Glyphs::Layers;
    if (hasTable(face, "CFF "))
        return FontFile::Glyphs::PostScript;
    if (hasTable(face, "glyf"))
        return FontFile::Glyphs::TrueType;
    return {};
}

} // namespace

// A FreeType library serves one thread at a time, and documents may be made on several: so each font has a
// library of its own.
struct FontFile::CharacterKeys {
    CharacterKeys(const std::string &path, unsigned index)
    {
        if (FT_Init_FreeType(&library) == 0)
            FT_New_Face(library, path.c_str(), FT_Long(index), &face);
    }
    ~CharacterKeys()
    {
        FT_Done_Face(face);
        FT_Done_FreeType(library);
    }
    CharacterKeys(const CharacterKeys &) = delete;
    CharacterKeys &operator=(const CharacterKeys &) = delete;

    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

std::unique_ptr<FontFile> FontFile::open(const std::string &path, unsigned index,
                                         const std::string &variations)
{
    const unsigned instance = index >> 16;
    index &= 0xffff;
    const HarfBuzz<hb_blob_t> file(hb_blob_create_from_file_or_fail(path.c_str()));
    if (!file)
        return {};
    HarfBuzz<hb_face_t> face(hb_face_create(file.get(), index));
    const auto glyphs = kindOfGlyphs(face.get());
    if (!glyphs || hb_face_get_glyph_count(face.get()) == 0 || !mayBeEmbedded(face.get()))
        return {};
    std::unique_ptr<FontFile> opened(new FontFile(std::move(face), *glyphs));
    if (hb_ot_var_has_data(opened->face()))
        opened->vary(instance, variations);
    opened->measure();
    if (*glyphs == Glyphs::PostScript)
        opened->openCharacterKeys(path, index);
    return opened;
}

FontFile::FontFile(HarfBuzz<hb_face_t> face, Glyphs glyphs)
    : m_face(std::move(face))
    , m_font(hb_font_create(m_face.get()))
    , m_glyphs(glyphs)
{
    const int scale = int(textSize * 1000);
    hb_font_set_scale(font(), scale, scale);
}

void FontFile::measure()
{
    hb_font_extents_t extents{};
    hb_font_get_h_extents(font(), &extents);
    m_ascent = extents.ascender;
    m_descent = -extents.descender;
    m_lineGap = extents.line_gap;
}

FontFile::~FontFile() = default;

void FontFile::vary(unsigned instance, const std::string &variations)
{
    std::vector<hb_ot_var_axis_info_t> axes(hb_ot_var_get_axis_count(face()));
    auto count = unsigned(axes.size());
    hb_ot_var_get_axis_infos(face(), 0, &count, axes.data());
    std::vector<float> places;
    places.reserve(axes.size());
    for (const hb_ot_var_axis_info_t &axis : axes)
        places.push_back(axis.default_value);
    if (instance > 0)
        hb_ot_var_named_instance_get_design_coords(face(), instance - 1, &count, places.data());
    m_variations.reserve(axes.size());
    for (std::size_t i = 0; i < axes.size(); ++i)
        m_variations.push_back({axes[i].tag, places[i]});
    std::istringstream all(variations);
    for (std::string one; std::getline(all, one, ',');) {
        hb_variation_t wanted{};
        if (!hb_variation_from_string(one.data(), int(one.size()), &wanted))
            continue;
        for (hb_variation_t &variation : m_variations) {
            if (variation.tag == wanted.tag)
                variation.value = wanted.value;
        }
    }
    hb_font_set_variations(font(), m_variations.data(), unsigned(m_variations.size()));
}

void FontFile::openCharacterKeys(const std::string &path, unsigned index)
{
    auto keys = std::make_unique<CharacterKeys>(path, index);
    FT_Bool keyed = false;
    if (keys->face && FT_Get_CID_Is_Internally_CID_Keyed(keys->face, &keyed) == 0 && keyed)
        m_characterKeys = std::move(keys);
}

bool FontFile::isKeyedByCharacter() const
{
    return m_characterKeys != nullptr;
}

std::uint16_t FontFile::code(hb_codepoint_t glyph) const
{
    FT_UInt character = glyph;
    if (m_characterKeys)
        FT_Get_CID_From_Glyph_Index(m_characterKeys->face, glyph, &character);
    return std::uint16_t(character);
}

bool FontFile::covers(char32_t character) const
{
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font(), character, &glyph) && glyph != 0;
}

Millipoints FontFile::advance(hb_codepoint_t glyph) const
{
    return hb_font_get_glyph_h_advance(font(), glyph);
}

FontFile::Ink FontFile::ink(hb_codepoint_t glyph) const
{
    const auto [known, isNew] = m_inks.try_emplace(glyph);
    hb_glyph_extents_t box{};
    if (isNew && hb_font_get_glyph_extents(font(), glyph, &box))
        known->second = {box.y_bearing, box.y_bearing + box.height};
    return known->second;
}
