#include "reading/TextLoading.h"

#include "platform/Background.h"
#include "platform/Memory.h"
#include "platform/RegularFile.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"
#include "reading/ReadingText.h"
#include "reading/TextDecoding.h"

#include <algorithm>
#include <future>

using namespace Qt::StringLiterals;

namespace {

// In bytes. On its way into the pane a text takes up to five times as much memory as its file: mapped or
// read, decoded, and in the document.
qint64 largestFile()
{
    return std::min(qint64(1) << 29, availableMemory() / 5);
}

// Below this many bytes it is decoded before the next frame is due.
constexpr qsizetype large = 1 << 20;

struct ReadText {
    QString text;
    FileContent utf8; // in place of the text, where decoding it would keep the reader waiting
    TextPieces::Shape shape;
};

std::optional<ReadText> readText(const QString &path)
{
    auto file = FileContent::of(path, largestFile());
    if (!file)
        return std::nullopt;
    const QByteArrayView bytes = file->bytes();
    if (bytes.size() > large) {
        auto shape = std::async(std::launch::async, TextPieces::shapeOfUtf8, bytes);
        if (isPlainUtf8(bytes))
            return ReadText{{}, *file, shape.get()};
    }
    auto text = decodedText(bytes);
    file.reset();
    if (!text)
        return std::nullopt;
    text->squeeze();
    const TextPieces::Shape shape = TextPieces::shapeOf(*text);
    return ReadText{*std::move(text), {}, shape};
}

} // namespace

TextLoading::TextLoading(ReadingText &text, State<qint64> &sp1, State<qint64> &sp2, UserDefaults &defaults,
                         NewPanel newPanel)
    : m_text(text)
    , m_sp1(sp1)
    , m_sp2(sp2)
    , m_defaults(defaults)
    , m_newPanel(std::move(newPanel))
{
}

void TextLoading::openText(QWidget *window)
{
    m_sp1 = m_defaults.integer(Key::IntKeyToggle1);
    m_sp2 = m_defaults.integer(Key::IntKeyToggle2);

    OpenPanel *panel = m_newPanel(window);
    panel->setAllowedFileTypes({m_sp1 == 0 ? u"txt"_s : u"rtf"_s});
    panel->setAllowsMultipleSelection(false);
    panel->setCanChooseDirectories(false);
    panel->setCanChooseFiles(true);
    panel->runModal([this, panel](ModalResponse response) {
        if (response != ModalResponse::OK)
            return;
        if (const auto url = panel->url())
            load(url->toLocalFile());
    });
}

// Reading and decoding happen elsewhere. Their result counts only if nothing was put into the pane
// since, and no other file was picked.
void TextLoading::load(const QString &path)
{
    const int thisLoad = ++m_latestLoad;
    const int assignments = m_text.assignments();
    const auto show = [this, thisLoad, assignments](const std::optional<ReadText> &read) {
        if (!read || thisLoad != m_latestLoad || assignments != m_text.assignments())
            return;
        if (read->utf8.bytes().isNull())
            m_text.setValue(read->text, read->shape);
        else
            m_text.setUtf8(read->utf8, read->shape);
        emit loaded();
    };
    inBackground(
        this, [path] { return readText(path); }, show);
}
