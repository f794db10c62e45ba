#pragma once

#include "platform/Workspace.h"

/// The desktop's registry of applications: files that describe one each, in folders of the user and of
/// the system. What they mean is GIO's business.
namespace DesktopEntries {

/// Where they are, in the order in which they take precedence.
std::vector<std::filesystem::path> folders();

/// The applications that call themselves web browsers, or offer to open web pages, and are there to be
/// shown to the user.
std::vector<RegisteredApplication> webBrowsers(const std::vector<std::filesystem::path> &folders);

bool isThere(const std::filesystem::path &entry);

/// False when there is no such application any more. Waits for the desktop's buses.
bool start(const std::filesystem::path &entry);

} // namespace DesktopEntries
