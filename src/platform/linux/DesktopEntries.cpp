#include "platform/linux/DesktopEntries.h"

#include "platform/Module.h"
#include "platform/linux/EntrySearch.h"
#include "platform/linux/gio/GioModule.h"

#include <QFile>
#include <QStandardPaths>

using std::filesystem::path;

namespace {

// GIO costs more to load than a window has time for, so it comes when it is first needed.
const GioModule *gio()
{
    static const auto *const loaded =
        static_cast<const GioModule *>(Module::found(TARUMINE_GIO_MODULE, "tarumineGio"));
    return loaded;
}

std::vector<path> standardFolders(QStandardPaths::StandardLocation location)
{
    std::vector<path> folders;
    for (const QString &folder : QStandardPaths::standardLocations(location))
        folders.emplace_back(QFile::encodeName(folder).toStdString());
    return folders;
}

// Where the user and the administrator keep what they chose; other such files lie beside the entries.
std::vector<path> associations()
{
    std::vector<path> files;
    const QByteArray desktops = qgetenv("XDG_CURRENT_DESKTOP").toLower();
    for (const path &folder : standardFolders(QStandardPaths::GenericConfigLocation)) {
        for (const QByteArray &desktop : desktops.split(':'))
            files.push_back(folder / (desktop + "-mimeapps.list").toStdString());
        files.push_back(folder / "mimeapps.list");
    }
    return files;
}

} // namespace

std::vector<path> DesktopEntries::folders()
{
    std::vector<path> folders = standardFolders(QStandardPaths::GenericDataLocation);
    for (path &folder : folders)
        folder /= "applications";
    return folders;
}

std::vector<RegisteredApplication> DesktopEntries::webBrowsers(const std::vector<path> &folders)
{
    const SearchedRegistry registry = searchRegistry(folders);
    const bool hasAssociations = registry.hasAssociations || anyMentionsWebPages(associations());
    if ((registry.entries.empty() && !hasAssociations) || !gio())
        return {};
    return gio()->webBrowsers(registry.entries, hasAssociations);
}

bool DesktopEntries::isThere(const path &entry)
{
    return gio() && gio()->isThere(entry);
}

bool DesktopEntries::start(const path &entry)
{
    return gio() && gio()->start(entry);
}
