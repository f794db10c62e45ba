#include "typesetting/FontSituation.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <unordered_map>

namespace {

constexpr std::size_t samples = 16;
constexpr std::size_t unitsOfSample = 1024;

// What is for private use has no font but a private one: nobody misses it who has none.
bool isSeen(char32_t c)
{
    return u_isgraph(UChar32(c)) && u_charType(UChar32(c)) != U_PRIVATE_USE_CHAR
        && !u_hasBinaryProperty(UChar32(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

/// Counts what of the text can be drawn.
class Census {
public:
    explicit Census(FontList &fonts)
        : m_fonts(fonts)
    {
    }

    void add(std::u16string_view text)
    {
        for (std::size_t at = 0; at < text.size();) {
            UChar32 c = 0;
            U16_NEXT_OR_FFFD(text.data(), at, text.size(), c);
            m_seen += isSeen(char32_t(c));
            m_missing += isSeen(char32_t(c)) && isMissing(char32_t(c));
        }
    }

    bool mostCanBeDrawn() const { return m_missing * 2 <= m_seen; }

private:
    bool isMissing(char32_t c)
    {
        const auto [known, isNew] = m_known.try_emplace(c);
        if (isNew)
            known->second = !m_fonts.fontFor(c)->covers(c);
        return known->second;
    }

    FontList &m_fonts;
    std::unordered_map<char32_t, bool> m_known;
    std::size_t m_seen = 0;
    std::size_t m_missing = 0;
};

} // namespace

bool fontsSuffice(FontList &fonts, std::u16string_view text)
{
    if (!fonts.first())
        return false;
    Census census(fonts);
    if (text.size() <= samples * unitsOfSample) {
        census.add(text);
    } else {
        for (std::size_t i = 0; i < samples; ++i)
            census.add(text.substr(text.size() / samples * i, unitsOfSample));
    }
    return census.mostCanBeDrawn();
}
