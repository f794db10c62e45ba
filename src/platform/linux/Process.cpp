#include "platform/Process.h"

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

void Process::begin()
{
    std::signal(SIGPIPE, SIG_IGN);
    // A file always gets the lowest number that is free.
    int file = ::open("/dev/null", O_RDWR);
    while (file >= 0 && file <= STDERR_FILENO)
        file = ::open("/dev/null", O_RDWR);
    ::close(file);
    // Whoever calls exit, as Qt does when the display goes, is not to hang there either.
    std::atexit([] { end(EXIT_FAILURE); });
}

void Process::endBySignal(std::chrono::milliseconds delay, int status)
{
    static volatile std::sig_atomic_t ending;
    ending = status;
    std::signal(SIGALRM, [](int) { ::_exit(ending); });
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(delay);
    const itimerval when{{}, {seconds.count(), std::chrono::microseconds(delay - seconds).count()}};
    ::setitimer(ITIMER_REAL, &when, nullptr);
}
