#include "reading/ReadingText.h"

#include <QPlainTextDocumentLayout>

#include <algorithm>

namespace {

// A document ends a paragraph at each of these, and gives all of them back as one and the same.
bool losesItself(QChar c)
{
    return c == u'\r' || c == QChar::ParagraphSeparator || c.unicode() == 0xfdd0 || c.unicode() == 0xfdd1;
}

} // namespace

ReadingText::ReadingText()
{
    m_document.setDocumentLayout(new QPlainTextDocumentLayout(&m_document));
    connect(&m_document, &QTextDocument::contentsChange, this, [this] { m_verbatim.reset(); });
}

QString ReadingText::value() const
{
    if (m_verbatim)
        return *m_verbatim;
    // Not toPlainText, which also turns no-break spaces into spaces.
    return m_document.toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

void ReadingText::setValue(const QString &text)
{
    ++m_assignments;
    m_document.setPlainText(text);
    if (std::any_of(text.begin(), text.end(), losesItself))
        m_verbatim = text;
    emit assigned();
}

ReadingText &ReadingText::operator=(const QString &text)
{
    setValue(text);
    return *this;
}
