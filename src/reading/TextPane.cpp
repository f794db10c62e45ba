#include "reading/TextPane.h"

#include "reading/PaneAccessible.h"
#include "reading/ReadingText.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

bool isAnyOf(const QKeyEvent &event, std::initializer_list<QKeySequence::StandardKey> keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [&event](QKeySequence::StandardKey key) { return event.matches(key); });
}

} // namespace

TextPane::TextPane(ReadingText &text, const State<double> &fontSize)
    : m_document(*text.document())
{
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(paneAccessible);
        return true;
    }();
    setAccessibleName(tr("テキスト"));
    setTabChangesFocus(true);
    setDocument(text.document());
    follow(
        this, [&fontSize] { return fontSize.value(); },
        [this](double points) {
            QFont system = QApplication::font();
            system.setPointSizeF(points);
            setFont(system);
            refitSeams();
        });
    connect(&text, &ReadingText::assigned, this, [this] {
        moveCursor(QTextCursor::Start);
        verticalScrollBar()->setValue(0);
        fitSeamsInView();
    });
    connect(&text, &ReadingText::complete, this, &TextPane::fitSeamsInView);
}

QSize TextPane::sizeHint() const
{
    return {100, 60};
}

bool TextPane::canInsertFromMimeData(const QMimeData *source) const
{
    return source && source->hasText();
}

// Only ever the plain text, whatever else the clipboard offers with it; nothing when there is none.
void TextPane::insertFromMimeData(const QMimeData *source)
{
    if (!canInsertFromMimeData(source))
        return;
    m_document.insert(textCursor(), source->text());
    ensureCursorVisible();
}

QMimeData *TextPane::createMimeDataFromSelection() const
{
    auto *data = new QMimeData;
    data->setText(m_document.text(textCursor().selectionStart(), textCursor().selectionEnd()));
    return data;
}

// On either side of a seam the caret is at the same place in the text, so that a key goes on from the
// other side.
void TextPane::stepAcrossSeam(const QKeyEvent &event)
{
    const bool selecting = isAnyOf(event,
                                   {QKeySequence::SelectPreviousChar, QKeySequence::SelectPreviousWord,
                                    QKeySequence::SelectNextChar, QKeySequence::SelectNextWord});
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection() && !selecting)
        return;
    int to = cursor.position();
    if (isAnyOf(event,
                {QKeySequence::MoveToPreviousChar, QKeySequence::MoveToPreviousWord,
                 QKeySequence::SelectPreviousChar, QKeySequence::SelectPreviousWord,
                 QKeySequence::DeleteStartOfWord, QKeySequence::Backspace})
        || event.key() == Qt::Key_Backspace)
        to = m_document.acrossSeamBackward(to);
    else if (isAnyOf(event,
                     {QKeySequence::MoveToNextChar, QKeySequence::MoveToNextWord,
                      QKeySequence::SelectNextChar, QKeySequence::SelectNextWord,
                      QKeySequence::DeleteEndOfWord, QKeySequence::Delete, QKeySequence::DeleteEndOfLine}))
        to = m_document.acrossSeamForward(to);
    if (to == cursor.position())
        return;
    cursor.setPosition(to, selecting ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    setTextCursor(cursor);
}

void TextPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        textCursor().insertText(QStringLiteral("\t"));
    } else if (event->matches(QKeySequence::InsertParagraphSeparator)) {
        m_document.insertLineEnd(textCursor());
        ensureCursorVisible();
    } else {
        stepAcrossSeam(*event);
        QPlainTextEdit::keyPressEvent(event);
    }
}

// A third click selects a block, and shows its end; what is meant is a line of the text.
void TextPane::mousePressEvent(QMouseEvent *event)
{
    const QTextCursor before = textCursor();
    const int clicked = cursorForPosition(event->pos()).position();
    const int scrolled = verticalScrollBar()->value();
    QPlainTextEdit::mousePressEvent(event);
    const QTextCursor now = textCursor();
    const QTextBlock block = m_document.findBlock(now.selectionStart());
    const bool isBlock = now.hasSelection() && now.selectionStart() == block.position()
        && now.selectionEnd() >= block.position() + block.length() - 1;
    // One that was there before is about to be dragged or extended.
    const bool isNew =
        before.selectionStart() != now.selectionStart() || before.selectionEnd() != now.selectionEnd();
    if (!isBlock || !isNew || (event->modifiers() & Qt::ShiftModifier))
        return;
    setTextCursor(m_document.lineAround(clicked));
    verticalScrollBar()->setValue(scrolled);
}

void TextPane::scrollContentsBy(int dx, int dy)
{
    QPlainTextEdit::scrollContentsBy(dx, dy);
    fitSeamsInView();
}

void TextPane::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        refitSeams();
    else
        fitSeamsInView();
}

void TextPane::refitSeams()
{
    ++m_fit;
    fitSeamsInView();
}

// Before it is painted, but not in the middle of what changes the view.
void TextPane::fitSeamsInView()
{
    if (!m_document.hasSeams() || std::exchange(m_isFitting, true))
        return;
    QMetaObject::invokeMethod(this, &TextPane::fitSeams, Qt::QueuedConnection);
}

void TextPane::fitSeams()
{
    m_isFitting = false;
    // What an input method is composing lies in the layout of its block, and would go with it.
    if (!textCursor().block().layout()->preeditAreaText().isEmpty())
        return;
    double top = contentOffset().y();
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && top < viewport()->height();
         block = block.next()) {
        const int start = block.position();
        if (block.userState() != m_fit) {
            m_document.fitSeamAfter(block);
            block = m_document.findBlock(start);
            block.setUserState(m_fit);
        }
        top += blockBoundingRect(block).height();
    }
}
