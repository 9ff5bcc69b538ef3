#include "nengine/texture/detail/ImageReaders.h"

#include "foundation/core/Exception.h"

#include <webp/decode.h>

namespace nurel::texture {

namespace {

const char *getReason(VP8StatusCode status) {
    switch (status) {
    case VP8_STATUS_OUT_OF_MEMORY:
        return "out of memory";
    case VP8_STATUS_UNSUPPORTED_FEATURE:
        return "a kind of WebP file that is not supported";
    case VP8_STATUS_NOT_ENOUGH_DATA:
        return "the WebP file ends too early";
    case VP8_STATUS_OK:
    case VP8_STATUS_INVALID_PARAM:
    case VP8_STATUS_BITSTREAM_ERROR:
    case VP8_STATUS_SUSPENDED:
    case VP8_STATUS_USER_ABORT:
        break;
    }
    return "the WebP file is broken";
}

void check(VP8StatusCode status) {
    if (status != VP8_STATUS_OK)
        throw ::core::IOException("%s", getReason(status));
}

} // namespace

Image detail::readWebp(const void *file, std::size_t size) {
    const auto *bytes = static_cast<const std::uint8_t *>(file);
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config))
        throw ::core::IOException("the WebP library has another version");
    check(WebPGetFeatures(bytes, size, &config.input));
    if (config.input.has_animation)
        throw ::core::IOException("animated WebP files are not supported");
    Image image(static_cast<unsigned int>(config.input.width), static_cast<unsigned int>(config.input.height));
    config.output.colorspace = MODE_RGBA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = image.rgba.get();
    config.output.u.RGBA.stride = static_cast<int>(4 * image.width);
    config.output.u.RGBA.size = image.getSize();
    const VP8StatusCode status = WebPDecode(bytes, size, &config);
    WebPFreeDecBuffer(&config.output);
    check(status);
    return image;
}

} // namespace nurel::texture
