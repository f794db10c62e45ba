#include "platform/FileStamp.h"

#include <ctime>

#include <sys/stat.h>

namespace {

constexpr long long settling = 100'000'000; // nanoseconds

long long nanoseconds(const timespec &time)
{
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

} // namespace

FileStamp FileStamp::of(const std::string &path)
{
    FileStamp stamp;
    struct stat about { };
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    stamp.m_isSettled = true;
    if (::stat(path.c_str(), &about) != 0)
        return stamp; // of a file that is missing
    stamp.m_device = about.st_dev;
    stamp.m_number = about.st_ino;
    stamp.m_size = about.st_size;
    stamp.m_changed = nanoseconds(about.st_ctim); // by whatever: the other time can be set to anything
    stamp.m_isSettled = nanoseconds(now) - stamp.m_changed > settling;
    return stamp;
}

bool FileStamp::operator==(const FileStamp &other) const
{
    return m_isSettled && other.m_isSettled && m_device == other.m_device && m_number == other.m_number
        && m_size == other.m_size && m_changed == other.m_changed;
}
