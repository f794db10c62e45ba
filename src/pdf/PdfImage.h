#pragma once

#include "pdf/PdfFile.h"
#include "pdf/PngPixels.h"

/// Embeds an image, to be drawn into the unit square. Returns its object.
int writeImage(PdfFile &file, const Pixels &pixels, bool grey);
