#pragma once

#include "pdf/ObjectTree.h"

#include <string_view>

/// What the parts of a document are, in the order of reading: elements that nest, and which contents of
/// which page belong to them. A content is told by its number on the page, from 0.
class Structure {
public:
    explicit Structure(PdfFile &file);

    /// `entries`: what else the element says of itself.
    void open(std::string_view role, std::string_view entries = {});
    void close();

    /// The contents that follow are those of this page; it finds its elements by that key, which grows from
    /// page to page.
    void beginPage(int page, int key);
    /// The page's next content belongs to the open element.
    void addContent();
    /// An annotation of the page does, which finds the element by that key: one behind the page's.
    void addAnnotation(int object, int key);

    /// Ends it. Returns what the catalog has to say.
    std::string finish();

private:
    struct Element {
        int number = 0;
        std::string begin; // of the object
        int page = 0;
        std::string kids;
    };

    void endPage();
    void addKey(int key, const std::string &value);
    void endKeys();

    PdfFile &m_file;
    const int m_root;
    ObjectTree m_document;
    std::vector<Element> m_open;
    int m_page = 0;
    int m_pageKey = 0;
    std::vector<int> m_contents;                    // of the page: the element of each
    std::vector<std::pair<int, int>> m_annotations; // their keys and elements
    // What is found by keys: those that are written together next, and those that are.
    std::string m_keys;
    std::size_t m_keyCount = 0;
    int m_firstKey = 0;
    int m_lastKey = 0;
    std::vector<int> m_keyNodes;
};
