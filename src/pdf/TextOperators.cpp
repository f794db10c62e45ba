#include "pdf/TextOperators.h"

#include "pdf/PdfSyntax.h"

#include <utility>

using PdfSyntax::appendNumber;

void TextOperators::beginLine(Millipoints left, Millipoints baseline)
{
    appendNumber(m_text, (left - m_left) / 1000.0);
    m_text += ' ';
    appendNumber(m_text, (baseline - m_baseline) / 1000.0);
    m_text += " Td";
    m_left = left;
    m_baseline = baseline;
}

void TextOperators::endLine()
{
    setRise(0);
    setMute(false);
    endShown();
    m_text += '\n';
}

void TextOperators::changeFont(int font)
{
    endShown();
    m_font = font;
    m_text += "/F";
    appendNumber(m_text, m_font);
    m_text += ' ';
    appendNumber(m_text, textSize);
    m_text += " Tf";
}

void TextOperators::changeRise(Millipoints up)
{
    endShown();
    m_rise = up;
    m_text += ' ';
    appendNumber(m_text, up / 1000.0);
    m_text += " Ts";
}

void TextOperators::setSpacing(Millipoints spacing)
{
    endShown();
    m_spacing = spacing;
    m_text += ' ';
    appendNumber(m_text, spacing / 1000.0);
    m_text += " Tc";
}

void TextOperators::changeMute(bool mute)
{
    endShown();
    m_mute = mute;
    m_text += mute ? "/Span<</ActualText()>>BDC " : " EMC ";
}

// In thousandths of the font's size, and to the left.
void TextOperators::move(Millipoints right)
{
    closeString();
    if (!m_inArray)
        m_text += '[';
    else if (m_text.back() != ')')
        m_text += ' '; // two numbers in a row
    m_inArray = true;
    appendNumber(m_text, -right / textSize);
}

void TextOperators::endShown()
{
    closeString();
    if (m_inArray)
        m_text += "]TJ";
    m_inArray = false;
}

void TextOperators::beginMark(std::string_view begin)
{
    setMute(false);
    endShown();
    m_text.append(begin) += ' ';
}

void TextOperators::beginSaying(std::u16string_view text)
{
    beginMark("/Span<</ActualText(\376\377"); // big-endian, as these say
    m_text.pop_back();
    for (const char16_t unit : text) {
        appendByte(static_cast<unsigned char>(unit >> 8));
        appendByte(static_cast<unsigned char>(unit & 0xff));
    }
    m_text += ")>>BDC ";
}

void TextOperators::endMark()
{
    setMute(false);
    endShown();
    m_text += " EMC ";
}

std::string TextOperators::finished()
{
    endShown();
    return std::move(m_text) + "ET\n";
}
