#pragma once

#include "typesetting/FontFile.h"

#include <map>
#include <string>

/// What drawings refer to: of each kind by their names, as they are written.
using Resources = std::map<std::string, std::map<std::string, std::string>>;

/// Appends the operators that draw a glyph of a font in colours: its layers, or what it is painted with, in
/// thousandths of the font's size. What they refer to goes into `resources`. With `grey`, without colours.
void appendGlyph(std::string &to, const FontFile &font, hb_codepoint_t glyph, bool grey,
                 Resources &resources);
