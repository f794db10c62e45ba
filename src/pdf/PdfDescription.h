#pragma once

#include "pdf/PdfFile.h"

/// What a document says of itself.
struct PdfDescription {
    std::string title;     // UTF-8
    std::string structure; // what the catalog says of it; empty: it has none
    std::string more;      // entries of the catalog
};

/// Ends a file with these pages. It is one for archives (PDF/A-2u), and one that can be read aloud
/// (PDF/UA-1) if it has a structure. It is of now, or of the time that SOURCE_DATE_EPOCH tells, so that the
/// same text makes the same bytes.
void finishPdf(PdfFile &file, int pages, const PdfDescription &description);
