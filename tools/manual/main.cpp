// make_manual SOURCE.md OUT.pdf: makes the manual that is installed with the program.
#include "ManualPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PageTree.h"
#include "pdf/PdfDescription.h"
#include "pdf/PdfSyntax.h"
#include "pdf/Structure.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <utility>

using PdfSyntax::reference;

namespace {

// What a reader lists beside the pages.
std::string writeOutline(PdfFile &file, const std::vector<ManualPages::Chapter> &chapters,
                         const std::vector<int> &pages)
{
    std::vector<int> entries;
    for (std::size_t i = 0; i < chapters.size(); ++i)
        entries.push_back(file.newObject());
    const std::string ends = chapters.empty()
        ? ""
        : " /First " + reference(entries.front()) + " /Last " + reference(entries.back());
    const int outline =
        file.add("<</Type /Outlines /Count " + std::to_string(chapters.size()) + ends + ">>");
    for (std::size_t i = 0; i < chapters.size(); ++i) {
        const auto &[title, page, top] = chapters[i];
        std::string entry = "<</Title " + PdfSyntax::text(title) + " /Parent " + reference(outline)
            + " /Dest [" + reference(pages[page]) + " /XYZ null " + PdfSyntax::number(top, 1) + " null]";
        if (i > 0)
            entry += " /Prev " + reference(entries[i - 1]);
        if (i + 1 < chapters.size())
            entry += " /Next " + reference(entries[i + 1]);
        file.write(entries[i], entry + ">>");
    }
    return " /Outlines " + reference(outline);
}

const char *roleOf(ManualBlock::Kind kind)
{
    switch (kind) {
    case ManualBlock::Kind::Title:
        return "H1";
    case ManualBlock::Kind::Chapter:
        return "H2";
    case ManualBlock::Kind::Section:
        return "H3";
    case ManualBlock::Kind::Item:
        return "LI";
    case ManualBlock::Kind::Picture:
        return "Figure";
    case ManualBlock::Kind::Code:
    case ManualBlock::Kind::Paragraph:
        break;
    }
    return "P";
}

/// Tells what the contents are, block by block.
class Tags {
public:
    explicit Tags(PdfFile &file)
        : m_structure(file)
    {
    }

    void beginPage(int page, int key) { m_structure.beginPage(page, key); }

    void add(const ManualPages::Content &content)
    {
        if (content.block != m_block)
            begin(content);
        const bool isItem = content.kind == ManualBlock::Kind::Item;
        if (isItem && !m_isInBody) {
            m_structure.open(content.isLabel ? "Lbl" : "LBody");
            m_isInBody = !content.isLabel;
        }
        m_structure.addContent();
        if (content.isLabel)
            m_structure.close();
    }

    std::string finish() { return m_structure.finish(); }

private:
    void begin(const ManualPages::Content &content)
    {
        const bool isItem = content.kind == ManualBlock::Kind::Item;
        if (std::exchange(m_isInBody, false))
            m_structure.close();
        if (std::exchange(m_block, content.block) != 0)
            m_structure.close();
        if (isItem != m_isInList)
            isItem ? m_structure.open("L") : m_structure.close();
        m_isInList = isItem;
        m_structure.open(roleOf(content.kind), content.more);
    }

    Structure m_structure;
    std::size_t m_block = 0;
    bool m_isInList = false;
    bool m_isInBody = false;
};

bool make(const std::filesystem::path &source, const std::filesystem::path &out)
{
    std::ifstream in(source, std::ios::binary);
    const auto blocks = manualBlocks(std::string(std::istreambuf_iterator(in), {}));
    if (blocks.empty())
        return false;
    std::ofstream result(out, std::ios::binary);
    PdfFile file([&](const char *bytes, std::size_t count) {
        return !!result.write(bytes, std::streamsize(count));
    });
    FontList fonts({});
    DocumentFonts codes;
    ManualPages manual(file, fonts, codes, source.parent_path());
    for (const ManualBlock &block : blocks)
        manual.add(block);
    manual.finish();

    std::deque<PageObjects> objects;
    for (const ManualPages::Sheet &sheet : manual.sheets())
        objects.push_back(
            {.content = file.addStream("", sheet.drawing), .parts = int(sheet.contents.size())});
    const std::string resources =
        "<</Font " + fontResources(file, codes, false, [] {}) + " /XObject " + manual.images() + ">>";
    const PageTree tree = writePages(file, objects, resources, manual.format());
    Tags tags(file);
    for (std::size_t i = 0; i < tree.pages.size(); ++i) {
        tags.beginPage(tree.pages[i], int(i));
        for (const ManualPages::Content &content : manual.sheets()[i].contents)
            tags.add(content);
    }
    const std::string structure = tags.finish();
    finishPdf(file, tree.root,
              {blocks.front().text, structure, writeOutline(file, manual.chapters(), tree.pages)});
    return !!result.flush();
}

} // namespace

int main(int argc, char **argv)
{
    try {
        if (argc == 3 && make(argv[1], argv[2]))
            return 0;
        std::fprintf(stderr, "make_manual SOURCE.md OUT.pdf\n");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "make_manual: %s\n", error.what());
    }
    return 1;
}
