#pragma once

#include "typesetting/DocumentFonts.h"

#include <string>
#include <string_view>

/// Writes the operators of a text object; those that would change nothing aren't written.
class TextOperators {
public:
    explicit TextOperators(std::size_t glyphs) { m_text.reserve(64 + glyphs * 3); }

    /// A new line, from there.
    void beginLine(Millipoints left, Millipoints baseline);
    void endLine();

    void setFont(int font)
    {
        if (m_font != font)
            changeFont(font);
    }
    void setRise(Millipoints up)
    {
        if (m_rise != up)
            changeRise(up);
    }
    /// What follows each glyph from here on, beside its own advance.
    void setSpacing(Millipoints spacing);
    Millipoints spacing() const { return m_spacing; }
    /// Codes without a text: readers tend to take them for characters of these numbers.
    void setMute(bool mute)
    {
        if (m_mute != mute)
            changeMute(mute);
    }

    void move(Millipoints right);
    void show(GlyphCode code)
    {
        openString();
        if (!code.isDrawn)
            appendByte(static_cast<unsigned char>(code.code >> 8));
        appendByte(static_cast<unsigned char>(code.code & 0xff));
    }
    /// What is shown next isn't shown in one with that.
    void endShown();

    /// Marks nest; `begin` is what stands before the operator, with it.
    void beginMark(std::string_view begin);
    /// That says this text, in place of its codes.
    void beginSaying(std::u16string_view text);
    void endMark();

    std::string finished();

private:
    void changeFont(int font);
    void changeRise(Millipoints up);
    void changeMute(bool mute);
    void openString()
    {
        if (m_inString)
            return;
        m_text += m_inArray ? "(" : "[(";
        m_inArray = m_inString = true;
    }
    void closeString()
    {
        if (m_inString)
            m_text += ')';
        m_inString = false;
    }
    void appendByte(unsigned char byte)
    {
        if (byte == '\r') {
            m_text += "\\r";
            return;
        }
        if (byte == '(' || byte == ')' || byte == '\\')
            m_text += '\\';
        m_text += char(byte);
    }

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
