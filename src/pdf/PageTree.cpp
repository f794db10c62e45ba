#include "pdf/PageTree.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::size_t branches = 64;

struct Node {
    int number = 0;
    std::size_t pages = 0;
    std::vector<int> kids;
};

std::string entriesOf(const Node &node)
{
    std::string text = "/Type /Pages /Count " + std::to_string(node.pages) + " /Kids [";
    for (const int kid : node.kids)
        text += PdfFile::reference(kid) + ' ';
    return text + ']';
}

std::string withParent(const std::string &entries, int parent)
{
    return "<<" + entries + " /Parent " + PdfFile::reference(parent) + ">>";
}

std::vector<Node> leaves(PdfFile &file, const std::vector<int> &contents, std::vector<int> &pages)
{
    std::vector<Node> nodes;
    for (const int content : contents) {
        if (nodes.empty() || nodes.back().kids.size() == branches)
            nodes.push_back({.number = file.newObject()});
        const int page = file.newObject();
        file.write(page,
                   withParent("/Type /Page /Contents " + PdfFile::reference(content), nodes.back().number));
        nodes.back().kids.push_back(page);
        ++nodes.back().pages;
        pages.push_back(page);
    }
    return nodes;
}

std::vector<Node> parents(PdfFile &file, const std::vector<Node> &nodes)
{
    std::vector<Node> above;
    for (const Node &node : nodes) {
        if (above.empty() || above.back().kids.size() == branches)
            above.push_back({.number = file.newObject()});
        file.write(node.number, withParent(entriesOf(node), above.back().number));
        above.back().kids.push_back(node.number);
        above.back().pages += node.pages;
    }
    return above;
}

} // namespace

PageTree writePages(PdfFile &file, const std::vector<int> &contents, const std::string &resources,
                    const PageFormat &format)
{
    PageTree tree;
    tree.pages.reserve(contents.size());
    std::vector<Node> nodes = leaves(file, contents, tree.pages);
    while (nodes.size() > 1)
        nodes = parents(file, nodes);
    if (nodes.empty())
        nodes.push_back({.number = file.newObject()});
    tree.root = nodes.front().number;
    char box[64];
    std::snprintf(box, sizeof box, " /MediaBox [0 0 %.2f %.2f]", format.width, format.height);
    file.write(tree.root, "<<" + entriesOf(nodes.front()) + box + " /Resources " + resources + ">>");
    return tree;
}
