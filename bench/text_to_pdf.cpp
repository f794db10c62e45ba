// Makes the PDF that 簡易PDF makes, without a window. Prints how long that took, from the decoded text to
// the whole file.
//
//   text_to_pdf [--here] IN.txt OUT.pdf      --here: in this process, for a profiler

#include "decoding/TextDecoding.h"
#include "pdf/TextPdf.h"
#include "platform/RegularFile.h"
#include "worker/Errands.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <cstring>
#include <limits>

int main(int argc, char **argv)
{
    const bool here = argc == 4 && std::strcmp(argv[1], "--here") == 0;
    if (argc != 3 && !here) {
        std::fprintf(stderr, "text_to_pdf [--here] IN.txt OUT.pdf\n");
        return 2;
    }
    const QString name = QFile::decodeName(argv[argc - 1]);
    const auto bytes = readRegularFile(QFile::decodeName(argv[argc - 2]), std::numeric_limits<int>::max());
    const auto text = bytes ? decodedText(*bytes) : std::nullopt;
    if (!text)
        return 1;
    QElapsedTimer clock;
    clock.start();
    QFile out(name);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return 1;
    PdfSettings settings;
    settings.title = name.section(u'/', -1).toStdString();
    PdfProgress progress;
    const auto write = [&](const char *piece, std::size_t count) {
        return out.write(piece, qint64(count)) == qint64(count);
    };
    const std::u16string characters = text->toStdU16String();
    const auto make = here ? writeTextPdf : pdfByWorker;
    if (make(characters, settings, write, progress) != PdfResult::Written)
        return 1;
    std::printf("%d pages in %.1f ms\n", progress.pages.load(), double(clock.nsecsElapsed()) / 1e6);
}
