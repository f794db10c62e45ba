#include "Testing.h"
#include "tree/Node.h"
#include "tree/Sidebar.h"

#include <QAbstractItemModelTester>
#include <QInputMethodEvent>
#include <QSet>
#include <QTreeView>

class TreeTest : public QObject {
    Q_OBJECT

    static QString outline(const std::vector<Node> &nodes, QSet<QUuid> &ids, const QString &indent = {})
    {
        QString lines;
        for (const Node &node : nodes) {
            ids += node.id;
            lines += indent + node.name + (node.children ? u"/\n"_s : u"\n"_s);
            if (node.children)
                lines += outline(*node.children, ids, indent + u"  "_s);
        }
        return lines;
    }

    // A sidebar on screen, and the state that it shows.
    struct Shown {
        State<std::optional<QUuid>> selection;
        std::unique_ptr<QTreeView> view{qobject_cast<QTreeView *>(Sidebar(sampleData(), selection))};

        Shown()
        {
            view->resize(200, 300);
            view->show();
        }
        QModelIndex row(std::initializer_list<int> path) const
        {
            QModelIndex index;
            for (const int step : path)
                index = view->model()->index(step, 0, index);
            return index;
        }
        void click(const QModelIndex &index, Qt::KeyboardModifiers modifiers = {}) const
        {
            const QPoint place = index.isValid() ? view->visualRect(index).center() : QPoint(100, 280);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, place);
        }
    };

private slots:
    void theSampleTreeIsAsDocumented()
    {
        QSet<QUuid> ids;
        QCOMPARE(outline(sampleData(), ids), uR"(フォルダA/
  ファイルA1
  ファイルA2
フォルダB/
  サブフォルダB1/
    ファイルB1-1
)"_s);
        QCOMPARE(ids.size(), 6);
        QVERIFY(Node(u"同じ"_s).id != Node(u"同じ"_s).id);
    }

    void theSidebarShowsTheTreeCollapsed()
    {
        const Shown sidebar;
        const QAbstractItemModelTester tester(sidebar.view->model());
        QCOMPARE(sidebar.view->model()->rowCount(), 2);
        QVERIFY(!sidebar.view->isExpanded(sidebar.row({0})));
        QVERIFY(!sidebar.view->isExpanded(sidebar.row({1})));
        QVERIFY(!sidebar.view->selectionModel()->hasSelection());
        QCOMPARE(sidebar.row({1, 0, 0}).data().toString(), u"ファイルB1-1"_s);
    }

    void choosingARowSelectsItsNodeAlone()
    {
        const Shown sidebar;
        sidebar.view->expandAll();
        sidebar.click(sidebar.row({0, 1}));
        QCOMPARE(sidebar.selection.value(), sampleData()[0].children->at(1).id);
        sidebar.click(sidebar.row({0}));
        QCOMPARE(sidebar.selection.value(), sampleData()[0].id);
        QCOMPARE(sidebar.view->selectionModel()->selectedIndexes().size(), 1);
    }

    void theSelectionCanBeCleared()
    {
        const Shown sidebar;
        const std::vector<std::function<void()>> ways{
            [&] { sidebar.click({}); },
            [&] { sidebar.click(sidebar.row({0}), Qt::ControlModifier); },
            [&] { QTest::keyClick(sidebar.view.get(), Qt::Key_Escape); },
        };
        for (const auto &clear : ways) {
            sidebar.click(sidebar.row({0}));
            QVERIFY(sidebar.selection.value());
            clear();
            QCOMPARE(sidebar.selection.value(), std::nullopt);
            QVERIFY(!sidebar.view->selectionModel()->hasSelection());
        }
    }

    // Kana come from an input method, not as key presses.
    void typingANameFindsItsRow()
    {
        const Shown sidebar;
        sidebar.view->expandAll();
        sidebar.view->setCurrentIndex(sidebar.row({0}));
        QVERIFY(sidebar.view->testAttribute(Qt::WA_InputMethodEnabled));
        QInputMethodEvent typed;
        typed.setCommitString(u"サブ"_s);
        QCoreApplication::sendEvent(sidebar.view.get(), &typed);
        QCOMPARE(sidebar.selection.value(), sampleData()[1].children->at(0).id);
    }
};

QTEST_MAIN(TreeTest)
#include "tree_test.moc"
