#pragma once

#include "decoding/Encodings.h"

#include <QString>

#include <optional>

/// A text as it is decoded: a large one by two threads. To put it together takes its time.
struct TextParts {
    QString first, second;

    qsizetype size() const { return first.size() + second.size(); }
    QString whole() const { return second.isEmpty() ? first : first + second; }
};

/// Decodes strictly: bytes that mean nothing in the encoding make no text, never a replacement character.
/// Line ends and control characters stay what they are in the file.
namespace StrictConverter {

/// The text of all the bytes.
std::optional<TextParts> decoded(QByteArrayView bytes, const Encoding &encoding);

/// As much as is text from the first byte on. Where the last character is cut off, as it may be when the
/// bytes are only the beginning of a file, it counts as read.
struct Beginning {
    QString text;
    qsizetype bytes = 0;
};
Beginning decodedBeginning(QByteArrayView bytes, const Encoding &encoding);

} // namespace StrictConverter
