#include "platform/WholeFile.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string folderOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Hidden, and not used by anybody else.
std::string nameBeside(const std::string &folder)
{
    static std::atomic<unsigned> count = 0;
    return folder + "/.tarumine-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".part";
}

// Where the links of a name lead, so that the file behind them is the one replaced.
std::string resolved(const std::string &path)
{
    char *real = ::realpath(path.c_str(), nullptr);
    std::string result = real ? real : path;
    std::free(real);
    return result;
}

} // namespace

WholeFile::WholeFile(const std::string &path)
    : m_path(resolved(path))
{
    if (!open())
        failed();
}

WholeFile::~WholeFile()
{
    if (m_file >= 0)
        ::close(m_file);
    if (!m_beside.empty())
        ::unlink(m_beside.c_str());
}

bool WholeFile::failed()
{
    m_error = errno;
    return false;
}

bool WholeFile::open()
{
    struct stat about { };
    const bool exists = ::stat(m_path.c_str(), &about) == 0;
    if (exists && !S_ISREG(about.st_mode)) {
        errno = S_ISDIR(about.st_mode) ? EISDIR : EINVAL;
        return false;
    }
    if (exists && ::access(m_path.c_str(), W_OK) != 0)
        return false; // replacing it would get around what it says
    if (!openBeside(folderOf(m_path)))
        return false;
    if (exists)
        (void)::fchmod(m_file, about.st_mode & 0777);
    return true;
}

// Without any name where the file system can do that: then not even a sudden end leaves a trace.
bool WholeFile::openBeside(const std::string &folder)
{
    constexpr mode_t mode = 0666;
    m_file = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (m_file >= 0)
        return true;
    const std::string name = nameBeside(folder);
    m_file = ::open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode);
    if (m_file >= 0)
        m_beside = name;
    return m_file >= 0;
}

bool WholeFile::write(const char *bytes, std::size_t count)
{
    if (m_error != 0)
        return false;
    while (count > 0) {
        const ssize_t written = ::write(m_file, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return failed();
        bytes += written;
        count -= std::size_t(written);
    }
    return true;
}

bool WholeFile::giveName()
{
    if (!m_beside.empty())
        return true;
    const std::string name = nameBeside(folderOf(m_path));
    const std::string own = "/proc/self/fd/" + std::to_string(m_file);
    if (::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return false;
    m_beside = name;
    return true;
}

bool WholeFile::commit()
{
    if (m_error != 0)
        return false;
    if (::fsync(m_file) != 0 || !giveName() || ::rename(m_beside.c_str(), m_path.c_str()) != 0)
        return failed();
    m_beside.clear();
    return true;
}
