#pragma once

#include <qpdf/QPDF.hh>

class QImage;

/// Embeds an image, to be drawn into the unit square. Null for an image that is null.
QPDFObjectHandle pdfImage(QPDF &document, const QImage &image, bool grey);
