#pragma once

#include "pdf/PdfSettings.h"

#include <string_view>

/// Sets a text in pages and writes them as a PDF: pages with text that can be searched and copied, to
/// the character. Takes a while; touches nothing that other threads use.
PdfResult writeTextPdf(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
                       PdfProgress &progress);
