#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/DocumentFonts.h"

#include <map>

/// The pictures that a document's fonts share, so that none is embedded twice.
struct Pictures {
    PdfFile &file;
    bool grey = false;
    /// The object of each; 0 where the font has none that can be read.
    std::map<std::pair<const FontFile *, hb_codepoint_t>, int> embedded;
};

/// Embeds a font whose glyphs the document draws itself: to a reader they are text like any other. Returns
/// the entries of its dictionary.
std::string drawnFont(const DocumentFonts::Font &font, Pictures &pictures);
