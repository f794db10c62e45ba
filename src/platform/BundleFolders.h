#pragma once

#include <filesystem>

/// The folders into which whole applications are put, in the order in which they are looked for.
struct BundleFolders {
    std::filesystem::path system;
    std::filesystem::path own;

    static BundleFolders standard();
};
