#pragma once

#include "pdf/PdfOutput.h"
#include "typesetting/PageFormat.h"

#include <qpdf/QPDF.hh>

#include <string>
#include <vector>

/// A page that shows this content.
QPDFObjectHandle pdfPage(QPDF &document, QPDFObjectHandle content);

/// Makes these the pages of an empty document, with what their contents refer to.
void addPages(QPDF &document, const std::vector<QPDFObjectHandle> &pages, QPDFObjectHandle resources,
              const PageFormat &format);

/// Writes the document, and throws when the output takes no more.
void writePdfFile(QPDF &document, const std::string &title, const PdfOutput &output);
