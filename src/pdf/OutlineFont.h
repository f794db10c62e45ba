#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/DocumentFonts.h"

#include <map>

/// The glyphs of a file that a document needs, by their codes.
using UsedGlyphs = std::map<std::uint16_t, hb_codepoint_t>;

struct EmbeddedFont {
    int object = 0;
    std::string name;
};

/// Embeds a subset of a font of outlines: the part that all fonts of the document share which are made
/// of this file. `number` makes its name unique.
EmbeddedFont outlineFont(PdfFile &to, const FontFile &file, const UsedGlyphs &glyphs, std::size_t number);
