#include "nengine/texture/ImageFile.h"

#include "foundation/core/Exception.h"
#include "nengine/texture/detail/ImageReaders.h"

#include <cstring>

namespace nurel::texture {

Image::Image(unsigned int w, unsigned int h) : width(w), height(h) {
    if (w == 0 || h == 0)
        throw ::core::IOException("it has no pixels");
    if (w > MAXIMUM_SIDE || h > MAXIMUM_SIDE || std::uint64_t{w} * h > MAXIMUM_PIXELS)
        throw ::core::IOException("%u x %u pixels are too many", w, h);
    rgba = std::make_unique_for_overwrite<std::uint8_t[]>(getSize());
}

namespace {

bool startsWith(const void *file, std::size_t size, std::size_t offset, const char *signature, std::size_t length) {
    return size >= offset + length && std::memcmp(static_cast<const char *>(file) + offset, signature, length) == 0;
}

Image readByContent(const void *file, std::size_t size) {
    if (startsWith(file, size, 0, "\x89PNG\r\n\x1a\n", 8))
        return detail::readPng(file, size);
    if (startsWith(file, size, 0, "\xff\xd8\xff", 3))
        return detail::readJpeg(file, size);
    if (startsWith(file, size, 0, "RIFF", 4) && startsWith(file, size, 8, "WEBP", 4))
        return detail::readWebp(file, size);
    throw ::core::IOException(size == 0 ? "the file is empty" : "not a PNG, JPEG or WebP file");
}

std::uint8_t multiply(unsigned int value, unsigned int alpha) {
    const unsigned int product = value * alpha + 128;
    return static_cast<std::uint8_t>((product + (product >> 8)) >> 8);
}

} // namespace

void premultiply(std::uint8_t *rgba, std::size_t pixels) {
    for (std::uint8_t *pixel = rgba, *end = rgba + pixels * 4; pixel != end; pixel += 4) {
        const unsigned int alpha = pixel[3];
        if (alpha == 255)
            continue;
        pixel[0] = multiply(pixel[0], alpha);
        pixel[1] = multiply(pixel[1], alpha);
        pixel[2] = multiply(pixel[2], alpha);
    }
}

Image decodeImage(const void *file, std::size_t size, bool premultiplied) {
    Image image = readByContent(file, size);
    if (premultiplied)
        premultiply(image.rgba.get(), std::size_t{image.width} * image.height);
    return image;
}

} // namespace nurel::texture
