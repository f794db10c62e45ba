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
    explicit Content(const Page &page)
        : m_glyphs(page.glyphs)
        , m_sayings(page.sayings)
    {
        m_text.reserve(64 + page.glyphs.size() * 3);
    }

    void add(const Line &line);
    std::string finished();

private:
    void addGlyph();
    void beginSaying();
    void endSaying();
    void setFont(const Glyph &glyph);
    void setRise(Millipoints up);
    void setMute(bool mute);
    void setSpacing(Millipoints spacing);
    void move(Millipoints right);
    bool goesOnLike(Millipoints after) const;
    void appendByte(unsigned char byte);
    void openString();
    void closeString();
    void closeArray();

    const std::vector<Glyph> &m_glyphs;
    const std::vector<Saying> &m_sayings;
    std::size_t m_glyph = 0;
    std::size_t m_lineEnd = 0;
    std::size_t m_saying = 0;
    std::size_t m_sayingEnd = 0; // 0 outside of one

    std::string m_text = "BT\n";
    int m_font = -1;
    Millipoints m_left = 0;
    Millipoints m_baseline = 0;
    Millipoints m_rise = 0;
    Millipoints m_spacing = 0;
    bool m_mute = false;
    bool m_inArray = false;
    bool m_inString = false;
};

void Content::add(const Line &line)
{
    if (line.glyphs == 0)
        return;
    appendNumber(m_text, (line.left - m_left) / 1000.0);
    m_text += ' ';
    appendNumber(m_text, (line.baseline - m_baseline) / 1000.0);
    m_text += " Td";
    m_left = line.left;
    m_baseline = line.baseline;
    m_lineEnd = m_glyph + line.glyphs;
    for (; m_glyph < m_lineEnd; ++m_glyph) {
        if (m_saying < m_sayings.size() && m_sayings[m_saying].first == m_glyph)
            beginSaying();
        addGlyph();
        if (m_glyph + 1 == m_sayingEnd)
            endSaying();
    }
    setRise(0);
    setMute(false);
    closeArray();
    m_text += '\n';
}

void Content::addGlyph()
{
    const Glyph &glyph = m_glyphs[m_glyph];
    const Millipoints after = glyph.excess - glyph.right;
    setMute(glyph.code.isMute && m_sayingEnd == 0);
    setFont(glyph);
    setRise(glyph.up);
    if (after != m_spacing && goesOnLike(after))
        setSpacing(after);
    if (glyph.right != 0)
        move(glyph.right);
    openString();
    if (!glyph.code.isDrawn)
        appendByte(static_cast<unsigned char>(glyph.code.code >> 8));
    appendByte(static_cast<unsigned char>(glyph.code.code & 0xff));
    if (after != m_spacing && m_glyph + 1 < m_lineEnd)
        move(after - m_spacing);
}

// Whether the next glyphs of the line have as much behind them: then saying so once is shorter.
bool Content::goesOnLike(Millipoints after) const
{
    constexpr std::size_t worthIt = 3;
    if (m_lineEnd - m_glyph < worthIt)
        return false;
    for (std::size_t next = m_glyph + 1; next < m_glyph + worthIt; ++next) {
        if (m_glyphs[next].excess - m_glyphs[next].right != after)
            return false;
    }
    return true;
}

void Content::beginSaying()
{
    const Saying &saying = m_sayings[m_saying++];
    setMute(false);
    closeArray();
    m_text += "/Span<</ActualText(\376\377"; // big-endian, as these say
    for (const char16_t unit : saying.text) {
        appendByte(static_cast<unsigned char>(unit >> 8));
        appendByte(static_cast<unsigned char>(unit & 0xff));
    }
    m_text += ")>>BDC ";
    m_sayingEnd = saying.first + saying.glyphs;
}

void Content::endSaying()
{
    closeArray();
    m_text += " EMC ";
    m_sayingEnd = 0;
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

void Content::setSpacing(Millipoints spacing)
{
    closeArray();
    m_spacing = spacing;
    m_text += ' ';
    appendNumber(m_text, spacing / 1000.0);
    m_text += " Tc";
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
    Content content(page);
    for (const Line &line : page.lines)
        content.add(line);
    return content.finished();
}
