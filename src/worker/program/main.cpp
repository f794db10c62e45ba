// tarumine-worker: does one job on bytes that come from elsewhere, without rights, and ends. The program
// itself starts it (see Errand.h); it is of no use by hand.

#include "platform/linux/Confinement.h"
#include "platform/linux/SharedMemory.h"
#include "worker/program/Job.h"

#include <csignal>
#include <cstdlib>
#include <new>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Protocol;

namespace {

std::size_t sizeOf(int file)
{
    struct stat about { };
    return ::fstat(file, &about) == 0 ? std::size_t(about.st_size) : 0;
}

void limit(decltype(RLIMIT_AS) what, rlim_t most)
{
    const rlimit both{most, most};
    ::setrlimit(what, &both);
}

// What goes wrong shall not harm anybody else. A sanitizer takes more addresses than there is memory.
void limitOurselves([[maybe_unused]] const Order &order)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, order.seconds);
#ifndef TARUMINE_SANITIZED
    limit(RLIMIT_AS, order.memory);
#endif
    const Descriptor score(::open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC));
    (void)!::write(score.number(), "1000", 4);
}

const JobModule *moduleOf(Job job)
{
    constexpr const char *files[]{TARUMINE_JOB_MODULES};
    if (std::size_t(job) >= std::size(files))
        return nullptr;
    void *module = ::dlopen(files[std::size_t(job)], RTLD_NOW);
    return module ? static_cast<const JobModule *>(::dlsym(module, "job")) : nullptr;
}

void introduce(const Confinement &confinement)
{
    Report report = newReport(Report::Kind::Ready);
    report.landlock = std::uint32_t(confinement.landlock);
    report.systemCalls = confinement.systemCalls;
    send(report);
}

Report result(const JobModule &job, const Handed &handed)
{
    Report report = newReport(Report::Kind::Ended);
    try {
        return job.work(handed);
    } catch (const std::bad_alloc &) {
        report.result = Report::Result::NoMemory;
    } catch (const std::exception &) {
        report.result = Report::Result::Failed;
    }
    return report;
}

} // namespace

int main()
{
    const std::size_t size = sizeOf(OrderFile);
    if (!isSealed(OrderFile, sizeof(Order)))
        return EXIT_FAILURE;
    const Mapped handed(OrderFile, size, Mapped::For::Reading);
    if (!handed.data())
        return EXIT_FAILURE;
    Order order;
    std::memcpy(&order, handed.data(), sizeof order);
    if (!isOurs(order.release))
        return EXIT_FAILURE;
    limitOurselves(order);
    const JobModule *job = moduleOf(order.job);
    if (!job)
        return EXIT_FAILURE;
    introduce(confine(job->prepare()));
    send(result(*job, {order, handed.bytes().substr(sizeof order)}));
    ::_exit(EXIT_SUCCESS);
}
