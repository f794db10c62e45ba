#include "platform/Mounts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

#include <sys/statvfs.h>

namespace {

bool isRemote(std::string_view type)
{
    constexpr std::array<std::string_view, 9> kinds{"fuse", "nfs", "cifs", "smb",   "9p",
                                                    "ceph", "afs", "coda", "lustre"};
    return std::any_of(kinds.begin(), kinds.end(),
                       [type](std::string_view kind) { return type.starts_with(kind); });
}

// Blanks and the like stand there as a backslash and three octal digits.
std::string unescaped(const std::string &field)
{
    std::string text;
    for (size_t at = 0; at < field.size(); ++at) {
        const bool escaped = field[at] == '\\' && at + 3 < field.size();
        text += escaped ? char(std::stoi(field.substr(at + 1, 3), nullptr, 8)) : field[at];
        at += escaped ? 3 : 0;
    }
    return text;
}

} // namespace

// A line has the mount's place as its fifth field, and its kind behind a lone dash.
std::vector<std::string> Mounts::remote(const std::string &list)
{
    std::vector<std::string> mounts;
    std::ifstream file(list);
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string field, place;
        for (int number = 1; fields >> field && field != "-"; ++number) {
            if (number == 5)
                place = field;
        }
        if (fields >> field && isRemote(field))
            mounts.push_back(unescaped(place));
    }
    return mounts;
}

// As a panel for files does: what answers for itself may still be silent about what is in it.
void Mounts::ask(const std::string &mount)
{
    struct statvfs about { };
    (void)::statvfs(mount.c_str(), &about);
    std::error_code error;
    const std::filesystem::directory_iterator entries(mount, error);
    if (!error && entries != std::filesystem::directory_iterator())
        (void)std::filesystem::status(entries->path(), error);
}
