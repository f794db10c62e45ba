#include "pdf/GlyphPainting.h"

#include "pdf/GlyphPainter.h"

#include <vector>

namespace {

constexpr unsigned textColour = 0xffff; // in place of one of the palette's

hb_color_t colourOf(const FontFile &font, unsigned index)
{
    hb_color_t colour = GlyphPainter::black;
    unsigned count = 1;
    if (index != textColour)
        hb_ot_color_palette_get_colors(font.face(), 0, index, &count, &colour);
    return count == 1 ? colour : GlyphPainter::black;
}

void drawLayers(GlyphPainter &painter, const FontFile &font, hb_codepoint_t glyph)
{
    std::vector<hb_ot_color_layer_t> layers(
        hb_ot_color_glyph_get_layers(font.face(), glyph, 0, nullptr, nullptr));
    auto count = unsigned(layers.size());
    hb_ot_color_glyph_get_layers(font.face(), glyph, 0, &count, layers.data());
    if (layers.empty())
        layers.push_back({glyph, textColour});
    for (const auto &[part, index] : layers) {
        painter.setColour(colourOf(font, index));
        painter.appendPath(font.font(), part);
        painter.append({}, "f ");
    }
}

} // namespace

void appendGlyph(std::string &to, const FontFile &font, hb_codepoint_t glyph, bool grey,
                 Resources &resources)
{
    GlyphPainter painter(to, glyph, grey, resources);
    constexpr double scale = 1 / textSize;
    painter.append({}, "q ");
    painter.append({scale, 0, 0, scale, 0, 0}, "cm ");
    if (font.glyphs() == FontFile::Glyphs::Painted)
        paintGlyph(painter, font, glyph);
    else
        drawLayers(painter, font, glyph);
    painter.append({}, "Q ");
}
