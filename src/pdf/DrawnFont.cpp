#include "pdf/DrawnFont.h"

#include "pdf/GlyphPainting.h"
#include "pdf/PdfImage.h"
#include "pdf/PdfSyntax.h"

#include <hb-ot.h>

using PdfSyntax::number;
using PdfSyntax::reference;

namespace {

constexpr int letterM = DocumentFonts::drawnPerFont;

int embedded(const FontFile &file, hb_codepoint_t glyph, Pictures &pictures)
{
    const auto [known, isNew] = pictures.embedded.try_emplace({&file, glyph});
    if (!isNew)
        return known->second;
    const HarfBuzz<hb_blob_t> blob(hb_ot_color_glyph_reference_png(file.font(), glyph));
    unsigned length = 0;
    const char *data = hb_blob_get_data(blob.get(), &length);
    if (const auto pixels = pngPixels({data, length}))
        known->second = writeImage(pictures.file, *pixels, pictures.grey);
    return known->second;
}

// A glyph of this font that is shown as one of the document's images.
std::string imageDrawing(const FontFile &file, hb_codepoint_t glyph)
{
    hb_glyph_extents_t box{};
    hb_font_get_glyph_extents(file.font(), glyph, &box);
    const auto scaled = [](Millipoints length) { return number(length / textSize); };
    return scaled(file.advance(glyph)) + " 0 d0 q " + scaled(box.width) + " 0 0 " + scaled(-box.height)
        + " " + scaled(box.x_bearing) + " " + scaled(box.y_bearing + box.height) + " cm /P"
        + std::to_string(glyph) + " Do Q";
}

std::string boxDrawing(double advance)
{
    return number(advance) + " 0 d0 30 w " + number(advance * 0.1) + " 0 " + number(advance * 0.8)
        + " 700 re S";
}

std::string drawing(const FontFile &file, hb_codepoint_t glyph, double advance, Pictures &pictures,
                    Resources &resources)
{
    if (glyph == DocumentFonts::missing)
        return boxDrawing(advance);
    std::string drawing = number(advance) + " 0 d0";
    if (glyph == DocumentFonts::nothing || !file.isDrawn())
        return drawing;
    if (file.glyphs() != FontFile::Glyphs::Pictures) {
        appendGlyph(drawing += ' ', file, glyph, pictures.grey, resources);
    } else if (const int image = embedded(file, glyph, pictures)) {
        resources["/XObject"]["/P" + std::to_string(glyph)] = reference(image);
        drawing = imageDrawing(file, glyph);
    }
    return drawing;
}

std::string unparsed(const Resources &resources)
{
    std::string text = "<<";
    for (const auto &[kind, all] : resources) {
        text += kind + " <<";
        for (const auto &[name, resource] : all)
            text.append(name).append(" ").append(resource).append(" ");
        text += ">> ";
    }
    return text + ">>";
}

} // namespace

std::string drawnFont(const DocumentFonts::Font &font, Pictures &pictures)
{
    Resources resources;
    std::string procedures, names, widths;
    for (std::size_t code = 0; code < font.codes.size(); ++code) {
        const hb_codepoint_t glyph = font.codes.at(std::uint16_t(code)).glyph;
        const double advance = glyph == DocumentFonts::nothing ? 0 : font.file->advance(glyph) / textSize;
        const std::string name = "/g" + std::to_string(code) + ' ';
        procedures += name
            + reference(pictures.file.addStream("",
                                                drawing(*font.file, glyph, advance, pictures, resources)))
            + ' ';
        names += name;
        widths += number(advance) + ' ';
    }
    // Some readers take the size of such a font from the width of its letter m, and set what seems to be
    // of another size apart.
    procedures += "/m " + reference(pictures.file.addStream("", "600 0 d0"));
    for (std::size_t code = font.codes.size(); code < letterM; ++code)
        widths += "0 ";
    const std::string last = std::to_string(letterM);
    const int descriptor =
        pictures.file.add("<</Type /FontDescriptor /FontName /Drawn /Flags 4 /ItalicAngle 0>>");
    return "/Type /Font /Subtype /Type3 /FontDescriptor " + reference(descriptor)
        + " /FontBBox [0 -300 1300 1000] /FontMatrix [0.001 0 0 0.001 0 0]"
          " /FirstChar 0 /LastChar "
        + last + " /Widths [" + widths + "600] /CharProcs <<" + procedures
        + ">> /Encoding <</Type /Encoding /Differences [0 " + names + last + " /m]>> /Resources "
        + unparsed(resources);
}
