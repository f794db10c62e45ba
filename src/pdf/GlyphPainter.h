#pragma once

#include "pdf/GlyphPainting.h"

#include <hb-ot.h>

#include <initializer_list>

/// Writes the operators that draw a glyph; lengths are those of the text.
class GlyphPainter {
public:
    GlyphPainter(std::string &to, hb_codepoint_t glyph, bool grey, Resources &resources)
        : m_to(to)
        , m_glyph(glyph)
        , m_grey(grey)
        , m_resources(resources)
    {
    }

    void append(std::initializer_list<double> numbers, const char *operation);
    void appendPath(hb_font_t *font, hb_codepoint_t glyph);
    void setColour(hb_color_t colour);
    void setOpacity(unsigned alpha);
    /// The operands of a colour.
    std::string components(hb_color_t colour) const;
    void paintShading(const std::string &dictionary);
    bool isGrey() const { return m_grey; }

    static constexpr hb_color_t black = HB_COLOR(0, 0, 0, 255);
    /// As operands.
    static std::string number(double value);

private:
    void add(const char *kind, const std::string &name, const std::string &dictionary);

    std::string &m_to;
    const hb_codepoint_t m_glyph;
    int m_shadings = 0;
    const bool m_grey;
    Resources &m_resources;
};

/// What a font of this kind paints, where the library knows how; else nothing.
void paintGlyph(GlyphPainter &painter, const FontFile &font, hb_codepoint_t glyph);
