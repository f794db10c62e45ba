#include "pdf/PdfImage.h"

#include "pdf/PdfStream.h"

#include <string>

namespace {

QPDFObjectHandle samples(QPDF &document, const Pixels &pixels, const char *colours,
                         const std::string &bytes)
{
    QPDFObjectHandle stream = pdfStream(document, bytes);
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    dictionary.replaceKey("/ColorSpace", QPDFObjectHandle::newName(colours));
    dictionary.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(8));
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(pixels.width));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(pixels.height));
    return stream;
}

// As bright as it looks.
char greyOf(const unsigned char *pixel)
{
    return char((pixel[0] * 11 + pixel[1] * 16 + pixel[2] * 5) / 32);
}

} // namespace

QPDFObjectHandle pdfImage(QPDF &document, const Pixels &pixels, bool grey)
{
    std::string colours;
    std::string opacity;
    for (std::size_t at = 0; at < pixels.bytes.size(); at += 4) {
        const unsigned char *pixel = pixels.bytes.data() + at;
        if (grey)
            colours += greyOf(pixel);
        else
            colours.append(reinterpret_cast<const char *>(pixel), 3);
        opacity += char(pixel[3]);
    }
    QPDFObjectHandle drawn = samples(document, pixels, grey ? "/DeviceGray" : "/DeviceRGB", colours);
    if (pixels.hasOpacity)
        drawn.getDict().replaceKey("/SMask", samples(document, pixels, "/DeviceGray", opacity));
    return drawn;
}
