#include "pdf/PdfStream.h"

#include "pdf/Deflate.h"

QPDFObjectHandle pdfStream(QPDF &document, std::string_view bytes)
{
    return deflatedStream(document, deflated(bytes));
}

QPDFObjectHandle deflatedStream(QPDF &document, const std::string &deflated)
{
    QPDFObjectHandle stream = QPDFObjectHandle::newStream(&document);
    stream.replaceStreamData(deflated, QPDFObjectHandle::newName("/FlateDecode"),
                             QPDFObjectHandle::newNull());
    return stream;
}
