#include "typesetting/Directions.h"

#include <unicode/utf16.h>

#include <algorithm>

namespace {

constexpr std::size_t longestPiece = 2048; // units
constexpr std::size_t contextLength = 64;  // that says what a piece begins and ends beside

UBiDiLevel baseOf(std::u16string_view text)
{
    return ubidi_getBaseDirection(text.data(), std::int32_t(text.size())) == UBIDI_RTL ? 1 : 0;
}

} // namespace

void Directions::setParagraph(const Paragraph &paragraph)
{
    m_text = paragraph.maybeRightToLeft ? paragraph.text : std::u16string_view();
    m_length = paragraph.text.size();
    m_base = m_text.empty() ? 0 : baseOf(m_text);
    m_levels = nullptr;
    m_begin = m_end = 0;
}

std::uint8_t Directions::levelInText(std::size_t unit)
{
    if (unit >= m_end)
        lookAt(unit);
    return m_levels ? m_levels[unit - m_begin] : m_base;
}

std::size_t Directions::endOfRun(std::size_t unit)
{
    if (m_text.empty())
        return m_length;
    const std::uint8_t level = levelAt(unit);
    std::size_t end = unit;
    while (end < m_end && levelAt(end) == level)
        ++end;
    return end;
}

// Behind a blank, if there is one.
std::size_t Directions::pieceEnd(std::size_t from) const
{
    if (m_text.size() - from <= longestPiece)
        return m_text.size();
    std::size_t end = from + longestPiece;
    if (const std::size_t blank = m_text.substr(from, longestPiece).rfind(u' '); blank != m_text.npos)
        return from + blank + 1;
    return end - (U16_IS_TRAIL(m_text[end]) && U16_IS_LEAD(m_text[end - 1]) ? 1 : 0);
}

void Directions::lookAt(std::size_t from)
{
    m_begin = from;
    m_end = pieceEnd(from);
    if (!m_bidi)
        m_bidi.reset(ubidi_open());
    UErrorCode error = U_ZERO_ERROR;
    const std::size_t before = std::min(from, contextLength);
    const std::size_t after = std::min(m_text.size() - m_end, contextLength);
    ubidi_setContext(m_bidi.get(), m_text.data() + from - before, std::int32_t(before),
                     m_text.data() + m_end, std::int32_t(after), &error);
    ubidi_setPara(m_bidi.get(), m_text.data() + from, std::int32_t(m_end - from), m_base, nullptr, &error);
    m_levels = ubidi_getLevels(m_bidi.get(), &error);
    if (U_FAILURE(error))
        m_levels = nullptr;
}

std::vector<std::int32_t> Directions::visualOrder(const std::vector<UBiDiLevel> &levels)
{
    std::vector<std::int32_t> order(levels.size());
    ubidi_reorderVisual(levels.data(), std::int32_t(levels.size()), order.data());
    return order;
}
