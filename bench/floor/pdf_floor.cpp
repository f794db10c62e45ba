// pdf_floor IN.txt OUT.pdf: the least that making a PDF of a Japanese text can cost. One font, advances
// looked up once, a simple rule for breaking lines, two threads for compression; no shaping, no other
// fonts, no right-to-left. What the real engine adds is measured against this.
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include <hb-subset.h>
#include <zlib.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

const char fontPath[] = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc";
const char emojiPath[] = "/usr/share/fonts/truetype/noto/NotoColorEmoji.ttf";
constexpr double size = 12, leading = 17.38, margin = 20, width = 550, height = 842;
constexpr unsigned characters = 0x30000;

std::u32string decoded(const std::string &bytes)
{
    std::u32string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const int length = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
        char32_t c = length == 1 ? first : first & (0xffU >> (length + 1));
        for (int k = 1; k < length && i + k < bytes.size(); ++k)
            c = c << 6 | (static_cast<unsigned char>(bytes[i + k]) & 0x3fU);
        text += c < characters ? c : U'?';
        i += std::size_t(length);
    }
    return text;
}

std::string deflated(const std::string &bytes, int level)
{
    uLongf length = compressBound(bytes.size());
    std::string result(length, '\0');
    compress2(reinterpret_cast<Bytef *>(result.data()), &length,
              reinterpret_cast<const Bytef *>(bytes.data()), bytes.size(), level);
    result.resize(length);
    return result;
}

std::string format(const char *pattern, auto... values)
{
    char buffer[256];
    std::snprintf(buffer, sizeof buffer, pattern, values...);
    return buffer;
}

bool isEmoji(char32_t c)
{
    return (c >= 0x1f000 && c < 0x20000) || c == 0x2705 || c == 0x2764;
}

bool addsToEmoji(char32_t c)
{
    return c == 0xfe0f || c == 0x200d || (c >= 0x1f3fb && c <= 0x1f3ff);
}

struct Font {
    FT_Library freeType = nullptr;
    FT_Face face = nullptr;
    std::vector<int> glyphs = std::vector<int>(characters, -1);
    std::vector<short> advances = std::vector<short>(characters);
    std::vector<char32_t> texts = std::vector<char32_t>(65536);

    Font()
    {
        FT_Init_FreeType(&freeType);
        FT_New_Face(freeType, fontPath, 0, &face);
    }
    int glyph(char32_t c)
    {
        if (glyphs[c] < 0) {
            glyphs[c] = int(FT_Get_Char_Index(face, c));
            FT_Fixed advance = 0;
            FT_Get_Advance(face, FT_UInt(glyphs[c]), FT_LOAD_NO_SCALE, &advance);
            advances[c] = isEmoji(c) ? short(1240)
                : addsToEmoji(c)     ? short(0)
                                     : short(advance * 1000 / face->units_per_EM);
            texts[std::size_t(glyphs[c])] = c;
        }
        return glyphs[c];
    }
};

struct Layout {
    const std::u32string &text;
    Font font;
    std::map<char32_t, int> emoji;
    std::vector<std::string> pages;
    std::string page, pictures;
    double y = 0;

