#pragma once

#include "document/TextVersion.h"

#include <QProperty>

#include <deque>
#include <memory>

/// The text of a reading pane. It may be large, so the document that the pane edits is where it is kept:
/// a key press changes the document and nothing else, and the whole string is made only when somebody asks
/// for it. Each assignment has a document of its own, so that undoing one is nothing but a look back.
class ReadingText : public QObject {
    Q_OBJECT

public:
    ReadingText();

    QString value() const { return shown().value(); }

    /// Replaces the text, in one step that the user can take back.
    void setValue(const QString &text) { assign(IncomingText(text)); }
    /// False, and nothing changes, when there is no memory for it; where that shows later, the text before
    /// comes back.
    bool assign(const IncomingText &text);

    /// Whether all of the text is in the document.
    bool isComplete() const { return shown().isComplete(); }

    /// Counts the assignments, so that slow work can tell whether its result still is the latest.
    int assignments() const { return m_assignments; }

    /// Of the text that is shown; changes when another one is.
    PiecedDocument &document() { return shown().document(); }
    TextVersion::Place &place() { return shown().place; }

    /// One step back or forward: an edit of the user, or an assignment.
    void undo();
    void redo();
    QBindable<bool> canUndo() { return &m_canUndo; }
    QBindable<bool> canRedo() { return &m_canRedo; }

signals:
    /// Before another document is shown: the last moment to write down the place.
    void leaving();
    /// A text was assigned, and is shown from its beginning.
    void assigned();
    /// One of the texts before or after is shown again, at its place.
    void returned();
    /// All of the text that is shown is in its document.
    void complete();
    /// Somebody has changed the text that is shown, or taken a change back.
    void edited();

private:
    TextVersion &shown() { return *m_versions[m_shown]; }
    const TextVersion &shown() const { return *m_versions[m_shown]; }
    void addVersion();
    void takeBack(const TextVersion *failed);
    void forgetLater();
    void forgetOldest();
    void show(std::size_t version);
    void noteEdit();
    void updateSteps();

    // The oldest first. Those behind the one that is shown have been taken back.
    std::deque<std::unique_ptr<TextVersion>> m_versions;
    std::size_t m_shown = 0;
    int m_assignments = 0;
    bool m_isStepping = false;
    QProperty<bool> m_canUndo{false};
    QProperty<bool> m_canRedo{false};
};
