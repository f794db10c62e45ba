#include "platform/Memory.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 unlimited = std::numeric_limits<qint64>::max();

// The number that stands behind a word of a file of the system's, or at its beginning.
qint64 number(const char *path, const std::string &word = {})
{
    std::ifstream file(path);
    std::string read;
    while (!word.empty() && file >> read && read != word) { }
    qint64 value = unlimited;
    return file >> value ? value : unlimited;
}

qint64 leftToTheMachine()
{
    const qint64 kib = number("/proc/meminfo", "MemAvailable:");
    return kib == unlimited ? unlimited : kib * 1024;
}

// The files that a group has read count as memory that it uses, but the system takes that back when it
// is needed.
qint64 leftToTheGroup()
{
    const char *statistics = "/sys/fs/cgroup/memory.stat";
    const qint64 most = number("/sys/fs/cgroup/memory.max"), used = number("/sys/fs/cgroup/memory.current");
    const qint64 lately = number(statistics, "active_file"), before = number(statistics, "inactive_file");
    if (std::max({most, used, lately, before}) == unlimited)
        return unlimited;
    return most - std::max(qint64(0), used - lately - before);
}

qint64 leftToTheProcess()
{
    rlimit most{};
    const qint64 pages = number("/proc/self/statm");
    if (::getrlimit(RLIMIT_AS, &most) != 0 || most.rlim_cur == RLIM_INFINITY || pages == unlimited)
        return unlimited;
    return qint64(most.rlim_cur) - pages * ::sysconf(_SC_PAGESIZE);
}

} // namespace

bool isThereRoomFor(qint64 bytes)
{
    constexpr qint64 forTheRest = 64 << 20;
    if (bytes > availableMemory() - forTheRest)
        return false;
    void *tried = std::malloc(size_t(bytes)); // there may be enough, but not in one piece
    std::free(tried);
    return tried || bytes == 0;
}

qint64 availableMemory()
{
    return std::max(qint64(0), std::min({leftToTheMachine(), leftToTheGroup(), leftToTheProcess()}));
}
