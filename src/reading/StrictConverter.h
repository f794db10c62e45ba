#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

/// A legacy encoding, which decodes strictly: what it can't explain is nothing, never a replacement
/// character. Line ends and control characters stay what they are in the file.
namespace StrictConverter {

/// The text of all the bytes.
std::optional<QString> decoded(QByteArrayView bytes, const char *encoding);

/// As much as is text from the first byte on: all, unless `bytes` is less than there are. A last
/// character that is cut off isn't missed.
struct Beginning {
    QString text;
    qsizetype bytes = 0;
};
Beginning decodedBeginning(QByteArrayView bytes, const char *encoding);

} // namespace StrictConverter
