#include "worker/program/Job.h"

#include <cerrno>

#include <unistd.h>

Protocol::Report newReport(Protocol::Report::Kind kind)
{
    Protocol::Report report{};
    report.kind = kind;
    return report;
}

// So few bytes go to a pipe at once. Nobody to hear them: nobody to work for.
void send(const Protocol::Report &report)
{
    while (::write(Protocol::ReportFile, &report, sizeof report) != sizeof report) {
        if (errno != EINTR)
            ::_exit(EXIT_FAILURE);
    }
}
