#pragma once

#include <filesystem>
#include <optional>

/// The program that starts a bundle: the bundle itself when it is an executable file, else one of those
/// that are customary in a folder. Nothing when there is none.
std::optional<std::filesystem::path> programOf(const std::filesystem::path &bundle);

/// The picture that stands for a bundle, where it is a folder that has one at its top.
std::optional<std::filesystem::path> iconOf(const std::filesystem::path &bundle);
