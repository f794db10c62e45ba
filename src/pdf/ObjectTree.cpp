#include "pdf/ObjectTree.h"

#include "pdf/PdfSyntax.h"

#include <utility>

ObjectTree::ObjectTree(PdfFile &file, std::size_t branches, Written written)
    : m_file(file)
    , m_branches(branches)
    , m_written(std::move(written))
{
}

ObjectTree::Node &ObjectTree::open(std::size_t level)
{
    if (level < m_levels.size() && m_levels[level].kids.size() == m_branches)
        close(level);
    if (level == m_levels.size())
        m_levels.emplace_back();
    if (m_levels[level].number == 0)
        m_levels[level].number = m_file.newObject();
    return m_levels[level];
}

void ObjectTree::add(std::size_t level, int kid, std::size_t leaves)
{
    Node &node = open(level);
    node.kids.push_back(kid);
    node.leaves += leaves;
}

void ObjectTree::close(std::size_t level)
{
    const Node node = std::exchange(m_levels[level], {});
    m_file.write(node.number, m_written(node, open(level + 1).number));
    add(level + 1, node.number, node.leaves);
}

ObjectTree::Node ObjectTree::finish()
{
    open(0);
    for (std::size_t level = 0; level + 1 < m_levels.size(); ++level)
        close(level);
    return m_levels.back();
}

std::string references(const std::vector<int> &objects)
{
    std::string text = "[";
    for (const int object : objects)
        text += PdfSyntax::reference(object) + ' ';
    return text + ']';
}
