#pragma once

#include <QString>

#include <vector>

/// A stretch of a document's text in one piece, and where its characters stand in the document.
class TextStretch {
public:
    TextStretch() = default;
    /// `seams`: the positions in the document, in their order, that stand for no character.
    TextStretch(const QString &text, int from, std::vector<int> seams)
        : m_text(text)
        , m_from(from)
        , m_seams(std::move(seams))
    {
    }

    const QString &text() const { return m_text; }

    /// The character at or behind a position. A seam's two sides are the same place in the text.
    qsizetype indexOf(int position) const;
    /// The position before a character; at a seam the one on its near side, that is, at a line's end.
    int positionBefore(qsizetype index) const;
    /// The same, but at a seam the one on its far side.
    int positionAt(qsizetype index) const;

private:
    QString m_text;
    int m_from = 0;
    std::vector<int> m_seams;
};
