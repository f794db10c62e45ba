#include "reading/FindBar.h"

#include "document/ReadingText.h"
#include "reading/TextPane.h"
#include "view/Announcement.h"
#include "view/Controls.h"
#include "view/FlowLayout.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QToolButton>

#include <utility>

using namespace std::chrono_literals;

FindBar::FindBar(TextPane &pane)
    : m_pane(pane)
    , m_field(new QLineEdit)
    , m_marks(*new HitMarks(pane))
    , m_search(pane.readingText())
{
    auto *layout = new FlowLayout(this);
    layout->setContentsMargins({});
    for (QWidget *part : {
             field(),
             Button(tr("前へ"), [this] { findPrevious(); }),
             Button(tr("次へ"), [this] { findNext(); }),
             Text([this] { return m_status.value(); }),
             Toggle(tr("大文字と小文字を区別"), m_isExact),
             Button(tr("閉じる"), [this] { dismiss(); }),
         })
        layout->addWidget(part);
    follow(
        this, [this] { return m_isExact.value(); }, [this](bool) { findAnew(m_anchor, Wanted::Nearest); });
    connect(&m_search, &TextSearch::progressed, this, &FindBar::goOn);
    m_again.setSingleShot(true);
    m_again.setInterval(300ms);
    connect(&m_again, &QTimer::timeout, this, [this] { findAnew(caret(), Wanted::Nothing); });
    for (const auto changed : {&ReadingText::edited, &ReadingText::assigned, &ReadingText::returned})
        connect(&pane.readingText(), changed, this, &FindBar::findAgainSoon);
}

QWidget *FindBar::field()
{
    m_field->setAccessibleName(tr("検索"));
    m_field->setPlaceholderText(tr("検索"));
    m_field->setClearButtonEnabled(true);
    m_field->setMinimumWidth(90);
    if (auto *clear = m_field->findChild<QToolButton *>())
        clear->setAccessibleName(tr("消す"));
    connect(m_field, &QLineEdit::textChanged, this, [this] { findAnew(m_anchor, Wanted::Nearest); });
    connect(m_field, &QLineEdit::returnPressed, this, [this] {
        step(QApplication::keyboardModifiers() & Qt::ShiftModifier ? Wanted::Previous : Wanted::Next);
    });
    return m_field;
}

void FindBar::open()
{
    show();
    m_anchor = caret();
    takeSelection();
    m_field->setFocus();
    m_field->selectAll();
    findAnew(m_anchor, Wanted::Nearest);
}

void FindBar::takeSelection()
{
    constexpr int longest = 200;
    const QTextCursor cursor = m_pane.textCursor();
    if (!cursor.hasSelection() || cursor.selectionEnd() - cursor.selectionStart() > longest)
        return;
    const QString selected = m_pane.piecedDocument().text(cursor.selectionStart(), cursor.selectionEnd());
    if (!selected.contains(u'\n'))
        m_field->setText(selected);
}

void FindBar::dismiss()
{
    m_search.stop();
    m_again.stop();
    m_marks.show({});
    m_pane.setFocus();
    hide();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else
        QWidget::keyPressEvent(event);
}

int FindBar::caret() const
{
    return m_pane.piecedDocument().offsetOf(m_pane.textCursor().selectionStart());
}

void FindBar::findAnew(int from, Wanted wanted)
{
    m_again.stop();
    m_pattern = TextPattern(m_field->text(), m_isExact);
    m_wanted = wanted;
    m_current.reset();
    m_around.clear();
    m_isSaid = wanted == Wanted::Nothing;
    m_marks.show(m_pattern);
    m_search.start(m_pattern, from);
    goOn();
}

// Somebody is writing, or has another text now.
void FindBar::findAgainSoon()
{
    if (!isVisible())
        return;
    m_search.stop();
    m_current.reset();
    m_again.start();
}

void FindBar::step(Wanted wanted)
{
    if (m_field->text().isEmpty())
        return open();
    const bool isThere = isVisible() && !m_again.isActive();
    show();
    if (!isThere)
        findAnew(caret(), wanted);
    m_wanted = wanted;
    m_isSaid = false;
    goOn();
}

void FindBar::goOn()
{
    if (m_pattern.isEmpty())
        m_wanted = Wanted::Nothing;
    if (m_wanted != Wanted::Nothing) {
        if (const auto found = sought())
            arrive(*found);
    }
    showStatus();
}

std::optional<TextSearch::Found> FindBar::sought() const
{
    const QTextCursor cursor = m_pane.textCursor();
    const PiecedDocument &document = m_pane.piecedDocument();
    if (m_wanted == Wanted::Nearest)
        return m_search.next(m_anchor);
    if (m_wanted == Wanted::Previous)
        return m_search.previous(document.offsetOf(cursor.selectionStart()));
    return m_search.next(document.offsetOf(cursor.selectionEnd()));
}

void FindBar::arrive(const TextSearch::Found &found)
{
    const Wanted wanted = std::exchange(m_wanted, Wanted::Nothing);
    m_current = found.hit;
    m_around.clear();
    if (!found.hit)
        return;
    if (found.isWrapped)
        m_around = wanted == Wanted::Previous ? tr("末尾から検索") : tr("先頭から検索");
    if (wanted != Wanted::Nearest)
        m_anchor = found.hit->start;
    select(*found.hit);
}

void FindBar::select(const TextSearch::Hit &hit)
{
    PiecedDocument &document = m_pane.piecedDocument();
    QTextCursor cursor(&document);
    cursor.setPosition(document.acrossSeamForward(document.positionOf(hit.start)));
    cursor.setPosition(document.positionOf(hit.end), QTextCursor::KeepAnchor);
    m_pane.setTextCursor(cursor);
    m_pane.ensureCursorVisible();
}

void FindBar::showStatus()
{
    const QString around = m_around.isEmpty() ? QString() : tr("（%1）").arg(m_around);
    m_status = m_pattern.isEmpty() ? QString() : found() + around;
    if (m_isSaid || !m_search.isDone())
        return;
    m_isSaid = true;
    if (!m_pattern.isEmpty())
        announce(m_status, m_field);
}

QString FindBar::found() const
{
    const QLocale japanese(QLocale::Japanese);
    const QString count = japanese.toString(m_search.count());
    if (m_search.isCut())
        return tr("%1 件以上").arg(count);
    if (!m_search.isDone())
        return m_search.count() == 0 ? tr("検索中…") : tr("%1 件…").arg(count);
    if (m_search.count() == 0)
        return tr("見つかりません");
    const auto number = m_current ? m_search.number(*m_current) : std::nullopt;
    return number ? tr("%1 件中 %2 件目").arg(count, japanese.toString(*number)) : tr("%1 件").arg(count);
}
