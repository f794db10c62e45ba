#include "reading/TextPane.h"

#include "decoding/LargeText.h"
#include "document/ReadingText.h"
#include "platform/Memory.h"
#include "reading/LargePaste.h"
#include "reading/PaneAccessible.h"
#include "reading/Patience.h"
#include "reading/SeamStep.h"
#include "reading/WordStep.h"
#include "view/Notice.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>

#include <algorithm>

namespace {

// Nothing unless they are files, all of them: the address of a page is a text.
QList<QUrl> filesIn(const QMimeData &source)
{
    const QList<QUrl> urls = source.hasUrls() ? source.urls() : QList<QUrl>();
    return std::all_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); })
        ? urls
        : QList<QUrl>();
}

} // namespace

TextPane::TextPane(ReadingText &text, const State<double> &fontSize)
    : m_text(text)
    , m_patience(*new Patience(this))
{
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(paneAccessible);
        return true;
    }();
    setAccessibleName(tr("テキスト"));
    setTabChangesFocus(true);
    setDocument(&text.document());
    follow(
        this, [&fontSize] { return fontSize.value(); },
        [this](double points) {
            QFont font; // which follows the desktop's in all but its size
            font.setPointSizeF(points);
            setFont(font);
        });
    connect(&text, &ReadingText::leaving, this, &TextPane::writeDownPlace);
    connect(&text, &ReadingText::assigned, this, &TextPane::showAssigned);
    connect(&text, &ReadingText::returned, this, &TextPane::showReturned);
    connect(&text, &ReadingText::complete, this, [this] { m_seams.fitInView(); });
}

PiecedDocument &TextPane::piecedDocument() const
{
    return m_text.document();
}

void TextPane::showDocument()
{
    QTextDocument *shown = &m_text.document();
    if (document() == shown)
        return;
    setDocument(shown);
    if (shown->defaultFont() != font())
        shown->setDefaultFont(font());
    viewport()->update(); // which the edit leaves to the next change
}

void TextPane::showAssigned()
{
    showDocument();
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
    m_seams.fitInView();
}

void TextPane::showReturned()
{
    showDocument();
    const auto place = m_text.place();
    QTextCursor cursor(document());
    cursor.setPosition(place.anchor);
    cursor.setPosition(place.caret, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    verticalScrollBar()->setValue(place.scrolled);
    m_seams.refit();
}

void TextPane::writeDownPlace()
{
    m_text.place() = {.anchor = textCursor().anchor(),
                      .caret = textCursor().position(),
                      .scrolled = verticalScrollBar()->value()};
}

void TextPane::undo()
{
    m_text.undo();
}

void TextPane::redo()
{
    m_text.redo();
}

QSize TextPane::sizeHint() const
{
    return {100, 60};
}

bool TextPane::canInsertFromMimeData(const QMimeData *source) const
{
    return source && (source->hasText() || !filesIn(*source).isEmpty());
}

// A file that is moved here is still where it was: it is read, and no more. Who can only move it isn't told
// that it has been taken, and keeps it.
void TextPane::dropEvent(QDropEvent *event)
{
    const bool bringsFiles = !filesIn(*event->mimeData()).isEmpty();
    QPlainTextEdit::dropEvent(event);
    if (bringsFiles)
        event->setDropAction(event->possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::IgnoreAction);
}

// Files are for others to load. Otherwise only ever the plain text, whatever else the clipboard offers with
// it; nothing when there is none.
void TextPane::insertFromMimeData(const QMimeData *source)
{
    if (!canInsertFromMimeData(source))
        return;
    if (const QList<QUrl> files = filesIn(*source); !files.isEmpty())
        return emit filesGiven(files);
    try {
        const QString text = source->text();
        if (text.size() > LargeText::bytes)
            return pasteLargeText(*this, text);
        piecedDocument().insert(textCursor(), text);
        ensureCursorVisible();
    } catch (const std::bad_alloc &) {
        // What doesn't come out of the clipboard can't be pasted.
    }
}

bool TextPane::canCopy()
{
    const qint64 selected = textCursor().selectionEnd() - textCursor().selectionStart();
    constexpr qint64 most = 8; // bytes that a character takes on its way
    if (selected <= LargeText::bytes || isThereRoomFor(most * selected))
        return true;
    showNotice(QMessageBox::Warning, tr("コピーできませんでした。"), tr("メモリが足りません。"), window());
    return false;
}

void TextPane::copy()
{
    if (canCopy())
        QPlainTextEdit::copy();
}

void TextPane::cut()
{
    if (canCopy())
        QPlainTextEdit::cut();
}

QMimeData *TextPane::createMimeDataFromSelection() const
{
    return selected();
}

QMimeData *TextPane::selected() const
{
    auto *data = new QMimeData;
    data->setText(piecedDocument().text(textCursor().selectionStart(), textCursor().selectionEnd()));
    return data;
}

void TextPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        textCursor().insertText(QStringLiteral("\t"));
    } else if (event->matches(QKeySequence::InsertParagraphSeparator)) {
        piecedDocument().insertLineEnd(textCursor());
        ensureCursorVisible();
    } else if (event->matches(QKeySequence::Undo)) {
        undo();
    } else if (event->matches(QKeySequence::Redo)) {
        redo();
    } else if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Cut)) {
        cut();
    } else if (QTextCursor cursor = textCursor(); stepByWord(piecedDocument(), cursor, *event)) {
        setTextCursor(cursor);
    } else {
        type(event);
    }
}

