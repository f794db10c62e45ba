#pragma once

#include "typesetting/DocumentFonts.h"

#include <qpdf/QPDF.hh>

#include <map>

/// The glyphs of a file that a document needs, by their codes.
using UsedGlyphs = std::map<std::uint16_t, hb_codepoint_t>;

/// Embeds a subset of a font of outlines: the part that all fonts of the document share which are made
/// of this file.
QPDFObjectHandle outlineFont(QPDF &document, const FontFile &file, const UsedGlyphs &glyphs,
                             const std::string &name);

/// A name for a subset of the file's font.
std::string subsetName(const FontFile &file, std::size_t number);