    explicit Layout(const std::u32string &whole)
        : text(whole)
    {
        begin();
    }
    void begin()
    {
        y = height - margin - size;
        page = format("BT /F %.0f Tf %.2f TL %.0f %.2f Td\n", size, leading, margin, y);
        pictures.clear();
    }
    void end()
    {
        pages.push_back(page + "ET\n" + pictures);
        begin();
    }
    void line(std::size_t from, std::size_t to)
    {
        if (y < margin)
            end();
        double x = 0;
        page += '<';
        for (std::size_t i = from; i < to; ++i) {
            const char32_t c = text[i];
            const int glyph = font.glyph(isEmoji(c) || addsToEmoji(c) ? U'　' : c);
            if (isEmoji(c)) {
                emoji[c] = 1;
                pictures += format("q 14 0 0 14 %.2f %.2f cm /E%u Do Q\n", margin + x, y - 2, unsigned(c));
            }
            for (int shift = 12; shift >= 0; shift -= 4)
                page += "0123456789ABCDEF"[glyph >> shift & 15];
            x += font.advances[c] * size / 1000;
        }
        page += "> Tj T*\n";
        y -= leading;
    }
    bool mayBreak(std::size_t at) const
    {
        static const std::u32string noBegin = U"、。，．！？」』）］｝】ーっゃゅょッャュョ々…";
        return (text[at] >= 0x2e80 || text[at - 1] >= 0x2e80 || text[at - 1] == U' ')
            && noBegin.find(text[at]) == std::u32string::npos;
    }
    void paragraph(std::size_t from, std::size_t end)
    {
        constexpr int room = int(width * 1000 / size);
        do {
            int x = 0;
            std::size_t at = from, lastBreak = 0;
            for (; at < end; ++at) {
                font.glyph(text[at]);
                if (x + font.advances[text[at]] > room && at > from)
                    break;
                if (at > from && mayBreak(at))
                    lastBreak = at;
                x += font.advances[text[at]];
            }
            if (at < end && lastBreak > from && !mayBreak(at))
                at = lastBreak;
            line(from, at);
            from = at;
        } while (from < end);
    }
    void all()
    {
        for (std::size_t at = 0; at < text.size();) {
            std::size_t end = text.find(U'\n', at);
            if (end == std::u32string::npos)
                end = text.size();
            paragraph(at, end);
            at = end + 1;
        }
        end();
    }
};

std::string subset(const Font &font)
{
    hb_blob_t *file = hb_blob_create_from_file(fontPath);
    hb_face_t *face = hb_face_create(file, 0);
    hb_subset_input_t *input = hb_subset_input_create_or_fail();
    for (unsigned glyph = 1; glyph < font.texts.size(); ++glyph) {
        if (font.texts[glyph])
            hb_set_add(hb_subset_input_glyph_set(input), glyph);
    }
    for (const char *table : {"GSUB", "GPOS", "GDEF", "vmtx", "VORG", "vhea", "BASE", "cmap", "name"})
        hb_set_add(hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG), hb_tag_from_string(table, 4));
    hb_subset_input_set_flags(input, HB_SUBSET_FLAGS_NO_HINTING);
    hb_blob_t *made = hb_face_reference_table(hb_subset_or_fail(face, input), HB_TAG('C', 'F', 'F', ' '));
    unsigned length = 0;
    const char *data = hb_blob_get_data(made, &length);
    return deflated(std::string(data, length), 6);
}

class File {
public:
    int object(const std::string &content)
    {
        m_places.push_back(m_bytes.size());
        m_bytes += format("%zu 0 obj\n", m_places.size()) + content + "\nendobj\n";
        return int(m_places.size());
    }
    int stream(const std::string &bytes, const std::string &more = {})
    {
        return object(format("<</Length %zu /Filter /FlateDecode ", bytes.size()) + more + ">>\nstream\n"
                      + bytes + "\nendstream");
    }
    int count() const { return int(m_places.size()); }
    void write(const char *path, int root)
    {
        const std::size_t table = m_bytes.size();
        m_bytes += format("xref\n0 %zu\n0000000000 65535 f \n", m_places.size() + 1);
        for (const std::size_t place : m_places)
            m_bytes += format("%010zu 00000 n \n", place);
        m_bytes += format("trailer <</Size %zu /Root %d 0 R>>\nstartxref\n%zu\n%%%%EOF\n",
                          m_places.size() + 1, root, table);
        std::ofstream(path, std::ios::binary) << m_bytes;
    }

private:
    std::string m_bytes = "%PDF-1.5\n";
    std::vector<std::size_t> m_places;
};

std::string emojiPictures(File &file, const std::map<char32_t, int> &used, FT_Library library)
{
    FT_Face face = nullptr;
    if (FT_New_Face(library, emojiPath, 0, &face) != 0)
        return {};
    FT_Select_Size(face, 0);
    std::string names;
    for (const auto &[c, unused] : used) {
        if (FT_Load_Char(face, c, FT_LOAD_COLOR) != 0
            || face->glyph->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA)
            continue;
        const FT_Bitmap &bitmap = face->glyph->bitmap;
        std::string colours, opacity;
        for (unsigned i = 0; i < bitmap.rows * bitmap.width; ++i) {
            const unsigned char *pixel = bitmap.buffer + i * 4;
            colours.append({char(pixel[2]), char(pixel[1]), char(pixel[0])});
            opacity += char(pixel[3]);
        }
        const std::string shape =
            format("/Type /XObject /Subtype /Image /BitsPerComponent 8 /Width %u /Height %u ", bitmap.width,
                   bitmap.rows);
        const int mask = file.stream(deflated(opacity, 6), shape + "/ColorSpace /DeviceGray");
        names += format("/E%u %d 0 R ", unsigned(c),
                        file.stream(deflated(colours, 6),
                                    shape + format("/ColorSpace /DeviceRGB /SMask %d 0 R", mask)));
    }
    return names;
}

