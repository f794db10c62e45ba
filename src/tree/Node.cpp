#include "tree/Node.h"

using namespace Qt::StringLiterals;

Node::Node(const QString &name, std::optional<std::vector<Node>> children)
    : id(QUuid::createUuid())
    , name(name)
    , children(std::move(children))
{
}

const std::vector<Node> &sampleData()
{
    using Nodes = std::vector<Node>;
    static const Nodes roots{
        Node(u"フォルダA"_s, Nodes{Node(u"ファイルA1"_s), Node(u"ファイルA2"_s)}),
        Node(u"フォルダB"_s, Nodes{Node(u"サブフォルダB1"_s, Nodes{Node(u"ファイルB1-1"_s)})}),
    };
    return roots;
}
