#include "worker/Errand.h"

#include "platform/Memory.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/SharedMemory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <poll.h>

using namespace std::chrono_literals;
using Protocol::Report;

namespace {

// Where nobody can put another one who can't put another program in our own place.
std::string workerProgram()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / TARUMINE_WORKER;
}

std::string_view bytesOf(const Protocol::Order &order)
{
    return {reinterpret_cast<const char *>(&order), sizeof order};
}

struct Pipe {
    Descriptor out, in; // from where to read, and where to write

    Pipe()
    {
        std::array<int, 2> ends{-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC) == 0) {
            out = Descriptor(ends[0]);
            in = Descriptor(ends[1]);
        }
    }
};

class Worker {
public:
    explicit Worker(const Errand &errand);

    std::optional<Report> lastReport();

private:
    std::optional<Report> nextReport();
    std::optional<Report> readReport() const;
    bool makesSense(const Report &report);
    bool goesOn() const { return !m_errand.goesOn || m_errand.goesOn(); }
    bool passOn();

    const Errand &m_errand;
    Descriptor m_reports, m_document;
    std::vector<char> m_room;
    bool m_isReady = false;
    std::optional<ChildProcess> m_process;
};

Worker::Worker(const Errand &errand)
    : m_errand(errand)
{
    std::vector<std::string_view> parts{bytesOf(errand.order)};
    parts.insert(parts.end(), errand.behind.begin(), errand.behind.end());
    const SharedMemory order(parts);
    Pipe reports, document;
    if (!order.isOpen() || !reports.in.isOpen() || !document.in.isOpen())
        return;
    constexpr int roomInPipe = 1 << 20; // so that neither side waits for the other all the time
    ::fcntl(document.in.number(), F_SETPIPE_SZ, roomInPipe);
    std::vector<int> files{order.number(), reports.in.number(),
                           errand.output ? document.in.number() : errand.result};
    if (errand.picked >= 0)
        files.push_back(errand.picked);
    m_process.emplace(workerProgram(), files);
    m_reports = std::move(reports.out);
    if (errand.output)
        m_document = std::move(document.out);
}

std::optional<Report> Worker::lastReport()
{
    if (!m_process || !m_process->hasStarted())
        return std::nullopt;
    while (const auto report = nextReport()) {
        if (!makesSense(*report))
            break;
        if (m_errand.heard)
            m_errand.heard(*report);
        if (report->kind == Report::Kind::Ended)
            return report;
    }
    return std::nullopt;
}

// What has been written goes before what is said of it: so the reports, which come later, are looked for
// first.
std::optional<Report> Worker::nextReport()
{
    constexpr auto turn = 50ms;
    for (auto silent = 0ms; goesOn() && silent < m_errand.patience; silent += turn) {
        std::array<pollfd, 2> files{pollfd{m_reports.number(), POLLIN, 0},
                                    pollfd{m_document.number(), POLLIN, 0}};
        if (::poll(files.data(), files.size(), int(turn.count())) <= 0)
            continue;
        if (files[1].revents == 0)
            return readReport();
        if (!passOn())
            return std::nullopt;
        silent = 0ms;
    }
    return std::nullopt;
}

// Whoever writes so few bytes to a pipe writes them at once.
std::optional<Report> Worker::readReport() const
{
    Report report;
    return ::read(m_reports.number(), &report, sizeof report) == sizeof report ? std::optional(report)
                                                                               : std::nullopt;
}

// It says first that it is ready, and does so once.
bool Worker::makesSense(const Report &report)
{
    const bool introduces = report.kind == Report::Kind::Ready;
    return introduces != std::exchange(m_isReady, true);
}

bool Worker::passOn()
{
    constexpr std::size_t room = 1 << 16;
    m_room.resize(room);
    const ssize_t count = ::read(m_document.number(), m_room.data(), m_room.size());
    if (count == 0)
        m_document.close();
    if (count <= 0)
        return count == 0 || errno == EINTR;
    return m_errand.output(m_room.data(), std::size_t(count));
}

} // namespace

Protocol::Order newOrder(Protocol::Job job, std::size_t bytes)
{
    constexpr std::size_t mib = 1 << 20;
    constexpr std::uint64_t least = 512 * mib, perByte = 100;
    constexpr std::uint32_t seconds = 10, perMib = 12;
    Protocol::Order order{};
    std::memcpy(order.release, Protocol::release, sizeof order.release);
    order.job = job;
    order.seconds = seconds + perMib * std::uint32_t(bytes / mib);
    order.memory = std::min(least + perByte * bytes, std::max(least, std::uint64_t(availableMemory())));
    return order;
}

Report done(const Errand &errand)
{
    Report failure{};
    failure.kind = Report::Kind::Ended;
    failure.result = Report::Result::Failed;
    return Worker(errand).lastReport().value_or(failure);
}
