#include "pdf/DrawingOperators.h"

#include "pdf/PdfSyntax.h"

#include <algorithm>
#include <utility>

using PdfSyntax::appendNumber;

namespace {

class Content {
public:
    explicit Content(const Page &page)
        : m_page(page)
        , m_glyphs(page.glyphs)
    {
        m_text.reserve(64 + page.glyphs.size() * 3);
        m_nextMark = nextMark();
    }

    void add(const Line &line);
    std::string finished();

private:
    void addGlyph();
    std::size_t nextMark() const;
    void beginMarks();
    void endMarks();
    void beginPassage();
    void endPassage();
    void beginForeign();
    void beginSaying();
    void endContent();
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

    const Page &m_page;
    const std::vector<Glyph> &m_glyphs;
    std::size_t m_glyph = 0;
    std::size_t m_lineEnd = 0;
    bool m_goesBack = false;   // in the line
    std::size_t m_passage = 0; // those that come next
    std::size_t m_foreign = 0;
    std::size_t m_saying = 0;
    std::size_t m_nextMark = 0; // the glyph where one of them does
    bool m_inPassage = false;
    int m_contents = 0;           // that belong to paragraphs
    std::size_t m_foreignEnd = 0; // 0 outside of one
    std::size_t m_sayingEnd = 0;

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
    m_goesBack = line.goesBack;
    for (; m_glyph < m_lineEnd; ++m_glyph) {
        if (m_glyph == m_nextMark)
            beginMarks();
        addGlyph();
        if (m_glyph + 1 == m_sayingEnd || m_glyph + 1 == m_foreignEnd)
            endMarks();
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
    if (after == m_spacing || m_glyph + 1 == m_lineEnd)
        return;
    move(after - m_spacing);
    if (m_goesBack && after < 0)
        closeArray(); // some readers take what is shown at once for a stretch from left to right
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

// From the outside to the inside.
void Content::beginMarks()
{
    const auto beginsHere = [this](const auto &all, std::size_t next) {
        return next < all.size() && all[next].first == m_glyph;
    };
    if (beginsHere(m_page.passages, m_passage))
        beginPassage();
    if (beginsHere(m_page.foreign, m_foreign))
        beginForeign();
    if (beginsHere(m_page.sayings, m_saying))
        beginSaying();
    m_nextMark = nextMark();
}

std::size_t Content::nextMark() const
{
    const auto first = [](const auto &all, std::size_t next) {
        return next < all.size() ? all[next].first : std::size_t(-1);
    };
    return std::min({first(m_page.passages, m_passage), first(m_page.foreign, m_foreign),
                     first(m_page.sayings, m_saying)});
}

void Content::endMarks()
{
    for (std::size_t *end : {&m_sayingEnd, &m_foreignEnd}) {
        if (*end != m_glyph + 1)
            continue;
        endContent();
        *end = 0;
    }
}

void Content::beginPassage()
{
    const Passage &passage = m_page.passages[m_passage++];
    endPassage();
    if (passage.paragraph == 0) {
        m_text += "/Artifact BMC ";
    } else {
        m_text += passage.address == 0 ? "/P" : "/Link";
        m_text += "<</MCID " + std::to_string(m_contents++) + ">>BDC ";
    }
    m_inPassage = true;
}

void Content::endPassage()
{
    if (std::exchange(m_inPassage, false))
        endContent();
    else
        closeArray();
}

void Content::beginForeign()
{
    const Foreign &foreign = m_page.foreign[m_foreign++];
    setMute(false);
    closeArray();
    m_text += "/Span<</Lang(" + foreign.language + ")>>BDC ";
    m_foreignEnd = foreign.first + foreign.glyphs;
}

void Content::beginSaying()
{
    const Saying &saying = m_page.sayings[m_saying++];
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

void Content::endContent()
{
    setMute(false);
    closeArray();
    m_text += " EMC ";
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
    endPassage();
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
