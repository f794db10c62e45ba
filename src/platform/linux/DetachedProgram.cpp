#include "platform/linux/DetachedProgram.h"

#include "platform/linux/Spawn.h"

bool startDetached(const std::vector<std::string> &command)
{
    const pid_t process = spawn(command, Session::Own);
    if (process > 0)
        forget(process);
    return process > 0;
}
