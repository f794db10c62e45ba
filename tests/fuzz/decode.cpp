// Decodes whatever comes. See tools/fuzz.

#include "decoding/PlainUtf8.h"
#include "decoding/TextDecoding.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView bytes(data, qsizetype(size));
    const auto text = decodedText(bytes);
    if (isPlainUtf8(bytes) && text != QString::fromUtf8(bytes))
        std::abort();
    if (text && text->size() > bytes.size()) // what is handed to a worker has no more room
        std::abort();
    return 0;
}
