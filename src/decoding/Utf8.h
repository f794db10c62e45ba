#pragma once

#include <QByteArrayView>

/// Whether the bytes are UTF-8 from the first to the last. At some gigabytes in a second for Latin and for
/// Japanese text, so that a file is known to be one before its first lines are due on the screen.
bool isValidUtf8(QByteArrayView bytes);

/// Where the character begins that has a byte at the place, which may be the end.
qsizetype characterStart(QByteArrayView utf8, qsizetype place);
