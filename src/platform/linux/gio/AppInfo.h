#pragma once

#include <gio/gdesktopappinfo.h>

#include <filesystem>
#include <memory>

struct Release {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(gchar *text) const { g_free(text); }
};
using AppInfo = std::unique_ptr<GDesktopAppInfo, Release>;
using Text = std::unique_ptr<gchar, Release>;

/// The application of an entry, unless it is hidden or its program isn't there.
AppInfo loadApplication(const std::filesystem::path &entry);

/// Starts it with none of our files, in a session of its own; waits for the desktop's buses.
void launchApplication(GDesktopAppInfo *info);
