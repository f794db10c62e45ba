#include "main_window/Columns.h"

namespace {

// Proportions at the ideal width; the splitters keep them while the window is resized.
const QList<int> sideAndDetail{315, 684};
const QList<int> stackedSideAndDetail{1, 2};
const QList<int> sidebarAndSelection{150, 165};
const QList<int> sidebarAboveSelection{3, 2};

QList<int> scaled(const QList<int> &proportions)
{
    QList<int> sizes;
    for (const int part : proportions)
        sizes += part * 1000; // a splitter shrinks what is too large, keeping the proportions
    return sizes;
}

} // namespace

Columns::Columns(QWidget *sidebar, QWidget *selectionPane, QWidget *detail)
    : m_side(new Split)
    , m_sidebar(sidebar)
{
    m_side->addWidget(sidebar);
    m_side->addWidget(selectionPane);
    addWidget(m_side);
    addWidget(detail);
    nameBoundary(1, tr("本文の境界"));
    m_side->nameBoundary(1, tr("サイドバーの境界"));
    // A splitter puts each new child behind the others; a screen reader reads them from the back.
    for (QWidget *pane : {sidebar, selectionPane, static_cast<QWidget *>(m_side), detail})
        pane->raise();
    setTabOrder(m_side->handle(1), handle(1)); // before what is in the detail column
    arrange(Arrangement::SideBySide);
}

void Columns::setSidebarShown(bool shown)
{
    m_sidebarShown = shown;
    m_sidebar->setVisible(shown);
}

void Columns::resizeEvent(QResizeEvent *event)
{
    const Arrangement wanted = arrangementFor(width());
    if (wanted != m_arrangement)
        arrange(wanted);
    QSplitter::resizeEvent(event);
}

Columns::Arrangement Columns::arrangementFor(int width)
{
    if (width >= 640)
        return Arrangement::SideBySide;
    return width >= 300 ? Arrangement::Stacked : Arrangement::DetailOnly;
}

void Columns::arrange(Arrangement arrangement)
{
    m_arrangement = arrangement;
    const bool sideBySide = arrangement == Arrangement::SideBySide;
    m_side->setVisible(arrangement != Arrangement::DetailOnly);
    m_side->setOrientation(sideBySide ? Qt::Horizontal : Qt::Vertical);
    m_side->setSizes(scaled(sideBySide ? sidebarAndSelection : sidebarAboveSelection));
    setSizes(scaled(sideBySide ? sideAndDetail : stackedSideAndDetail));
}
