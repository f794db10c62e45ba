#include "document/TextStretch.h"

#include <algorithm>

qsizetype TextStretch::indexOf(int position) const
{
    const auto seams = std::lower_bound(m_seams.begin(), m_seams.end(), position) - m_seams.begin();
    return position - m_from - seams;
}

int TextStretch::positionBefore(qsizetype index) const
{
    const int *first = m_seams.data();
    const auto isBefore = [=, this](const int &seam) { return seam - m_from - (&seam - first) < index; };
    const auto seams = std::partition_point(m_seams.begin(), m_seams.end(), isBefore) - m_seams.begin();
    return m_from + int(index + seams);
}

int TextStretch::positionAt(qsizetype index) const
{
    const int position = positionBefore(index);
    return std::binary_search(m_seams.begin(), m_seams.end(), position) ? position + 1 : position;
}
