#include "pdf/PageTree.h"

#include "pdf/ObjectTree.h"
#include "pdf/PdfSyntax.h"

#include <numeric>

using PdfSyntax::number;
using PdfSyntax::reference;

namespace {

constexpr std::size_t branches = 64;

std::string entriesOf(const ObjectTree::Node &node)
{
    return "/Type /Pages /Count " + std::to_string(node.leaves) + " /Kids " + references(node.kids);
}

std::string entriesOf(const PageObjects &page, int key)
{
    std::string entries = "/Type /Page /Contents " + reference(page.content);
    if (page.parts > 0)
        entries += " /StructParents " + std::to_string(key);
    if (page.links == 0)
        return entries;
    std::vector<int> links(std::size_t(page.links));
    std::iota(links.begin(), links.end(), page.firstLink);
    return entries + " /Tabs /S /Annots " + references(links);
}

} // namespace

PageTree writePages(PdfFile &file, const std::deque<PageObjects> &pages, const std::string &resources,
                    const PageFormat &format)
{
    const auto withParent = [](const std::string &entries, int parent) {
        return "<<" + entries + " /Parent " + reference(parent) + ">>";
    };
    ObjectTree tree(file, branches, [&](const ObjectTree::Node &node, int parent) {
        return withParent(entriesOf(node), parent);
    });
    PageTree written;
    written.pages.reserve(pages.size());
    int key = 0;
    for (const PageObjects &page : pages) {
        written.pages.push_back(file.add(withParent(entriesOf(page, key), tree.nextParent())));
        tree.add(written.pages.back());
        key = page.keyAfter(key);
    }
    const ObjectTree::Node root = tree.finish();
    written.root = root.number;
    file.write(root.number,
               "<<" + entriesOf(root) + " /MediaBox [0 0 " + number(format.width) + ' '
                   + number(format.height) + "] /Resources " + resources + ">>");
    return written;
}
