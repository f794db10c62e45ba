#include "decoding/TextDecoding.h"

#include "decoding/EncodingGuess.h"
#include "decoding/LargeText.h"
#include "decoding/PlainUtf8.h"
#include "decoding/Utf8.h"

namespace {

std::optional<TextParts> decodedByGuess(QByteArrayView bytes, bool isValidUtf8)
{
    const auto likely = plausibleEncodings(bytes);
    // A valid text in UTF-8 is one, whatever it holds, unless its zeros make sense as halves of characters.
    if (isValidUtf8 && (likely.empty() || !likely.front() || !likely.front()->isWide()))
        return TextParts{QString::fromUtf8(bytes), {}};
    for (const Encoding *encoding : likely) {
        if (auto text = encoding ? StrictConverter::decoded(bytes, *encoding) : std::nullopt)
            return text;
    }
    return std::nullopt;
}

std::optional<TextParts> decoded(QByteArrayView bytes)
{
    if (const Encoding *encoding = markedEncoding(bytes))
        return StrictConverter::decoded(bytes.sliced(encoding->mark.size()), *encoding);
    const Findings found = findings(bytes);
    if (found.isUtf8ForSure())
        return TextParts{QString::fromUtf8(bytes), {}}; // leaves a mark out
    if (const Encoding *encoding = escapingEncoding(bytes)) {
        if (auto text = StrictConverter::decoded(bytes, *encoding))
            return text;
    }
    if (found.isValidUtf8 && !found.hasZeros)
        return TextParts{QString::fromUtf8(bytes), {}};
    const bool saysUtf8 = bytes.startsWith("\xef\xbb\xbf");
    return saysUtf8 && !found.isValidUtf8 ? std::nullopt : decodedByGuess(bytes, found.isValidUtf8);
}

std::optional<TextParts> decodedAs(QByteArrayView bytes, QByteArrayView name)
{
    if (name == "UTF-8")
        return isValidUtf8(bytes) ? std::optional(TextParts{QString::fromUtf8(bytes), {}}) : std::nullopt;
    const Encoding *encoding = encodingNamed(name);
    if (!encoding)
        return std::nullopt;
    const bool isMarked = !encoding->mark.isEmpty() && bytes.startsWith(encoding->mark);
    return StrictConverter::decoded(isMarked ? bytes.sliced(encoding->mark.size()) : bytes, *encoding);
}

} // namespace

std::optional<TextParts> decodedParts(QByteArrayView bytes, QByteArrayView encoding)
{
    auto text = encoding.isEmpty() ? decoded(bytes) : decodedAs(bytes, encoding);
    return text && text->size() <= LargeText::mostCharacters ? std::move(text) : std::nullopt;
}

std::optional<QString> decodedText(QByteArrayView bytes, QByteArrayView encoding)
{
    const auto parts = decodedParts(bytes, encoding);
    return parts ? std::optional(parts->whole()) : std::nullopt;
}

std::optional<QString> decodedText(QByteArrayView bytes)
{
    return decodedText(bytes, {});
}