int fontObject(File &file, const Font &font, const std::string &program)
{
    std::string widths, map;
    int rows = 0;
    for (unsigned glyph = 1; glyph < font.texts.size(); ++glyph) {
        const char32_t c = font.texts[glyph];
        if (!c)
            continue;
        widths += format("%u [%d] ", glyph, font.advances[c]);
        map += (rows++ % 100   ? ""
                    : rows > 1 ? "endbfchar\n100 beginbfchar\n"
                               : "100 beginbfchar\n")
            + format("<%04X> <%04X>\n", glyph, unsigned(c & 0xffff));
    }
    const int stream = file.stream(program, "/Subtype /CIDFontType0C");
    const int about = file.object(
        format("<</Type /FontDescriptor /FontName /AAAAAA+Floor /Flags 4 /FontBBox [-1000 -1000 2000 "
               "2000] /ItalicAngle 0 /Ascent 1160 /Descent -288 /CapHeight 733 /StemV 80 /FontFile3 "
               "%d 0 R>>",
               stream));
    const int outlines = file.object(
        "<</Type /Font /Subtype /CIDFontType0 /BaseFont /AAAAAA+Floor /CIDSystemInfo <</Registry "
        "(Adobe) /Ordering (Identity) /Supplement 0>> /DW 1000 /W ["
        + widths + format("] /FontDescriptor %d 0 R>>", about));
    const int texts = file.stream(deflated(
        "begincmap 1 begincodespacerange <0000> <FFFF> endcodespacerange\n" + map + "endbfchar endcmap",
        6));
    return file.object(format(
        "<</Type /Font /Subtype /Type0 /BaseFont /AAAAAA+Floor /Encoding /Identity-H /DescendantFonts [%d "
        "0 R] /ToUnicode %d 0 R>>",
        outlines, texts));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    std::ifstream in(argv[1], std::ios::binary);
    const std::u32string text = decoded({std::istreambuf_iterator<char>(in), {}});
    const auto started = std::chrono::steady_clock::now();
    Layout layout(text);
    layout.all();

    std::vector<std::string> streams(layout.pages.size());
    std::atomic<std::size_t> next = 0;
    std::string program;
    std::thread beside([&] { program = subset(layout.font); });
    std::thread compressor([&] {
        for (std::size_t i = 0; (i = next++) < streams.size();)
            streams[i] = deflated(layout.pages[i], 1);
    });
    beside.join();
    for (std::size_t i = 0; (i = next++) < streams.size();)
        streams[i] = deflated(layout.pages[i], 1);
    compressor.join();

    File file;
    const int font = fontObject(file, layout.font, program);
    const std::string pictures = emojiPictures(file, layout.emoji, layout.font.freeType);
    const int resources =
        file.object(format("<</Font <</F %d 0 R>> /XObject <<", font) + pictures + ">>>>");
    const int tree = file.count() + 2 * int(streams.size()) + 1;
    std::string kids;
    for (const std::string &stream : streams) {
        const int content = file.stream(stream);
        kids +=
            format("%d 0 R ",
                   file.object(format("<</Type /Page /Parent %d 0 R /Contents %d 0 R>>", tree, content)));
    }
    file.object(format("<</Type /Pages /Count %zu /MediaBox [0 0 595 842] /Resources %d 0 R /Kids [",
                       streams.size(), resources)
                + kids + "]>>");
    file.write(argv[2], file.object(format("<</Type /Catalog /Pages %d 0 R>>", tree)));
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - started;
    std::printf("%zu pages in %.1f ms\n", streams.size(), taken.count());
}
