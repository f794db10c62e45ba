#include "decoding/TextDecoding.h"
#include "platform/linux/SharedMemory.h"
#include "worker/program/Job.h"

#include <optional>

using namespace Protocol;

namespace {

std::vector<std::string> prepare()
{
    return {};
}

std::optional<QString> decoded(const Handed &handed)
{
    const DecodeOrder &order = handed.order.decode;
    if (order.isPicked == 0)
        return order.bytes == handed.behind.size()
            ? decodedText({handed.behind.data(), qsizetype(handed.behind.size())})
            : std::nullopt;
    const Mapped file(PickedFile, order.bytes, Mapped::For::Reading);
    return file.data() ? decodedText({file.data(), qsizetype(order.bytes)}) : std::nullopt;
}

// Into the memory that is there for it, and nobody sees it before we have let go of that.
bool handOver(const QString &text, std::size_t room)
{
    const auto size = std::size_t(text.size());
    if (size > room)
        return false;
    const Mapped result(ResultFile, size * sizeof(char16_t), Mapped::For::Writing);
    if (result.data())
        copyByHalves({reinterpret_cast<const char *>(text.constData()), size * sizeof(char16_t)}, result.data());
    return size == 0 || result.data();
}

Report work(const Handed &handed)
{
    Report report = newReport(Report::Kind::Ended);
    const auto text = decoded(handed);
    const bool isDone = text && handOver(*text, handed.order.decode.characters);
    report.result = isDone ? Report::Result::Done : Report::Result::Failed;
    report.size = isDone ? std::uint64_t(text->size()) : 0;
    return report;
}

} // namespace

extern "C" [[gnu::visibility("default")]] const JobModule job{prepare, work};
