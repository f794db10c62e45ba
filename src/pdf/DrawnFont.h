#pragma once

#include "typesetting/DocumentFonts.h"

#include <qpdf/QPDF.hh>

#include <map>

/// The pictures that a document's fonts share, so that none is embedded twice.
struct Pictures {
    QPDF &document;
    bool grey = false;
    std::map<std::pair<const FontFile *, hb_codepoint_t>, QPDFObjectHandle> embedded;
};

/// Embeds a font whose glyphs the document draws itself: to a reader they are text like any other.
QPDFObjectHandle drawnFont(const DocumentFonts::Font &font, Pictures &pictures);
