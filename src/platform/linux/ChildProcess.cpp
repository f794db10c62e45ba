#include "platform/linux/ChildProcess.h"

#include "platform/linux/Spawn.h"

#include <csignal>

ChildProcess::ChildProcess(const std::string &program, const std::vector<int> &files)
    : m_process(spawn({program}, Session::Ours, files))
{
}

// It may be a while until the system has taken back what it had.
ChildProcess::~ChildProcess()
{
    if (!hasStarted())
        return;
    ::kill(m_process, SIGKILL);
    forget(m_process);
}
