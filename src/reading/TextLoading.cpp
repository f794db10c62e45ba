#include "reading/TextLoading.h"

#include "document/ReadingText.h"
#include "platform/Background.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

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
void TextLoading::load(const QString &path)
{
    const int thisLoad = ++m_latestLoad;
    const int assignments = m_text.assignments();
    if (!std::exchange(m_isLoading, true))
        emit began();
    const auto show = [this, thisLoad, assignments](const std::optional<IncomingText> &text) {
        if (thisLoad != m_latestLoad)
            return;
        if (text && assignments == m_text.assignments())
            m_text.assign(*text);
        end();
    };
    inBackground(
        this, [path] { return textOfFile(path); }, show, Workers::waiting());
}
