#pragma once

#include <QSplitter>

/// Panes side by side or one above the other. What is between them is moved with the mouse, or with
/// the arrow keys, Home and End while it has the keyboard focus.
class Split : public QSplitter {
    Q_OBJECT

public:
    Split();

    /// How the boundary before a pane is called for a screen reader, which is also told where it is.
    void nameBoundary(int pane, const QString &name);

protected:
    QSplitterHandle *createHandle() override;
};
