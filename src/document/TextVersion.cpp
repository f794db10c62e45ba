#include "document/TextVersion.h"

#include "decoding/LargeText.h"
#include "decoding/Utf8.h"
#include "platform/Background.h"

#include <QAbstractTextDocumentLayout>
#include <QElapsedTimer>
#include <QSignalBlocker>
#include <QTextCursor>

#include <new>
#include <optional>
#include <utility>

namespace {

constexpr qint64 sliceTime = 6; // milliseconds, so that with what follows from it a frame isn't missed

// The scroll bar follows one slice in so many.
constexpr int slicesPerScroll = 16;

// What has been decoded, and whether it is to be kept beside the document.
using Decoded = std::optional<std::pair<QString, bool>>;

Decoded decoded(const FileContent &utf8)
{
    const QString text = QString::fromUtf8(utf8.bytes());
    return std::pair(text, TextPieces::isWorthKeeping(text));
}

void letGo(QString text)
{
    if (text.size() > LargeText::charactersToGiveBack)
        Workers::computing().start([gone = std::move(text)] {});
}

} // namespace

TextVersion::TextVersion()
{
    m_nextSlice.setInterval(0);
    connect(&m_nextSlice, &QTimer::timeout, this, &TextVersion::enterSlice);
    connect(&m_document, &QTextDocument::contentsChange, this, [this] {
        if (!m_isEntering)
            noteEdit();
    });
}

void TextVersion::start(const IncomingText &incoming)
{
    constexpr qsizetype beginning = 8 * TextPieces::reach;
    ++m_starts;
    m_isTouched = true;
    m_document.setUndoRedoEnabled(false);
    m_isEntering = true;
    m_document.startOver(incoming.shape);
    m_slices = 0;
    if (incoming.isDecoded()) {
        m_state =
            Entering{incoming.text, TextPieces(incoming.text, incoming.shape), incoming.shape.keepsWhole};
    } else {
        const QByteArrayView utf8 = incoming.utf8.bytes();
        const qsizetype end = characterStart(utf8, std::min(beginning, utf8.size()));
        const QString text = QString::fromUtf8(utf8.first(end));
        m_state = Decoding{incoming.utf8, {text, TextPieces(text, incoming.shape)}};
        decodeRest(incoming.utf8);
    }
    enterSlice();
}

QString TextVersion::value() const
{
    // What the user has edited is in the document already, what follows is not.
    const auto joined = [this](const Entering &rest, const QString &whole) {
        return rest.isEdited ? m_document.text().append(QStringView(whole).sliced(rest.pieces.position()))
                             : whole;
    };
    if (const auto *beside = std::get_if<Beside>(&m_state))
        return beside->text;
    if (const auto *rest = std::get_if<Entering>(&m_state))
        return joined(*rest, rest->text);
    if (const auto *undecoded = std::get_if<Decoding>(&m_state))
        return joined(undecoded->beginning, QString::fromUtf8(undecoded->utf8.bytes()));
    return m_document.text();
}

qsizetype TextVersion::size() const
{
    if (const auto *rest = std::get_if<Entering>(&m_state))
        return rest->text.size();
    if (const auto *undecoded = std::get_if<Decoding>(&m_state))
        return undecoded->utf8.bytes().size();
    return m_document.characterCount() - 1;
}

bool TextVersion::isComplete() const
{
    return std::holds_alternative<InDocument>(m_state) || std::holds_alternative<Beside>(m_state);
}

void TextVersion::setShown(bool shown)
{
    m_isShown = shown;
    enterNextSlices();
}

void TextVersion::decodeRest(const FileContent &utf8)
{
    inBackground(
        this, [utf8] { return decoded(utf8); },
        [this, start = m_starts](const Decoded &rest) {
            if (start != m_starts)
                return;
            if (rest)
                goOn(rest->first, rest->second);
            else
                emit failed();
        });
}

void TextVersion::goOn(const QString &decoded, bool keepsWhole)
{
    Entering rest = std::get<Decoding>(m_state).beginning;
    rest.text = decoded;
    rest.pieces.goOnIn(rest.text);
    rest.keepsWhole = keepsWhole;
    m_state = std::move(rest);
    enterNextSlices();
}

TextVersion::Entering *TextVersion::entering()
{
    auto *undecoded = std::get_if<Decoding>(&m_state);
    return undecoded ? &undecoded->beginning : std::get_if<Entering>(&m_state);
}

// Of what is only a beginning, no piece at its end.
bool TextVersion::hasPieces() const
{
    if (const auto *undecoded = std::get_if<Decoding>(&m_state)) {
        const Entering &rest = undecoded->beginning;
        return rest.text.size() - rest.pieces.position() > TextPieces::reach;
    }
    const auto *rest = std::get_if<Entering>(&m_state);
    return rest && !rest->pieces.atEnd();
}

void TextVersion::enterSlice()
{
    m_isEntering = true;
    try {
        enterPieces();
    } catch (const std::bad_alloc &) {
        m_nextSlice.stop();
        emit failed();
        return;
    }
    m_isEntering = false;
    if (std::holds_alternative<Entering>(m_state) && !hasPieces())
        end();
    else
        enterNextSlices();
}

void TextVersion::enterPieces()
{
    QElapsedTimer time;
    time.start();
    // What enters is off the screen, but to move the scroll bar, Qt would lay out the last lines.
    const QSignalBlocker unseen(++m_slices % slicesPerScroll == 1 ? nullptr : m_document.documentLayout());
    QTextCursor edit(&m_document);
    edit.beginEditBlock();
    while (hasPieces()) {
        m_document.append(entering()->pieces.next());
        if (time.elapsed() >= sliceTime)
            break;
    }
    edit.endEditBlock();
}

void TextVersion::enterNextSlices()
{
    if (!m_isShown || !hasPieces())
        m_nextSlice.stop();
    else if (!m_nextSlice.isActive())
        m_nextSlice.start();
}

void TextVersion::end()
{
    m_nextSlice.stop();
    Entering whole = std::get<Entering>(std::exchange(m_state, InDocument()));
    if (whole.keepsWhole && !whole.isEdited)
        m_state = Beside{std::move(whole.text)};
    else
        letGo(std::move(whole.text));
    m_document.setUndoRedoEnabled(true);
    m_document.showSize();
    emit complete();
}

void TextVersion::noteEdit()
{
    m_isTouched = true;
    if (Entering *rest = entering()) {
        rest->isEdited = true;
    } else if (auto *beside = std::get_if<Beside>(&m_state)) {
        letGo(std::move(beside->text));
        m_state = InDocument();
    }
    emit edited();
}
