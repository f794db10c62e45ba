#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/DocumentFonts.h"

#include <functional>

/// Embeds the fonts of a document, each with the glyphs that it needs and the texts they stand for.
/// Returns the dictionary of font resources, /F0 and on. With `grey`, pictures lose their
/// colours. `look` is called time and again, and may throw to end the work.
std::string fontResources(PdfFile &file, const DocumentFonts &fonts, bool grey,
                          const std::function<void()> &look);
