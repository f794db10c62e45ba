#include "platform/linux/Account.h"

#include <vector>

#include <pwd.h>
#include <unistd.h>

Account Account::own()
{
    std::vector<char> room(size_t(16) << 10);
    passwd entry{};
    passwd *found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, room.data(), room.size(), &found) != 0 || !found)
        return {};
    return {.name = found->pw_name, .home = found->pw_dir};
}
