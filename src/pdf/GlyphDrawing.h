#pragma once

#include "typesetting/FontFile.h"

#include <qpdf/QPDFObjectHandle.hh>

#include <string>

/// Appends the operators that fill the layers of a glyph, each in its colour, in thousandths of the font's
/// size; a glyph that has none is filled in black. How much is seen through a layer goes into `states`, the
/// graphics states of the font.
void appendLayers(std::string &to, const FontFile &font, hb_codepoint_t glyph, bool grey,
                  QPDFObjectHandle &states);
