// text_to_pdf IN.txt OUT.pdf: makes the PDF that 簡易PDF makes, without a window. Prints how long that
// took, from the decoded text to the whole file.

#include "decoding/TextDecoding.h"
#include "pdf/TextPdf.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "text_to_pdf IN.txt OUT.pdf\n");
        return 2;
    }
    QFile in(QFile::decodeName(argv[1]));
    if (!in.open(QIODevice::ReadOnly))
        return 1;
    const auto text = decodedText(in.readAll());
    if (!text)
        return 1;
    QElapsedTimer clock;
    clock.start();
    QFile out(QFile::decodeName(argv[2]));
    if (!out.open(QIODevice::WriteOnly))
        return 1;
    PdfSettings settings;
    settings.title = QFile::decodeName(argv[2]).section(u'/', -1).toStdString();
    PdfProgress progress;
    const auto write = [&](const char *bytes, std::size_t count) {
        return out.write(bytes, qint64(count)) == qint64(count);
    };
    const PdfResult result =
        writeTextPdf({text->utf16() ? reinterpret_cast<const char16_t *>(text->utf16()) : u"",
                      std::size_t(text->size())},
                     settings, write, progress);
    if (result != PdfResult::Written || !out.flush())
        return 1;
    std::printf("%d pages in %.1f ms\n", progress.pages.load(), double(clock.nsecsElapsed()) / 1e6);
}
