#pragma once

#include <QByteArrayView>

#include <vector>

/// The encodings, likeliest first, in which these bytes make a plausible text, by a bounded sample of
/// them. None when they make none anywhere: then it is no text, or one that somebody has damaged.
std::vector<const char *> plausibleEncodings(QByteArrayView bytes);
