#include "platform/linux/gio/AppInfo.h"
#include "platform/linux/gio/StartupSequence.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

char *beginSequence(GAppLaunchContext *, GAppInfo *application, GList *)
{
    auto *info = G_DESKTOP_APP_INFO(application);
    const char *entry = g_desktop_app_info_get_filename(info);
    const char *windowClass = g_desktop_app_info_get_startup_wm_class(info);
    const std::string id = StartupSequence::begin({.name = g_app_info_get_name(application),
                                                   .entry = entry ? entry : "",
                                                   .windowClass = windowClass ? windowClass : ""});
    return id.empty() ? nullptr : g_strdup(id.c_str());
}

void endSequence(GAppLaunchContext *, const char *id)
{
    StartupSequence::end(id);
}

// GIO asks it for the id of the sequence where the application takes part in such.
GAppLaunchContext *newContext()
{
    static const GType type = g_type_register_static_simple(
        g_app_launch_context_get_type(), "TarumineLaunchContext", sizeof(GAppLaunchContextClass),
        [](gpointer ours, gpointer) {
            auto *context = static_cast<GAppLaunchContextClass *>(ours);
            context->get_startup_notify_id = beginSequence;
            context->launch_failed = endSequence;
        },
        sizeof(GAppLaunchContext), nullptr, GTypeFlags(0));
    return static_cast<GAppLaunchContext *>(g_object_new(type, nullptr));
}

} // namespace

void launchApplication(GDesktopAppInfo *info)
{
    // Held until the end: the connection that GIO is about to use must not end this process with it.
    const std::unique_ptr<GDBusConnection, Release> bus(
        g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus)
        g_dbus_connection_set_exit_on_close(bus.get(), false);
    const std::unique_ptr<GAppLaunchContext, Release> context(newContext());
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    const auto ownSession = [](gpointer) { ::setsid(); };
    g_desktop_app_info_launch_uris_as_manager_with_fds(info, nullptr, context.get(), G_SPAWN_SEARCH_PATH,
                                                       ownSession, nullptr, nullptr, nullptr, nowhere,
                                                       nowhere, nowhere, nullptr);
    ::close(nowhere);
    if (bus)
        g_dbus_connection_flush_sync(bus.get(), nullptr, nullptr);
}
