#pragma once

#include "typesetting/FontFile.h"

#include <qpdf/QPDFObjectHandle.hh>

#include <string>

/// Appends the operators that draw a glyph of a font in colours: its layers, or what it is painted with, in
/// thousandths of the font's size. What they refer to goes into `resources`. With `grey`, without colours.
void appendGlyph(std::string &to, const FontFile &font, hb_codepoint_t glyph, bool grey,
                 QPDFObjectHandle &resources);
