#include "pdf/TextPdf.h"
#include "worker/program/Job.h"

#include <cerrno>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <span>
#include <stdexcept>
#include <thread>
#include <utility>

#include <unistd.h>

using namespace Protocol;
using namespace std::chrono_literals;

namespace {

/// Takes what was handed over apart.
class Parts {
public:
    explicit Parts(std::string_view bytes)
        : m_rest(bytes)
    {
    }

    template <class Item> std::span<const Item> next(std::uint64_t count)
    {
        if (count > m_rest.size() / sizeof(Item))
            throw std::runtime_error("less was handed over than was said");
        const std::span items(reinterpret_cast<const Item *>(m_rest.data()), count);
        m_rest.remove_prefix(items.size_bytes());
        return items;
    }

private:
    std::string_view m_rest;
};

// Some libraries write a few bytes at a time.
class DocumentPipe {
public:
    bool write(const char *bytes, std::size_t count)
    {
        constexpr std::size_t worthWriting = 1 << 18;
        m_waiting.append(bytes, count);
        m_written += count;
        return m_waiting.size() < worthWriting || flush();
    }

    bool flush()
    {
        std::string_view rest = m_waiting;
        while (!rest.empty()) {
            const ssize_t count = ::write(ResultFile, rest.data(), rest.size());
            if (count < 0 && errno != EINTR)
                return false;
            rest.remove_prefix(count < 0 ? 0 : std::size_t(count));
        }
        m_waiting.clear();
        return true;
    }

    std::uint64_t written() const { return m_written; }

private:
    std::string m_waiting;
    std::uint64_t m_written = 0;
};

// Tells how far it has come, when that has changed.
class Reporter {
public:
    explicit Reporter(const PdfProgress &progress)
        : m_thread([&progress](const std::stop_token &ends) { tell(progress, ends); })
    {
    }

private:
    static void tell(const PdfProgress &progress, const std::stop_token &ends)
    {
        constexpr double whole = 1e6;
        Report report = newReport(Report::Kind::Progress);
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any clock;
        const auto never = [] { return false; };
        for (;;) {
            const bool isLast = ends.stop_requested();
            const auto pages = std::uint32_t(progress.pages.load());
            report.share = std::uint32_t(progress.share * whole);
            if (std::exchange(report.pages, pages) != pages)
                send(report);
            if (isLast)
                break;
            clock.wait_for(lock, ends, 20ms, never);
        }
    }

    std::jthread m_thread;
};

PdfSettings settings(const PaperOrder &order, std::uint64_t most)
{
    PdfSettings settings;
    settings.format = {order.width, order.height, order.top,         order.bottom,
                       order.left,  order.right,  order.longestLine, order.numbered != 0};
    settings.lastPage = order.lastPage;
    settings.copies = order.copies;
    settings.collated = order.collated != 0;
    settings.lastFirst = order.lastFirst != 0;
    settings.grey = order.grey != 0;
    settings.hasRoom = [most](std::size_t bytes) {
        void *tried = bytes < most ? std::malloc(bytes) : nullptr;
        std::free(tried);
        return tried || bytes == 0;
    };
    return settings;
}

Report::Result write(const Handed &handed, DocumentPipe &document)
{
    const PaperOrder &order = handed.order.paper;
    Parts parts(handed.behind);
    PdfSettings chosen = settings(order, handed.order.memory);
    const auto ranges = parts.next<PageRange>(order.ranges);
    chosen.ranges.assign(ranges.begin(), ranges.end());
    const auto text = parts.next<char16_t>(order.characters);
    const auto family = parts.next<char>(order.family), title = parts.next<char>(order.title);
    chosen.fontFamily.assign(family.begin(), family.end());
    chosen.title.assign(title.begin(), title.end());

    PdfProgress progress;
    const Reporter reporter(progress);
    const auto output = [&](const char *bytes, std::size_t count) { return document.write(bytes, count); };
    const PdfResult result = writeTextPdf({text.data(), text.size()}, chosen, output, progress);
    if (result == PdfResult::NoMemory)
        return Report::Result::NoMemory;
    if (result == PdfResult::NoFonts)
        return Report::Result::NoFonts;
    return result == PdfResult::Written && document.flush() ? Report::Result::Done : Report::Result::Failed;
}

} // namespace

extern "C" [[gnu::visibility("default")]] Report paperWork(const Handed &handed)
{
    Report report = newReport(Report::Kind::Ended);
    DocumentPipe document;
    report.result = write(handed, document);
    report.size = document.written();
    return report;
}
