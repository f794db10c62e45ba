#include "pdf/TextTags.h"

#include "pdf/PdfSyntax.h"
#include "pdf/Structure.h"

#include <algorithm>

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

int writeLink(PdfFile &file, const Link &link, int key)
{
    const Box all = around(link.boxes);
    std::string corners;
    for (const auto &[left, bottom, right, top] : link.boxes)
        corners += numbers({left, top, right, top, left, bottom, right, bottom});
    const std::string target = PdfSyntax::string(link.target);
    return file.add("<</Type /Annot /Subtype /Link /F 4 /Border [0 0 0] /Rect ["
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
    TaggedPage &tagged = m_pages.emplace_back();
    tagged.key = m_nextKey++;
    PageObjects objects{.key = tagged.key};
    for (const auto &[first, paragraph, address, language] : page.passages) {
        if (paragraph != 0)
            tagged.parts.push_back({paragraph, address, language});
    }
    for (const Link &link : page.links) {
        const int annotation = writeLink(m_file, link, m_nextKey++);
        objects.links.push_back(annotation);
        tagged.links.emplace_back(link.address, annotation);
    }
    if (tagged.parts.empty())
        objects.key = -1;
    return objects;
}

std::string TextTags::finish(const std::vector<int> &pages)
{
    Structure structure(m_file);
    std::uint32_t open = 0;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const TaggedPage &page = m_pages[i];
        auto link = page.links.begin();
        structure.beginPage(pages[i], page.key);
        for (const auto &[paragraph, address, language] : page.parts) {
            if (open != paragraph) {
                if (open != 0)
                    structure.close();
                structure.open("P", languageEntry(language));
            }
            open = paragraph;
            if (address != 0)
                structure.open("Link");
            structure.addContent();
            if (address == 0)
                continue;
            if (link != page.links.end() && link->first == address) {
                structure.addAnnotation(link->second, page.key + 1 + int(link - page.links.begin()));
                ++link;
            }
            structure.close();
        }
    }
    return structure.finish();
}
