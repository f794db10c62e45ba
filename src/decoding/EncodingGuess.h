#pragma once

#include "decoding/Encodings.h"

/// The encodings, likeliest first, in which these bytes make a plausible text, by a bounded sample of
/// them; null stands for a text in UTF-8 that somebody has damaged. None when they make no text in any.
/// Encodings that are told by their escapes are left out.
std::vector<const Encoding *> plausibleEncodings(QByteArrayView bytes);
