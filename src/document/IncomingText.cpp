#include "document/IncomingText.h"

#include "decoding/BothAtOnce.h"
#include "decoding/LargeText.h"
#include "decoding/TextDecoding.h"
#include "platform/Memory.h"

#include <algorithm>
#include <utility>

namespace {

// In bytes. On its way into the pane a text takes up to five times as much memory as its file: mapped or
// read, decoded, and in the document.
qint64 largestFile()
{
    return std::min(LargeText::mostBytes, availableMemory() / 5);
}

std::optional<IncomingText> undecoded(const FileContent &file)
{
    const QByteArrayView bytes = file.bytes();
    const auto [shape, isUtf8] = bothAtOnce([bytes] { return TextPieces::shapeOfUtf8(bytes); },
                                            [bytes] { return isPlainUtf8(bytes); });
    if (!isUtf8)
        return std::nullopt;
    IncomingText incoming;
    incoming.utf8 = file;
    incoming.shape = shape;
    return incoming;
}

} // namespace

IncomingText::IncomingText(const QString &text)
    : text(text)
    , shape(TextPieces::shapeOf(text))
{
}

std::optional<IncomingText> textOfFile(const QString &path)
{
    auto file = FileContent::of(path, largestFile(), LargeText::bytes);
    if (!file)
        return std::nullopt;
    if (file->bytes().size() > LargeText::bytes) {
        if (auto incoming = undecoded(*file))
            return incoming;
    }
    auto text = decodedText(file->bytes());
    file.reset();
    if (!text)
        return std::nullopt;
    text->squeeze();
    return IncomingText(*std::move(text));
}
