#include "pdf/GlyphPainter.h"

#include "pdf/GlyphOutline.h"
#include "pdf/PdfSyntax.h"

std::string GlyphPainter::number(double value)
{
    return PdfSyntax::number(value, 6) + ' ';
}

void GlyphPainter::append(std::initializer_list<double> numbers, const char *operation)
{
    for (const double each : numbers)
        m_to += number(each);
    m_to += operation;
}

void GlyphPainter::appendPath(hb_font_t *font, hb_codepoint_t glyph)
{
    for (const auto &[kind, points] : outlineOf(font, glyph)) {
        const auto &[a, b, c] = points;
        switch (kind) {
        case OutlineStep::Kind::Move:
            append({a.x, a.y}, "m ");
            break;
        case OutlineStep::Kind::Line:
            append({a.x, a.y}, "l ");
            break;
        case OutlineStep::Kind::Curve:
            append({a.x, a.y, b.x, b.y, c.x, c.y}, "c ");
            break;
        case OutlineStep::Kind::Close:
            append({}, "h ");
        }
    }
}

// Grey is as bright as the colour looks.
std::string GlyphPainter::components(hb_color_t colour) const
{
    const double red = hb_color_get_red(colour) / 255.0;
    const double green = hb_color_get_green(colour) / 255.0;
    const double blue = hb_color_get_blue(colour) / 255.0;
    return m_grey ? number((red * 11 + green * 16 + blue * 5) / 32)
                  : number(red) + number(green) + number(blue);
}

void GlyphPainter::setColour(hb_color_t colour)
{
    m_to += components(colour) + (m_grey ? "g " : "rg ");
    setOpacity(hb_color_get_alpha(colour));
}

void GlyphPainter::setOpacity(unsigned alpha)
{
    add("/ExtGState", "/A" + std::to_string(alpha), "<</ca " + number(alpha / 255.0) + ">>");
    m_to += "/A" + std::to_string(alpha) + " gs ";
}

void GlyphPainter::add(const char *kind, const std::string &name, const std::string &dictionary)
{
    m_resources[kind].try_emplace(name, dictionary);
}

void GlyphPainter::paintShading(const std::string &dictionary)
{
    const std::string name = "/S" + std::to_string(m_glyph) + '.' + std::to_string(m_shadings++);
    add("/Shading", name, dictionary);
    m_to += name + " sh ";
}
