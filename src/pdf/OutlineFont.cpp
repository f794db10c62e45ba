#include "pdf/OutlineFont.h"

#include "pdf/PdfStream.h"

#include <hb-ot.h>
#include <hb-subset.h>

#include <stdexcept>

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
QPDFObjectHandle boundingBox(hb_face_t *face)
{
    const HarfBuzz<hb_blob_t> head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')));
    const std::string bytes = bytesOf(head.get());
    QPDFObjectHandle box = QPDFObjectHandle::newArray();
    for (std::size_t at = 36; at < 44; at += 2) { // xMin, yMin, xMax, yMax
        const int value = at + 1 < bytes.size() ? std::int16_t((static_cast<unsigned char>(bytes[at]) << 8)
                                                               | static_cast<unsigned char>(bytes[at + 1]))
                                                : 0;
        box.appendItem(QPDFObjectHandle::newReal(value * 1000.0 / hb_face_get_upem(face), 1));
    }
    return box;
}

QPDFObjectHandle descriptor(QPDF &document, const FontFile &file, const UsedGlyphs &glyphs,
                            const std::string &name)
{
    const bool trueType = file.glyphs() == FontFile::Glyphs::TrueType;
    const std::string bytes = subset(file, glyphs);
    QPDFObjectHandle program = pdfStream(document, bytes);
    if (trueType)
        program.getDict().replaceKey("/Length1", QPDFObjectHandle::newInteger(std::int64_t(bytes.size())));
    else
        program.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/CIDFontType0C"));

    QPDFObjectHandle dictionary =
        QPDFObjectHandle::parse("<</Type /FontDescriptor /Flags 4 /ItalicAngle 0 /StemV 80>>");
    dictionary.replaceKey("/FontName", QPDFObjectHandle::newName("/" + name));
    dictionary.replaceKey("/FontBBox", boundingBox(file.face()));
    const auto length = [&](const char *key, Millipoints value) {
        dictionary.replaceKey(key, QPDFObjectHandle::newReal(perThousand(value), 1));
    };
    length("/Ascent", file.ascent());
    length("/Descent", -file.descent());
    length("/CapHeight", file.ascent());
    dictionary.replaceKey(trueType ? "/FontFile2" : "/FontFile3", program);
    return document.makeIndirectObject(dictionary);
}

// Runs of codes, each with the widths of its glyphs.
QPDFObjectHandle widths(const FontFile &file, const UsedGlyphs &glyphs)
{
    QPDFObjectHandle all = QPDFObjectHandle::newArray();
    QPDFObjectHandle run;
    int last = -2;
    for (const auto &[code, glyph] : glyphs) {
        const Millipoints advance = file.advance(glyph);
        if (advance == Millipoints(textSize * 1000))
            continue; // which is the default
        if (code != last + 1) {
            run = QPDFObjectHandle::newArray();
            all.appendItem(QPDFObjectHandle::newInteger(code));
            all.appendItem(run);
        }
        run.appendItem(QPDFObjectHandle::newReal(perThousand(advance), 3));
        last = code;
    }
    return all;
}

} // namespace

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

QPDFObjectHandle outlineFont(QPDF &document, const FontFile &file, const UsedGlyphs &glyphs,
                             const std::string &name)
{
    QPDFObjectHandle font = QPDFObjectHandle::parse("<</Type /Font /DW 1000 /CIDSystemInfo <</Registry "
                                                    "(Adobe) /Ordering (Identity) /Supplement 0>> >>");
    const bool trueType = file.glyphs() == FontFile::Glyphs::TrueType;
    font.replaceKey("/Subtype", QPDFObjectHandle::newName(trueType ? "/CIDFontType2" : "/CIDFontType0"));
    if (trueType)
        font.replaceKey("/CIDToGIDMap", QPDFObjectHandle::newName("/Identity"));
    font.replaceKey("/BaseFont", QPDFObjectHandle::newName("/" + name));
    font.replaceKey("/FontDescriptor", descriptor(document, file, glyphs, name));
    font.replaceKey("/W", widths(file, glyphs));
    return document.makeIndirectObject(font);
}
