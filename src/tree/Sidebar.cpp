#include "tree/Sidebar.h"

#include "tree/Node.h"
#include "tree/NodeIcons.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QToolTip>
#include <QTreeView>

#include <algorithm>
#include <limits>

namespace {

constexpr int IdRole = Qt::UserRole;

class OutlineView : public QTreeView {
    Q_DECLARE_TR_FUNCTIONS(Sidebar)

public:
    OutlineView()
    {
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setEditTriggers(NoEditTriggers);
        setSelectionMode(SingleSelection);
        setFrameShape(QFrame::NoFrame);
        setAccessibleName(tr("サイドバー"));
    }

    /// As wide as the widest row, whether or not it is to be seen; at least as wide as those that always
    /// are.
    QSize sizeHint() const override
    {
        return {widestRow({}, 1, everyLevel), QTreeView::sizeHint().height()};
    }
    QSize minimumSizeHint() const override
    {
        return {widestRow({}, 1, 1), QTreeView::minimumSizeHint().height()};
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        if (!indexAt(event->position().toPoint()).isValid())
            clearSelection();
        QTreeView::mousePressEvent(event);
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Escape)
            clearSelection();
        else if (event->key() == Qt::Key_Down && !selectionModel()->hasSelection())
            setCurrentIndex(model()->index(0, 0));
        else
            QTreeView::keyPressEvent(event);
    }

    // What is cut short says itself in full.
    bool viewportEvent(QEvent *event) override
    {
        if (event->type() != QEvent::ToolTip)
            return QTreeView::viewportEvent(event);
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex row = indexAt(help->pos());
        const bool isCut = row.isValid() && sizeHintForIndex(row).width() > visualRect(row).width();
        QToolTip::showText(help->globalPos(), isCut ? row.data().toString() : QString(), viewport());
        return true;
    }

    // Names are Japanese, so what is typed to find one comes from an input method.
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override
    {
        QTreeView::currentChanged(current, previous);
        setAttribute(Qt::WA_InputMethodEnabled); // views turn it off for rows that can't be edited
    }

    void inputMethodEvent(QInputMethodEvent *event) override
    {
        if (!event->commitString().isEmpty())
            keyboardSearch(event->commitString());
        event->accept();
    }

private:
    static constexpr int everyLevel = std::numeric_limits<int>::max();

    // Measured without the icons, which are looked up when they are first drawn.
    int widthOf(const QModelIndex &row, int level) const
    {
        const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
        const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
        const int text =
            fontMetrics().horizontalAdvance(row.data().toString() + u' '); // which stands off the edge
        return level * indentation() + icon + text + 4 * margin;
    }

    int widestRow(const QModelIndex &parent, int level, int lastLevel) const
    {
        int widest = 0;
        for (int i = 0; level <= lastLevel && i < model()->rowCount(parent); ++i) {
            const QModelIndex row = model()->index(i, 0, parent);
            widest = std::max({widest, widthOf(row, level), widestRow(row, level + 1, lastLevel)});
        }
        return widest;
    }
};

// Takes its icon when it is first drawn: most rows of a collapsed tree never are.
class Row : public QStandardItem {
public:
    explicit Row(const Node &node, int level = 1)
        : QStandardItem(node.name)
        , m_level(level)
        , m_isFolder(node.children.has_value())
    {
        setData(node.id, IdRole);
        if (!m_isFolder)
            return;
        for (const Node &child : *node.children)
            appendRow(new Row(child, level + 1));
    }

    QVariant data(int role) const override
    {
        if (role == Qt::DecorationRole)
            return m_isFolder ? folderIcon() : documentIcon();
        if (role == Qt::AccessibleDescriptionRole) // the indentation, for those who don't see it
            return OutlineView::tr("レベル %1").arg(m_level);
        return QStandardItem::data(role);
    }

private:
    int m_level;
    bool m_isFolder;
};

QModelIndex find(const QAbstractItemModel *model, const QUuid &id)
{
    const auto found =
        model->match(model->index(0, 0), IdRole, id, 1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first();
}

} // namespace

QWidget *Sidebar(const std::vector<Node> &roots, State<std::optional<QUuid>> &selection)
{
    auto *outline = new OutlineView;
    auto *model = new QStandardItemModel(outline);
    for (const Node &root : roots)
        model->appendRow(new Row(root));
    model->setHorizontalHeaderLabels({OutlineView::tr("名前")}); // not shown, but read out
    outline->setModel(model);

    auto *rows = outline->selectionModel();
    QObject::connect(rows, &QItemSelectionModel::selectionChanged, outline, [rows, &selection] {
        const QModelIndexList chosen = rows->selectedIndexes();
        selection = chosen.isEmpty() ? std::nullopt : std::optional(chosen.first().data(IdRole).toUuid());
    });
    follow(
        outline, [&selection] { return selection.value(); },
        [outline, model](std::optional<QUuid> id) {
            if (id)
                outline->setCurrentIndex(find(model, *id));
            else
                outline->clearSelection();
        });
    return outline;
}
