#pragma once

#include "view/Split.h"

/// The panes of a main window: sidebar, selection pane, detail column, side by side at widths that
/// the user can change. In a narrow window the first two stand one above the other; in a very narrow
/// one only the detail column is left.
class Columns : public Split {
    Q_OBJECT

public:
    Columns(QWidget *sidebar, QWidget *selectionPane, QWidget *detail);

    bool isSidebarShown() const { return m_sidebarShown; }
    void setSidebarShown(bool shown);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum class Arrangement { SideBySide, Stacked, DetailOnly };
    static Arrangement arrangementFor(int width);
    void arrange(Arrangement arrangement);
    QList<int> idealWidths() const;

    Split *m_side;
    QWidget *m_sidebar;
    QWidget *m_detail;
    Arrangement m_arrangement = Arrangement::SideBySide;
    bool m_sidebarShown = true;
    bool m_isMovedByHand = false; // a boundary; from then on Qt keeps the proportions
};
