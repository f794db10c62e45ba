#include "platform/linux/DetachedProgram.h"

#include <csignal>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Attributes {
public:
    Attributes()
    {
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all); // we ignore some that others count on
    }
    ~Attributes() { posix_spawnattr_destroy(&m_attributes); }
    Attributes(const Attributes &) = delete;
    Attributes &operator=(const Attributes &) = delete;
    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

class FileActions {
public:
    FileActions()
    {
        posix_spawn_file_actions_init(&m_actions);
        for (int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_actions, file, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }
    FileActions(const FileActions &) = delete;
    FileActions &operator=(const FileActions &) = delete;
    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

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
    std::vector<char *> words;
    words.reserve(command.size() + 1);
    for (const std::string &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);

    pid_t process = 0;
    if (posix_spawnp(&process, words.front(), FileActions().get(), Attributes().get(), words.data(),
                     environ)
        != 0)
        return false;
    waitInBackground(process);
    return true;
}
