#include "reading/LargePaste.h"

#include "decoding/LargeText.h"
#include "document/ReadingText.h"
#include "platform/Background.h"
#include "reading/Patience.h"
#include "reading/TextPane.h"
#include "view/Notice.h"

#include <QCoreApplication>

#include <utility>

namespace {

/// Lives for one paste, as a child of the pane.
class LargePaste : public QObject {
    Q_DECLARE_TR_FUNCTIONS(LargePaste)

public:
    LargePaste(TextPane &pane, const QString &pasted)
        : QObject(&pane)
        , m_pane(pane)
        , m_text(pane.readingText())
        , m_pasted(pasted)
    {
    }

    void begin();

private:
    void makeWhole();
    void assign(const std::optional<IncomingText> &whole, int caret);
    void putCaret(int caret);
    void giveUp();
    void refuse();
    void end();

    TextPane &m_pane;
    ReadingText &m_text;
    QString m_pasted;
    int m_assignments = 0; // at the latest step; when there are more, somebody else has changed the text
    bool m_isEntering = false;
    bool m_hasEnded = false;
};

void LargePaste::begin()
{
    m_pane.patience().begin(tr("貼り付けています…"));
    m_assignments = m_text.assignments();
    connect(&m_pane.patience(), &Patience::givenUp, this, &LargePaste::giveUp);
    for (const auto changed : {&ReadingText::assigned, &ReadingText::returned}) {
        connect(&m_text, changed, this, [this] {
            if (m_text.assignments() != m_assignments)
                end();
        });
    }
    if (m_text.isComplete())
        makeWhole();
    else
        connect(&m_text, &ReadingText::complete, this, &LargePaste::makeWhole, Qt::SingleShotConnection);
}

void LargePaste::makeWhole()
{
    const PiecedDocument &document = m_text.document();
    const QTextCursor cursor = m_pane.textCursor();
    const QString before = document.text(0, cursor.selectionStart());
    const QString after = document.text(cursor.selectionEnd(), document.characterCount() - 1);
    const qsizetype caret = before.size() + m_pasted.size();
    if (caret + after.size() > LargeText::mostCharacters)
        return refuse();
    inBackground(
        this,
        [before, pasted = m_pasted, after] { return std::optional(IncomingText(before + pasted + after)); },
        [this, caret](const std::optional<IncomingText> &whole) { assign(whole, int(caret)); });
}

void LargePaste::assign(const std::optional<IncomingText> &whole, int caret)
{
    m_assignments = m_text.assignments() + 1;
    connect(
        &m_text, &ReadingText::complete, this, [this, caret] { putCaret(caret); },
        Qt::SingleShotConnection);
    m_isEntering = whole && m_text.assign(*whole);
    if (!m_isEntering)
        refuse();
}

void LargePaste::putCaret(int caret)
{
    QTextCursor cursor(&m_text.document());
    cursor.setPosition(m_text.document().positionOf(caret));
    m_pane.setTextCursor(cursor);
    m_pane.ensureCursorVisible();
    end();
}

void LargePaste::giveUp()
{
    const bool takesBack = m_isEntering;
    end();
    if (takesBack)
        m_text.undo();
}

void LargePaste::refuse()
{
    showNotice(QMessageBox::Warning, tr("貼り付けられませんでした。"), tr("文章が大きすぎます。"),
               m_pane.window());
    end();
}

void LargePaste::end()
{
    if (std::exchange(m_hasEnded, true))
        return;
    disconnect(&m_text, nullptr, this, nullptr);
    deleteLater();
    m_pane.patience().end();
}

} // namespace

void pasteLargeText(TextPane &pane, const QString &pasted)
{
    (new LargePaste(pane, pasted))->begin();
}
