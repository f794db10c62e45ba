#include <gio/gdesktopappinfo.h> // first: the toolkit has a macro for a name in it

#include "platform/FileName.h"
#include "platform/linux/DesktopEntries.h"

#include <array>
#include <cstring>
#include <memory>
#include <set>
#include <string_view>
#include <thread>
#include <unordered_set>

#include <fcntl.h>
#include <unistd.h>

using std::filesystem::path;

namespace {

struct Release {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(gchar *text) const { g_free(text); }
    void operator()(gchar **texts) const { g_strfreev(texts); }
};
using AppInfo = std::unique_ptr<GDesktopAppInfo, Release>;
using Text = std::unique_ptr<gchar, Release>;

bool isWebScheme(std::string_view type)
{
    return type == "x-scheme-handler/http" || type == "x-scheme-handler/https";
}

bool declaresBrowser(GDesktopAppInfo *info)
{
    using namespace std::literals;
    const char *const *types = g_app_info_get_supported_types(G_APP_INFO(info));
    for (; types && *types; ++types) {
        if (isWebScheme(*types))
            return true;
    }
    const char *categories = g_desktop_app_info_get_categories(info);
    return (";"s + (categories ? categories : "") + ";").find(";WebBrowser;") != std::string::npos;
}

QString iconOf(GDesktopAppInfo *info)
{
    GIcon *icon = g_app_info_get_icon(G_APP_INFO(info));
    if (icon && G_IS_THEMED_ICON(icon)) {
        const char *const *names = g_themed_icon_get_names(G_THEMED_ICON(icon));
        return names && *names ? QString::fromUtf8(*names) : QString();
    }
    if (icon && G_IS_FILE_ICON(icon)) {
        const Text file(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
        return file ? FileName::text(file.get()) : QString();
    }
    return {};
}

// The application of an entry, unless it is hidden or its program isn't there.
AppInfo load(const path &entry)
{
    AppInfo info(g_desktop_app_info_new_from_filename(entry.c_str()));
    if (info && g_desktop_app_info_get_is_hidden(info.get()))
        return nullptr;
    return info;
}

std::optional<RegisteredApplication> webBrowser(const path &entry)
{
    const AppInfo info = load(entry);
    if (!info || !declaresBrowser(info.get()) || !g_app_info_should_show(G_APP_INFO(info.get())))
        return std::nullopt;
    const Text name(g_desktop_app_info_get_locale_string(info.get(), "Name"));
    if (!name || !*name)
        return std::nullopt;
    return RegisteredApplication{QString::fromUtf8(name.get()), iconOf(info.get()), entry};
}

// Finds the few files worth a closer look among the many: reading the bytes of them all is quick,
// making out what they mean isn't.
class Search {
public:
    void look(const path &folder, const std::string &idPrefix = {})
    {
        std::error_code error;
        if (!m_folders.insert(std::filesystem::canonical(folder, error)).second || error)
            return; // a link that leads round in a circle, or nowhere
        std::filesystem::directory_iterator entries(folder, error);
        for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
            const std::string name = entries->path().filename().string();
            std::error_code unknown;
            if (entries->is_directory(unknown))
                look(entries->path(), idPrefix + name + '-');
            else if (name.ends_with(".desktop") && m_ids.insert(idPrefix + name).second
                     && mentionsBrowser(*entries))
                m_found.push_back(entries->path());
        }
    }

    const std::vector<path> &found() const { return m_found; }

private:
    bool mentionsBrowser(const std::filesystem::directory_entry &entry);
    bool mentionsBrowser(int file);

    std::set<path> m_folders;
    std::unordered_set<std::string> m_ids; // an entry hides those of the same id that come later
    std::vector<path> m_found;
    std::array<char, 64 << 10> m_room;
};

bool Search::mentionsBrowser(const std::filesystem::directory_entry &entry)
{
    std::error_code error;
    if (!entry.is_regular_file(error))
        return false;
    const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file < 0)
        return false;
    const bool mentions = mentionsBrowser(file);
    ::close(file);
    return mentions;
}

bool Search::mentionsBrowser(int file)
{
    constexpr std::string_view marks[] = {"WebBrowser", "x-scheme-handler/http"};
    constexpr size_t overlap = 32; // a mark may lie across the end of what is read at a time
    constexpr int mostReads = 32;  // 2 MiB; entries have a few KiB
    size_t kept = 0;
    for (int reads = 0; reads < mostReads; ++reads) {
        const ssize_t got = ::read(file, m_room.data() + kept, m_room.size() - kept);
        if (got <= 0)
            return false;
        const size_t size = kept + size_t(got);
        for (const std::string_view mark : marks) {
            if (::memmem(m_room.data(), size, mark.data(), mark.size()))
                return true;
        }
        if (size < m_room.size())
            return false; // that was all
        kept = overlap;
        std::memmove(m_room.data(), m_room.data() + size - kept, kept);
    }
    return false;
}

void launch(GDesktopAppInfo *info)
{
    // Held until the end: the connection that GIO is about to use must not end this process with it.
    const std::unique_ptr<GDBusConnection, Release> bus(
        g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus)
        g_dbus_connection_set_exit_on_close(bus.get(), false);
    const std::unique_ptr<GAppLaunchContext, Release> context(g_app_launch_context_new());
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    const auto ownSession = [](gpointer) { ::setsid(); };
    g_desktop_app_info_launch_uris_as_manager_with_fds(info, nullptr, context.get(), G_SPAWN_SEARCH_PATH,
                                                       ownSession, nullptr, nullptr, nullptr, nowhere,
                                                       nowhere, nowhere, nullptr);
    ::close(nowhere);
    if (bus)
        g_dbus_connection_flush_sync(bus.get(), nullptr, nullptr);
}

} // namespace

std::vector<path> DesktopEntries::folders()
{
    std::vector<path> folders{path(g_get_user_data_dir()) / "applications"};
    for (const char *const *folder = g_get_system_data_dirs(); *folder; ++folder)
        folders.push_back(path(*folder) / "applications");
    return folders;
}

std::vector<RegisteredApplication> DesktopEntries::webBrowsers(const std::vector<path> &folders)
{
    const auto search = std::make_unique<Search>();
    for (const path &folder : folders)
        search->look(folder);
    std::vector<RegisteredApplication> browsers;
    for (const path &entry : search->found()) {
        if (auto browser = webBrowser(entry))
            browsers.push_back(std::move(*browser));
    }
    return browsers;
}

bool DesktopEntries::start(const path &entry)
{
    AppInfo info = load(entry);
    if (!info)
        return false;
    // The desktop's buses may keep one waiting.
    std::thread([info = std::move(info)] { launch(info.get()); }).detach();
    return true;
}
