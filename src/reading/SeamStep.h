#pragma once

#include <QTextCursor>

class PiecedDocument;
class QKeyEvent;

/// Where a key goes on from: on either side of a seam the caret is at the same place in the text, so a key
/// that moves or deletes towards the seam begins on its other side.
QTextCursor acrossSeam(const PiecedDocument &document, QTextCursor cursor, const QKeyEvent &event);
