#include "pdf/GlyphOutline.h"

#include <hb-ot.h>

#include <algorithm>
#include <memory>

namespace {

using Kind = OutlineStep::Kind;
using Point = OutlineStep::Point;

struct FreeFunctions {
    void operator()(hb_draw_funcs_t *functions) const { hb_draw_funcs_destroy(functions); }
};

std::vector<OutlineStep> &of(void *steps)
{
    return *static_cast<std::vector<OutlineStep> *>(steps);
}

void moveTo(hb_draw_funcs_t *, void *steps, hb_draw_state_t *, float x, float y, void *)
{
    of(steps).push_back({Kind::Move, {{{x, y}}}});
}

void lineTo(hb_draw_funcs_t *, void *steps, hb_draw_state_t *, float x, float y, void *)
{
    of(steps).push_back({Kind::Line, {{{x, y}}}});
}

void curveTo(hb_draw_funcs_t *, void *steps, hb_draw_state_t *, float x1, float y1, float x2, float y2,
             float x, float y, void *)
{
    of(steps).push_back({Kind::Curve, {{{x1, y1}, {x2, y2}, {x, y}}}});
}

void closePath(hb_draw_funcs_t *, void *steps, hb_draw_state_t *, void *)
{
    of(steps).push_back({Kind::Close, {}});
}

// Where lines through these points, one after the other, cross that height. Stems are straight there: so
// curves don't matter but for their ends.
std::vector<double> crossings(const std::vector<OutlineStep> &steps, double height)
{
    std::vector<double> places;
    Point begin;
    Point from;
    for (const auto &[kind, points] : steps) {
        const Point to = kind == Kind::Close ? begin : points[kind == Kind::Curve ? 2 : 0];
        if (kind == Kind::Move)
            begin = to;
        else if ((from.y < height) != (to.y < height))
            places.push_back(from.x + (to.x - from.x) * (height - from.y) / (to.y - from.y));
        from = to;
    }
    std::sort(places.begin(), places.end());
    return places;
}

} // namespace

std::vector<OutlineStep> outlineOf(hb_font_t *font, hb_codepoint_t glyph)
{
    const std::unique_ptr<hb_draw_funcs_t, FreeFunctions> functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(functions.get(), moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions.get(), lineTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions.get(), curveTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions.get(), closePath, nullptr, nullptr);
    std::vector<OutlineStep> steps;
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(font, glyph, functions.get(), &steps);
#else
    hb_font_get_glyph_shape(font, glyph, functions.get(), &steps);
#endif
    return steps;
}

Millipoints stemWidth(const FontFile &file)
{
    for (const char32_t letter : {U'l', U'I', U'十'}) {
        hb_codepoint_t glyph = 0;
        if (!hb_font_get_nominal_glyph(file.font(), letter, &glyph))
            continue;
        const auto [top, bottom] = file.ink(glyph);
        const auto places = crossings(outlineOf(file.font(), glyph), bottom + (top - bottom) / 4.0);
        if (places.size() >= 2)
            return Millipoints(places[1] - places[0]);
    }
    // What is usual for its weight, of thousand parts.
    const double weight = hb_style_get_value(file.font(), HB_STYLE_TAG_WEIGHT) / 65;
    return Millipoints((50 + weight * weight) * textSize);
}
