#pragma once

#include "document/SeamIndex.h"
#include "document/TextPieces.h"
#include "document/TextStretch.h"

#include <QTextDocument>

class QTextBlock;

/// A document whose blocks are pieces of a text. What stands between two blocks, and that lines may
/// share one, is known here only: text that comes out is what went in, line ends being '\n'.
class PiecedDocument : public QTextDocument {
    Q_OBJECT

public:
    PiecedDocument();

    /// Empties the document and says how the text is shaped that will be appended.
    void startOver(const TextPieces::Shape &shape);
    void append(const TextPieces::Piece &piece);
    /// Lets the views know how long the document has become.
    void showSize();

    /// Replaces what is selected; ends in one step of undoing.
    void insert(QTextCursor cursor, const QString &text);
    void insertLineEnd(QTextCursor cursor);
    /// What is typed from now on isn't taken back together with what was typed before.
    void endStep();

    /// What stands between two positions.
    QString text(int from, int to) const;
    QString text() const { return text(0, characterCount() - 1); }
    /// The same, with where its characters are.
    TextStretch stretch(int from, int to) const;

    /// Whether the block goes on with the line of the one before: between them there is no character.
    bool isSeamBefore(const QTextBlock &block) const;
    /// A seam has a position on either side, which are the same place in the text. These return the other
    /// one where there is one in that direction, else `position`.
    int acrossSeamBackward(int position) const;
    int acrossSeamForward(int position) const;

    bool hasSeams() const { return m_hasSeams; }
    /// Moves the seam behind the block to where a line ends on the screen, so that none ends early there.
    /// Not while there is something to undo or to redo, which would be lost.
    void fitSeamAfter(QTextBlock block);

    /// Selects the line of the text that is around a position, and its end.
    QTextCursor lineAround(int position) const;

    /// How many characters of the text stand before a position, and the position behind so many.
    int offsetOf(int position) const;
    int positionOf(int offset) const;

private:
    void put(QTextCursor &cursor, const TextPieces::Piece &piece);
    int lineEndFrom(int position) const;
    bool isPlain() const { return !m_shape.sharing && !m_hasSeams; }

    TextPieces::Shape m_shape;
    bool m_hasSeams = false;
    // Of the blocks behind them, as far as they were seen.
    static constexpr int noFormat = -1;
    mutable int m_formatOfSeams = noFormat, m_formatOfLineEnds = noFormat;
    mutable SeamIndex m_seams{*this};
};
