#pragma once

#include "typesetting/FontFile.h"

#include <array>
#include <vector>

/// A step of the pen around a glyph, at the size of the text: of its points, those that it needs.
struct OutlineStep {
    enum class Kind { Move, Line, Curve, Close };
    struct Point {
        double x = 0, y = 0;
    };

    Kind kind;
    std::array<Point, 3> points; // the last that is needed is where it ends
};

std::vector<OutlineStep> outlineOf(hb_font_t *font, hb_codepoint_t glyph);

/// How wide the stems of a font's letters are.
Millipoints stemWidth(const FontFile &file);
