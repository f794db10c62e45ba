#pragma once

#include <optional>
#include <string_view>
#include <vector>

/// A picture, row by row from the top: red, green, blue and opacity of each pixel, a byte each.
struct Pixels {
    int width = 0;
    int height = 0;
    bool hasOpacity = false; // otherwise all of it is opaque
    std::vector<unsigned char> bytes;
};

/// Reads a PNG, of whatever kind. Nothing when it is damaged, or larger than anything that a page shows:
/// it may come from a font that nobody has looked at.
std::optional<Pixels> pngPixels(std::string_view png);
