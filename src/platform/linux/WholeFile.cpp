#include "platform/WholeFile.h"

#include <atomic>
#include <cerrno>
#include <filesystem>

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

// Hidden, and not used by anybody else unless a process of the same number has left it behind.
std::string nameBeside(const std::string &folder)
{
    static std::atomic<unsigned> count = 0;
    return folder + "/.tarumine-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".part";
}

// The first such name that `make` doesn't find in use.
template <class Make> std::string freeNameBeside(const std::string &folder, Make make)
{
    constexpr int mostTries = 1000;
    for (int tries = 0; tries < mostTries; ++tries) {
        std::string name = nameBeside(folder);
        if (make(name.c_str()))
            return name;
        if (errno != EEXIST)
            break;
    }
    return {};
}

// Where the links of a name lead, also to a file that isn't there yet.
std::string resolved(const std::string &path)
{
    constexpr int mostLinks = 40; // as many as the system follows
    std::filesystem::path result = path;
    std::error_code error;
    for (int links = 0; links < mostLinks; ++links) {
        const auto target = std::filesystem::read_symlink(result, error);
        if (error)
            break;
        result = result.parent_path() / target;
    }
    return result;
}

// A group that can't be kept is no other group: what it might do, everybody else may do or nobody.
void takeOver(int file, const struct stat &about)
{
    mode_t mode = about.st_mode & 0777;
    if (::fchown(file, about.st_uid, about.st_gid) != 0 && ::fchown(file, uid_t(-1), about.st_gid) != 0)
        mode = (mode & 0707) | ((mode & 07) << 3);
    (void)::fchmod(file, mode);
}

// So that the name, too, is safe. Not every file system can do that, and not every folder can be opened.
bool syncFolder(const std::string &folder)
{
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool failed = file >= 0 && ::fsync(file) != 0 && errno != EINVAL && errno != ENOTSUP;
    const int error = errno;
    if (file >= 0)
        ::close(file);
    errno = error;
    return !failed;
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
    if (!exists && errno != ENOENT)
        return false;
    if (exists && !S_ISREG(about.st_mode)) {
        errno = S_ISDIR(about.st_mode) ? EISDIR : EINVAL;
        return false;
    }
    if (exists && ::access(m_path.c_str(), W_OK) != 0)
        return false; // replacing it would get around what it says
    if (!openBeside(folderOf(m_path)))
        return false;
    if (exists)
        takeOver(m_file, about);
    return true;
}

constexpr mode_t modeOfNew = 0666; // less what the user's mask takes away

// Without any name where the file system can do that: then not even a sudden end leaves a trace.
bool WholeFile::openBeside(const std::string &folder)
{
    m_file = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, modeOfNew);
    return m_file >= 0 || openNamed(folder);
}

bool WholeFile::openNamed(const std::string &folder)
{
    m_beside = freeNameBeside(folder, [this](const char *name) {
        m_file = ::open(name, O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, modeOfNew);
        return m_file >= 0;
    });
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
    const std::string own = "/proc/self/fd/" + std::to_string(m_file);
    m_beside = freeNameBeside(folderOf(m_path), [&own](const char *name) {
        return ::linkat(AT_FDCWD, own.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
    });
    return !m_beside.empty();
}

bool WholeFile::commit()
{
    if (m_error != 0)
        return false;
    if (::fsync(m_file) != 0 || !giveName() || ::rename(m_beside.c_str(), m_path.c_str()) != 0)
        return failed();
    m_beside.clear();
    return syncFolder(folderOf(m_path)) || failed();
}
