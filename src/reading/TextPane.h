#pragma once

#include "reading/ClickSelection.h"
#include "reading/SeamFitting.h"
#include "view/State.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QUrl>

class Patience;
class QMenu;
class PiecedDocument;
class ReadingText;

/// The pane in which the text is read and edited, in the system's font at `fontSize` points.
/// Tab leaves the pane, as it leaves every other control; Ctrl+Tab writes a tab.
class TextPane : public QPlainTextEdit {
    Q_OBJECT

public:
    TextPane(ReadingText &text, const State<double> &fontSize);

    PiecedDocument &piecedDocument() const;

    ReadingText &readingText() const { return m_text; }
    Patience &patience() const { return m_patience; }

    // As those of a pane, but that nothing is lost when there is no memory for it.
    void copy();
    void cut();

    /// What is selected, for whoever takes it.
    QMimeData *selected() const;

    /// One step back or forward, in an edit or from text to text.
    void undo();
    void redo();

    // Small, so that the pane asks for no room of its own: it gets what the others leave.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// Files were dropped on the pane, or pasted.
    void filesGiven(const QList<QUrl> &files);
    /// Its own menu was made, and is about to be shown.
    void menuMade(QMenu *menu);

protected:
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void showAssigned();
    void showReturned();
    void showDocument();
    void writeDownPlace();

    bool canCopy();
    void type(QKeyEvent *event);

    ReadingText &m_text;
    Patience &m_patience;
    ClickSelection m_clicks{*this};
    friend class SeamFitting; // which looks at what is in view
    SeamFitting m_seams{*this};
    // Where the latest stretch of typing ended, and when.
    static constexpr int nowhere = -1;
    int m_typedTo = nowhere;
    QElapsedTimer m_sinceTyped;
};
