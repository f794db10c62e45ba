// make_manual SOURCE.md OUT.pdf: makes the manual that is installed with the program.
#include "ManualPages.h"
#include "pdf/Deflate.h"
#include "pdf/FontObjects.h"
#include "pdf/PageTree.h"
#include "pdf/PdfDescription.h"
#include "pdf/PdfObjects.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

namespace {

// What a reader lists beside the pages.
QPDFObjectHandle outlineOf(QPDF &document, const std::vector<ManualPages::Chapter> &chapters,
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
    return outline;
}

// Objects that stand for pages of the file.
std::vector<QPDFObjectHandle> handlesOf(const std::vector<int> &pages, QPDF &document, PdfObjects &objects)
{
    std::vector<QPDFObjectHandle> handles;
    for (const int page : pages) {
        handles.push_back(document.makeIndirectObject(QPDFObjectHandle::newDictionary()));
        objects.bind(handles.back(), page);
    }
    return handles;
}

std::vector<int> writtenContents(PdfFile &file, const std::vector<std::string> &contents)
{
    std::vector<int> numbers;
    for (const std::string &content : contents) {
        numbers.push_back(file.newObject());
        file.writeStream(numbers.back(), "/Filter /FlateDecode", deflated(content));
    }
    return numbers;
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

    std::ofstream result(out, std::ios::binary);
    PdfFile pdf([&](const char *bytes, std::size_t count) {
        return !!result.write(bytes, std::streamsize(count));
    });
    PdfObjects objects(pdf);
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    resources.replaceKey("/Font", fontResources(document, codes, false, [] {}));
    resources.replaceKey("/XObject", manual.images());
    const PageTree tree = writePages(pdf, writtenContents(pdf, manual.contents()),
                                     objects.written(resources), manual.format());
    const auto pages = handlesOf(tree.pages, document, objects);
    const std::string outline = objects.written(outlineOf(document, manual.chapters(), pages));
    finishPdf(pdf, tree.root, blocks.front().text, " /Outlines " + outline);
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
