#include "ManualPages.h"

#include "pdf/DrawingOperators.h"
#include "pdf/PdfImage.h"
#include "pdf/PdfSyntax.h"
#include "typesetting/Typesetter.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace {

bool announcesMore(std::string_view text)
{
    return text.ends_with("：");
}

constexpr double lineSpacing = 1.15; // a manual is read from afar

std::string placed(double scale, double x, double y, const std::string &drawing)
{
    char matrix[96];
    std::snprintf(matrix, sizeof matrix, "q %.4f 0 0 %.4f %.3f %.3f cm\n", scale, scale, x, y);
    return matrix + drawing + "Q\n";
}

std::string drawn(Page line, double left, double baseline, double scale)
{
    line.lines.front().baseline = 0;
    line.passages.clear(); // what it belongs to is told around it
    return placed(scale, left, baseline, drawingOperators(line));
}

} // namespace

ManualPages::ManualPages(PdfFile &file, FontList &fonts, DocumentFonts &codes,
                         std::filesystem::path pictures)
    : m_file(file)
    , m_fonts(fonts)
    , m_codes(codes)
    , m_pictures(std::move(pictures))
    , m_y(m_format.height - m_format.top)
{
}

ManualPages::Style ManualPages::styleOf(ManualBlock::Kind kind)
{
    switch (kind) {
    case ManualBlock::Kind::Title:
        return {.size = 26, .above = 0, .indent = 0, .keep = 100};
    case ManualBlock::Kind::Chapter:
        return {.size = 17, .above = 26, .indent = 0, .keep = 110};
    case ManualBlock::Kind::Section:
        return {.size = 12.5, .above = 14, .indent = 0, .keep = 50};
    case ManualBlock::Kind::Item:
        return {.size = 10.5, .above = 4, .indent = 14, .keep = 0};
    case ManualBlock::Kind::Code:
        return {.size = 10.5, .above = 14, .indent = 14, .keep = 0};
    case ManualBlock::Kind::Paragraph:
    case ManualBlock::Kind::Picture:
        break;
    }
    return {.size = 10.5, .above = 8, .indent = 0, .keep = 0};
}

void ManualPages::add(const ManualBlock &block)
{
    ++m_block;
    if (block.kind == ManualBlock::Kind::Picture)
        addPicture(block, m_block);
    else
        addText(block);
}

// On a sheet without an end, beginning at its very top and left.
Page ManualPages::set(const std::string &text, double width)
{
    const PageFormat endless{.width = width,
                             .height = 100'000,
                             .top = 0,
                             .bottom = 0,
                             .left = 0,
                             .right = 0,
                             .longestLine = width};
    Page whole;
    const auto keep = [&](Page &&page, std::size_t) {
        whole = std::move(page);
        return true;
    };
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    Typesetter(m_fonts, m_codes, endless, keep).set({units.getBuffer(), std::size_t(units.length())});
    return whole;
}

void ManualPages::addText(const ManualBlock &block)
{
    Style style = styleOf(block.kind);
    if (announcesMore(block.text))
        style.keep = 40;
    const double scale = style.size / textSize;
    const double left = m_format.left + style.indent;
    const Page page = set(block.text, (m_format.width - m_format.right - left) / scale);
    const FontFile &own = *m_fonts.first();
    const double height = (own.ascent() + own.descent() + own.lineGap()) / 1000.0 * scale * lineSpacing;

    if (m_y < m_format.height - m_format.top)
        m_y -= style.above;
    const std::size_t lines = page.lines.size();
    makeRoom(height * double(std::min<std::size_t>(lines, 2)) + style.keep);
    if (block.kind == ManualBlock::Kind::Code)
        addGround(height * double(lines));
    if (block.kind == ManualBlock::Kind::Chapter)
        m_chapters.push_back({block.text, m_sheets.size(), m_y});
    for (std::size_t i = 0; i < lines; ++i) {
        makeRoom(i + 2 == lines ? 2 * height : height); // no line stands alone on a page
        const double baseline = m_y - own.ascent() / 1000.0 * scale;
        if (i == 0 && block.kind == ManualBlock::Kind::Item)
            addContent({block.kind, m_block, true, {}},
                       drawn(set("•", style.indent), m_format.left + 2, baseline, scale));
        addContent({block.kind, m_block, false, {}}, drawn(onlyLine(page, i), left, baseline, scale));
        m_y -= height;
    }
}

