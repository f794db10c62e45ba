#include "platform/linux/gio/AppInfo.h" // first: Qt has a macro for a name in it

#include "platform/FileName.h"
#include "platform/linux/gio/GioModule.h"

#include <algorithm>
#include <optional>
#include <string_view>

using std::filesystem::path;

namespace {

constexpr const char *webSchemes[] = {"x-scheme-handler/https", "x-scheme-handler/http"};

bool declaresBrowser(GDesktopAppInfo *info)
{
    using namespace std::literals;
    const char *const *types = g_app_info_get_supported_types(G_APP_INFO(info));
    for (; types && *types; ++types) {
        if (std::find(std::begin(webSchemes), std::end(webSchemes), std::string_view(*types))
            != std::end(webSchemes))
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

std::optional<RegisteredApplication> described(GDesktopAppInfo *info, const path &entry)
{
    const Text name(g_desktop_app_info_get_locale_string(info, "Name"));
    if (!name || !*name || !g_app_info_should_show(G_APP_INFO(info)))
        return std::nullopt;
    return RegisteredApplication{QString::fromUtf8(name.get()), iconOf(info), entry};
}

void addAssociated(std::vector<RegisteredApplication> &browsers)
{
    for (const char *scheme : webSchemes) {
        GList *handlers = g_app_info_get_all_for_type(scheme);
        for (const GList *handler = handlers; handler; handler = handler->next) {
            GDesktopAppInfo *info = G_DESKTOP_APP_INFO(handler->data);
            const char *entry = g_desktop_app_info_get_filename(info);
            const auto browser = entry ? described(info, entry) : std::nullopt;
            if (browser && std::find(browsers.begin(), browsers.end(), *browser) == browsers.end())
                browsers.push_back(*browser);
        }
        g_list_free_full(handlers, g_object_unref);
    }
}

std::vector<RegisteredApplication> webBrowsers(const std::vector<path> &entries, bool withAssociations)
{
    std::vector<RegisteredApplication> browsers;
    for (const path &entry : entries) {
        const AppInfo info = loadApplication(entry);
        if (!info || !declaresBrowser(info.get()))
            continue;
        if (auto browser = described(info.get(), entry))
            browsers.push_back(std::move(*browser));
    }
    if (withAssociations)
        addAssociated(browsers);
    return browsers;
}

bool isThere(const path &entry)
{
    return loadApplication(entry) != nullptr;
}

bool start(const path &entry)
{
    const AppInfo info = loadApplication(entry);
    if (info)
        launchApplication(info.get());
    return info != nullptr;
}

} // namespace

const GioModule tarumineGio{.webBrowsers = webBrowsers, .isThere = isThere, .start = start};

AppInfo loadApplication(const path &entry)
{
    AppInfo info(g_desktop_app_info_new_from_filename(entry.c_str()));
    if (info && g_desktop_app_info_get_is_hidden(info.get()))
        return nullptr;
    return info;
}
