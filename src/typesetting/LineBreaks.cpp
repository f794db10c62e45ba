#include "typesetting/LineBreaks.h"

#include <unicode/ubrk.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::size_t windowLength = 8192; // units: many lines
constexpr std::size_t lookAhead = 64;      // units that a rule may look at behind a break

bool isDigit(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'０' && c <= u'９');
}

// A number of wide digits stays together, and so does a number with its unit in a square: Japanese
// typesetting wants that, Unicode takes them for ideographs.
bool goTogether(char16_t before, char16_t after)
{
    const bool point = before == u'．' || before == u'，';
    const bool unit = after >= 0x3300 && after <= 0x33df && !(after >= 0x3358 && after <= 0x3370);
    return isDigit(after) ? isDigit(before) || point : unit && isDigit(before);
}

} // namespace

LineBreaks::LineBreaks()
{
    UErrorCode error = U_ZERO_ERROR;
    m_iterator = ubrk_open(UBRK_LINE, "ja@lb=strict", nullptr, 0, &error);
    if (U_FAILURE(error))
        throw std::runtime_error("no line breaking rules");
}

LineBreaks::~LineBreaks()
{
    ubrk_close(m_iterator);
}

void LineBreaks::setParagraph(std::u16string_view paragraph)
{
    m_paragraph = paragraph;
    m_windowStart = m_windowEnd = 0;
}

void LineBreaks::lookAt(std::size_t from)
{
    m_windowStart = from;
    m_windowEnd = std::min(m_paragraph.size(), from + windowLength);
    UErrorCode error = U_ZERO_ERROR;
    ubrk_setText(m_iterator, m_paragraph.data() + m_windowStart, std::int32_t(m_windowEnd - m_windowStart),
                 &error);
}

std::size_t LineBreaks::lastBreak(std::size_t lineStart, std::size_t at)
{
    const bool ahead = m_windowEnd == m_paragraph.size() || at + lookAhead <= m_windowEnd;
    if (m_windowEnd == 0 || !ahead)
        lookAt(lineStart);
    const auto inWindow = std::int32_t(std::min(at, m_windowEnd) - m_windowStart);
    std::int32_t found =
        ubrk_isBoundary(m_iterator, inWindow) ? inWindow : ubrk_preceding(m_iterator, inWindow);
    while (found > 0 && m_windowStart + std::size_t(found) > lineStart
           && isProhibited(m_windowStart + std::size_t(found)))
        found = ubrk_preceding(m_iterator, found);
    return found == UBRK_DONE ? lineStart : std::max(lineStart, m_windowStart + std::size_t(found));
}

bool LineBreaks::isProhibited(std::size_t at) const
{
    return at < m_paragraph.size() && goTogether(m_paragraph[at - 1], m_paragraph[at]);
}
