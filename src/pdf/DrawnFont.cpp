#include "pdf/DrawnFont.h"

#include "pdf/GlyphPainting.h"
#include "pdf/PdfImage.h"
#include "pdf/PdfStream.h"

#include <hb-ot.h>

namespace {

constexpr int letterM = DocumentFonts::drawnPerFont;

// Null where the font has no picture that can be read.
QPDFObjectHandle picture(const FontFile &file, hb_codepoint_t glyph, const Pictures &pictures)
{
    const HarfBuzz<hb_blob_t> blob(hb_ot_color_glyph_reference_png(file.font(), glyph));
    unsigned length = 0;
    const char *data = hb_blob_get_data(blob.get(), &length);
    const auto pixels = pngPixels({data, length});
    return pixels ? pdfImage(pictures.document, *pixels, pictures.grey) : QPDFObjectHandle::newNull();
}

std::string number(double value)
{
    return QPDFObjectHandle::newReal(value, 3).unparse();
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

} // namespace

QPDFObjectHandle drawnFont(const DocumentFonts::Font &font, Pictures &pictures)
{
    QPDF &document = pictures.document;
    QPDFObjectHandle images = QPDFObjectHandle::newDictionary();
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    QPDFObjectHandle procedures = QPDFObjectHandle::newDictionary();
    QPDFObjectHandle differences = QPDFObjectHandle::newArray();
    QPDFObjectHandle widths = QPDFObjectHandle::newArray();
    differences.appendItem(QPDFObjectHandle::newInteger(0));
    for (std::size_t code = 0; code < font.codes.size(); ++code) {
        const hb_codepoint_t glyph = font.codes.at(std::uint16_t(code)).glyph;
        const double advance = glyph == DocumentFonts::nothing ? 0 : font.file->advance(glyph) / textSize;
        std::string drawing = number(advance) + " 0 d0";
        if (glyph == DocumentFonts::missing) {
            drawing = boxDrawing(advance);
        } else if (font.file->glyphs() == FontFile::Glyphs::Pictures) {
            QPDFObjectHandle &image = pictures.embedded[{font.file, glyph}];
            if (!image.isInitialized())
                image = picture(*font.file, glyph, pictures);
            if (!image.isNull()) {
                images.replaceKey("/P" + std::to_string(glyph), image);
                drawing = imageDrawing(*font.file, glyph);
            }
        } else if (font.file->isDrawn() && glyph != DocumentFonts::nothing) {
            appendGlyph(drawing += ' ', *font.file, glyph, pictures.grey, resources);
        }
        const std::string name = "/g" + std::to_string(code);
        procedures.replaceKey(name, pdfStream(document, drawing));
        differences.appendItem(QPDFObjectHandle::newName(name));
        widths.appendItem(QPDFObjectHandle::newReal(advance, 3));
    }
    // Some readers take the size of such a font from the width of its letter m, and set what seems to be
    // of another size apart.
    procedures.replaceKey("/m", pdfStream(document, "600 0 d0"));
    differences.appendItem(QPDFObjectHandle::newInteger(letterM));
    differences.appendItem(QPDFObjectHandle::newName("/m"));
    while (widths.getArrayNItems() < letterM)
        widths.appendItem(QPDFObjectHandle::newInteger(0));
    widths.appendItem(QPDFObjectHandle::newInteger(600));

    QPDFObjectHandle made = QPDFObjectHandle::parse("<</Type /Font /Subtype /Type3 /FontBBox [0 -300 1300 "
                                                    "1000] /FontMatrix [0.001 0 0 0.001 0 0] /FirstChar 0 "
                                                    "/Encoding <</Type /Encoding>> >>");
    made.replaceKey("/LastChar", QPDFObjectHandle::newInteger(letterM));
    made.replaceKey("/Widths", widths);
    made.replaceKey("/CharProcs", procedures);
    made.getKey("/Encoding").replaceKey("/Differences", differences);
    resources.replaceKey("/XObject", images);
    made.replaceKey("/Resources", resources);
    return document.makeIndirectObject(made);
}
