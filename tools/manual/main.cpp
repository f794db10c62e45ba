// make_manual SOURCE.md OUT.pdf: makes the manual that is installed with the program.
#include "ManualPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PdfFile.h"
#include "pdf/PdfStream.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

namespace {

// What a reader lists beside the pages.
void addOutline(QPDF &document, const std::vector<ManualPages::Chapter> &chapters,
                const std::vector<QPDFObjectHandle> &pages)
{
    QPDFObjectHandle outline = document.makeIndirectObject(QPDFObjectHandle::parse("<</Type /Outlines>>"));
    QPDFObjectHandle last = QPDFObjectHandle::newNull();
    for (const ManualPages::Chapter &chapter : chapters) {
        QPDFObjectHandle entry = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
        entry.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(chapter.title));
        entry.replaceKey("/Parent", outline);
        entry.replaceKey("/Dest",
                         QPDFObjectHandle::newArray({pages[chapter.page], QPDFObjectHandle::newName("/XYZ"),
                                                     QPDFObjectHandle::newNull(),
                                                     QPDFObjectHandle::newReal(chapter.top, 1),
                                                     QPDFObjectHandle::newNull()}));
        if (last.isNull()) {
            outline.replaceKey("/First", entry);
        } else {
            entry.replaceKey("/Prev", last);
            last.replaceKey("/Next", entry);
        }
        last = entry;
    }
    outline.replaceKey("/Last", last);
    outline.replaceKey("/Count", QPDFObjectHandle::newInteger(std::int64_t(chapters.size())));
    document.getRoot().replaceKey("/Outlines", outline);
}

bool make(const std::filesystem::path &source, const std::filesystem::path &out)
{
    std::ifstream file(source, std::ios::binary);
    const auto blocks = manualBlocks(std::string(std::istreambuf_iterator(file), {}));
    if (blocks.empty())
        return false;
    QPDF document;
    document.emptyPDF();
    FontList fonts({});
    DocumentFonts codes;
    ManualPages manual(document, fonts, codes, source.parent_path());
    for (const ManualBlock &block : blocks)
        manual.add(block);
    manual.finish();

    std::vector<QPDFObjectHandle> pages;
    for (const std::string &content : manual.contents())
        pages.push_back(pdfPage(document, pdfStream(document, content)));
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/Font", fontResources(document, codes, false));
    resources.replaceKey("/XObject", manual.images());
    addPages(document, pages, resources, manual.format());
    addOutline(document, manual.chapters(), pages);
    std::ofstream result(out, std::ios::binary);
    writePdfFile(document, blocks.front().text, [&](const char *bytes, std::size_t count) {
        return !!result.write(bytes, std::streamsize(count));
    });
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
