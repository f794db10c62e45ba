#include "pdf/GlyphPainter.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#if HB_VERSION_ATLEAST(7, 0, 0)

namespace {

using Painter = GlyphPainter;

std::string number(double value)
{
    return Painter::number(value);
}

struct FreeFunctions {
    void operator()(hb_paint_funcs_t *functions) const { hb_paint_funcs_destroy(functions); }
};

constexpr double far = 100'000; // beyond any glyph

Painter &painterOf(void *data)
{
    return *static_cast<Painter *>(data);
}

void pushTransform(hb_paint_funcs_t *, void *data, float xx, float yx, float xy, float yy, float dx,
                   float dy, void *)
{
    painterOf(data).append({}, "q ");
    painterOf(data).append({xx, yx, xy, yy, dx, dy}, "cm ");
}

void pop(hb_paint_funcs_t *, void *data, void *)
{
    painterOf(data).append({}, "Q ");
}

void clipGlyph(hb_paint_funcs_t *, void *data, hb_codepoint_t glyph, hb_font_t *font, void *)
{
    painterOf(data).append({}, "q ");
    painterOf(data).append({0, 0}, "m "); // a path, even of a blank glyph
    painterOf(data).appendPath(font, glyph);
    painterOf(data).append({}, "W n ");
}

void clipRectangle(hb_paint_funcs_t *, void *data, float left, float bottom, float right, float top, void *)
{
    painterOf(data).append({}, "q ");
    painterOf(data).append({left, bottom, right - left, top - bottom}, "re W n ");
}

void paintColour(hb_paint_funcs_t *, void *data, hb_bool_t, hb_color_t colour, void *)
{
    painterOf(data).setColour(colour);
    painterOf(data).append({-far, -far, 2 * far, 2 * far}, "re f ");
}

std::vector<hb_color_stop_t> stopsOf(hb_color_line_t *line)
{
    std::vector<hb_color_stop_t> stops(hb_color_line_get_color_stops(line, 0, nullptr, nullptr));
    auto count = unsigned(stops.size());
    hb_color_line_get_color_stops(line, 0, &count, stops.data());
    std::stable_sort(stops.begin(), stops.end(), [](auto &a, auto &b) { return a.offset < b.offset; });
    return stops;
}

hb_color_t colourAt(const std::vector<hb_color_stop_t> &stops, double offset)
{
    const auto after =
        std::find_if(stops.begin(), stops.end(), [&](auto &stop) { return stop.offset > offset; });
    if (after == stops.begin() || after == stops.end())
        return after == stops.end() ? stops.back().color : after->color;
    const hb_color_stop_t &before = *std::prev(after);
    const double share = (offset - before.offset) / (after->offset - before.offset);
    const auto mixed = [&](auto part) {
        return hb_color_t(std::lround(part(before.color) * (1 - share) + part(after->color) * share));
    };
    return HB_COLOR(mixed([](hb_color_t c) { return hb_color_get_blue(c); }),
                    mixed([](hb_color_t c) { return hb_color_get_green(c); }),
                    mixed([](hb_color_t c) { return hb_color_get_red(c); }),
                    mixed([](hb_color_t c) { return hb_color_get_alpha(c); }));
}

// A function of the offset, in samples: enough for what is smaller than a letter.
std::string colourFunction(const Painter &painter, const std::vector<hb_color_stop_t> &stops)
{
    std::string functions;
    std::string bounds;
    std::string encode;
    for (std::size_t i = 0; i + 1 < stops.size(); ++i) {
        functions += "<</FunctionType 2 /N 1 /Domain [0 1] /C0 [" + painter.components(stops[i].color)
            + "] /C1 [" + painter.components(stops[i + 1].color) + "]>> ";
        encode += "0 1 ";
        if (i > 0)
            bounds += number(stops[i].offset);
    }
    return "<</FunctionType 3 /Domain [" + number(stops.front().offset) + number(stops.back().offset)
        + "] /Functions [" + functions + "] /Bounds [" + bounds + "] /Encode [" + encode + "]>>";
}

// Opacity is the same all over: the middle one.
void shade(Painter &painter, const std::vector<hb_color_stop_t> &stops, int type, const std::string &places)
{
    const double middle = (stops.front().offset + stops.back().offset) / 2;
    painter.setOpacity(hb_color_get_alpha(colourAt(stops, middle)));
    const std::string shading = "<</ShadingType " + std::to_string(type) + " /ColorSpace "
        + (painter.isGrey() ? "/DeviceGray" : "/DeviceRGB") + " /Extend [true true] /Domain ["
        + number(stops.front().offset) + number(stops.back().offset) + "] /Coords [" + places
        + "] /Function " + colourFunction(painter, stops) + ">>";
    painter.paintShading(shading);
}

// Whether it isn't one colour only, which is painted at once.
bool isGradient(hb_paint_funcs_t *functions, void *data, const std::vector<hb_color_stop_t> &stops)
{
    if (!stops.empty() && stops.front().offset == stops.back().offset)
        paintColour(functions, data, false, stops.back().color, nullptr);
    return !stops.empty() && stops.front().offset < stops.back().offset;
}

void paintLinear(hb_paint_funcs_t *functions, void *data, hb_color_line_t *line, float x0, float y0,
                 float x1, float y1, float x2, float y2, void *)
{
    const auto stops = stopsOf(line);
    if (!isGradient(functions, data, stops))
        return;
    // The colours change across the line to the third point, not along that to the second.
    const double x = x2 - x0;
    const double y = y2 - y0;
    const double length = x * x + y * y;
    const double along = length > 0 ? ((x1 - x0) * x + (y1 - y0) * y) / length : 0;
    const double dx = x1 - x0 - along * x;
    const double dy = y1 - y0 - along * y;
    const double begin = stops.front().offset;
    const double end = stops.back().offset;
    shade(painterOf(data), stops, 2,
          number(x0 + dx * begin) + number(y0 + dy * begin) + number(x0 + dx * end)
              + number(y0 + dy * end));
}

void paintRadial(hb_paint_funcs_t *functions, void *data, hb_color_line_t *line, float x0, float y0,
                 float r0, float x1, float y1, float r1, void *)
{
    const auto stops = stopsOf(line);
    if (!isGradient(functions, data, stops))
        return;
    const auto circle = [&](double at) {
        return number(x0 + (x1 - x0) * at) + number(y0 + (y1 - y0) * at)
            + number(std::max(0.0, r0 + (r1 - r0) * at));
    };
    shade(painterOf(data), stops, 3, circle(stops.front().offset) + circle(stops.back().offset));
}

// In wedges: a document knows no such shading.
void paintSweep(hb_paint_funcs_t *functions, void *data, hb_color_line_t *line, float x0, float y0,
                float start, float end, void *)
{
    const auto stops = stopsOf(line);
    if (!isGradient(functions, data, stops))
        return;
    constexpr int wedges = 120;
    constexpr double angle = 2 * 3.14159265358979 / wedges;
    Painter &painter = painterOf(data);
    for (int i = 0; i < wedges; ++i) {
        const double from = i * angle;
        const double offset = end > start ? (from + angle / 2 - start) / (end - start) : 0;
        painter.setColour(colourAt(stops, offset));
        painter.append({x0, y0}, "m ");
        painter.append({x0 + far * std::cos(from), y0 + far * std::sin(from)}, "l ");
        painter.append({x0 + far * std::cos(from + 1.1 * angle), y0 + far * std::sin(from + 1.1 * angle)},
                       "l h f ");
    }
}

} // namespace

