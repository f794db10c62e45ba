#include "platform/linux/DetachedProgram.h"

#include "platform/linux/Spawn.h"

#include <system_error>
#include <thread>

#include <sys/wait.h>

namespace {

// What has ended but nobody has waited for stays in the table of processes.
void waitInBackground(pid_t process)
{
    try {
        std::thread([process] { waitpid(process, nullptr, 0); }).detach();
    } catch (const std::system_error &) {
        // No thread to be had: the row in the table stays until we end.
    }
}

} // namespace

bool startDetached(const std::vector<std::string> &command)
{
    const pid_t process = spawn(command, Session::Own);
    if (process < 0)
        return false;
    waitInBackground(process);
    return true;
}
