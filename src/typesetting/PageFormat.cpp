#include "typesetting/PageFormat.h"

#include "typesetting/FontFile.h"

#include <algorithm>

constexpr double roomForNumber = 3 * textSize;

double PageFormat::lineWidth() const
{
    return std::max(textSize, std::min(longestLine, width - left - right));
}

double PageFormat::textHeight() const
{
    return height - top - (isNumbered ? std::max(bottom, roomForNumber) : bottom);
}

double PageFormat::numberBaseline() const
{
    return std::max(bottom, roomForNumber) / 2 - textSize / 3;
}
