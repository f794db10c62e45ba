#include "reading/WordBoundaries.h"

#include <QTextBoundaryFinder>

#include <unicode/ubrk.h>

#include <algorithm>

using WordBoundaries::Word;

namespace {

// A sentence is divided as a whole, so that its words are the same from wherever it is looked at; what has
// no end within so many characters is cut.
constexpr qsizetype longestSentence = 400;

bool endsLine(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool endsSentence(QChar c)
{
    return endsLine(c) || c == u'。' || c == u'．' || c == u'！' || c == u'？' || c == u'!' || c == u'?';
}

bool isBlank(QChar c)
{
    return c.isSpace() && !endsLine(c);
}

// With its end.
Word sentenceAround(QStringView text, qsizetype index)
{
    qsizetype start = index, end = index;
    while (start > 0 && index - start < longestSentence && !endsSentence(text[start - 1]))
        --start;
    while (end < text.size() && end - index < longestSentence && !endsSentence(text[end]))
        ++end;
    if (start > 0 && text[start].isLowSurrogate())
        --start;
    return {start, std::min(end + 1, text.size())};
}

// Kept for good: to open one takes longer than to divide a page.
UBreakIterator *divider()
{
    static UBreakIterator *iterator = [] {
        UErrorCode error = U_ZERO_ERROR;
        UBreakIterator *opened = ubrk_open(UBRK_WORD, "ja", nullptr, 0, &error);
        return U_SUCCESS(error) ? opened : nullptr;
    }();
    return iterator;
}

Word wordIn(QStringView sentence, qsizetype index)
{
    UErrorCode error = U_ZERO_ERROR;
    if (UBreakIterator *words = divider()) {
        ubrk_setText(words, sentence.utf16(), int32_t(sentence.size()), &error);
        const int32_t end = ubrk_following(words, int32_t(index));
        if (U_SUCCESS(error) && end != UBRK_DONE)
            return {ubrk_previous(words), end};
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, sentence.data(), sentence.size());
    finder.setPosition(index);
    const qsizetype end = finder.toNextBoundary();
    return {finder.toPreviousBoundary(), end};
}

} // namespace

Word WordBoundaries::around(QStringView text, qsizetype index)
{
    if (text.isEmpty())
        return {};
    index = std::clamp<qsizetype>(index, 0, text.size() - 1);
    const Word sentence = sentenceAround(text, index);
    const Word word =
        wordIn(text.sliced(sentence.start, sentence.end - sentence.start), index - sentence.start);
    return {sentence.start + word.start, sentence.start + word.end};
}

qsizetype WordBoundaries::next(QStringView text, qsizetype place)
{
    if (place >= text.size())
        return text.size();
    qsizetype to = around(text, place).end;
    while (to < text.size() && isBlank(text[to]))
        ++to;
    return to;
}

qsizetype WordBoundaries::previous(QStringView text, qsizetype place)
{
    const qsizetype from = place;
    while (place > 0 && isBlank(text[place - 1]))
        --place;
    const bool isLineStart = place == 0 || endsLine(text[place - 1]);
    return isLineStart && place < from ? place : place == 0 ? 0 : around(text, place - 1).start;
}
