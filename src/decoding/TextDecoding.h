#pragma once

#include "decoding/StrictConverter.h"

/// The text that the bytes of a file stand for, without a byte order mark, which is no part of the text.
/// Nothing unless every byte is accounted for.
std::optional<QString> decodedText(QByteArrayView bytes);
std::optional<TextParts> decodedParts(QByteArrayView bytes);
