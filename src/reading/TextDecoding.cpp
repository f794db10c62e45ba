#include "reading/TextDecoding.h"

#include "reading/EncodingGuess.h"
#include "reading/StrictConverter.h"
#include "reading/Utf8.h"

#include <algorithm>
#include <array>
#include <future>
#include <limits>

namespace {

struct Mark {
    QByteArrayView bytes;
    const char *encoding;
};

// The longer mark first where another one begins like it.
const Mark *markOf(QByteArrayView bytes)
{
    static const std::array marks{
        Mark{{"\xff\xfe\0\0", 4}, "UTF-32LE"},
        Mark{{"\0\0\xfe\xff", 4}, "UTF-32BE"},
        Mark{{"\xff\xfe", 2}, "UTF-16LE"},
        Mark{{"\xfe\xff", 2}, "UTF-16BE"},
    };
    const auto *found =
        std::find_if(marks.begin(), marks.end(), [&](const Mark &m) { return bytes.startsWith(m.bytes); });
    return found == marks.end() ? nullptr : found;
}

// Such a text is ASCII by its bytes. A terminal's colours are escape sequences, too, but others.
bool isIso2022Jp(QByteArrayView bytes)
{
    if (!bytes.contains('\x1b'))
        return false;
    for (const char *shift : {"\x1b$B", "\x1b$@", "\x1b$(D", "\x1b(J", "\x1b(I"}) {
        if (bytes.contains(shift))
            return true;
    }
    return false;
}

bool isBinary(QByteArrayView bytes)
{
    const auto sample = bytes.first(std::min<qsizetype>(bytes.size(), 64 << 10));
    const auto unfit = std::count_if(sample.begin(), sample.end(), [](char c) {
        return uchar(c) < 0x20 && !QByteArrayView("\t\n\v\f\r\b\x1a\x1b").contains(c);
    });
    return unfit > 1 + sample.size() / 10;
}

std::optional<QString> decodedByGuess(QByteArrayView bytes)
{
    for (const char *encoding : plausibleEncodings(bytes)) {
        if (auto text = StrictConverter::decoded(bytes, encoding))
            return text;
    }
    return std::nullopt;
}

// A half of a large text is checked by another thread.
bool isUtf8WithoutZeros(QByteArrayView bytes)
{
    const auto isPlain = [](QByteArrayView part) { return !part.contains('\0') && isValidUtf8(part); };
    constexpr qsizetype worthAThread = 1 << 20;
    if (bytes.size() < worthAThread)
        return isPlain(bytes);
    const qsizetype half = characterStart(bytes, bytes.size() / 2);
    auto second = std::async(std::launch::async, isPlain, bytes.sliced(half));
    const bool first = isPlain(bytes.first(half));
    return second.get() && first;
}

// An encoding whose texts are ASCII, byte by byte.
std::optional<QString> decodedBeforeUtf8(QByteArrayView bytes)
{
    if (isIso2022Jp(bytes)) {
        if (auto text = StrictConverter::decoded(bytes, "ISO-2022-JP"))
            return text;
    }
    // What are zeros here may be halves of characters there.
    return bytes.contains('\0') ? decodedByGuess(bytes) : std::nullopt;
}

std::optional<QString> decoded(QByteArrayView bytes)
{
    if (isPlainUtf8(bytes))
        return QString::fromUtf8(bytes); // leaves the byte order mark out
    if (const Mark *mark = markOf(bytes))
        return StrictConverter::decoded(bytes.sliced(mark->bytes.size()), mark->encoding);
    if (auto text = decodedBeforeUtf8(bytes))
        return text;
    if (isValidUtf8(bytes))
        return isBinary(bytes) ? std::nullopt : std::optional(QString::fromUtf8(bytes));
    if (bytes.startsWith("\xef\xbb\xbf"))
        return std::nullopt;
    return decodedByGuess(bytes);
}

} // namespace

bool isPlainUtf8(QByteArrayView bytes)
{
    return !markOf(bytes) && !isBinary(bytes) && isUtf8WithoutZeros(bytes) && !isIso2022Jp(bytes);
}

std::optional<QString> decodedText(QByteArrayView bytes)
{
    // Positions in a document are ints, and the last one is past the end.
    constexpr qsizetype mostCharacters = std::numeric_limits<int>::max() - 1;
    auto text = decoded(bytes);
    return text && text->size() <= mostCharacters ? std::move(text) : std::nullopt;
}
