#pragma once

#include "typesetting/DocumentFonts.h"

#include <qpdf/QPDF.hh>

#include <functional>

/// Embeds the fonts of a document, each with the glyphs that it needs and the texts they stand for.
/// Returns the dictionary of font resources, /F0 and on. With `grey`, pictures lose their
/// colours. `look` is called time and again, and may throw to end the work.
QPDFObjectHandle fontResources(QPDF &document, const DocumentFonts &fonts, bool grey,
                               const std::function<void()> &look);
