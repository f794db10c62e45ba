// Sets whatever comes in pages: two bytes say how, the others are UTF-16. See tools/fuzz.

#include "pdf/TextPdf.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t chosen = 2;
    if (size < chosen)
        return 0;
    std::u16string text((size - chosen) / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), data + chosen, text.size() * sizeof(char16_t));
    PdfSettings settings;
    settings.copies = 1 + data[0] % 3;
    settings.collated = (data[0] & 4) != 0;
    settings.lastFirst = (data[0] & 8) != 0;
    settings.grey = (data[0] & 16) != 0;
    settings.format.longestLine = data[1] * 3;
    std::size_t written = 0;
    PdfProgress progress;
    const auto count = [&written](const char *, std::size_t bytes) {
        written += bytes;
        return true;
    };
    if (writeTextPdf(text, settings, count, progress) != PdfResult::Written || written == 0)
        std::abort();
    return 0;
}
