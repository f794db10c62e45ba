#include "pdf/TextTags.h"

#include "pdf/PdfSyntax.h"
#include "pdf/Structure.h"

#include <algorithm>
#include <initializer_list>

namespace {

std::string numbers(std::initializer_list<Millipoints> values)
{
    std::string text;
    for (const Millipoints value : values)
        text += PdfSyntax::number(value / 1000.0) + ' ';
    return text;
}

Box around(const std::vector<Box> &boxes)
{
    Box all = boxes.front();
    for (const Box &box : boxes) {
        all.left = std::min(all.left, box.left);
        all.bottom = std::min(all.bottom, box.bottom);
        all.right = std::max(all.right, box.right);
        all.top = std::max(all.top, box.top);
    }
    return all;
}

void writeLink(PdfFile &file, int object, const Link &link, int key)
{
    const Box all = around(link.boxes);
    std::string corners;
    for (const auto &[left, bottom, right, top] : link.boxes)
        corners += numbers({left, top, right, top, left, bottom, right, bottom});
    const std::string target = PdfSyntax::string(link.target);
    file.write(object,
               "<</Type /Annot /Subtype /Link /F 4 /Border [0 0 0] /Rect ["
                   + numbers({all.left, all.bottom, all.right, all.top}) + "] /QuadPoints [" + corners
                   + "] /StructParent " + std::to_string(key) + " /Contents " + target
                   + " /A <</S /URI /URI " + target + ">>>>");
}

// What differs from the language of the document.
std::string languageEntry(Language language)
{
    const std::string &tag = Languages::tag(language);
    return tag.empty() || language == Languages::japanese ? "" : " /Lang (" + tag + ')';
}

} // namespace

PageObjects TextTags::add(const Page &page)
{
    constexpr int mostLinks = 1 << 18;
    PageObjects objects;
    if (m_links < mostLinks)
        objects.links = int(page.links.size());
    for (int i = 0; i < objects.links; ++i)
        objects.firstLink = m_file.newObject() - i;
    for (int i = 0; i < objects.links; ++i)
        writeLink(m_file, objects.firstLink + i, page.links[std::size_t(i)], m_nextKey + 1 + i);
    m_nextKey = objects.keyAfter(m_nextKey);
    m_links += objects.links;

    int link = 0; // the next one
    for (const auto &[first, paragraph, address, language] : page.passages) {
        if (paragraph == 0)
            continue;
        const bool isLink = link < objects.links && page.links[std::size_t(link)].address == address;
        m_parts.push_back({paragraph, isLink, language});
        link += isLink;
        ++objects.parts;
    }
    return objects;
}

std::string TextTags::finish(const std::deque<PageObjects> &pages, const PageTree &tree)
{
    constexpr std::uint32_t mostParagraphs = 1 << 20;
    constexpr int mostParts = 1 << 12; // of one element
    Structure structure(m_file);
    std::uint32_t open = 0;
    int count = 0; // of its parts
    int key = 0;
    auto part = m_parts.begin();
    for (std::size_t i = 0; i < pages.size(); key = pages[i++].keyAfter(key)) {
        int link = 0;
        structure.beginPage(tree.pages[i], key);
        for (int parts = pages[i].parts; parts > 0; --parts, ++part) {
            const auto paragraph = std::min<std::uint32_t>(part->paragraph, mostParagraphs);
            if (open != paragraph || ++count == mostParts) {
                if (open != 0)
                    structure.close();
                structure.open("P", languageEntry(part->language));
                open = paragraph;
                count = 0;
            }
            if (part->isLink)
                structure.open("Link");
            structure.addContent();
            if (!part->isLink)
                continue;
            structure.addAnnotation(pages[i].firstLink + link, key + 1 + link);
            ++link;
            structure.close();
        }
    }
    return structure.finish();
}
