#include "decoding/TextDecoding.h"
#include "platform/linux/SharedMemory.h"
#include "worker/program/Job.h"

#include <cstring>
#include <optional>

using namespace Protocol;

namespace {

std::vector<std::string> prepare()
{
    return {};
}

std::optional<TextParts> decoded(const Handed &handed)
{
    const DecodeOrder &order = handed.order.decode;
    const QByteArrayView encoding(order.encoding,
                                  qsizetype(::strnlen(order.encoding, sizeof order.encoding)));
    if (order.isPicked == 0)
        return order.bytes == handed.behind.size()
            ? decodedParts({handed.behind.data(), qsizetype(handed.behind.size())}, encoding)
            : std::nullopt;
    const Mapped file(PickedFile, order.bytes, Mapped::For::Reading);
    return file.data() ? decodedParts({file.data(), qsizetype(order.bytes)}, encoding) : std::nullopt;
}

std::string_view bytesOf(const QString &text)
{
    return {reinterpret_cast<const char *>(text.constData()), std::size_t(text.size()) * sizeof(char16_t)};
}

// Into the memory that is there for it, and nobody sees it before we have let go of that.
bool handOver(const TextParts &text, std::size_t room)
{
    const auto size = std::size_t(text.size());
    if (size == 0 || size > room)
        return size == 0;
    const Mapped result(ResultFile, size * sizeof(char16_t), Mapped::For::Writing);
    if (!result.data())
        return false;
    copyByHalves(bytesOf(text.first), result.data());
    copyByHalves(bytesOf(text.second), result.data() + bytesOf(text.first).size());
    return true;
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
