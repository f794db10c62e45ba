#pragma once

#include "typesetting/DocumentFonts.h"

#include <qpdf/QPDF.hh>

#include <map>

/// The pictures of a document's fonts, so that no picture is embedded twice.
using Pictures = std::map<std::pair<const FontFile *, hb_codepoint_t>, QPDFObjectHandle>;

/// Embeds a font whose glyphs are pictures: to a reader of the document they are text like any other.
QPDFObjectHandle pictureFont(QPDF &document, const DocumentFonts::Font &font, Pictures &pictures);
