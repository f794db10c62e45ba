#include "main_window/Columns.h"

#include <QEvent>

#include <algorithm>

namespace {

// Proportions, kept while the window is resized.
const QList<int> stackedSideAndDetail{1, 2};
const QList<int> sidebarAboveSelection{3, 2};
constexpr int idealWidth = 999;
constexpr int idealSelectionWidth = 13, leastSelectionWidth = 8; // in the width of a wide character

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
    , m_detail(detail)
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
    for (const Split *split : {static_cast<const Split *>(this), static_cast<const Split *>(m_side)})
        connect(split, &QSplitter::splitterMoved, this, [this] { m_isMovedByHand = true; });
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
    if (wanted != m_arrangement || !m_isMovedByHand)
        arrange(wanted);
    QSplitter::resizeEvent(event);
}

void Columns::changeEvent(QEvent *event)
{
    Split::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        arrange(m_arrangement);
}

// At the ideal width and above, the sidebar shows its rows, the controls keep one line, and what is left
// goes to the selection pane first, and then to the reading.
QList<int> Columns::idealWidths() const
{
    const int whole = std::max(idealWidth, width());
    const int sidebar = m_sidebar->sizeHint().width();
    const int left = whole - m_detail->sizeHint().width() - sidebar - 2 * handleWidth();
    const int character = fontMetrics().horizontalAdvance(u'木');
    const int selection =
        std::clamp(left, leastSelectionWidth * character, idealSelectionWidth * character);
    return {sidebar, selection, whole - sidebar - selection - 2 * handleWidth()};
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
    const QList<int> ideal = idealWidths();
    const int side = ideal[0] + m_side->handleWidth() + ideal[1];
    m_side->setSizes(scaled(sideBySide ? ideal.first(2) : sidebarAboveSelection));
    setSizes(scaled(sideBySide ? QList{side, ideal[2]} : stackedSideAndDetail));
}
