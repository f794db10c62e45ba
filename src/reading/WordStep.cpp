#include "reading/WordStep.h"

#include "document/PiecedDocument.h"
#include "reading/WordBoundaries.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace {

enum class Does { Go, Select, Delete };

struct Step {
    QKeySequence::StandardKey key;
    bool forward;
    Does does;
};

constexpr Step steps[]{
    {QKeySequence::MoveToNextWord, true, Does::Go},
    {QKeySequence::MoveToPreviousWord, false, Does::Go},
    {QKeySequence::SelectNextWord, true, Does::Select},
    {QKeySequence::SelectPreviousWord, false, Does::Select},
    {QKeySequence::DeleteEndOfWord, true, Does::Delete},
    {QKeySequence::DeleteStartOfWord, false, Does::Delete},
};

TextStretch neighbourhood(const PiecedDocument &document, int position)
{
    constexpr int reach = 1000; // which holds two sentences, however long
    return document.stretch(std::max(0, position - reach),
                            std::min(document.characterCount() - 1, position + reach));
}

int nextWord(const PiecedDocument &document, int position)
{
    const TextStretch near = neighbourhood(document, position);
    return near.positionAt(WordBoundaries::next(near.text(), near.indexOf(position)));
}

int previousWord(const PiecedDocument &document, int position)
{
    const TextStretch near = neighbourhood(document, position);
    return near.positionAt(WordBoundaries::previous(near.text(), near.indexOf(position)));
}

} // namespace

QTextCursor wordAround(const PiecedDocument &document, int position)
{
    const TextStretch near = neighbourhood(document, position);
    const auto word = WordBoundaries::around(near.text(), near.indexOf(position));
    QTextCursor cursor(const_cast<PiecedDocument *>(&document));
    cursor.setPosition(near.positionAt(word.start));
    cursor.setPosition(near.positionBefore(word.end), QTextCursor::KeepAnchor);
    return cursor;
}

bool stepByWord(const PiecedDocument &document, QTextCursor &cursor, const QKeyEvent &key)
{
    const auto *step = std::find_if(std::begin(steps), std::end(steps),
                                    [&key](const Step &each) { return key.matches(each.key); });
    if (step == std::end(steps))
        return false;
    const auto wordFrom = step->forward ? nextWord : previousWord;
    if (step->does != Does::Delete || !cursor.hasSelection()) {
        const bool keepsAnchor = step->does != Does::Go;
        cursor.setPosition(wordFrom(document, cursor.position()),
                           keepsAnchor ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    }
    if (step->does == Does::Delete)
        cursor.removeSelectedText();
    return true;
}
