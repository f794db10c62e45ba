// make_manual SOURCE.md OUT.pdf: makes the manual that is installed with the program.
#include "manual/ManualPages.h"
#include "pdf/FontObjects.h"
#include "pdf/PdfFile.h"
#include "pdf/PdfStream.h"
#include "platform/WholeFile.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <exception>

namespace {

// What a reader lists beside the pages.
void addOutline(QPDF &document, const std::vector<ManualPages::Chapter> &chapters,
                const std::vector<QPDFObjectHandle> &pages)
{
    QPDFObjectHandle outline = document.makeIndirectObject(QPDFObjectHandle::parse("<</Type /Outlines>>"));
    QPDFObjectHandle last = QPDFObjectHandle::newNull();
    for (const ManualPages::Chapter &chapter : chapters) {
        QPDFObjectHandle entry = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
        entry.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(chapter.title.toStdString()));
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

bool make(const QString &source, const std::string &out)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QList<ManualBlock> blocks = manualBlocks(QString::fromUtf8(file.readAll()));
    if (blocks.isEmpty())
        return false;
    QPDF document;
    document.emptyPDF();
    FontList fonts({});
    DocumentFonts codes;
    ManualPages manual(document, fonts, codes, QFileInfo(source).dir());
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
    WholeFile result(out);
    writePdfFile(document, blocks.first().text.toStdString(),
                 [&](const char *bytes, std::size_t count) { return result.write(bytes, count); });
    return result.commit();
}

} // namespace

int main(int argc, char **argv)
{
    try {
        if (argc == 3 && make(QFile::decodeName(argv[1]), argv[2]))
            return 0;
        std::fprintf(stderr, "make_manual SOURCE.md OUT.pdf\n");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "make_manual: %s\n", error.what());
    }
    return 1;
}
