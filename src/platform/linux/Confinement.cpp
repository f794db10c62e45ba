#include "platform/linux/Confinement.h"

#include "platform/linux/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <initializer_list>
#include <memory>

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace {

// Landlock as the newest kernel knows it; the headers that are installed may be older than that.
namespace Landlock {

struct Ruleset {
    std::uint64_t files;
    std::uint64_t network;
    std::uint64_t scopes;
};

struct [[gnu::packed]] FolderRule {
    std::uint64_t allowed;
    std::int32_t folder;
};

constexpr std::uint64_t readFile = 1 << 2;
constexpr std::uint64_t readFolder = 1 << 3;
constexpr unsigned long askVersion = 1;
constexpr int folderRule = 1;

int version()
{
    return int(::syscall(SYS_landlock_create_ruleset, nullptr, 0, askVersion));
}

// All rights of that version.
Ruleset everything(int version)
{
    const int files = version >= 5 ? 16 : version >= 3 ? 15 : version == 2 ? 14 : 13;
    return {.files = (1u << files) - 1,
            .network = version >= 4 ? 3u : 0u,
            .scopes = version >= 6 ? 3u : 0u}; // abstract sockets and signals
}

// An older kernel takes no larger structure than it knows.
std::size_t size(int version)
{
    return (version >= 6 ? 3 : version >= 4 ? 2 : 1) * sizeof(std::uint64_t);
}

void allowReading(const Descriptor &rules, const std::string &path)
{
    const Descriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat about { };
    if (!place.isOpen() || ::fstat(place.number(), &about) != 0)
        return;
    const FolderRule rule{S_ISDIR(about.st_mode) ? readFile | readFolder : readFile, place.number()};
    ::syscall(SYS_landlock_add_rule, rules.number(), folderRule, &rule, 0);
}

int confine(const std::vector<std::string> &readable, int newest)
{
    const int version = std::min(Landlock::version(), newest);
    if (version < 1)
        return 0;
    const Ruleset all = everything(version);
    const Descriptor rules(int(::syscall(SYS_landlock_create_ruleset, &all, size(version), 0)));
    if (!rules.isOpen())
        return 0;
    for (const std::string &path : readable)
        allowReading(rules, path);
    return ::syscall(SYS_landlock_restrict_self, rules.number(), 0) == 0 ? version : 0;
}

} // namespace Landlock

class SystemCalls {
public:
    SystemCalls()
        : m_filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release)
    {
    }

    void allow(std::initializer_list<int> calls) const
    {
        for (const int call : calls)
            seccomp_rule_add_array(m_filter.get(), SCMP_ACT_ALLOW, call, 0, nullptr);
    }

    // Only where these bits of an argument are as they should be.
    void allow(int call, unsigned argument, std::uint64_t bits, std::uint64_t value) const
    {
        const scmp_arg_cmp condition{argument, SCMP_CMP_MASKED_EQ, bits, value};
        seccomp_rule_add_array(m_filter.get(), SCMP_ACT_ALLOW, call, 1, &condition);
    }

    // As if the kernel were older.
    void deny(int call) const
    {
        seccomp_rule_add_array(m_filter.get(), SCMP_ACT_ERRNO(ENOSYS), call, 0, nullptr);
    }

    bool load() const { return m_filter && seccomp_load(m_filter.get()) == 0; }

private:
    std::unique_ptr<void, decltype(&seccomp_release)> m_filter;
};

void allowWork(const SystemCalls &calls)
{
    calls.allow({SCMP_SYS(read), SCMP_SYS(readv), SCMP_SYS(pread64), SCMP_SYS(write), SCMP_SYS(writev),
                 SCMP_SYS(close), SCMP_SYS(lseek), SCMP_SYS(fstat), SCMP_SYS(poll), SCMP_SYS(ppoll)});
    calls.allow({SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise), SCMP_SYS(brk)});
    calls.allow(SCMP_SYS(mmap), 2, PROT_EXEC, 0);
    calls.allow(SCMP_SYS(mprotect), 2, PROT_EXEC, 0);
    calls.allow({SCMP_SYS(futex), SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(exit),
                 SCMP_SYS(exit_group), SCMP_SYS(sched_yield), SCMP_SYS(sched_getaffinity),
                 SCMP_SYS(restart_syscall)});
    // A thread, but no process, and nothing of its own to be root in.
    constexpr std::uint64_t spaces = CLONE_NEWNS | CLONE_NEWCGROUP | CLONE_NEWUTS | CLONE_NEWIPC
        | CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET;
    calls.allow(SCMP_SYS(clone), 0, CLONE_THREAD | spaces, CLONE_THREAD);
    calls.deny(SCMP_SYS(clone3)); // whose arguments can't be looked at
    calls.allow(
        {SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn), SCMP_SYS(sigaltstack)});
    calls.allow({SCMP_SYS(clock_gettime), SCMP_SYS(clock_getres), SCMP_SYS(gettimeofday), SCMP_SYS(time),
                 SCMP_SYS(clock_nanosleep), SCMP_SYS(nanosleep)});
    calls.allow({SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(getrandom), SCMP_SYS(getrusage),
                 SCMP_SYS(sysinfo), SCMP_SYS(uname)});
}

void allowReadingFiles(const SystemCalls &calls)
{
    constexpr std::uint64_t otherThanReading =
        O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND | (O_TMPFILE & ~O_DIRECTORY);
    calls.allow(SCMP_SYS(openat), 2, otherThanReading, O_RDONLY);
    calls.allow(SCMP_SYS(open), 1, otherThanReading, O_RDONLY);
    calls.allow({SCMP_SYS(stat), SCMP_SYS(lstat), SCMP_SYS(newfstatat), SCMP_SYS(statx), SCMP_SYS(statfs),
                 SCMP_SYS(fstatfs), SCMP_SYS(access), SCMP_SYS(faccessat), SCMP_SYS(faccessat2),
                 SCMP_SYS(readlink), SCMP_SYS(readlinkat), SCMP_SYS(getdents64), SCMP_SYS(getcwd)});
    constexpr std::uint64_t whole = ~std::uint64_t(0);
    for (const int command : {F_GETFD, F_SETFD, F_GETFL}) // others have signals sent
        calls.allow(SCMP_SYS(fcntl), 1, whole, std::uint64_t(command));
}

bool confineCalls(bool readsFiles)
{
    const SystemCalls calls;
    allowWork(calls);
    if (readsFiles)
        allowReadingFiles(calls);
    else // of open files alone
        calls.allow(SCMP_SYS(newfstatat), 3, AT_EMPTY_PATH, AT_EMPTY_PATH);
    return calls.load();
}

} // namespace

Confinement confine(const std::vector<std::string> &readable, int newestLandlock)
{
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const int landlock = Landlock::confine(readable, newestLandlock);
    return {landlock, confineCalls(!readable.empty())};
}
