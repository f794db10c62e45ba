#pragma once

#include "platform/RegularFile.h"
#include "reading/PiecedDocument.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>

/// The text of a reading pane. It may be large, so the document that the pane edits is where it is
/// kept: a key press changes the document and nothing else, and the whole string is made only when
/// somebody asks for it. A document takes its time to fill, so a large text enters it in slices; it is
/// the text from the first moment on.
class ReadingText : public QObject {
    Q_OBJECT

public:
    ReadingText();

    /// The text, line ends as they were assigned; each edit of the user ends its line with '\n' alone.
    QString value() const;
    operator QString() const { return value(); }

    /// Replaces the text; the user can't undo that, nor what is edited before all of it is there.
    void setValue(const QString &text);
    ReadingText &operator=(const QString &text);

    /// The same for a large text, whose shape has been found out elsewhere.
    void setValue(const QString &text, const TextPieces::Shape &shape);
    /// The same for one that is still to be decoded, which is done elsewhere while its beginning is seen.
    void setUtf8(const FileContent &file, const TextPieces::Shape &shape);

    /// Counts the assignments, so that slow work can tell whether its result still is the latest.
    int assignments() const { return m_assignments; }

    PiecedDocument *document() { return &m_document; }

signals:
    void assigned();
    /// All of the text is in the document.
    void complete();

private:
    void start(const QString &entering, const TextPieces::Shape &shape);
    void goOn(const QString &decoded, bool isWorthKeeping);
    bool isDecoded() const { return m_undecoded.bytes().isNull(); }
    void enterSlice();
    bool hasPieces() const;
    void end();

    PiecedDocument m_document;
    int m_assignments = 0;
    bool m_isEdited = false;
    // What was assigned, kept where the document has no place for it (CR line ends, say), until the
    // user edits it.
    std::optional<QString> m_verbatim;
    // What is still to enter the document is the end of this, and as long as it is being decoded the end
    // of these bytes, whose beginning it is.
    QString m_entering;
    FileContent m_undecoded;
    TextPieces m_pieces;
    QTimer m_nextSlice;
    int m_slices = 0;
    bool m_isEntering = false;
};
