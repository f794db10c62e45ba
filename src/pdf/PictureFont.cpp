#include "pdf/PictureFont.h"

#include "pdf/PdfStream.h"

#include <QImage>

#include <hb-ot.h>

#include <algorithm>

namespace {

constexpr int letterM = DocumentFonts::picturesPerFont;

QPDFObjectHandle image(QPDF &document, const QImage &picture, const char *colours, const std::string &bytes)
{
    QPDFObjectHandle stream = pdfStream(document, bytes);
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    dictionary.replaceKey("/ColorSpace", QPDFObjectHandle::newName(colours));
    dictionary.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(8));
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(picture.width()));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(picture.height()));
    return stream;
}

QImage read(const FontFile &file, hb_codepoint_t glyph)
{
    const HarfBuzz<hb_blob_t> blob(hb_ot_color_glyph_reference_png(file.font(), glyph));
    unsigned length = 0;
    const char *data = hb_blob_get_data(blob.get(), &length);
    return QImage::fromData(reinterpret_cast<const uchar *>(data), int(length), "PNG")
        .convertToFormat(QImage::Format_RGBA8888);
}

// Null when the glyph has no picture.
QPDFObjectHandle picture(QPDF &document, bool grey, const QImage &read)
{
    if (read.isNull())
        return QPDFObjectHandle::newNull();
    std::string colours;
    std::string opacity;
    for (int y = 0; y < read.height(); ++y) {
        const uchar *pixel = read.constScanLine(y);
        for (int x = 0; x < read.width(); ++x, pixel += 4) {
            if (grey)
                colours += char(qGray(pixel[0], pixel[1], pixel[2]));
            else
                colours.append(reinterpret_cast<const char *>(pixel), 3);
            opacity += char(pixel[3]);
        }
    }
    QPDFObjectHandle drawn = image(document, read, grey ? "/DeviceGray" : "/DeviceRGB", colours);
    drawn.getDict().replaceKey("/SMask", image(document, read, "/DeviceGray", opacity));
    return drawn;
}

std::string number(double value)
{
    return QPDFObjectHandle::newReal(value, 3).unparse();
}

std::string drawing(const FontFile &file, hb_codepoint_t glyph)
{
    hb_glyph_extents_t box{};
    hb_font_get_glyph_extents(file.font(), glyph, &box);
    const auto scaled = [](Millipoints length) { return number(length / textSize); };
    return scaled(file.advance(glyph)) + " 0 d0 q " + scaled(box.width) + " 0 0 " + scaled(-box.height)
        + " " + scaled(box.x_bearing) + " " + scaled(box.y_bearing + box.height) + " cm /P"
        + std::to_string(glyph) + " Do Q";
}

} // namespace

QPDFObjectHandle pictureFont(const DocumentFonts::Font &font, Pictures &pictures)
{
    QPDF &document = pictures.document;
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    QPDFObjectHandle procedures = QPDFObjectHandle::newDictionary();
    QPDFObjectHandle differences = QPDFObjectHandle::newArray();
    QPDFObjectHandle widths = QPDFObjectHandle::newArray();
    differences.appendItem(QPDFObjectHandle::newInteger(0));
    for (std::size_t code = 0; code < font.codes.size(); ++code) {
        const hb_codepoint_t glyph = font.codes.at(std::uint16_t(code)).glyph;
        QPDFObjectHandle &drawn = pictures.embedded[{font.file, glyph}];
        if (!drawn.isInitialized())
            drawn = picture(document, pictures.grey, read(*font.file, glyph));
        const std::string name = "/g" + std::to_string(code);
        const double advance = font.file->advance(glyph) / textSize;
        if (!drawn.isNull())
            resources.replaceKey("/P" + std::to_string(glyph), drawn);
        procedures.replaceKey(
            name,
            pdfStream(document, drawn.isNull() ? number(advance) + " 0 d0" : drawing(*font.file, glyph)));
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
                                                    "/Encoding <</Type /Encoding>> /Resources <<>> >>");
    made.replaceKey("/LastChar", QPDFObjectHandle::newInteger(letterM));
    made.replaceKey("/Widths", widths);
    made.replaceKey("/CharProcs", procedures);
    made.getKey("/Encoding").replaceKey("/Differences", differences);
    made.getKey("/Resources").replaceKey("/XObject", resources);
    return document.makeIndirectObject(made);
}
