// Writes the text of a file in UTF-8, decoded as the load button does; nothing, and status 1, when
// that leaves the pane as it was.
//
//   decode_text [--here] FILE      --here: in this process, for a profiler

#include "decoding/PlainUtf8.h"
#include "decoding/TextDecoding.h"
#include "platform/FileContent.h"
#include "worker/Errands.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <cstring>
#include <limits>

int main(int argc, char *argv[])
{
    const bool here = argc == 3 && std::strcmp(argv[1], "--here") == 0;
    if (argc != 2 && !here)
        return 2;
    const auto file =
        FileContent::of(QFile::decodeName(argv[argc - 1]), std::numeric_limits<int>::max(), 1 << 20);
    if (!file)
        return 1;
    QElapsedTimer clock;
    clock.start();
    const bool asItIs = here || isPlainUtf8(file->bytes());
    const auto text = asItIs ? decodedText(file->bytes()) : textByWorker(*file);
    std::fprintf(stderr, "%.1f ms\n", double(clock.nsecsElapsed()) / 1e6);
    if (!text)
        return 1;
    const QByteArray utf8 = text->toUtf8();
    return std::fwrite(utf8.data(), 1, size_t(utf8.size()), stdout) == size_t(utf8.size()) ? 0 : 2;
}
