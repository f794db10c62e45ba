#pragma once

#include <qpdf/QPDF.hh>

#include <string>
#include <string_view>

/// A stream of the document, compressed.
QPDFObjectHandle pdfStream(QPDF &document, std::string_view bytes);

/// A stream of the document whose bytes have been compressed already.
QPDFObjectHandle deflatedStream(QPDF &document, const std::string &deflated);
