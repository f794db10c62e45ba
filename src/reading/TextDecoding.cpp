#include "reading/TextDecoding.h"

#include <QUtf8StringView>

#include <limits>

std::optional<QString> decodedText(const QByteArray &bytes)
{
    // Positions in a document are ints, and the last one is past the end.
    constexpr qsizetype mostCharacters = std::numeric_limits<int>::max() - 1;
    if (!QUtf8StringView(bytes).isValidUtf8())
        return std::nullopt;
    QString text = QString::fromUtf8(bytes); // leaves the byte order mark out
    if (text.size() > mostCharacters)
        return std::nullopt;
    return text;
}
