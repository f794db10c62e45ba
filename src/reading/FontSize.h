#pragma once

#include <QString>

#include <algorithm>
#include <cmath>

/// The size of the text in the reading pane, in points: whole numbers within these bounds.
namespace FontSize {

inline constexpr double initial = 14;
inline constexpr double smallest = 10;
inline constexpr double largest = 40;
inline constexpr double step = 1;

/// The allowed size nearest to `points`.
inline double allowed(double points)
{
    return std::clamp(std::round(points), smallest, largest);
}

} // namespace FontSize
