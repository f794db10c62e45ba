#include "pdf/PdfImage.h"

#include "pdf/PdfStream.h"

#include <QImage>

#include <string>

namespace {

QPDFObjectHandle samples(QPDF &document, const QImage &image, const char *colours, const std::string &bytes)
{
    QPDFObjectHandle stream = pdfStream(document, bytes);
    QPDFObjectHandle dictionary = stream.getDict();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    dictionary.replaceKey("/ColorSpace", QPDFObjectHandle::newName(colours));
    dictionary.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(8));
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(image.width()));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(image.height()));
    return stream;
}

} // namespace

QPDFObjectHandle pdfImage(QPDF &document, const QImage &image, bool grey)
{
    const QImage read = image.convertToFormat(QImage::Format_RGBA8888);
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
    QPDFObjectHandle drawn = samples(document, read, grey ? "/DeviceGray" : "/DeviceRGB", colours);
    if (image.hasAlphaChannel())
        drawn.getDict().replaceKey("/SMask", samples(document, read, "/DeviceGray", opacity));
    return drawn;
}
