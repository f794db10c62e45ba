#include "platform/FileContent.h"

#include "platform/FileName.h"
#include "platform/linux/OpenFile.h"

#include <algorithm>
#include <array>
#include <csignal>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace {

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

// Elsewhere, on the other side of a network or in a program that plays a file system, a file changes
// without anybody here being asked, whatever was promised.
bool keepsItsPromises(int file)
{
    constexpr std::array local{
        static_cast<decltype(statfs::f_type)>(EXT4_SUPER_MAGIC), // and its elders
        static_cast<decltype(statfs::f_type)>(BTRFS_SUPER_MAGIC),
        static_cast<decltype(statfs::f_type)>(XFS_SUPER_MAGIC),
        static_cast<decltype(statfs::f_type)>(F2FS_SUPER_MAGIC),
        static_cast<decltype(statfs::f_type)>(TMPFS_MAGIC),
    };
    struct statfs about { };
    return ::fstatfs(file, &about) == 0
        && std::find(local.begin(), local.end(), about.f_type) != local.end();
}

// The signal that tells of a writer who waits would end the program; this one is ignored.
bool keepsWritersWaiting(int file)
{
    return keepsItsPromises(file) && ::fcntl(file, F_SETSIG, SIGURG) == 0
        && ::fcntl(file, F_SETLEASE, F_RDLCK) == 0;
}

std::shared_ptr<const Mapping> Mapping::of(const std::shared_ptr<const OpenFile> &file)
{
    struct stat about { };
    if (!keepsWritersWaiting(file->number()) || ::fstat(file->number(), &about) != 0
        || about.st_size != file->size())
        return nullptr;
    const auto size = size_t(file->size());
    auto mapping = std::make_shared<Mapping>(file);
    mapping->m_at = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file->number(), 0);
    if (mapping->m_at == MAP_FAILED || ::madvise(mapping->m_at, size, MADV_POPULATE_READ) != 0)
        return nullptr;
    return mapping;
}

} // namespace

std::optional<FileContent> FileContent::of(const QString &path, qint64 limit, qint64 large)
{
    const auto file = OpenFile::at(FileName::bytes(path).c_str(), limit);
    if (!file)
        return std::nullopt;
    if (auto mapping = file->size() > large ? Mapping::of(file) : nullptr) {
        FileContent content;
        content.m_bytes = mapping->bytes();
        content.m_descriptor = file->number();
        content.m_owner = std::move(mapping);
        return content;
    }
    const auto bytes = file->read(limit);
    return bytes ? std::optional(FileContent(*bytes)) : std::nullopt;
}

FileContent::FileContent(const QByteArray &bytes)
{
    auto owner = std::make_shared<const QByteArray>(bytes);
    m_bytes = *owner;
    m_owner = std::move(owner);
}