void ManualPages::addContent(const Content &content, const std::string &drawing)
{
    const char *role = content.kind == ManualBlock::Kind::Picture ? "/Figure" : "/Span";
    m_sheet.drawing +=
        role + ("<</MCID " + std::to_string(m_sheet.contents.size())) + ">>BDC\n" + drawing + "EMC\n";
    m_sheet.contents.push_back(content);
}

void ManualPages::addArtifact(const std::string &drawing)
{
    m_sheet.drawing += "/Artifact BMC\n" + drawing + "EMC\n";
}

// Behind a command.
void ManualPages::addGround(double height)
{
    constexpr double around = 5;
    char drawing[96];
    std::snprintf(drawing, sizeof drawing, "q 0.94 g %.3f %.3f %.3f %.3f re f Q\n", m_format.left,
                  m_y - height - around, m_format.width - m_format.left - m_format.right,
                  height + 2 * around);
    addArtifact(drawing);
}

// Where there is no room left for it, the text goes on, and the picture is the first on the next page.
void ManualPages::addPicture(const ManualBlock &picture, std::size_t block)
{
    if (m_waiting.empty() && m_y - heightOf(picture.picture) - 10 >= m_format.bottom)
        draw(picture, block);
    else
        m_waiting.emplace_back(picture, block);
}

Pixels ManualPages::pixelsOf(const std::string &name) const
{
    std::ifstream file(m_pictures / name, std::ios::binary);
    auto pixels = pngPixels(std::string(std::istreambuf_iterator(file), {}));
    if (!pixels)
        throw std::runtime_error("no picture " + name);
    return *std::move(pixels);
}

// Half a point for each of its pixels, or as wide as the text.
std::pair<double, double> ManualPages::sizeOf(const Pixels &pixels) const
{
    const double width = std::min(m_format.width - m_format.left - m_format.right, pixels.width * 0.5);
    return {width, width * pixels.height / pixels.width};
}

double ManualPages::heightOf(const std::string &name) const
{
    return sizeOf(pixelsOf(name)).second;
}

// With a thin frame.
void ManualPages::draw(const ManualBlock &picture, std::size_t block)
{
    const Pixels pixels = pixelsOf(picture.picture);
    const auto [width, height] = sizeOf(pixels);
    if (m_y < m_format.height - m_format.top)
        m_y -= 10;
    m_y -= height;
    const std::string key = "/I" + std::to_string(m_imageCount++);
    m_images += key + ' ' + PdfSyntax::reference(writeImage(m_file, pixels, false)) + ' ';
    const double x = (m_format.width - width) / 2;
    char drawing[160];
    std::snprintf(drawing, sizeof drawing, "q %.3f 0 0 %.3f %.3f %.3f cm %s Do Q\n", width, height, x, m_y,
                  key.c_str());
    char more[160];
    std::snprintf(more, sizeof more, " /A <</O /Layout /Placement /Block /BBox [%.3f %.3f %.3f %.3f]>>", x,
                  m_y, x + width, m_y + height);
    addContent({picture.kind, block, false, " /Alt " + PdfSyntax::text(picture.text) + more}, drawing);
    std::snprintf(drawing, sizeof drawing, "q 0.75 G 0.5 w %.3f %.3f %.3f %.3f re S Q\n", x, m_y, width,
                  height);
    addArtifact(drawing);
    m_y -= 4;
}

void ManualPages::makeRoom(double height)
{
    if (m_y - height < m_format.bottom)
        newPage();
}

void ManualPages::newPage()
{
    m_sheets.push_back(std::exchange(m_sheet, {}));
    m_y = m_format.height - m_format.top;
    for (const auto &[picture, block] : std::exchange(m_waiting, {}))
        addPicture(picture, block);
}

void ManualPages::finish()
{
    while (!m_waiting.empty())
        newPage();
    newPage();
    for (std::size_t i = 0; i < m_sheets.size(); ++i) {
        std::swap(m_sheet, m_sheets[i]);
        addArtifact(
            drawn(set(std::to_string(i + 1), 40), m_format.width / 2 - 3, m_format.bottom / 2, 0.75));
        std::swap(m_sheet, m_sheets[i]);
    }
}
