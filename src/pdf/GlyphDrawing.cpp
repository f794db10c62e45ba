#include "pdf/GlyphDrawing.h"

#include <hb-ot.h>

#include <memory>
#include <vector>

namespace {

constexpr hb_color_t black = HB_COLOR(0, 0, 0, 255);
constexpr unsigned textColour = 0xffff; // in place of one of the palette's

std::string number(double value)
{
    return QPDFObjectHandle::newReal(value, 3).unparse() + ' ';
}

void append(void *to, const char *operation, std::initializer_list<float> coordinates)
{
    auto &path = *static_cast<std::string *>(to);
    for (const float each : coordinates)
        path += number(double(each) / textSize);
    path += operation;
}

void moveTo(hb_draw_funcs_t *, void *to, hb_draw_state_t *, float x, float y, void *)
{
    append(to, "m ", {x, y});
}

void lineTo(hb_draw_funcs_t *, void *to, hb_draw_state_t *, float x, float y, void *)
{
    append(to, "l ", {x, y});
}

void curveTo(hb_draw_funcs_t *, void *to, hb_draw_state_t *, float x1, float y1, float x2, float y2,
             float x, float y, void *)
{
    append(to, "c ", {x1, y1, x2, y2, x, y});
}

void closePath(hb_draw_funcs_t *, void *to, hb_draw_state_t *, void *)
{
    append(to, "h ", {});
}

struct FreeFunctions {
    void operator()(hb_draw_funcs_t *functions) const { hb_draw_funcs_destroy(functions); }
};

void appendPath(std::string &to, const FontFile &font, hb_codepoint_t glyph)
{
    const std::unique_ptr<hb_draw_funcs_t, FreeFunctions> functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(functions.get(), moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions.get(), lineTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions.get(), curveTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions.get(), closePath, nullptr, nullptr);
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(font.font(), glyph, functions.get(), &to);
#else
    hb_font_get_glyph_shape(font.font(), glyph, functions.get(), &to);
#endif
}

hb_color_t colourOf(const FontFile &font, unsigned index)
{
    hb_color_t colour = black;
    unsigned count = 1;
    if (index != textColour)
        hb_ot_color_palette_get_colors(font.face(), 0, index, &count, &colour);
    return count == 1 ? colour : black;
}

// As bright as it looks.
std::string greyOf(hb_color_t colour)
{
    const int sum =
        hb_color_get_red(colour) * 11 + hb_color_get_green(colour) * 16 + hb_color_get_blue(colour) * 5;
    return number(sum / 32.0 / 255) + "g ";
}

std::string colourOperator(hb_color_t colour, bool grey)
{
    if (grey)
        return greyOf(colour);
    return number(hb_color_get_red(colour) / 255.0) + number(hb_color_get_green(colour) / 255.0)
        + number(hb_color_get_blue(colour) / 255.0) + "rg ";
}

std::string opacityOperator(hb_color_t colour, QPDFObjectHandle &states)
{
    const unsigned alpha = hb_color_get_alpha(colour);
    const std::string name = "/A" + std::to_string(alpha);
    if (!states.hasKey(name))
        states.replaceKey(name, QPDFObjectHandle::parse("<</ca " + number(alpha / 255.0) + ">>"));
    return name + " gs ";
}

std::vector<hb_ot_color_layer_t> layersOf(const FontFile &font, hb_codepoint_t glyph)
{
    std::vector<hb_ot_color_layer_t> layers(
        hb_ot_color_glyph_get_layers(font.face(), glyph, 0, nullptr, nullptr));
    auto count = unsigned(layers.size());
    hb_ot_color_glyph_get_layers(font.face(), glyph, 0, &count, layers.data());
    if (layers.empty())
        layers.push_back({glyph, textColour});
    return layers;
}

} // namespace

void appendLayers(std::string &to, const FontFile &font, hb_codepoint_t glyph, bool grey,
                  QPDFObjectHandle &states)
{
    for (const auto &[part, index] : layersOf(font, glyph)) {
        const hb_color_t colour = colourOf(font, index);
        to += colourOperator(colour, grey) + opacityOperator(colour, states);
        appendPath(to, font, part);
        to += "f ";
    }
}
