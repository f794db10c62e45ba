#include "decoding/TextDecoding.h"

#include "decoding/BothAtOnce.h"
#include "decoding/EncodingGuess.h"
#include "decoding/LargeText.h"
#include "decoding/StrictConverter.h"
#include "decoding/Utf8.h"

#include <algorithm>

namespace {

const Encoding *markedEncoding(QByteArrayView bytes)
{
    const auto &all = encodings();
    const auto found = std::find_if(all.begin(), all.end(), [bytes](const Encoding &encoding) {
        return !encoding.mark.isEmpty() && bytes.startsWith(encoding.mark);
    });
    return found == all.end() ? nullptr : &*found;
}

// A terminal's colours are escape sequences, too, but others.
const Encoding *escapingEncoding(QByteArrayView bytes)
{
    if (!bytes.contains('\x1b'))
        return nullptr;
    for (const Encoding &encoding : encodings()) {
        for (const QByteArrayView escape : encoding.escapes) {
            if (bytes.contains(escape))
                return &encoding;
        }
    }
    return nullptr;
}

// What was looked for in the bytes of a file.
struct Findings {
    bool isValidUtf8 = true;
    bool hasZeros = false;
    bool hasEscapes = false;

    // Neither does an escape stand for another encoding, nor is a zero the half of a character.
    bool isUtf8ForSure() const { return isValidUtf8 && !hasZeros && !hasEscapes; }
};

// In pieces that the processor keeps near, since it looks at each several times.
Findings lookedThrough(QByteArrayView bytes)
{
    constexpr qsizetype nearby = 128 << 10;
    Findings found;
    while (found.isValidUtf8 && !bytes.isEmpty()) {
        const auto piece = bytes.first(characterStart(bytes, std::min(bytes.size(), nearby)));
        found.isValidUtf8 = !piece.isEmpty() && isValidUtf8(piece);
        found.hasZeros = found.hasZeros || piece.contains('\0');
        found.hasEscapes = found.hasEscapes || piece.contains('\x1b');
        bytes = bytes.sliced(piece.size());
    }
    return found;
}

Findings findings(QByteArrayView bytes)
{
    if (bytes.size() <= LargeText::bytes)
        return lookedThrough(bytes);
    const qsizetype half = characterStart(bytes, bytes.size() / 2);
    const auto [later, first] = bothAtOnce([=] { return lookedThrough(bytes.sliced(half)); },
                                           [=] { return lookedThrough(bytes.first(half)); });
    return {.isValidUtf8 = first.isValidUtf8 && later.isValidUtf8,
            .hasZeros = first.hasZeros || later.hasZeros,
            .hasEscapes = first.hasEscapes || later.hasEscapes};
}

std::optional<QString> decodedByGuess(QByteArrayView bytes, bool isValidUtf8)
{
    const auto likely = plausibleEncodings(bytes);
    // A valid text in UTF-8 is one, whatever it holds, unless its zeros make sense as halves of characters.
    if (isValidUtf8 && (likely.empty() || !likely.front() || !likely.front()->isWide()))
        return QString::fromUtf8(bytes);
    for (const Encoding *encoding : likely) {
        if (auto text = encoding ? StrictConverter::decoded(bytes, *encoding) : std::nullopt)
            return text;
    }
    return std::nullopt;
}

std::optional<QString> decoded(QByteArrayView bytes)
{
    if (const Encoding *encoding = markedEncoding(bytes))
        return StrictConverter::decoded(bytes.sliced(encoding->mark.size()), *encoding);
    const Findings found = findings(bytes);
    if (found.isUtf8ForSure())
        return QString::fromUtf8(bytes); // leaves a mark out
    if (const Encoding *encoding = escapingEncoding(bytes)) {
        if (auto text = StrictConverter::decoded(bytes, *encoding))
            return text;
    }
    if (found.isValidUtf8 && !found.hasZeros)
        return QString::fromUtf8(bytes);
    const bool saysUtf8 = bytes.startsWith("\xef\xbb\xbf");
    return saysUtf8 && !found.isValidUtf8 ? std::nullopt : decodedByGuess(bytes, found.isValidUtf8);
}

std::optional<QString> decodedAs(QByteArrayView bytes, QByteArrayView name)
{
    if (name == "UTF-8")
        return isValidUtf8(bytes) ? std::optional(QString::fromUtf8(bytes)) : std::nullopt;
    const Encoding *encoding = encodingNamed(name);
    if (!encoding)
        return std::nullopt;
    const bool isMarked = !encoding->mark.isEmpty() && bytes.startsWith(encoding->mark);
    return StrictConverter::decoded(isMarked ? bytes.sliced(encoding->mark.size()) : bytes, *encoding);
}

} // namespace

bool isPlainUtf8(QByteArrayView bytes)
{
    if (markedEncoding(bytes))
        return false;
    const Findings found = findings(bytes);
    return found.isUtf8ForSure() || (found.isValidUtf8 && !found.hasZeros && !escapingEncoding(bytes));
}

std::optional<QString> decodedText(QByteArrayView bytes)
{
    return decodedText(bytes, {});
}

std::optional<QString> decodedText(QByteArrayView bytes, QByteArrayView encoding)
{
    auto text = encoding.isEmpty() ? decoded(bytes) : decodedAs(bytes, encoding);
    return text && text->size() <= LargeText::mostCharacters ? std::move(text) : std::nullopt;
}
