#include "pdf/FontObjects.h"

#include "pdf/DrawnFont.h"
#include "pdf/OutlineFont.h"
#include "pdf/PdfStream.h"

namespace {

void appendHex(std::string &to, unsigned value, int digits)
{
    while (digits-- > 0)
        to += "0123456789ABCDEF"[(value >> (4 * digits)) & 15];
}

// Which text each code stands for. A code without one goes with its neighbours.
std::string textsOfCodes(const DocumentFonts::Font &font, int digitsOfCode)
{
    const std::map<std::uint16_t, DocumentFonts::Entry> sorted(font.codes.begin(), font.codes.end());
    std::vector<std::string> rows;
    for (const auto &[code, entry] : sorted) {
        if (entry.text.empty())
            continue;
        std::string row = "<";
        appendHex(row, code, digitsOfCode);
        row += "> <";
        for (const char16_t unit : entry.text)
            appendHex(row, unit, 4);
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

QPDFObjectHandle composite(QPDF &document, QPDFObjectHandle outlines)
{
    QPDFObjectHandle font =
        QPDFObjectHandle::parse("<</Type /Font /Subtype /Type0 /Encoding /Identity-H>>");
    font.replaceKey("/BaseFont", outlines.getKey("/BaseFont"));
    font.replaceKey("/DescendantFonts", QPDFObjectHandle::newArray({outlines}));
    return document.makeIndirectObject(font);
}

} // namespace

QPDFObjectHandle fontResources(QPDF &document, const DocumentFonts &fonts, bool grey,
                               const std::function<void()> &look)
{
    const auto used = usedGlyphs(fonts);
    std::map<const FontFile *, QPDFObjectHandle> outlines;
    Pictures pictures{document, grey, {}};
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    for (std::size_t number = 0; number < fonts.fonts().size(); ++number) {
        const DocumentFonts::Font &font = fonts.fonts()[number];
        QPDFObjectHandle made;
        look();
        if (font.isDrawn) {
            made = drawnFont(font, pictures);
        } else {
            QPDFObjectHandle &shared = outlines[font.file];
            if (!shared.isInitialized())
                shared =
                    outlineFont(document, *font.file, used.at(font.file), subsetName(*font.file, number));
            made = composite(document, shared);
        }
        made.replaceKey("/ToUnicode", pdfStream(document, textsOfCodes(font, font.isDrawn ? 2 : 4)));
        resources.replaceKey("/F" + std::to_string(number), made);
    }
    return resources;
}
