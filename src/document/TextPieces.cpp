#include "document/TextPieces.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

// Only above these do the differences tell; below, a document is as Qt makes it.
constexpr qsizetype manyLines = 50'000;
// What walks over all blocks, like a change of the font, must stay within a frame or two.
constexpr qsizetype mostBlocks = 150'000;
constexpr qsizetype largeText = 16 << 20;
constexpr qsizetype leastShared = 100;
// No paragraph that a person has written is cut: once something is edited, a seam stays where it is, and a
// line on the screen may end early there.
constexpr qsizetype longLine = 2000;

// A document ends a paragraph at each of these, and gives all of them back as one and the same.
constexpr char16_t losing[] = {u'\r', QChar::ParagraphSeparator, u'\ufdd0', u'\ufdd1'};

bool isLineEnd(QChar c)
{
    return c == u'\n' || std::find(std::begin(losing), std::end(losing), c) != std::end(losing);
}

// One after the other: Qt looks for a single character much faster than for any of several.
bool holdsWhatLosesItself(QStringView text)
{
    return std::any_of(std::begin(losing), std::end(losing),
                       [text](char16_t c) { return text.contains(QChar(c)); });
}

template <class View, class Character> TextPieces::Shape layoutOf(View text, const Character (&lineEnds)[2])
{
    qsizetype lines = 0;
    for (const Character end : lineEnds) {
        for (qsizetype at = text.indexOf(end); at >= 0 && lines <= manyLines;
             at = text.indexOf(end, at + 1))
            ++lines;
    }
    TextPieces::Shape shape;
    shape.sharing = lines > manyLines;
    const qsizetype least = text.size() / mostBlocks;
    if (shape.sharing)
        shape.block = std::max(leastShared, least);
    shape.seam = std::max(shape.seam, least);
    return shape;
}

} // namespace

TextPieces::Shape TextPieces::shapeOf(QStringView text)
{
    Shape shape = layoutOf(text, {u'\n', u'\r'});
    shape.keepsWhole = isWorthKeeping(text);
    return shape;
}

TextPieces::Shape TextPieces::shapeOfUtf8(QByteArrayView bytes)
{
    return layoutOf(bytes, {'\n', '\r'});
}

bool TextPieces::isWorthKeeping(QStringView text)
{
    return text.size() > largeText || holdsWhatLosesItself(text);
}

TextPieces::TextPieces(QStringView text, const Shape &shape)
    : m_text(text)
    , m_shape(shape)
    , m_done(false)
{
}

bool TextPieces::endsBlock(QChar c) const
{
    return isLineEnd(c) || (m_shape.sharing && c == QChar::LineSeparator);
}

qsizetype TextPieces::pastLineEnd(qsizetype at) const
{
    const bool pair = m_text[at] == u'\r' && at + 1 < m_text.size() && m_text[at + 1] == u'\n';
    return at + (pair ? 2 : 1);
}

TextPieces::Piece TextPieces::take(qsizetype to, qsizetype next, End end)
{
    const Piece piece{m_text.sliced(m_from, to - m_from), end};
    m_from = next;
    m_inLongLine = end == End::Seam;
    m_done = end == End::Text;
    return piece;
}

TextPieces::Piece TextPieces::next()
{
    const qsizetype longest = m_inLongLine ? m_shape.seam + 100 : std::max(m_shape.seam + 100, longLine);
    qsizetype line = m_from;    // where the present line begins
    qsizetype lineEnd = m_from; // where the one before it ended
    for (qsizetype i = m_from; i < m_text.size();) {
        if (!endsBlock(m_text[i])) {
            ++i;
            if (i - line <= longest)
                continue;
            return line > m_from
                ? take(lineEnd, line, End::Line)
                : take(seamBefore(line + m_shape.seam), seamBefore(line + m_shape.seam), End::Seam);
        }
        if (m_text[i] == QChar::LineSeparator)
            return take(i, i + 1, End::LineSeparator);
        if (line > m_from && i - m_from > m_shape.block)
            return take(lineEnd, line, End::Line);
        lineEnd = i;
        line = i = pastLineEnd(i);
    }
    return take(m_text.size(), m_text.size(), End::Text);
}

// Behind a blank or a punctuation mark where there is one near, never inside what one sees as one
// character.
qsizetype TextPieces::seamBefore(qsizetype latest) const
{
    constexpr qsizetype near = 60;
    for (qsizetype at = latest; at > latest - near; --at) {
        const QChar before = m_text[at - 1];
        if ((before.isSpace() || before.isPunct()) && !m_text[at].isMark() && !m_text[at].isPunct()
            && m_text[at] != u'\u200d')
            return at;
    }
    const qsizetype from = latest - near;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, m_text.data() + from, 2 * near);
    finder.setPosition(near);
    const auto boundary = finder.isAtBoundary() ? near : finder.toPreviousBoundary();
    return boundary > 0 ? from + boundary : latest;
}
