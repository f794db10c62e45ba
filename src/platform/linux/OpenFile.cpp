#include "platform/linux/OpenFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isRegularFile(const char *path)
{
    struct stat about { };
    return ::stat(path, &about) == 0 && S_ISREG(about.st_mode);
}

} // namespace

std::shared_ptr<const OpenFile> OpenFile::at(const char *path, qint64 limit)
{
    if (!isRegularFile(path))
        return nullptr;
    // O_NONBLOCK: what stands under the name may have been exchanged since, for a FIFO say.
    const int number = ::open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (number < 0)
        return nullptr;
    auto file = std::make_shared<OpenFile>(number);
    struct stat about { };
    if (::fstat(number, &about) != 0 || !S_ISREG(about.st_mode) || about.st_size > limit)
        return nullptr;
    file->m_size = about.st_size;
    return file;
}

OpenFile::~OpenFile()
{
    ::close(m_number);
}

// The size that the file claims is only where to begin: it may grow meanwhile, and some say 0.
std::optional<QByteArray> OpenFile::read(qint64 limit) const
{
    constexpr qsizetype leastRoom = 64 << 10;
    QByteArray content;
    content.resize(m_size + 1);
    qsizetype used = 0;
    for (;;) {
        if (used == content.size())
            content.resize(used + std::max(leastRoom, used / 2));
        const ssize_t got = ::read(m_number, content.data() + used, size_t(content.size() - used));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0 || used + got > limit)
            return std::nullopt;
        if (got == 0)
            break;
        used += got;
    }
    content.truncate(used);
    return content;
}
