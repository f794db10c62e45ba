#include "platform/BundleFolders.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace {

std::string homeFolder()
{
    if (const char *home = std::getenv("HOME"); home && *home)
        return home;
    std::vector<char> room(size_t(16) << 10);
    passwd entry{};
    passwd *found = nullptr;
    getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found);
    return found ? found->pw_dir : "";
}

} // namespace

BundleFolders BundleFolders::standard()
{
    return {.everybodys = "/Applications", .own = homeFolder() + "/Applications"};
}
