#include "platform/Process.h"

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
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
