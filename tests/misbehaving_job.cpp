// In place of what a worker does: what it might do once somebody else's bytes have taken it over. They say
// what.

#include "worker/program/Job.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <unistd.h>

using namespace Protocol;

namespace {

Report ended(std::uint64_t size, Report::Result result = Report::Result::Done)
{
    Report report = newReport(Report::Kind::Ended);
    report.result = result;
    report.size = size;
    report.width = report.height = std::uint32_t(size);
    return report;
}

// What is handed over, be it in UTF-8 or UTF-16.
bool says(const Handed &handed, std::string_view what)
{
    std::string said(handed.behind);
    said.erase(std::remove(said.begin(), said.end(), '\0'), said.end());
    return said.find(what) != std::string::npos;
}

void takeMemory()
{
    std::vector<std::vector<char>> taken;
    for (;;)
        taken.emplace_back(1 << 24, 'x');
}

void write(std::string_view bytes)
{
    (void)!::write(ResultFile, bytes.data(), bytes.size());
}

void misbehave(const Handed &handed)
{
    volatile bool always = true;
    if (says(handed, "crash"))
        std::abort();
    if (says(handed, "loop"))
        while (always) { }
    if (says(handed, "silence"))
        while (always)
            ::pause(), ::sleep(1);
    if (says(handed, "memory"))
        takeMemory();
    if (says(handed, "leaving"))
        ::_exit(0);
    if (says(handed, "half a report"))
        (void)!::write(ReportFile, "\2\0\0", 3);
    if (says(handed, "another introduction"))
        send(newReport(Report::Kind::Ready));
    if (says(handed, "flood"))
        while (always)
            write(std::string(1 << 20, 'x'));
}

Report work(const Handed &handed)
{
    constexpr std::string_view half = "%PDF-half";
    write(half);
    misbehave(handed);
    if (says(handed, "nothing behind it"))
        return ended(1 << 20);
    if (says(handed, "2 GB"))
        return ended(std::uint64_t(1) << 31);
    if (says(handed, "everything"))
        return ended(~std::uint64_t(0));
    if (says(handed, "it failed") || (says(handed, "shrinking") && ::ftruncate(ResultFile, 0) != 0))
        return ended(0, Report::Result::Failed);
    return ended(half.size()); // as if nothing were wrong
}

std::vector<std::string> prepare()
{
    return {};
}

} // namespace

extern "C" [[gnu::visibility("default")]] const JobModule job{prepare, work};
