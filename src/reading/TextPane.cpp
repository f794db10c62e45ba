#include "reading/TextPane.h"

#include "reading/ReadingText.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>

TextPane::TextPane(ReadingText &text, const State<double> &fontSize)
{
    setAccessibleName(tr("テキスト"));
    setTabChangesFocus(true);
    setDocument(text.document());
    follow(
        this, [&fontSize] { return fontSize.value(); },
        [this](double points) {
            QFont system = QApplication::font();
            system.setPointSizeF(points);
            setFont(system);
        });
    connect(&text, &ReadingText::assigned, this, [this] {
        moveCursor(QTextCursor::Start);
        verticalScrollBar()->setValue(0);
    });
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
    textCursor().insertText(source->text());
    ensureCursorVisible();
}

void TextPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier)
        textCursor().insertText(QStringLiteral("\t"));
    else
        QPlainTextEdit::keyPressEvent(event);
}
