#pragma once

#include "document/TextPieces.h"
#include "platform/FileContent.h"

#include <QString>

#include <optional>

/// A text on its way into the pane, made ready on another thread.
struct IncomingText {
    QString text;
    FileContent utf8; ///< in place of the text, where decoding it would keep the reader waiting
    TextPieces::Shape shape;

    IncomingText() = default;
    /// Looks at all of the text: at a large one on another thread.
    explicit IncomingText(const QString &text);

    bool isDecoded() const { return utf8.bytes().isNull(); }

    /// Whether there is memory for the document that it will be in, as far as one can tell.
    bool hasRoom() const;
};

/// The text of an ordinary file, whole or not at all: nothing for what is no text, can't be read, or is
/// larger than there is room for. In an encoding that is named as for `decodedText`, or in the one that the
/// bytes are found to be in.
std::optional<IncomingText> textOfFile(const QString &path, const QByteArray &encoding = {});
