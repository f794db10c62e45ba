// Writes the text of a file in UTF-8, decoded as the load button does; nothing, and status 1, when
// that leaves the pane as it was.
//
//   decode_text FILE

#include "decoding/TextDecoding.h"
#include "platform/RegularFile.h"

#include <QFile>

#include <cstdio>
#include <limits>

int main(int argc, char *argv[])
{
    if (argc != 2)
        return 2;
    const auto bytes = readRegularFile(QFile::decodeName(argv[1]), std::numeric_limits<int>::max());
    const auto text = bytes ? decodedText(*bytes) : std::nullopt;
    if (!text)
        return 1;
    const QByteArray utf8 = text->toUtf8();
    return std::fwrite(utf8.data(), 1, size_t(utf8.size()), stdout) == size_t(utf8.size()) ? 0 : 2;
}
