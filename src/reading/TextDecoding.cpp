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

struct Bytes {
    bool areUtf8 = true; // without a zero
    bool haveEscapes = false;
};

// In pieces that the processor keeps near, since it looks at each several times.
Bytes lookedThrough(QByteArrayView bytes)
{
    constexpr qsizetype nearby = 128 << 10;
    Bytes all;
    while (all.areUtf8 && !bytes.isEmpty()) {
        const auto piece = bytes.first(characterStart(bytes, std::min(bytes.size(), nearby)));
        all.areUtf8 = !piece.isEmpty() && !piece.contains('\0') && isValidUtf8(piece);
        all.haveEscapes = all.haveEscapes || piece.contains('\x1b');
        bytes = bytes.sliced(piece.size());
    }
    return all;
}

// A half of a large text is looked through by another thread.
Bytes lookedThroughAtOnce(QByteArrayView bytes)
{
    constexpr qsizetype worthAThread = 1 << 20;
    if (bytes.size() < worthAThread)
        return lookedThrough(bytes);
    const qsizetype half = characterStart(bytes, bytes.size() / 2);
    auto later = std::async(std::launch::async, lookedThrough, bytes.sliced(half));
    const Bytes first = lookedThrough(bytes.first(half)), second = later.get();
    return {first.areUtf8 && second.areUtf8, first.haveEscapes || second.haveEscapes};
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
    if (markOf(bytes) || isBinary(bytes))
        return false;
    const Bytes seen = lookedThroughAtOnce(bytes);
    return seen.areUtf8 && !(seen.haveEscapes && isIso2022Jp(bytes));
}

std::optional<QString> decodedText(QByteArrayView bytes)
{
    // Positions in a document are ints, and the last one is past the end.
    constexpr qsizetype mostCharacters = std::numeric_limits<int>::max() - 1;
    auto text = decoded(bytes);
    return text && text->size() <= mostCharacters ? std::move(text) : std::nullopt;
}
