#include "pdf/PageTree.h"

#include "pdf/ObjectTree.h"
#include "pdf/PdfSyntax.h"

using PdfSyntax::number;
using PdfSyntax::reference;

namespace {

constexpr std::size_t branches = 64;

std::string entriesOf(const ObjectTree::Node &node)
{
    return "/Type /Pages /Count " + std::to_string(node.leaves) + " /Kids " + references(node.kids);
}

std::string entriesOf(const PageObjects &page)
{
    std::string entries = "/Type /Page /Contents " + reference(page.content);
    if (page.key >= 0)
        entries += " /StructParents " + std::to_string(page.key);
    if (!page.links.empty())
        entries += " /Tabs /S /Annots " + references(page.links);
    return entries;
}

} // namespace

PageTree writePages(PdfFile &file, const std::vector<PageObjects> &pages, const std::string &resources,
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
    for (const PageObjects &page : pages) {
        written.pages.push_back(file.add(withParent(entriesOf(page), tree.nextParent())));
        tree.add(written.pages.back());
    }
    const ObjectTree::Node root = tree.finish();
    written.root = root.number;
    file.write(root.number,
               "<<" + entriesOf(root) + " /MediaBox [0 0 " + number(format.width) + ' '
                   + number(format.height) + "] /Resources " + resources + ">>");
    return written;
}