void paintGlyph(GlyphPainter &painter, const FontFile &font, hb_codepoint_t glyph)
{
    const std::unique_ptr<hb_paint_funcs_t, FreeFunctions> functions(hb_paint_funcs_create());
    hb_paint_funcs_set_push_transform_func(functions.get(), pushTransform, nullptr, nullptr);
    hb_paint_funcs_set_pop_transform_func(functions.get(), pop, nullptr, nullptr);
    hb_paint_funcs_set_push_clip_glyph_func(functions.get(), clipGlyph, nullptr, nullptr);
    hb_paint_funcs_set_push_clip_rectangle_func(functions.get(), clipRectangle, nullptr, nullptr);
    hb_paint_funcs_set_pop_clip_func(functions.get(), pop, nullptr, nullptr);
    hb_paint_funcs_set_color_func(functions.get(), paintColour, nullptr, nullptr);
    hb_paint_funcs_set_linear_gradient_func(functions.get(), paintLinear, nullptr, nullptr);
    hb_paint_funcs_set_radial_gradient_func(functions.get(), paintRadial, nullptr, nullptr);
    hb_paint_funcs_set_sweep_gradient_func(functions.get(), paintSweep, nullptr, nullptr);
    hb_font_paint_glyph(font.font(), glyph, functions.get(), &painter, 0, Painter::black);
}

#else

void paintGlyph(GlyphPainter &, const FontFile &, hb_codepoint_t) { }

#endif
