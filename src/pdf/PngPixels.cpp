#include "pdf/PngPixels.h"

#include <png.h>

#include <cstdint>

namespace {

constexpr std::uint64_t mostPixels = 4'000'000;

// The state of the library for one picture.
struct Reader {
    Reader() { image.version = PNG_IMAGE_VERSION; }
    ~Reader() { png_image_free(&image); }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    png_image image{};
};

} // namespace

std::optional<Pixels> pngPixels(std::string_view png)
{
    Reader reader;
    png_image &image = reader.image;
    if (!png_image_begin_read_from_memory(&image, png.data(), png.size())
        || std::uint64_t(image.width) * image.height > mostPixels)
        return {};
    const bool hasOpacity = image.format & PNG_FORMAT_FLAG_ALPHA;
    image.format = PNG_FORMAT_RGBA;
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB; // unless it says that its colours are others
    Pixels pixels{int(image.width), int(image.height), hasOpacity, {}};
    pixels.bytes.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, pixels.bytes.data(), 0, nullptr))
        return {};
    return pixels;
}
