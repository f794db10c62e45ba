#include "reading/ReadingText.h"

#include "platform/Background.h"
#include "reading/Utf8.h"

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
        if (m_isEntering)
            return;
        m_isEdited = true;
        if (m_verbatim)
            letGo(*std::exchange(m_verbatim, std::nullopt));
    });
}

QString ReadingText::value() const
{
    if (m_verbatim)
        return *m_verbatim;
    QString entering = isDecoded() ? m_entering : QString::fromUtf8(m_undecoded.bytes());
    if (!isDecoded() && !m_isEdited)
        return entering;
    return m_document.text().append(QStringView(entering).sliced(m_pieces.position()));
}

void ReadingText::setValue(const QString &text)
{
    setValue(text, TextPieces::shapeOf(text));
}

void ReadingText::setValue(const QString &text, const TextPieces::Shape &shape)
{
    m_undecoded = {};
    start(text, shape);
    if (shape.keepsWhole)
        m_verbatim = text;
    emit assigned();
}

void ReadingText::setUtf8(const FileContent &file, const TextPieces::Shape &shape)
{
    constexpr qsizetype beginning = 8 * TextPieces::reach;
    const QByteArrayView utf8 = file.bytes();
    const qsizetype end = characterStart(utf8, std::min(beginning, utf8.size()));
    m_undecoded = file;
    start(QString::fromUtf8(utf8.first(end)), shape);
    inBackground(
        this,
        [file] {
            const QString text = QString::fromUtf8(file.bytes());
            return std::pair(text, TextPieces::isWorthKeeping(text));
        },
        [this, assignment = m_assignments](const auto &decoded) {
            if (assignment == m_assignments)
                goOn(decoded.first, decoded.second);
        });
    emit assigned();
}

void ReadingText::start(const QString &entering, const TextPieces::Shape &shape)
{
    ++m_assignments;
    m_document.setUndoRedoEnabled(false);
    m_isEntering = true;
    m_document.startOver(shape);
    m_isEdited = false;
    m_verbatim.reset();
    m_entering = entering;
    m_pieces = TextPieces(m_entering, shape);
    m_slices = 0;
    enterSlice();
}

void ReadingText::goOn(const QString &decoded, bool isWorthKeeping)
{
    m_entering = decoded;
    m_undecoded = {};
    m_pieces.goOnIn(m_entering);
    if (isWorthKeeping && !m_isEdited)
        m_verbatim = decoded;
    m_nextSlice.start();
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
    while (hasPieces()) {
        m_document.append(m_pieces.next());
        if (time.elapsed() >= sliceTime)
            break;
    }
    edit.endEditBlock();
    m_isEntering = false;
    if (m_pieces.atEnd())
        end();
    else if (!hasPieces())
        m_nextSlice.stop();
    else if (!m_nextSlice.isActive())
        m_nextSlice.start();
}

// Of what is only a beginning, no piece at its end.
bool ReadingText::hasPieces() const
{
    if (isDecoded())
        return !m_pieces.atEnd();
    return m_entering.size() - m_pieces.position() > TextPieces::reach;
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
