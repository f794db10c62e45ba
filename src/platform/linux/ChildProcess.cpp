#include "platform/linux/ChildProcess.h"

#include "platform/linux/Spawn.h"

#include <cerrno>
#include <csignal>

#include <sys/wait.h>

ChildProcess::ChildProcess(const std::string &program, const std::vector<int> &files)
    : m_process(spawn({program}, Session::Ours, files))
{
}

ChildProcess::~ChildProcess()
{
    if (!hasStarted())
        return;
    ::kill(m_process, SIGKILL);
    while (::waitpid(m_process, nullptr, 0) < 0 && errno == EINTR) { }
}
