#pragma once

#include "pdf/PageTree.h"
#include "typesetting/Page.h"

#include <deque>

/// What readers are told of the pages of a text: its paragraphs, and the addresses in it. There are limits
/// to how many: what is beyond is part of the last paragraph, and no address.
class TextTags {
public:
    explicit TextTags(PdfFile &file)
        : m_file(file)
    {
    }

    /// The next page; writes its links. Returns its objects but for its content, which is to have the
    /// page's passages.
    PageObjects add(const Page &page);

    /// Writes the structure of all these pages, which have become the objects of the tree. Returns what the
    /// catalog has to say.
    std::string finish(const std::deque<PageObjects> &pages, const PageTree &tree);

private:
    // There may be millions of them.
    struct Part {
        std::uint32_t paragraph : 31;
        std::uint32_t isLink : 1;
        Language language;
    };

    PdfFile &m_file;
    std::deque<Part> m_parts;
    int m_nextKey = 0;
    int m_links = 0;
};
