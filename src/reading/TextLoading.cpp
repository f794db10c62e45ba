#include "reading/TextLoading.h"

#include "document/ReadingText.h"
#include "platform/Background.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

TextLoading::TextLoading(ReadingText &text, State<qint64> &sp1, State<qint64> &sp2, UserDefaults &defaults,
                         NewPanel newPanel)
    : m_text(text)
    , m_sp1(sp1)
    , m_sp2(sp2)
    , m_defaults(defaults)
    , m_newPanel(std::move(newPanel))
{
}

void TextLoading::readSettings()
{
    m_sp1 = m_defaults.integer(Key::IntKeyToggle1);
    m_sp2 = m_defaults.integer(Key::IntKeyToggle2);
}

QString TextLoading::allowedType() const
{
    return m_sp1 == 0 ? u"txt"_s : u"rtf"_s;
}

void TextLoading::openText(QWidget *window)
{
    readSettings();
    OpenPanel *panel = m_newPanel(window);
    panel->setAllowedFileTypes({allowedType()});
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

// By their names alone: to look at a file could take long.
void TextLoading::openFiles(const QList<QUrl> &files)
{
    readSettings();
    const QString path = files.size() == 1 ? files.first().toLocalFile() : QString();
    if (QFileInfo(path).suffix().compare(allowedType(), Qt::CaseInsensitive) == 0)
        load(path);
}

void TextLoading::readAgain(const QByteArray &encoding)
{
    if (hasFile())
        load(m_file, encoding);
}

void TextLoading::stop()
{
    ++m_latestLoad;
    end();
}

void TextLoading::end()
{
    if (std::exchange(m_isLoading, false))
        emit ended();
}

// Reading and decoding happen elsewhere. Their result counts only if nothing was put into the pane
// since, and no other file was picked.
void TextLoading::load(const QString &path, const QByteArray &encoding)
{
    const int thisLoad = ++m_latestLoad;
    const int assignments = m_text.assignments();
    if (!std::exchange(m_isLoading, true))
        emit began();
    const auto take = [=, this](const std::optional<IncomingText> &text) {
        if (thisLoad != m_latestLoad)
            return;
        if (assignments == m_text.assignments())
            show(text, path, encoding);
        end();
    };
    inBackground(
        this, [path, encoding] { return textOfFile(path, encoding); }, take, Workers::waiting());
}

void TextLoading::show(const std::optional<IncomingText> &text, const QString &path,
                       const QByteArray &encoding)
{
    if (text && m_text.assign(*text)) {
        m_file = path;
        m_encoding = encoding;
        emit loaded();
    } else if (!text && !encoding.isEmpty()) {
        emit unfit();
    }
}
