#pragma once

#include <vector>

class PiecedDocument;

/// Counts the seams before a place in a document. A document has many blocks and a screen reader asks again
/// and again, so the counts at some blocks are kept, and followed through edits. Nothing is kept, and an
/// edit costs nothing, as long as nobody has asked.
class SeamIndex {
public:
    explicit SeamIndex(const PiecedDocument &document);

    /// The seams before the character at a position.
    int seamsBefore(int position);
    /// The position behind so many characters of the text.
    int positionBehind(int characters);

    /// To be told of every change of the document, when it has happened: as QTextDocument::contentsChange.
    void follow(int position, int removed, int added);
    void forget() { m_marks.clear(); }

private:
    struct Mark {
        int block; // its position
        int seams; // before it, with its own
    };
    const Mark &markFor(int place, bool placeIsCharacters);
    int count(std::vector<Mark> &marks, Mark from, int until) const;

    const PiecedDocument &m_document;
    std::vector<Mark> m_marks; // in their order, the first at the beginning
};
