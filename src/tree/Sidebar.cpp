#include "tree/Sidebar.h"

#include "tree/Node.h"
#include "tree/NodeIcons.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QTreeView>

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
        else
            QTreeView::keyPressEvent(event);
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
