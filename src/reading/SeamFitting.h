#pragma once

class TextPane;

/// Fits the seams of a very long line to the pane: where the line is cut into pieces depends on the pane's
/// width and font. Only what is in view is fitted, before it is painted.
class SeamFitting {
public:
    explicit SeamFitting(TextPane &pane)
        : m_pane(pane)
    {
    }

    /// Something else may be in view now.
    void fitInView();

    /// The width or the font is another, or the text is: whatever was fitted is to be fitted anew.
    void refit();

private:
    void fit();

    TextPane &m_pane;
    // What blocks are marked with whose seams were fitted for the present width and font.
    int m_fit = 0;
    bool m_isFitting = false;
};
