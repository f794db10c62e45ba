#include "platform/FolderLock.h"

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace std::chrono_literals;

FolderLock::FolderLock(const std::string &folder, std::chrono::milliseconds patience)
    : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    const auto end = std::chrono::steady_clock::now() + patience;
    const auto isTaken = [this] {
        return ::flock(m_folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    };
    bool taken = isTaken();
    for (; taken && std::chrono::steady_clock::now() < end; taken = isTaken())
        std::this_thread::sleep_for(1ms);
    m_isHeld = !taken;
}

FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}
