#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

/// A process of one's own, with nothing open but these files, as its numbers 3 and up. It ends with this,
/// and nothing is left of it soon after.
class ChildProcess {
public:
    ChildProcess(const std::string &program, const std::vector<int> &files);
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    bool hasStarted() const { return m_process > 0; }

private:
    pid_t m_process;
};
