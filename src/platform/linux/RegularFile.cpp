#include "platform/RegularFile.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// An ordinary file that is open for reading.
class OpenFile {
public:
    static std::shared_ptr<const OpenFile> at(const char *path, qint64 limit);

    explicit OpenFile(int number)
        : m_number(number)
    {
    }
    ~OpenFile() { ::close(m_number); }
    Q_DISABLE_COPY_MOVE(OpenFile)

    int number() const { return m_number; }
    qint64 size() const { return m_size; }

private:
    int m_number;
    qint64 m_size = 0;
};

// What a file holds, seen in the system's own memory. Were the file cut short meanwhile, looking at what is
// gone would be the end of the program: so the system is asked to keep writers waiting, and all of it is
// fetched at once, which tells when a part can't be read.
class Mapping {
public:
    static std::shared_ptr<const Mapping> of(const std::shared_ptr<const OpenFile> &file);

    explicit Mapping(std::shared_ptr<const OpenFile> file)
        : m_file(std::move(file))
    {
    }
    ~Mapping()
    {
        if (m_at != MAP_FAILED)
            ::munmap(m_at, size_t(m_file->size()));
    }
    Q_DISABLE_COPY_MOVE(Mapping)

    QByteArrayView bytes() const { return {static_cast<const char *>(m_at), m_file->size()}; }

private:
    std::shared_ptr<const OpenFile> m_file;
    void *m_at = MAP_FAILED;
};

bool isRegularFile(const char *path)
{
    struct stat about { };
    return ::stat(path, &about) == 0 && S_ISREG(about.st_mode);
}

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

std::shared_ptr<const Mapping> Mapping::of(const std::shared_ptr<const OpenFile> &file)
{
    // The signal that tells of a writer who waits would end the program; this one is ignored.
    if (::fcntl(file->number(), F_SETSIG, SIGURG) != 0 || ::fcntl(file->number(), F_SETLEASE, F_RDLCK) != 0)
        return nullptr;
    struct stat about { };
    if (::fstat(file->number(), &about) != 0 || about.st_size != file->size())
        return nullptr;
    auto mapping = std::make_shared<Mapping>(file);
    mapping->m_at = ::mmap(nullptr, size_t(file->size()), PROT_READ, MAP_PRIVATE, file->number(), 0);
    if (mapping->m_at == MAP_FAILED
        || ::madvise(mapping->m_at, size_t(file->size()), MADV_POPULATE_READ) != 0)
        return nullptr;
    return mapping;
}

// The size that the file claims is only where to begin: it may grow meanwhile, and some say 0.
std::optional<QByteArray> readToEnd(const OpenFile &file, qint64 limit)
{
    constexpr qsizetype leastRoom = 64 << 10;
    QByteArray content;
    content.resize(file.size() + 1);
    qsizetype used = 0;
    for (;;) {
        if (used == content.size())
            content.resize(used + std::max(leastRoom, used / 2));
        const ssize_t got = ::read(file.number(), content.data() + used, size_t(content.size() - used));
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

} // namespace

std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit)
{
    return readRegularFile(std::filesystem::path(QFile::encodeName(path).toStdString()), limit);
}

std::optional<QByteArray> readRegularFile(const std::filesystem::path &path, qint64 limit)
{
    const auto file = OpenFile::at(path.c_str(), limit);
    return file ? readToEnd(*file, limit) : std::nullopt;
}

std::optional<FileContent> FileContent::of(const QString &path, qint64 limit)
{
    constexpr qint64 large = 1 << 20;
    const auto file = OpenFile::at(QFile::encodeName(path).constData(), limit);
    if (!file)
        return std::nullopt;
    if (auto mapping = file->size() > large ? Mapping::of(file) : nullptr) {
        FileContent content;
        content.m_bytes = mapping->bytes();
        content.m_owner = std::move(mapping);
        return content;
    }
    const auto bytes = readToEnd(*file, limit);
    return bytes ? std::optional(FileContent(*bytes)) : std::nullopt;
}

FileContent::FileContent(const QByteArray &bytes)
{
    auto owner = std::make_shared<const QByteArray>(bytes);
    m_bytes = *owner;
    m_owner = std::move(owner);
}

bool isProgram(const std::filesystem::path &file)
{
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
}
