#include "platform/Memory.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 unlimited = std::numeric_limits<qint64>::max();

// The number that stands behind a word of a file of the system's, or at its beginning.
qint64 number(const std::string &path, const std::string &word = {})
{
    std::ifstream file(path);
    std::string read;
    while (!word.empty() && file >> read && read != word) { }
    qint64 value = unlimited;
    return file >> value ? value : unlimited;
}

qint64 leftToTheMachine(const std::string &root)
{
    const qint64 kib = number(root + "/proc/meminfo", "MemAvailable:");
    return kib == unlimited ? unlimited : kib * 1024;
}

// What files of the system's tell of a group; the two generations of groups have different names for it.
struct GroupFiles {
    std::vector<std::string> limits;
    std::string used, lately, before;
};
const GroupFiles second{{"/memory.max", "/memory.high"}, "/memory.current", "active_file", "inactive_file"};
const GroupFiles first{
    {"/memory.limit_in_bytes"}, "/memory.usage_in_bytes", "total_active_file", "total_inactive_file"};

// The files that a group has read count as memory that it uses, but the system takes that back when it is
// needed.
qint64 leftToTheGroup(const std::string &group, const GroupFiles &files)
{
    qint64 most = unlimited;
    for (const std::string &limit : files.limits)
        most = std::min(most, number(group + limit));
    const std::string statistics = group + "/memory.stat";
    const qint64 used = number(group + files.used);
    const qint64 lately = number(statistics, files.lately), before = number(statistics, files.before);
    if (std::max({most, used, lately, before}) == unlimited)
        return unlimited;
    return most - std::max(qint64(0), used - lately - before);
}

// A group may have no more than those have that it is in.
qint64 leftToTheGroups(const std::string &root, std::string group, const GroupFiles &files)
{
    qint64 left = leftToTheGroup(root, files);
    while (group.size() > 1) {
        left = std::min(left, leftToTheGroup(root + group, files));
        group.resize(group.rfind('/'));
    }
    return left;
}

// A line for each kind of group: its number, what it is about, and its path.
qint64 leftToTheGroups(const std::string &root)
{
    const std::string folder = root + "/sys/fs/cgroup";
    qint64 left = unlimited;
    std::ifstream file(root + "/proc/self/cgroup");
    for (std::string line; std::getline(file, line);) {
        const auto about = line.find(':'), path = line.find(":/");
        if (path == std::string::npos)
            continue;
        const std::string group = line.substr(path + 1), kinds = line.substr(about, path - about) + ',';
        if (line.starts_with("0::"))
            left = std::min(left, leftToTheGroups(folder, group, second));
        else if (kinds.find("memory,") != std::string::npos)
            left = std::min(left, leftToTheGroups(folder + "/memory", group, first));
    }
    return left;
}

qint64 leftToTheProcess(const std::string &root)
{
    rlimit most{};
    const qint64 pages = number(root + "/proc/self/statm");
    if (::getrlimit(RLIMIT_AS, &most) != 0 || most.rlim_cur == RLIM_INFINITY || pages == unlimited)
        return unlimited;
    return qint64(most.rlim_cur) - pages * ::sysconf(_SC_PAGESIZE);
}

} // namespace

qint64 availableMemory(const std::string &root)
{
    return std::max(qint64(0),
                    std::min({leftToTheMachine(root), leftToTheGroups(root), leftToTheProcess(root)}));
}

bool isThereRoomFor(qint64 bytes)
{
    constexpr qint64 forTheRest = 64 << 20;
    if (bytes > availableMemory() - forTheRest)
        return false;
    void *tried = std::malloc(size_t(bytes)); // there may be enough, but not in one piece
    std::free(tried);
    return tried || bytes == 0;
}
