#pragma once

#include "pdf/PageTree.h"
#include "typesetting/Page.h"

/// What readers are told of the pages of a text: its paragraphs, and the addresses in it.
class TextTags {
public:
    explicit TextTags(PdfFile &file)
        : m_file(file)
    {
    }

    /// The next page; writes its links. Returns its objects but for its content, which is to have the
    /// page's passages.
    PageObjects add(const Page &page);

    /// Writes the structure of these pages. Returns what the catalog has to say.
    std::string finish(const std::vector<int> &pages);

private:
    struct Part {
        std::uint32_t paragraph;
        std::uint32_t address;
        Language language;
    };
    struct TaggedPage {
        int key = 0;
        std::vector<Part> parts;
        std::vector<std::pair<std::uint32_t, int>> links; // addresses and annotations
    };

    PdfFile &m_file;
    std::vector<TaggedPage> m_pages;
    int m_nextKey = 0;
};
