#include "pdf/OutlineFont.h"

#include "pdf/GlyphOutline.h"
#include "pdf/PdfSyntax.h"

#include <hb-ot.h>
#include <hb-subset.h>

#include <cctype>
#include <cstdint>
#include <stdexcept>

using PdfSyntax::number;
using PdfSyntax::reference;

namespace {

struct FreeSubsetInput {
    void operator()(hb_subset_input_t *input) const { hb_subset_input_destroy(input); }
};

std::string bytesOf(hb_blob_t *blob)
{
    unsigned length = 0;
    const char *data = hb_blob_get_data(blob, &length);
    return {data, length};
}

// The tables that matter for drawing a glyph by its number; those for shaping have done their work.
std::string subset(const FontFile &file, const UsedGlyphs &glyphs)
{
    const std::unique_ptr<hb_subset_input_t, FreeSubsetInput> input(hb_subset_input_create_or_fail());
    if (!input)
        throw std::bad_alloc();
    for (const auto &[code, glyph] : glyphs)
        hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
    hb_set_t *dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char *table :
         {"GSUB", "GPOS", "GDEF", "BASE", "JSTF", "vhea", "vmtx", "VORG", "cmap", "name", "OS/2",
          "post", "DSIG", "kern", "hdmx", "VDMX", "LTSH", "gasp", "COLR", "CPAL", "MATH", "STAT"})
        hb_set_add(dropped, hb_tag_from_string(table, 4));
    for (const hb_variation_t &variation : file.variations())
        hb_subset_input_pin_axis_location(input.get(), file.face(), variation.tag, variation.value);
    unsigned flags = HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_DESUBROUTINIZE;
    if (!file.isKeyedByCharacter())
        flags |= HB_SUBSET_FLAGS_RETAIN_GIDS;
    hb_subset_input_set_flags(input.get(), flags);

    const HarfBuzz<hb_face_t> made(hb_subset_or_fail(file.face(), input.get()));
    if (!made)
        throw std::runtime_error("a font can't be subset");
    const bool whole = file.glyphs() == FontFile::Glyphs::TrueType;
    const HarfBuzz<hb_blob_t> blob(whole ? hb_face_reference_blob(made.get())
                                         : hb_face_reference_table(made.get(), HB_TAG('C', 'F', 'F', ' ')));
    return bytesOf(blob.get());
}

double perThousand(Millipoints length)
{
    return length / textSize;
}

// The box of all glyphs, as the font's head has it.
std::string boundingBox(hb_face_t *face)
{
    const HarfBuzz<hb_blob_t> head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')));
    const std::string bytes = bytesOf(head.get());
    std::string box = "[";
    for (std::size_t at = 36; at < 44; at += 2) { // xMin, yMin, xMax, yMax
        const int value = at + 1 < bytes.size() ? std::int16_t((static_cast<unsigned char>(bytes[at]) << 8)
                                                               | static_cast<unsigned char>(bytes[at + 1]))
                                                : 0;
        box += number(value * 1000.0 / hb_face_get_upem(face), 1) + ' ';
    }
    return box + ']';
}

std::string subsetName(const FontFile &file, std::size_t number)
{
    std::string name(6, 'A');
    for (std::size_t i = name.size(); i-- > 0; number /= 26)
        name[i] = char('A' + number % 26);
    char postScript[64] = "";
    unsigned length = sizeof postScript;
    if (hb_ot_name_get_utf8(file.face(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &length,
                            postScript)
        == 0)
        return name + "+Font";
    name += '+';
    for (const char *c = postScript; *c; ++c) {
        if (std::isalnum(static_cast<unsigned char>(*c)) || *c == '-')
            name += *c;
    }
    return name;
}

bool isTrueType(const FontFile &file)
{
    return file.glyphs() == FontFile::Glyphs::TrueType;
}

// What the font file's entry in the descriptor says.
std::string program(PdfFile &to, const FontFile &file, const UsedGlyphs &glyphs)
{
    const std::string bytes = subset(file, glyphs);
    if (isTrueType(file))
        return "/FontFile2 " + reference(to.addStream("/Length1 " + std::to_string(bytes.size()), bytes));
    return "/FontFile3 " + reference(to.addStream("/Subtype /CIDFontType0C", bytes));
}

Millipoints capHeight(const FontFile &file)
{
    hb_position_t height = 0;
    hb_codepoint_t letter = 0;
    if (hb_ot_metrics_get_position(file.font(), HB_OT_METRICS_TAG_CAP_HEIGHT, &height) && height > 0)
        return height;
    if (hb_font_get_nominal_glyph(file.font(), U'H', &letter))
        return file.ink(letter).top;
    return file.ascent();
}

int descriptor(PdfFile &to, const FontFile &file, const UsedGlyphs &glyphs, const std::string &name)
{
    const auto length = [](const char *key, Millipoints value) {
        return key + number(perThousand(value), 1);
    };
    const double slant = hb_style_get_value(file.font(), HB_STYLE_TAG_SLANT_ANGLE);
    return to.add("<</Type /FontDescriptor /Flags 4 /ItalicAngle " + number(slant, 1) + " /FontName /"
                  + name + " /FontBBox " + boundingBox(file.face()) + length(" /Ascent ", file.ascent())
                  + length(" /Descent ", -file.descent()) + length(" /CapHeight ", capHeight(file))
                  + length(" /StemV ", stemWidth(file)) + ' ' + program(to, file, glyphs) + ">>");
}

// Runs of codes, each with the widths of its glyphs.
std::string widths(const FontFile &file, const UsedGlyphs &glyphs)
{
    std::string all;
    int last = -2;
    for (const auto &[code, glyph] : glyphs) {
        const Millipoints advance = file.advance(glyph);
        if (advance == Millipoints(textSize * 1000))
            continue; // which is the default
        if (code != last + 1)
            all += (all.empty() ? "" : "] ") + std::to_string(code) + " [";
        all += number(perThousand(advance)) + ' ';
        last = code;
    }
    return '[' + all + (all.empty() ? "]" : "]]");
}

} // namespace

EmbeddedFont outlineFont(PdfFile &to, const FontFile &file, const UsedGlyphs &glyphs, std::size_t number)
{
    const std::string name = subsetName(file, number);
    const char *kind = isTrueType(file) ? "2 /CIDToGIDMap /Identity" : "0";
    const int object = to.add(
        "<</Type /Font /DW 1000 /CIDSystemInfo <</Registry (Adobe) /Ordering (Identity) /Supplement 0>>"
        " /Subtype /CIDFontType"
        + std::string(kind) + " /BaseFont /" + name + " /FontDescriptor "
        + reference(descriptor(to, file, glyphs, name)) + " /W " + widths(file, glyphs) + ">>");
    return {object, name};
}
