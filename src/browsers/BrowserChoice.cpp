#include "browsers/BrowserChoice.h"

#include "browsers/InstalledBrowsers.h"
#include "platform/Background.h"
#include "platform/FileName.h"
#include "platform/StandardOutput.h"

#include <algorithm>
#include <optional>

using std::filesystem::path;

namespace {

// What an application calls itself may be anything; only the name of a file is one in the folder.
bool isNameOfFile(const QString &name)
{
    return !name.contains(u'/') && !name.contains(QChar(u'\0'));
}

std::optional<path> bundleNamed(const QString &name, const BundleFolders &folders)
{
    if (!isNameOfFile(name))
        return std::nullopt;
    for (const path &folder : {folders.system, folders.own}) {
        const path bundle = folder.string() + '/' + FileName::bytes(name) + ".app";
        std::error_code error;
        if (std::filesystem::exists(bundle, error))
            return bundle;
    }
    return std::nullopt;
}

} // namespace

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
    const auto work = [folders = m_folders, &workspace = m_workspace] { return look(folders, workspace); };
    const auto done = [this, refill = ++m_refills](const Found &found) {
        if (refill == m_refills)
            offer(found);
    };
    inBackground(this, work, done, Workers::waiting());
}

BrowserChoice::Found BrowserChoice::look(const BundleFolders &folders, const Workspace &workspace)
{
    Found found;
    found.registered = workspace.webBrowsers();
    found.names = installedBrowsers(folders, found.registered);
    for (const QString &name : std::as_const(found.names)) {
        if (const auto bundle = bundleNamed(name, folders))
            found.bundleIcons.insert(name, workspace.icon(*bundle));
    }
    return found;
}

void BrowserChoice::offer(const Found &found)
{
    m_found = found;
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
    const auto bundle = bundleNamed(m_selectedBrowser, m_folders);
    if (bundle)
        m_workspace.openBundle(*bundle);
    return bundle.has_value();
}

bool BrowserChoice::startRegistered()
{
    const auto &registered = m_found.registered;
    return std::any_of(registered.begin(), registered.end(), [this](const auto &application) {
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
    QString bundles = m_found.bundleIcons.value(browser);
    if (!bundles.isEmpty())
        return bundles;
    const auto &registered = m_found.registered;
    const auto found = std::find_if(registered.begin(), registered.end(), [&](const auto &application) {
        return isSameName(application.name, browser);
    });
    return found == registered.end() ? QString() : found->icon;
}
