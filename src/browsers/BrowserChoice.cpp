#include "browsers/BrowserChoice.h"

#include "browsers/InstalledBrowsers.h"
#include "platform/Background.h"
#include "platform/FileName.h"
#include "platform/StandardOutput.h"

#include <algorithm>

using std::filesystem::path;

BrowserChoice::BrowserChoice(State<QStringList> &browsers, State<QString> &selectedBrowser,
                             Workspace &workspace, BundleFolders folders)
    : m_browsers(browsers)
    , m_selectedBrowser(selectedBrowser)
    , m_workspace(workspace)
    , m_folders(std::move(folders))
{
}

void BrowserChoice::refill()
{
    const auto look = [folders = m_folders, &workspace = m_workspace] {
        std::vector<RegisteredApplication> registered = workspace.webBrowsers();
        return Found{installedBrowsers(folders, registered), registered};
    };
    inBackground(this, look, [this, refill = ++m_refills](const Found &found) {
        if (refill == m_refills)
            offer(found);
    });
}

void BrowserChoice::offer(const Found &found)
{
    m_registered = found.registered;
    m_browsers = found.names;
    m_selectedBrowser = found.names.value(0);
}

void BrowserChoice::launch()
{
    if (!openBundle() && !startRegistered() && !openPortable())
        StandardOutput::standard().post("Microsoft Edge が見つかりませんでした\n");
}

bool BrowserChoice::openBundle()
{
    for (const path &folder : {m_folders.everybodys, m_folders.own}) {
        const path bundle = folder.string() + '/' + FileName::bytes(m_selectedBrowser) + ".app";
        std::error_code error;
        if (std::filesystem::exists(bundle, error)) {
            m_workspace.openBundle(bundle);
            return true;
        }
    }
    return false;
}

bool BrowserChoice::startRegistered()
{
    return std::any_of(m_registered.begin(), m_registered.end(), [this](const auto &application) {
        return isSameName(application.name, m_selectedBrowser) && m_workspace.start(application);
    });
}

bool BrowserChoice::openPortable()
{
    for (const PortableProgram &program : portableBrowsers(m_folders.own)) {
        if (isSameName(program.name, m_selectedBrowser)) {
            m_workspace.openBundle(program.file);
            return true;
        }
    }
    return false;
}

QString BrowserChoice::icon(const QString &browser) const
{
    const auto found = std::find_if(m_registered.begin(), m_registered.end(), [&](const auto &application) {
        return isSameName(application.name, browser);
    });
    return found == m_registered.end() ? QString() : found->icon;
}
