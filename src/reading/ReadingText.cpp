#include "reading/ReadingText.h"

#include <QAbstractTextDocumentLayout>
#include <QElapsedTimer>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QThreadPool>

#include <utility>

namespace {

constexpr qint64 sliceTime = 6; // milliseconds, so that with what follows from it a frame isn't missed

constexpr int slicesSeen = 16; // of so many one is followed by the scroll bar

// Giving back some hundred megabytes takes a while.
void letGo(QString text)
{
    constexpr qsizetype large = 4 << 20;
    if (text.size() > large)
        QThreadPool::globalInstance()->start([gone = std::move(text)] {});
}

} // namespace

ReadingText::ReadingText()
{
    m_nextSlice.setInterval(0);
    connect(&m_nextSlice, &QTimer::timeout, this, &ReadingText::enterSlice);
    connect(&m_document, &QTextDocument::contentsChange, this, [this] {
        if (m_verbatim && !m_isEntering)
            letGo(*std::exchange(m_verbatim, std::nullopt));
    });
}

QString ReadingText::value() const
{
    if (m_verbatim)
        return *m_verbatim;
    return m_document.text().append(QStringView(m_entering).sliced(m_pieces.position()));
}

void ReadingText::setValue(const QString &text)
{
    setValue(text, TextPieces::shapeOf(text));
}

void ReadingText::setValue(const QString &text, const TextPieces::Shape &shape)
{
    ++m_assignments;
    m_document.setUndoRedoEnabled(false);
    m_isEntering = true;
    m_document.startOver(shape);
    m_verbatim.reset();
    m_entering = text;
    m_pieces = TextPieces(m_entering, shape);
    if (shape.keepsWhole)
        m_verbatim = text;
    m_slices = 0;
    enterSlice();
    emit assigned();
}

ReadingText &ReadingText::operator=(const QString &text)
{
    setValue(text);
    return *this;
}

void ReadingText::enterSlice()
{
    QElapsedTimer time;
    time.start();
    m_isEntering = true;
    // Off the screen nobody looks, but a scroll bar that moved would have to lay out the last lines.
    const QSignalBlocker unseen(++m_slices % slicesSeen == 1 ? nullptr : m_document.documentLayout());
    QTextCursor edit(&m_document);
    edit.beginEditBlock();
    do {
        m_document.append(m_pieces.next());
    } while (!m_pieces.atEnd() && time.elapsed() < sliceTime);
    edit.endEditBlock();
    m_isEntering = false;
    if (m_pieces.atEnd())
        end();
    else if (!m_nextSlice.isActive())
        m_nextSlice.start();
}

void ReadingText::end()
{
    m_nextSlice.stop();
    m_pieces = {};
    letGo(std::exchange(m_entering, {}));
    m_document.setUndoRedoEnabled(true);
    m_document.showSize();
    emit complete();
}
