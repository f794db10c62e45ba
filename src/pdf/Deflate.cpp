#include "pdf/Deflate.h"

#include <libdeflate.h>

#include <memory>
#include <new>

std::string deflated(std::string_view bytes)
{
    constexpr int level = 4;
    struct Free {
        void operator()(libdeflate_compressor *compressor) const { libdeflate_free_compressor(compressor); }
    };
    // One for each thread: making one costs more than a page does.
    thread_local const std::unique_ptr<libdeflate_compressor, Free> compressor(
        libdeflate_alloc_compressor(level));
    if (!compressor)
        throw std::bad_alloc();
    std::string result(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()), '\0');
    result.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), result.data(),
                                           result.size()));
    result.shrink_to_fit();
    return result;
}
