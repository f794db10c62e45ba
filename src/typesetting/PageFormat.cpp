#include "typesetting/PageFormat.h"

#include "typesetting/FontFile.h"

#include <algorithm>

double PageFormat::lineWidth() const
{
    return std::max(textSize, std::min(longestLine, width - left - right));
}

double PageFormat::textHeight() const
{
    return height - top - bottom;
}
