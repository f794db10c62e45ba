#include "reading/PaneAccessible.h"

#include "document/PiecedDocument.h"
#include "reading/TextPane.h"
#include "reading/WordBoundaries.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessibleWidget>
#include <QTextBlock>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

struct Span {
    int start = 0, end = 0;
};

// An offset counts characters of the text, a position places in the document, which has one more at
// each seam.
class PaneAccessible : public QAccessibleWidget,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface {
public:
    explicit PaneAccessible(TextPane *pane)
        : QAccessibleWidget(pane, QAccessible::EditableText, pane->accessibleName())
        , m_pane(*pane)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = state.multiLine = state.selectableText = true;
        return state;
    }
    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? document().text() : QAccessibleWidget::text(what);
    }
    void setText(QAccessible::Text what, const QString &text) override
    {
        if (what == QAccessible::Value)
            replaceText(0, characterCount(), text);
    }

    void selection(int, int *start, int *end) const override
    {
        *start = document().offsetOf(m_pane.textCursor().selectionStart());
        *end = document().offsetOf(m_pane.textCursor().selectionEnd());
    }
    int selectionCount() const override { return m_pane.textCursor().hasSelection() ? 1 : 0; }
    void addSelection(int start, int end) override { m_pane.setTextCursor(range(start, end)); }
    void setSelection(int, int start, int end) override { addSelection(start, end); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }

    int cursorPosition() const override { return document().offsetOf(m_pane.textCursor().position()); }
    void setCursorPosition(int offset) override { addSelection(offset, offset); }

    QString text(int start, int end) const override
    {
        return document().text(document().positionOf(start), document().positionOf(end));
    }
    int characterCount() const override { return document().offsetOf(document().characterCount() - 1); }

    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                         int *end) const override
    {
        return told(unitAt(offset, type), start, end);
    }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                             int *end) const override
    {
        const Span unit = unitAt(offset, type);
        return told(unit.start > 0 ? unitAt(unit.start - 1, type) : Span{}, start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                            int *end) const override
    {
        const Span unit = unitAt(offset, type);
        return told(unit.end < characterCount() ? unitAt(unit.end, type) : Span{unit.end, unit.end}, start,
                    end);
    }

    QRect characterRect(int offset) const override
    {
        const QRect caret = m_pane.cursorRect(range(offset, offset));
        const QRect next = m_pane.cursorRect(range(offset + 1, offset + 1));
        const int width = next.top() == caret.top() ? next.left() - caret.left() : caret.height() / 2;
        return {m_pane.viewport()->mapToGlobal(caret.topLeft()), QSize(std::max(1, width), caret.height())};
    }
    int offsetAtPoint(const QPoint &point) const override
    {
        return document().offsetOf(
            m_pane.cursorForPosition(m_pane.viewport()->mapFromGlobal(point)).position());
    }
    void scrollToSubstring(int start, int) override
    {
        const QTextCursor caret = m_pane.textCursor();
        setCursorPosition(start);
        m_pane.ensureCursorVisible();
        m_pane.setTextCursor(caret);
    }
    QString attributes(int, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override
    {
        document().insert(range(start, end), text);
    }

private:
    PiecedDocument &document() const { return m_pane.piecedDocument(); }

    QTextCursor range(int start, int end) const
    {
        QTextCursor cursor(&document());
        cursor.setPosition(document().positionOf(start));
        cursor.setPosition(document().positionOf(end), QTextCursor::KeepAnchor);
        return cursor;
    }

    QString told(Span unit, int *start, int *end) const
    {
        *start = unit.start;
        *end = unit.end;
        return text(unit.start, unit.end);
    }

    // Found in the neighbourhood, since nobody wants to hear a word or a sentence of thousands of
    // characters, and the whole text may have millions.
    Span unitAt(int offset, QAccessible::TextBoundaryType type) const
    {
        constexpr int reach = 2000;
        if (type == QAccessible::NoBoundary)
            return {0, characterCount()};
        if (type == QAccessible::LineBoundary)
            return lineAt(offset);
        const int from = std::max(0, offset - reach);
        const QString near = text(from, std::min(characterCount(), offset + reach));
        const int at = offset - from;
        if (type == QAccessible::ParagraphBoundary) {
            const auto before = at > 0 ? near.lastIndexOf(u'\n', at - 1) : -1;
            const auto end = near.indexOf(u'\n', at);
            return {from + int(before + 1), from + int(end < 0 ? near.size() : end + 1)};
        }
        if (type == QAccessible::WordBoundary) {
            const auto word = WordBoundaries::around(near, at);
            return {from + int(word.start), from + int(word.end)};
        }
        QTextBoundaryFinder finder(type == QAccessible::CharBoundary ? QTextBoundaryFinder::Grapheme
                                                                     : QTextBoundaryFinder::Sentence,
                                   near);
        finder.setPosition(at);
        const auto start = finder.isAtBoundary() ? at : finder.toPreviousBoundary();
        finder.setPosition(at);
        const auto end = finder.toNextBoundary();
        return {from + int(std::max<qsizetype>(0, start)), from + int(end < 0 ? near.size() : end)};
    }

    Span lineAt(int offset) const
    {
        const int position = document().positionOf(offset);
        const QTextBlock block = document().findBlock(position);
        document().documentLayout()->blockBoundingRect(block); // lays it out
        const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
        if (!line.isValid())
            return {offset, offset};
        const int start = block.position() + line.textStart();
        return {document().offsetOf(start), document().offsetOf(start + line.textLength())};
    }

    TextPane &m_pane;
};

} // namespace

QAccessibleInterface *paneAccessible(const QString &, QObject *object)
{
    auto *pane = qobject_cast<TextPane *>(object);
    return pane ? new PaneAccessible(pane) : nullptr;
}
