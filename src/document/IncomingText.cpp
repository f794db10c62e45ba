#include "document/IncomingText.h"

#include "decoding/BothAtOnce.h"
#include "decoding/LargeText.h"
#include "decoding/PlainUtf8.h"
#include "platform/Memory.h"
#include "worker/Errands.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

// In bytes. A document doubles its room when it is full.
qint64 roomInDocument(qsizetype characters)
{
    return 2 * qint64(std::bit_ceil(quint64(characters)));
}

// From a text in UTF-8 to one in UTF-16; from most others in several pieces, which are put together.
qint64 roomToDecode(qsizetype bytes, bool isUtf8)
{
    return qint64(bytes) * (isUtf8 ? 2 : 4);
}

std::optional<IncomingText> undecoded(const FileContent &file)
{
    const QByteArrayView bytes = file.bytes();
    const auto [shape, isUtf8] = bothAtOnce([bytes] { return TextPieces::shapeOfUtf8(bytes); },
                                            [bytes] { return isPlainUtf8(bytes); });
    if (!isUtf8 || !isThereRoomFor(roomToDecode(bytes.size(), true) + roomInDocument(bytes.size())))
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

bool IncomingText::hasRoom() const
{
    const qsizetype most = std::max(text.size(), utf8.bytes().size());
    return most <= LargeText::bytes || isThereRoomFor(roomInDocument(most));
}

std::optional<IncomingText> textOfFile(const QString &path, const QByteArray &encoding)
{
    const qint64 largest = std::min(LargeText::mostBytes, availableMemory() / 5);
    auto file = FileContent::of(path, largest, LargeText::bytes);
    if (!file)
        return std::nullopt;
    const qsizetype bytes = file->bytes().size();
    const bool mayBeUtf8 = encoding.isEmpty() || encoding == "UTF-8";
    if (bytes > LargeText::bytes) {
        if (auto incoming = mayBeUtf8 ? undecoded(*file) : std::nullopt)
            return incoming;
        if (!isThereRoomFor(roomToDecode(bytes, false)))
            return std::nullopt;
    }
    auto text = mayBeUtf8 && isPlainUtf8(file->bytes()) ? QString::fromUtf8(file->bytes())
                                                        : textByWorker(*file, encoding);
    file.reset();
    if (!text)
        return std::nullopt;
    text->squeeze();
    return IncomingText(*std::move(text));
}
