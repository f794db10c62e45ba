#pragma once

#include "pdf/PdfFile.h"

/// Ends a file with these pages: says what it is, and in which language. `title` is UTF-8; `more` entries
/// go into its catalog.
void finishPdf(PdfFile &file, int pages, const std::string &title, const std::string &more = {});
