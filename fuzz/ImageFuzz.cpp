// Any bytes are either a picture within the limits, whose colors do not exceed their alpha, or an IOException with a
// reason.
#include "foundation/core/Exception.h"
#include "nengine/texture/ImageFile.h"

#include <cstdint>
#include <cstdlib>

using nurel::texture::Image;

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    try {
        const Image image = nurel::texture::decodeImage(data, size);
        require(image.width >= 1 && image.width <= Image::MAXIMUM_SIDE);
        require(image.height >= 1 && image.height <= Image::MAXIMUM_SIDE);
        require(image.getSize() <= Image::MAXIMUM_PIXELS * 4);
        bool premultiplied = true;
        for (std::size_t i = 0; i < image.getSize(); i += 4) {
            const std::uint8_t *pixel = image.rgba.get() + i;
            premultiplied = premultiplied && pixel[0] <= pixel[3] && pixel[1] <= pixel[3] && pixel[2] <= pixel[3];
        }
        require(premultiplied);
    } catch (const ::core::IOException &error) {
        require(*error.what() != '\0');
    }
    return 0;
}
