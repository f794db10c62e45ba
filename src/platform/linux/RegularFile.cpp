#include "platform/RegularFile.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The size that the file claims is only where to begin: it may grow meanwhile, and some say 0.
std::optional<QByteArray> readToEnd(int file, qint64 expected, qint64 limit)
{
    constexpr qsizetype leastRoom = 64 << 10;
    QByteArray content;
    content.resize(expected + 1);
    qsizetype used = 0;
    for (;;) {
        if (used == content.size())
            content.resize(used + std::max(leastRoom, used / 2));
        const ssize_t got = ::read(file, content.data() + used, size_t(content.size() - used));
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

bool isRegularFile(const char *path)
{
    struct stat about { };
    return ::stat(path, &about) == 0 && S_ISREG(about.st_mode);
}

} // namespace

std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit)
{
    return readRegularFile(std::filesystem::path(QFile::encodeName(path).toStdString()), limit);
}

std::optional<QByteArray> readRegularFile(const std::filesystem::path &path, qint64 limit)
{
    if (!isRegularFile(path.c_str()))
        return std::nullopt;
    // O_NONBLOCK: what stands under the name may have been exchanged since, for a FIFO say.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file < 0)
        return std::nullopt;
    const auto closing = qScopeGuard([file] { ::close(file); });
    struct stat about { };
    if (::fstat(file, &about) != 0 || !S_ISREG(about.st_mode) || about.st_size > limit)
        return std::nullopt;
    return readToEnd(file, about.st_size, limit);
}

bool isProgram(const std::filesystem::path &file)
{
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
}
