#include "pdf/DrawingOperators.h"

#include <charconv>
#include <cmath>

namespace {

void appendNumber(std::string &to, double value)
{
    char digits[32];
    const long long thousandths = std::llround(value * 1000);
    char *end = std::to_chars(digits, digits + sizeof digits, thousandths / 1000).ptr;
    if (thousandths < 0 && thousandths > -1000)
        to += '-'; // which -0 has lost
    to.append(digits, end);
    int rest = int(std::llabs(thousandths) % 1000);
    if (rest == 0)
        return;
    to += '.';
    for (int unit = 100; rest > 0; rest %= unit, unit /= 10)
        to += char('0' + rest / unit);
}

class Content {
public:
    explicit Content(std::size_t glyphs) { m_text.reserve(64 + glyphs * 3); }

    void add(const Line &line, const Glyph *glyphs);
    std::string finished();

private:
    void add(const Glyph &glyph);
    void setFont(const Glyph &glyph);
    void setRise(Millipoints up);
    void setMute(bool mute);
    void move(Millipoints right);
    void appendByte(unsigned char byte);
    void openString();
    void closeString();
    void closeArray();

    std::string m_text = "BT\n";
    int m_font = -1;
    Millipoints m_left = 0;
    Millipoints m_baseline = 0;
    Millipoints m_rise = 0;
    bool m_mute = false;
    bool m_inArray = false;
    bool m_inString = false;
};

void Content::add(const Line &line, const Glyph *glyphs)
{
    if (line.glyphs == 0)
        return;
    appendNumber(m_text, (line.left - m_left) / 1000.0);
    m_text += ' ';
    appendNumber(m_text, (line.baseline - m_baseline) / 1000.0);
    m_text += " Td";
    m_left = line.left;
    m_baseline = line.baseline;
    for (std::size_t i = 0; i < line.glyphs; ++i)
        add(glyphs[i]);
    setRise(0);
    setMute(false);
    closeArray();
    m_text += '\n';
}

void Content::add(const Glyph &glyph)
{
    setMute(glyph.code.isMute);
    setFont(glyph);
    setRise(glyph.up);
    if (glyph.right != 0)
        move(glyph.right);
    openString();
    if (!glyph.code.isDrawn)
        appendByte(static_cast<unsigned char>(glyph.code.code >> 8));
    appendByte(static_cast<unsigned char>(glyph.code.code & 0xff));
    if (glyph.excess != glyph.right)
        move(glyph.excess - glyph.right);
}

void Content::setFont(const Glyph &glyph)
{
    if (m_font == glyph.code.font)
        return;
    closeArray();
    m_font = glyph.code.font;
    m_text += "/F";
    appendNumber(m_text, m_font);
    m_text += ' ';
    appendNumber(m_text, textSize);
    m_text += " Tf";
}

void Content::setRise(Millipoints up)
{
    if (m_rise == up)
        return;
    closeArray();
    m_rise = up;
    m_text += ' ';
    appendNumber(m_text, up / 1000.0);
    m_text += " Ts";
}

// Readers tend to take a code without a text for a character of that number.
void Content::setMute(bool mute)
{
    if (m_mute == mute)
        return;
    closeArray();
    m_mute = mute;
    m_text += mute ? "/Span<</ActualText()>>BDC " : " EMC ";
}

// In thousandths of the font's size, and to the left.
void Content::move(Millipoints right)
{
    closeString();
    if (!m_inArray)
        m_text += '[';
    else if (m_text.back() != ')')
        m_text += ' '; // two numbers in a row
    m_inArray = true;
    appendNumber(m_text, -right / textSize);
}

void Content::appendByte(unsigned char byte)
{
    if (byte == '(' || byte == ')' || byte == '\\') {
        m_text += '\\';
    } else if (byte == '\r') {
        m_text += "\\r";
        return;
    }
    m_text += char(byte);
}

void Content::openString()
{
    if (m_inString)
        return;
    m_text += m_inArray ? "(" : "[(";
    m_inArray = m_inString = true;
}

void Content::closeString()
{
    if (m_inString)
        m_text += ')';
    m_inString = false;
}

void Content::closeArray()
{
    closeString();
    if (m_inArray)
        m_text += "]TJ";
    m_inArray = false;
}

std::string Content::finished()
{
    return std::move(m_text) + "ET\n";
}

} // namespace

std::string drawingOperators(const Page &page)
{
    Content content(page.glyphs.size());
    const Glyph *glyphs = page.glyphs.data();
    for (const Line &line : page.lines) {
        content.add(line, glyphs);
        glyphs += line.glyphs;
    }
    return content.finished();
}
