#include "document/PiecedDocument.h"

#include <QPlainTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

using End = TextPieces::End;

namespace {

// The format of the character between two blocks says what it stands for. It comes and goes with that
// character, also when an edit is undone.
constexpr int kindProperty = QTextFormat::UserProperty;

QTextCharFormat separator(End end)
{
    QTextCharFormat format;
    if (end != End::Line)
        format.setProperty(kindProperty, int(end));
    return format;
}

End kindBefore(const QTextBlock &block)
{
    const QVariant kind = block.charFormat().property(kindProperty);
    return kind.isValid() ? End(kind.toInt()) : End::Line;
}

QString sharingABlock(QStringView lines)
{
    QString text = lines.toString();
    text.replace(QLatin1String("\r\n"), QString(QChar::LineSeparator));
    for (QChar &c : text) {
        if (c == u'\n' || c == u'\r' || c == QChar::ParagraphSeparator || c == u'\ufdd0' || c == u'\ufdd1')
            c = QChar::LineSeparator;
    }
    return text;
}

} // namespace

PiecedDocument::PiecedDocument()
{
    setDocumentLayout(new QPlainTextDocumentLayout(this));
    connect(this, &QTextDocument::contentsChange, this,
            [this](int position, int removed, int added) { m_seams.follow(position, removed, added); });
}

void PiecedDocument::startOver(const TextPieces::Shape &shape)
{
    m_seams.forget();
    clear();
    m_shape = shape;
    m_hasSeams = false;
    m_formatOfSeams = m_formatOfLineEnds = noFormat;
}

void PiecedDocument::append(const TextPieces::Piece &piece)
{
    QTextCursor end(this);
    end.movePosition(QTextCursor::End);
    put(end, piece);
}

void PiecedDocument::showSize()
{
    emit documentLayout()->documentSizeChanged(documentLayout()->documentSize());
}

void PiecedDocument::put(QTextCursor &cursor, const TextPieces::Piece &piece)
{
    cursor.insertText(m_shape.sharing ? sharingABlock(piece.text) : piece.text.toString(),
                      QTextCharFormat());
    if (piece.end == End::Text)
        return;
    cursor.insertBlock(QTextBlockFormat(), separator(piece.end));
    m_hasSeams = m_hasSeams || piece.end == End::Seam;
}

void PiecedDocument::insert(QTextCursor cursor, const QString &text)
{
    TextPieces::Shape shape = TextPieces::shapeOf(text);
    shape.sharing = m_shape.sharing;
    shape.block = m_shape.block;
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (TextPieces pieces(text, shape); !pieces.atEnd();)
        put(cursor, pieces.next());
    cursor.endEditBlock();
    endStep();
}

// Qt joins no two edits across a state to which one might want to return: that of the saved text.
void PiecedDocument::endStep()
{
    setModified(false);
}

// At a seam it takes the seam's place, lest an empty block be left.
void PiecedDocument::insertLineEnd(QTextCursor cursor)
{
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.setPosition(acrossSeamForward(cursor.position()));
    if (isSeamBefore(cursor.block()) && cursor.atBlockStart())
        cursor.deletePreviousChar();
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    cursor.endEditBlock();
}

// Asked of very many blocks: those of one kind share a format, so its number tells.
bool PiecedDocument::isSeamBefore(const QTextBlock &block) const
{
    if (!m_hasSeams || !block.isValid())
        return false;
    const int format = block.charFormatIndex();
    if (format != m_formatOfSeams && format != m_formatOfLineEnds)
        (kindBefore(block) == End::Seam ? m_formatOfSeams : m_formatOfLineEnds) = format;
    return format == m_formatOfSeams && block != begin();
}

int PiecedDocument::acrossSeamBackward(int position) const
{
    const QTextBlock block = findBlock(position);
    return position == block.position() && isSeamBefore(block) ? position - 1 : position;
}

int PiecedDocument::acrossSeamForward(int position) const
{
    const QTextBlock next = findBlock(position).next();
    return next.isValid() && position + 1 == next.position() && isSeamBefore(next) ? position + 1
                                                                                   : position;
}

