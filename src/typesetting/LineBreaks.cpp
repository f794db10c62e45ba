#include "typesetting/LineBreaks.h"

#include <unicode/ubrk.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::size_t windowLength = 8192; // units: many lines
constexpr std::size_t lookAhead = 64;      // units that a rule may look at behind a break

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
    const std::int32_t found =
        ubrk_isBoundary(m_iterator, inWindow) ? inWindow : ubrk_preceding(m_iterator, inWindow);
    return found == UBRK_DONE ? lineStart : std::max(lineStart, m_windowStart + std::size_t(found));
}
