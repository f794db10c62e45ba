#pragma once

#include "decoding/Encodings.h"

/// What was looked for in the bytes of a file.
struct Findings {
    bool isValidUtf8 = true;
    bool hasZeros = false;
    bool hasEscapes = false;

    // Neither does an escape stand for another encoding, nor is a zero the half of a character.
    bool isUtf8ForSure() const { return isValidUtf8 && !hasZeros && !hasEscapes; }
};
Findings findings(QByteArrayView bytes);

/// The encoding whose mark is at the beginning; null where there is none, or UTF-8's.
const Encoding *markedEncoding(QByteArrayView bytes);

/// The encoding of which there is an escape; null where there is none.
const Encoding *escapingEncoding(QByteArrayView bytes);

/// Whether the text is what `QString::fromUtf8` makes of the bytes, found out several times faster than
/// that is made. Some odd texts in UTF-8 count as none here.
bool isPlainUtf8(QByteArrayView bytes);
