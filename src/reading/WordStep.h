#pragma once

#include <QTextCursor>

class PiecedDocument;
class QKeyEvent;

// Words in a document, wherever its seams are.

/// Selects the word that has the character behind the position.
QTextCursor wordAround(const PiecedDocument &document, int position);

/// Does what a key says that goes, selects or deletes by words; false when the key is another.
bool stepByWord(const PiecedDocument &document, QTextCursor &cursor, const QKeyEvent &key);
