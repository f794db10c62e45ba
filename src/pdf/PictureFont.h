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

/// Embeds a font whose glyphs are pictures: to a reader of the document they are text like any other.
QPDFObjectHandle pictureFont(const DocumentFonts::Font &font, Pictures &pictures);
