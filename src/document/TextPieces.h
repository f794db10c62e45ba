#pragma once

#include <QByteArrayView>
#include <QStringView>

/// How a text is laid before the reader. A block of a document is laid out as a whole at every key
/// press in it, so a very long line is shown in several blocks; and each block costs time and memory,
/// so of very many lines several share one. A text that is neither has a block for each line.
class TextPieces {
public:
    enum class End { Line, LineSeparator, Seam, Text };

    struct Piece {
        QStringView text; // with line ends in it where lines share a block
        End end;
    };

    struct Shape {
        bool sharing = false;       // lines share blocks, U+2028 between them
        qsizetype block = 16 << 10; // characters that go into the document at once, or into a shared block
        qsizetype seam = 200;       // characters from seam to seam
        bool keepsWhole = false;    // what was assigned is worth keeping beside the document
    };

    /// Reads the whole text: for large ones, ask from another thread.
    static Shape shapeOf(QStringView text);
    /// The same for a text that hasn't been decoded; `keepsWhole` is still unknown then.
    static Shape shapeOfUtf8(QByteArrayView bytes);
    /// Whether a document would take long to give the text back, or couldn't give it back as it was.
    static bool isWorthKeeping(QStringView text);

    /// So many characters further on than the position is all that `next` looks at.
    static constexpr qsizetype reach = 32 << 10;

    TextPieces() = default;
    TextPieces(QStringView text, const Shape &shape);

    bool atEnd() const { return m_done; }
    /// From where on pieces are still to come.
    qsizetype position() const { return m_from; }
    Piece next();
    /// Goes on in a text that begins like the one so far.
    void goOnIn(QStringView text) { m_text = text; }

private:
    Piece take(qsizetype to, qsizetype next, End end);
    qsizetype seamBefore(qsizetype latest) const;
    bool endsBlock(QChar c) const;
    qsizetype pastLineEnd(qsizetype at) const;

    QStringView m_text;
    Shape m_shape;
    qsizetype m_from = 0;
    bool m_inLongLine = false;
    bool m_done = true;
};
