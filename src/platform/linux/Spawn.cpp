#include "platform/linux/Spawn.h"

#include "platform/linux/Descriptor.h"

#include <csignal>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Attributes {
public:
    explicit Attributes(Session session)
    {
        posix_spawnattr_init(&m_attributes);
        const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        posix_spawnattr_setflags(&m_attributes,
                                 short(session == Session::Own ? flags | POSIX_SPAWN_SETSID : flags));
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
    explicit FileActions(const std::vector<Descriptor> &files)
    {
        posix_spawn_file_actions_init(&m_actions);
        for (int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_actions, file, "/dev/null", O_RDWR, 0);
        int number = STDERR_FILENO;
        for (const Descriptor &file : files)
            posix_spawn_file_actions_adddup2(&m_actions, file.number(), ++number);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, number + 1);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }
    FileActions(const FileActions &) = delete;
    FileActions &operator=(const FileActions &) = delete;
    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

// With numbers out of the way of those that the program is to see them by.
std::vector<Descriptor> copies(const std::vector<int> &files)
{
    const int outOfTheWay = STDERR_FILENO + 1 + int(files.size());
    std::vector<Descriptor> all;
    all.reserve(files.size());
    for (const int file : files)
        all.emplace_back(::fcntl(file, F_DUPFD_CLOEXEC, outOfTheWay));
    return all;
}

// One of ours takes much memory at once, which is found much faster in large pages.
std::vector<char *> environmentOf(Session session)
{
    static char largePages[] = "GLIBC_TUNABLES=glibc.malloc.hugetlb=1";
    std::vector<char *> all;
    for (char **variable = environ; *variable; ++variable)
        all.push_back(*variable);
    if (session == Session::Ours && !::getenv("GLIBC_TUNABLES"))
        all.push_back(largePages);
    all.push_back(nullptr);
    return all;
}

} // namespace

pid_t spawn(const std::vector<std::string> &command, Session session, const std::vector<int> &files)
{
    std::vector<char *> words;
    words.reserve(command.size() + 1);
    for (const std::string &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);

    const std::vector<Descriptor> given = copies(files);
    for (const Descriptor &file : given) {
        if (!file.isOpen())
            return -1;
    }
    pid_t process = 0;
    const int error = posix_spawnp(&process, words.front(), FileActions(given).get(),
                                   Attributes(session).get(), words.data(), environmentOf(session).data());
    return error == 0 ? process : -1;
}

void forget(pid_t process)
{
    try {
        std::thread([process] { waitpid(process, nullptr, 0); }).detach();
    } catch (const std::system_error &) {
        // No thread to be had: the row in the table stays until we end.
    }
}
