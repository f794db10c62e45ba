#pragma once

#include <filesystem>
#include <vector>

/// What is worth a closer look in the desktop's registry.
struct SearchedRegistry {
    std::vector<std::filesystem::path> entries; ///< entries that speak of browsers
    bool hasAssociations = false;               ///< whether the user has chosen what opens web pages
};

/// Finds the few files that matter among the many: reading the bytes of them all is quick, making out
/// what they mean isn't. Of entries with the same id, the one in the earlier folder counts.
SearchedRegistry searchRegistry(const std::vector<std::filesystem::path> &folders);

/// Whether one of these files is there and speaks of web pages.
bool anyMentionsWebPages(const std::vector<std::filesystem::path> &files);
