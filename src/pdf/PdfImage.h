#pragma once

#include "pdf/PngPixels.h"

#include <qpdf/QPDF.hh>

/// Embeds an image, to be drawn into the unit square.
QPDFObjectHandle pdfImage(QPDF &document, const Pixels &pixels, bool grey);
