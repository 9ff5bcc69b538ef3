#include "nengine/texture/detail/ImageReaders.h"

#include "foundation/core/Exception.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

namespace nurel::texture {

namespace {

/// libpng's simplified interface: it keeps its jumps to itself and reports by a return value and a message.
class PngImage {
public:
    PngImage() { mImage.version = PNG_IMAGE_VERSION; }
    ~PngImage() { png_image_free(&mImage); }
    PngImage(const PngImage &) = delete;
    PngImage &operator=(const PngImage &) = delete;

    png_image *operator->() { return &mImage; }
    png_image *get() { return &mImage; }

private:
    png_image mImage{};
};

[[noreturn]] void failToWrite(const char *path, const char *reason) {
    throw ::core::IOException("Cannot write image %s: %s", path, reason);
}

} // namespace

Image detail::readPng(const void *file, std::size_t size) {
    PngImage png;
    if (!png_image_begin_read_from_memory(png.get(), file, size))
        throw ::core::IOException("%s", png->message);
    png->format = PNG_FORMAT_RGBA;
    png->flags |=
        PNG_IMAGE_FLAG_16BIT_sRGB; // files with 16 bits are sRGB like all others, unless they say what they are
    Image image(png->width, png->height);
    if (!png_image_finish_read(png.get(), nullptr, image.rgba.get(), 0, nullptr))
        throw ::core::IOException("%s", png->message);
    return image;
}

void savePng(const char *path, unsigned int width, unsigned int height, const void *rgba) {
    if (!path || !*path)
        failToWrite("", "it has no name");
    if (!rgba || width == 0 || height == 0)
        failToWrite(path, "it has no pixels");
    std::FILE *file = std::fopen(path, "wb");
    if (!file)
        failToWrite(path, std::strerror(errno));

    PngImage png;
    png->width = width;
    png->height = height;
    png->format = PNG_FORMAT_RGBA;
    std::string reason;
    if (!png_image_write_to_stdio(png.get(), file, 0, rgba, 0, nullptr))
        reason = png->message;
    errno = 0;
    if (std::fclose(file) != 0 && reason.empty())
        reason = std::strerror(errno);
    if (!reason.empty()) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(path, ignored)) // not a device or a pipe
            std::filesystem::remove(path, ignored);
        failToWrite(path, reason.c_str());
    }
}

} // namespace nurel::texture
