#include "pdf/PdfImage.h"

#include "pdf/PdfSyntax.h"

#include <string>

namespace {

int samples(PdfFile &file, const Pixels &pixels, const std::string &entries, const std::string &bytes)
{
    return file.addStream("/Type /XObject /Subtype /Image /BitsPerComponent 8 /Width "
                              + std::to_string(pixels.width) + " /Height " + std::to_string(pixels.height)
                              + " /ColorSpace " + entries,
                          bytes);
}

// As bright as it looks.
char greyOf(const unsigned char *pixel)
{
    return char((pixel[0] * 11 + pixel[1] * 16 + pixel[2] * 5) / 32);
}

} // namespace

int writeImage(PdfFile &file, const Pixels &pixels, bool grey)
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
    std::string entries = grey ? "/DeviceGray" : "/DeviceRGB";
    if (pixels.hasOpacity)
        entries += " /SMask " + PdfSyntax::reference(samples(file, pixels, "/DeviceGray", opacity));
    return samples(file, pixels, entries, colours);
}
