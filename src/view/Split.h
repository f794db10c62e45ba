#pragma once

#include <QSplitter>

/// Panes side by side or one above the other. The boundary between two panes is moved with the mouse, or,
/// while it has the keyboard focus, with the arrow keys, Home and End.
class Split : public QSplitter {
    Q_OBJECT

public:
    Split();

    /// Names the boundary before a pane for a screen reader, which also hears where the boundary is.
    void nameBoundary(int pane, const QString &name);

protected:
    QSplitterHandle *createHandle() override;
};
