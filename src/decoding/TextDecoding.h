#pragma once

#include "decoding/StrictConverter.h"

/// The text that the bytes of a file stand for, without a byte order mark, which is no part of the text.
/// Nothing unless every byte is accounted for.
std::optional<QString> decodedText(QByteArrayView bytes);

/// The same in an encoding that somebody else has told: "UTF-8", or a name of the table (Encodings.h). By
/// the bytes themselves where the name is empty.
std::optional<QString> decodedText(QByteArrayView bytes, QByteArrayView encoding);
std::optional<TextParts> decodedParts(QByteArrayView bytes, QByteArrayView encoding = {});
