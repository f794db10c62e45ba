#include "Testing.h"
#include "tree/Node.h"

#include <QSet>

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
};

QTEST_MAIN(TreeTest)
#include "tree_test.moc"