// What is typed in one go, at one place, is one step back.
void TextPane::type(QKeyEvent *event)
{
    constexpr int pause = 2000; // milliseconds
    if (textCursor().position() != m_typedTo || !m_sinceTyped.isValid() || m_sinceTyped.hasExpired(pause))
        piecedDocument().endStep();
    const QTextCursor from = acrossSeam(piecedDocument(), textCursor(), *event);
    if (from.position() != textCursor().position())
        setTextCursor(from);
    const int revision = document()->revision();
    QPlainTextEdit::keyPressEvent(event);
    m_typedTo = document()->revision() == revision ? nowhere : textCursor().position();
    m_sinceTyped.start();
}

void TextPane::mousePressEvent(QMouseEvent *event)
{
    const bool extends = event->modifiers() & Qt::ShiftModifier;
    if (event->button() == Qt::LeftButton && !extends && m_clicks.isThird(event->pos()))
        m_clicks.thirdClick(event->pos());
    else
        QPlainTextEdit::mousePressEvent(event);
}

void TextPane::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_clicks.doubleClick(event->pos());
    else
        QPlainTextEdit::mouseDoubleClickEvent(event);
}

void TextPane::mouseMoveEvent(QMouseEvent *event)
{
    QPlainTextEdit::mouseMoveEvent(event);
    m_clicks.drag(event->pos());
}

void TextPane::mouseReleaseEvent(QMouseEvent *event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    m_clicks.release();
}

// It scrolls on while something is dragged beyond an edge.
void TextPane::timerEvent(QTimerEvent *event)
{
    QPlainTextEdit::timerEvent(event);
    m_clicks.drag(viewport()->mapFromGlobal(QCursor::pos()));
}

// The menu items that concern the text, which are the Edit menu's own.
void TextPane::contextMenuEvent(QContextMenuEvent *event)
{
    if (actions().isEmpty())
        return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    emit menuMade(menu);
    menu->popup(event->globalPos());
}

void TextPane::scrollContentsBy(int dx, int dy)
{
    QPlainTextEdit::scrollContentsBy(dx, dy);
    m_seams.fitInView();
}

void TextPane::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        m_seams.refit();
    else
        m_seams.fitInView();
}

void TextPane::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_seams.refit();
}
