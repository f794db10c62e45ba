#include "pdf/Structure.h"

#include "pdf/PdfSyntax.h"

#include <utility>

using PdfSyntax::reference;

namespace {

constexpr std::size_t branches = 256;

std::string beginOf(std::string_view role, int parent)
{
    return "<</Type /StructElem /S /" + std::string(role) + " /P " + reference(parent);
}

} // namespace

Structure::Structure(PdfFile &file)
    : m_file(file)
    , m_root(file.newObject())
    , m_document(file, branches, [](const ObjectTree::Node &node, int parent) {
        return beginOf("Div", parent) + " /K " + references(node.kids) + ">>";
    })
{
}

void Structure::open(std::string_view role, std::string_view entries)
{
    const int parent = m_open.empty() ? m_document.nextParent() : m_open.back().number;
    const int number = m_file.newObject();
    if (m_open.empty())
        m_document.add(number);
    else
        m_open.back().kids += reference(number) + ' ';
    m_open.push_back({.number = number, .begin = beginOf(role, parent).append(entries)});
}

void Structure::close()
{
    const Element element = std::move(m_open.back());
    m_open.pop_back();
    std::string object = element.begin;
    if (element.page != 0)
        object += " /Pg " + reference(element.page);
    m_file.write(element.number, object + " /K [" + element.kids + "]>>");
}

void Structure::beginPage(int page, int key)
{
    endPage();
    m_page = page;
    m_pageKey = key;
}

void Structure::addContent()
{
    Element &element = m_open.back();
    const std::size_t number = m_contents.size();
    m_contents.push_back(element.number);
    if (element.page == 0)
        element.page = m_page;
    if (element.page == m_page)
        element.kids += std::to_string(number) + ' ';
    else
        element.kids +=
            "<</Type /MCR /Pg " + reference(m_page) + " /MCID " + std::to_string(number) + ">> ";
}

void Structure::addAnnotation(int object, int key)
{
    m_open.back().kids += "<</Type /OBJR /Pg " + reference(m_page) + " /Obj " + reference(object) + ">> ";
    m_annotations.emplace_back(key, m_open.back().number);
}

void Structure::endPage()
{
    if (!m_contents.empty())
        addKey(m_pageKey, references(std::exchange(m_contents, {})));
    for (const auto &[key, element] : std::exchange(m_annotations, {}))
        addKey(key, reference(element));
}

void Structure::addKey(int key, const std::string &value)
{
    if (m_keyCount == branches)
        endKeys();
    if (m_keyCount++ == 0)
        m_firstKey = key;
    m_lastKey = key;
    m_keys += std::to_string(key) + ' ' + value + ' ';
}

void Structure::endKeys()
{
    m_keyNodes.push_back(m_file.add("<</Limits [" + std::to_string(m_firstKey) + ' '
                                    + std::to_string(m_lastKey) + "] /Nums [" + m_keys + "]>>"));
    m_keys.clear();
    m_keyCount = 0;
}

std::string Structure::finish()
{
    while (!m_open.empty())
        close();
    endPage();
    if (m_keyCount > 0)
        endKeys();
    const ObjectTree::Node document = m_document.finish();
    m_file.write(document.number, beginOf("Document", m_root) + " /K " + references(document.kids) + ">>");
    m_file.write(m_root,
                 "<</Type /StructTreeRoot /K " + reference(document.number) + " /ParentTree <<"
                     + (m_keyNodes.empty() ? "/Nums []" : "/Kids " + references(m_keyNodes))
                     + ">> /ParentTreeNextKey " + std::to_string(m_lastKey + 1) + ">>");
    return " /MarkInfo <</Marked true>> /StructTreeRoot " + reference(m_root);
}
