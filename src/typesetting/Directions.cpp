#include "typesetting/Directions.h"

void Directions::setParagraph(const Paragraph &paragraph)
{
    m_levels = nullptr;
    m_base = 0;
    m_length = paragraph.text.size();
    if (!paragraph.maybeRightToLeft)
        return;
    if (!m_bidi)
        m_bidi.reset(ubidi_open());
    UErrorCode error = U_ZERO_ERROR;
    ubidi_setPara(m_bidi.get(), paragraph.text.data(), std::int32_t(m_length), UBIDI_DEFAULT_LTR, nullptr,
                  &error);
    m_levels = ubidi_getLevels(m_bidi.get(), &error);
    m_base = U_SUCCESS(error) ? ubidi_getParaLevel(m_bidi.get()) : 0;
    if (U_FAILURE(error))
        m_levels = nullptr;
}

std::size_t Directions::endOfRun(std::size_t unit) const
{
    if (!m_levels)
        return m_length;
    std::size_t end = unit;
    while (end < m_length && m_levels[end] == m_levels[unit])
        ++end;
    return end;
}

std::vector<std::int32_t> Directions::visualOrder(const std::vector<UBiDiLevel> &levels)
{
    std::vector<std::int32_t> order(levels.size());
    ubidi_reorderVisual(levels.data(), std::int32_t(levels.size()), order.data());
    return order;
}
