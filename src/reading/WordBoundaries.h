#pragma once

#include <QStringView>

/// Where words begin and end for a Japanese reader: found with a dictionary, not by the kind of the
/// characters. An emoji is one word however many characters it takes; so are blanks in a row; a line end is
/// one by itself. For the user-interface thread.
namespace WordBoundaries {

struct Word {
    qsizetype start = 0, end = 0;
};

/// The word with the character at the index; the last one at the end of the text.
Word around(QStringView text, qsizetype index);

/// Where the word behind the place begins; it ends at the end of a line.
qsizetype next(QStringView text, qsizetype place);

/// Where the word before the place begins; it ends at the beginning of a line.
qsizetype previous(QStringView text, qsizetype place);

} // namespace WordBoundaries
