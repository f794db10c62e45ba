#pragma once

#include "platform/Workspace.h"

/// What GIO knows of desktop entries: a module of its own, which exports `tarumineGio`.
struct GioModule {
    /// Those of the entries that are web browsers, or offer to open web pages, and are there to be
    /// shown; with the user's own associations, also whatever else they name.
    std::vector<RegisteredApplication> (*webBrowsers)(const std::vector<std::filesystem::path> &entries,
                                                      bool withAssociations);

    bool (*isThere)(const std::filesystem::path &entry);

    /// Starts an application; what becomes of it is told to nobody. False when it is there no longer.
    bool (*start)(const std::filesystem::path &entry);
};

extern "C" const GioModule tarumineGio;
