#pragma once

/// The size of a sheet, in points.
struct PaperSize {
    double width;
    double height;
};

constexpr PaperSize a4{595, 842};

/// A sheet and where the text lies on it; all in points.
struct PageFormat {
    double width = a4.width;
    double height = a4.height;
    double top = 20;
    double bottom = 20;
    double left = 20;
    double right = 20;
    double longestLine = 550;
    bool isNumbered = false; // at the foot of each sheet

    double lineWidth() const;
    double textHeight() const;
    /// Of the page's number, from the bottom of the sheet.
    double numberBaseline() const;
};
