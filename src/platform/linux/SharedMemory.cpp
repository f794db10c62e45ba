#include "platform/linux/SharedMemory.h"

#include "decoding/BothAtOnce.h"

#include <algorithm>
#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace {

constexpr int sameSize = F_SEAL_SHRINK | F_SEAL_GROW;
constexpr int sameContent = sameSize | F_SEAL_WRITE;

Descriptor newMemory()
{
    return Descriptor(::memfd_create("tarumine", MFD_CLOEXEC | MFD_ALLOW_SEALING));
}

bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(count < 0 ? 0 : std::size_t(count));
    }
    return true;
}

} // namespace

SharedMemory::SharedMemory(std::size_t bytes)
    : m_file(newMemory())
{
    if (::ftruncate(m_file.number(), off_t(bytes)) != 0
        || ::fcntl(m_file.number(), F_ADD_SEALS, sameSize) != 0)
        m_file.close();
}

SharedMemory::SharedMemory(const std::vector<std::string_view> &parts)
    : m_file(newMemory())
{
    bool isWritten = isOpen();
    for (const std::string_view part : parts)
        isWritten = isWritten && writeAll(m_file.number(), part);
    if (!isWritten || !seal())
        m_file.close();
}

bool SharedMemory::seal()
{
    return ::fcntl(m_file.number(), F_ADD_SEALS, sameContent) == 0;
}

bool isSealed(int file, std::size_t bytes)
{
    struct stat about { };
    const int seals = ::fcntl(file, F_GET_SEALS);
    return seals >= 0 && (seals & sameContent) == sameContent && ::fstat(file, &about) == 0
        && std::size_t(about.st_size) >= bytes;
}

Mapped::Mapped(int file, std::size_t bytes, For what)
    : m_size(bytes)
{
    const int access = what == For::Writing ? PROT_READ | PROT_WRITE : PROT_READ;
    const int kind = what == For::Writing ? MAP_SHARED : MAP_PRIVATE;
    // All of it at once: page by page takes several times as long.
    void *data = bytes > 0 ? ::mmap(nullptr, bytes, access, kind | MAP_POPULATE, file, 0) : MAP_FAILED;
    if (data != MAP_FAILED)
        m_data = static_cast<char *>(data);
}

Mapped::~Mapped()
{
    if (m_data)
        ::munmap(m_data, m_size);
}

void copyByHalves(std::string_view from, char *to)
{
    constexpr std::size_t worthAThread = 1 << 20;
    if (from.size() < worthAThread) {
        std::copy(from.begin(), from.end(), to);
        return;
    }
    const std::size_t half = from.size() / 2;
    const auto copy = [=](std::size_t first, std::size_t end) {
        std::copy_n(from.data() + first, end - first, to + first);
        return true;
    };
    bothAtOnce([=] { return copy(0, half); }, [=] { return copy(half, from.size()); });
}

void populate(char *memory, std::size_t bytes)
{
    const auto page = std::size_t(::sysconf(_SC_PAGESIZE));
    void *first = memory;
    if (std::align(page, page, first, bytes))
        ::madvise(first, bytes / page * page, MADV_POPULATE_WRITE);
}
