#pragma once

#include "decoding/Encodings.h"

#include <QString>

#include <optional>

/// Decodes strictly: bytes that mean nothing in the encoding make no text, never a replacement character.
/// Line ends and control characters stay what they are in the file.
namespace StrictConverter {

/// The text of all the bytes.
std::optional<QString> decoded(QByteArrayView bytes, const Encoding &encoding);

/// As much as is text from the first byte on. Where the last character is cut off, as it may be when the
/// bytes are only the beginning of a file, it counts as read.
struct Beginning {
    QString text;
    qsizetype bytes = 0;
};
Beginning decodedBeginning(QByteArrayView bytes, const Encoding &encoding);

} // namespace StrictConverter