// Where the line on the screen ends that goes through the position, the position itself if it begins there.
int PiecedDocument::lineEndFrom(int position) const
{
    const QTextBlock block = findBlock(position);
    documentLayout()->blockBoundingRect(block); // lays it out
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    if (!line.isValid() || block.position() + line.textStart() == position)
        return position;
    return block.position() + line.textStart() + line.textLength();
}

// The text stays what it is, so nobody is told of a change.
void PiecedDocument::fitSeamAfter(QTextBlock block)
{
    if (isUndoAvailable() || isRedoAvailable())
        return;
    const QSignalBlocker untold(this);
    const bool undoing = isUndoRedoEnabled();
    setUndoRedoEnabled(false);
    const int start = block.position();
    for (bool isFit = false; !isFit && isSeamBefore(block.next()) && block.next().length() > 1;
         block = findBlock(start)) {
        QTextCursor seam(this);
        seam.setPosition(start + block.length() - 1);
        seam.deleteChar();
        m_seams.follow(seam.position(), 1, 0);
        const int end = lineEndFrom(seam.position());
        isFit = end < start + findBlock(start).length() - 1;
        if (isFit) {
            seam.setPosition(end);
            seam.insertBlock(QTextBlockFormat(), separator(End::Seam));
            m_seams.follow(end, 0, 1);
        }
    }
    setUndoRedoEnabled(undoing);
}

QTextCursor PiecedDocument::lineAround(int position) const
{
    QTextBlock first = findBlock(position), last = first;
    const QChar between = m_shape.sharing ? QChar(QChar::LineSeparator) : QChar(QChar::ParagraphSeparator);
    const int at = position - first.position();
    auto start = at > 0 ? first.text().lastIndexOf(between, at - 1) : -1;
    while (start < 0 && isSeamBefore(first)) {
        first = first.previous();
        start = first.text().lastIndexOf(between);
    }
    auto end = last.text().indexOf(between, at);
    while (end < 0 && isSeamBefore(last.next())) {
        last = last.next();
        end = last.text().indexOf(between);
    }
    QTextCursor line(const_cast<PiecedDocument *>(this));
    line.setPosition(first.position() + int(start) + 1);
    line.setPosition(last.position() + int(end < 0 ? last.length() - 1 : end), QTextCursor::KeepAnchor);
    line.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    return line;
}

int PiecedDocument::offsetOf(int position) const
{
    return m_hasSeams ? position - m_seams.seamsBefore(position) : position;
}

int PiecedDocument::positionOf(int offset) const
{
    return m_hasSeams ? m_seams.positionBehind(offset) : std::clamp(offset, 0, characterCount() - 1);
}

TextStretch PiecedDocument::stretch(int from, int to) const
{
    std::vector<int> seams;
    for (QTextBlock block = m_hasSeams ? findBlock(from).next() : QTextBlock();
         block.isValid() && block.position() <= to; block = block.next()) {
        if (isSeamBefore(block))
            seams.push_back(block.position() - 1);
    }
    return {text(from, to), from, std::move(seams)};
}

QString PiecedDocument::text(int from, int to) const
{
    QTextCursor range(const_cast<PiecedDocument *>(this));
    QString text;
    if (from == 0 && to == characterCount() - 1) {
        text = toRawText(); // not toPlainText, which also turns no-break spaces into spaces
    } else {
        range.setPosition(from);
        range.setPosition(to, QTextCursor::KeepAnchor);
        text = range.selectedText();
    }
    if (m_shape.sharing)
        text.replace(QChar::LineSeparator, u'\n');
    if (isPlain())
        return text.replace(QChar::ParagraphSeparator, u'\n');

    qsizetype kept = 0, copied = 0;
    const auto keep = [&](qsizetype until) {
        std::copy(text.begin() + copied, text.begin() + until, text.begin() + kept);
        kept += until - copied;
        copied = until + 1;
    };
    for (QTextBlock block = findBlock(from).next(); block.isValid() && block.position() <= to;
         block = block.next()) {
        const qsizetype between = block.position() - 1 - from;
        const End kind = kindBefore(block);
        keep(between);
        if (kind != End::Seam)
            text[kept++] = kind == End::LineSeparator ? QChar(QChar::LineSeparator) : QChar(u'\n');
    }
    keep(text.size());
    text.truncate(kept);
    return text;
}
