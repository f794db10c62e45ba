#pragma once

#include "document/IncomingText.h"
#include "document/PiecedDocument.h"

#include <QObject>
#include <QTimer>

#include <variant>

/// One text of a reading pane, with the document in which it is shown and edited. A large text enters the
/// document in slices, so that the window stays alive; it is the text from the first moment on.
class TextVersion : public QObject {
    Q_OBJECT

public:
    TextVersion();

    /// Begins anew with this text.
    void start(const IncomingText &incoming);

    /// The text, line ends as they came; each edit of the user ends its line with '\n' alone.
    QString value() const;
    qsizetype size() const;

    PiecedDocument &document() { return m_document; }

    bool isComplete() const;

    /// Nothing was ever in it, by whomever.
    bool isUntouched() const { return !m_isTouched; }

    /// While nobody looks at it, no time is spent on it.
    void setShown(bool shown);

    /// Where the reader was when something else came to be shown.
    struct Place {
        int anchor = 0, caret = 0; ///< positions in the document
        int scrolled = 0;
    } place;

signals:
    /// All of the text is in the document.
    void complete();
    /// There is no memory for all of it; what there is of it isn't the text.
    void failed();
    /// The user has changed something, or taken a change back.
    void edited();

private:
    // Where the text is kept. What was assigned stays beside the document while the document has no place
    // for something in it (CR line ends, say), or would take long to give it back; until the user edits it.
    struct InDocument { };
    struct Beside {
        QString text;
    };
    // On its way: what `pieces` has still to come.
    struct Entering {
        QString text;
        TextPieces pieces;
        bool keepsWhole = false;
        bool isEdited = false;
    };
    // Only its beginning has been decoded, which is what enters meanwhile.
    struct Decoding {
        FileContent utf8;
        Entering beginning;
    };

    Entering *entering();
    bool hasPieces() const;
    void enterSlice();
    void enterPieces();
    void enterNextSlices();
    void decodeRest(const FileContent &utf8);
    void goOn(const QString &decoded, bool keepsWhole);
    void end();
    void noteEdit();

    PiecedDocument m_document;
    std::variant<InDocument, Beside, Entering, Decoding> m_state;
    QTimer m_nextSlice;
    int m_starts = 0;
    int m_slices = 0;
    bool m_isShown = true;
    bool m_isEntering = false;
    bool m_isTouched = false;
};
