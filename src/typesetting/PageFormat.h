#pragma once

/// A sheet and where the text lies on it; all in points.
struct PageFormat {
    double width = 595;
    double height = 842;
    double top = 20;
    double bottom = 20;
    double left = 20;
    double right = 20;
    double longestLine = 550;

    double lineWidth() const;
    double textHeight() const { return height - top - bottom; }
};
