#pragma once

#include <QObject>
#include <QString>
#include <QTextDocument>

#include <optional>

/// The text of a reading pane. It may be large, so the document that the pane edits is where it is
/// kept: a key press changes the document and nothing else, and the whole string is made only when
/// somebody asks for it.
class ReadingText : public QObject {
    Q_OBJECT

public:
    ReadingText();

    /// The text, line ends as they were assigned; each edit of the user ends its line with '\n' alone.
    QString value() const;
    operator QString() const { return value(); }

    /// Replaces the text; the user can't undo that.
    void setValue(const QString &text);
    ReadingText &operator=(const QString &text);

    /// Counts the assignments, so that slow work can tell whether its result still is the latest.
    int assignments() const { return m_assignments; }

    QTextDocument *document() { return &m_document; }

signals:
    void assigned();

private:
    QTextDocument m_document;
    int m_assignments = 0;
    // What was assigned, kept where the document has no place for it (CR line ends, say), until the
    // user edits it.
    std::optional<QString> m_verbatim;
};
