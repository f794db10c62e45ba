#include "pdf/FontObjects.h"

#include "pdf/DrawnFont.h"
#include "pdf/OutlineFont.h"
#include "pdf/PdfSyntax.h"

#include <algorithm>
#include <map>

using PdfSyntax::appendHex;
using PdfSyntax::reference;

namespace {

// In place of what a map must not hold; the page says what it is.
constexpr char16_t replacement = 0xfffd;
// A code without a text goes with its neighbours: nothing that can be seen.
constexpr std::u16string_view noText = u"\u200b";

// Which text each code stands for.
std::string textsOfCodes(const DocumentFonts::Font &font, int digitsOfCode)
{
    const std::map<std::uint16_t, DocumentFonts::Entry> sorted(font.codes.begin(), font.codes.end());
    std::vector<std::string> rows;
    for (const auto &[code, entry] : sorted) {
        std::string row = "<";
        appendHex(row, code, digitsOfCode);
        row += "> <";
        for (const char16_t unit : entry.text.empty() ? noText : entry.text)
            appendHex(row, DocumentFonts::canBeMapped(unit) ? unit : replacement, 4);
        rows.push_back(row + ">\n");
    }
    std::string map = "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                      "/CIDSystemInfo <</Registry (Adobe) /Ordering (UCS) /Supplement 0>> def\n"
                      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n<";
    map += std::string(std::size_t(digitsOfCode), '0') + "> <" + std::string(std::size_t(digitsOfCode), 'F')
        + ">\nendcodespacerange\n";
    constexpr std::size_t rowsOfBlock = 100; // more aren't allowed
    for (std::size_t begin = 0; begin < rows.size(); begin += rowsOfBlock) {
        const std::size_t end = std::min(rows.size(), begin + rowsOfBlock);
        map += std::to_string(end - begin) + " beginbfchar\n";
        for (std::size_t i = begin; i < end; ++i)
            map += rows[i];
        map += "endbfchar\n";
    }
    return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

std::map<const FontFile *, UsedGlyphs> usedGlyphs(const DocumentFonts &fonts)
{
    std::map<const FontFile *, UsedGlyphs> used;
    for (const DocumentFonts::Font &font : fonts.fonts()) {
        for (const auto &[code, entry] : font.codes) {
            if (!font.isDrawn)
                used[font.file].try_emplace(code, entry.glyph);
        }
    }
    return used;
}

std::string composite(const EmbeddedFont &font)
{
    return "/Type /Font /Subtype /Type0 /Encoding /Identity-H /BaseFont /" + font.name
        + " /DescendantFonts [" + reference(font.object) + ']';
}

} // namespace

std::string fontResources(PdfFile &file, const DocumentFonts &fonts, bool grey,
                          const std::function<void()> &look)
{
    const auto used = usedGlyphs(fonts);
    std::map<const FontFile *, EmbeddedFont> embedded;
    Pictures pictures{file, grey, {}};
    std::string resources = "<<";
    for (std::size_t number = 0; number < fonts.fonts().size(); ++number) {
        const DocumentFonts::Font &font = fonts.fonts()[number];
        std::string entries;
        look();
        if (font.isDrawn) {
            entries = drawnFont(font, pictures);
        } else {
            EmbeddedFont &shared = embedded[font.file];
            if (shared.object == 0)
                shared = outlineFont(file, *font.file, used.at(font.file), number);
            entries = composite(shared);
        }
        const int texts = file.addStream("", textsOfCodes(font, font.isDrawn ? 2 : 4));
        const int made = file.add("<<" + entries + " /ToUnicode " + reference(texts) + ">>");
        resources += "/F" + std::to_string(number) + ' ' + reference(made) + ' ';
    }
    return resources + ">>";
}
