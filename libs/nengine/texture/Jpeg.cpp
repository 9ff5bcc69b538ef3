#include "nengine/texture/detail/ImageReaders.h"

#include "foundation/core/Exception.h"

#include <cstdio> // jpeglib.h needs it

#include <jpeglib.h>

#include <jerror.h>

#include <csetjmp>

namespace nurel::texture {

namespace {

/// A progressive file may hold any number of scans, each of which goes over all pixels again. Honest ones have about
/// ten.
constexpr int MAXIMUM_SCANS = 64;

/// libjpeg and the place that its errors jump to. No object with a destructor may live in a function that is jumped out
/// of: `readHeader` and `readPixels` are the only ones that set the place, and hold none.
struct JpegReader {
    JpegReader();
    ~JpegReader() { jpeg_destroy_decompress(&info); }
    JpegReader(const JpegReader &) = delete;
    JpegReader &operator=(const JpegReader &) = delete;

    jpeg_error_mgr errors{};
    jpeg_progress_mgr progress{};
    jpeg_decompress_struct info{};
    std::jmp_buf onError{};
    char message[JMSG_LENGTH_MAX] = "";
};

[[noreturn]] void fail(j_common_ptr common) {
    auto &reader = *static_cast<JpegReader *>(common->client_data);
    reader.errors.format_message(common, reader.message);
    std::longjmp(reader.onError, 1);
}

/// Warnings: a file that ends too early is an error like any other, so that a file that is being written keeps no half
/// picture on the screen. The rest is harmless.
void warn(j_common_ptr common, int level) {
    const int code = common->err->msg_code;
    if (level < 0 && (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER))
        fail(common);
}

void ignoreOutput(j_common_ptr) {}

void watchScans(j_common_ptr common) {
    auto &reader = *static_cast<JpegReader *>(common->client_data);
    if (reader.info.input_scan_number <= MAXIMUM_SCANS)
        return;
    std::snprintf(reader.message, sizeof reader.message, "more than %d scans", MAXIMUM_SCANS);
    std::longjmp(reader.onError, 1);
}

JpegReader::JpegReader() {
    info.err = jpeg_std_error(&errors);
    errors.error_exit = fail;
    errors.emit_message = warn;
    errors.output_message = ignoreOutput;
    info.client_data = this;
    progress.progress_monitor = watchScans;
}

bool readHeader(JpegReader &reader, const void *file, std::size_t size) {
    if (setjmp(reader.onError) != 0)
        return false;
    jpeg_create_decompress(&reader.info);
    reader.info.progress = &reader.progress;
    jpeg_mem_src(&reader.info, static_cast<const unsigned char *>(file), size);
    jpeg_read_header(&reader.info, TRUE);
    const bool inks = reader.info.jpeg_color_space == JCS_CMYK || reader.info.jpeg_color_space == JCS_YCCK;
    reader.info.out_color_space = inks ? JCS_CMYK : JCS_EXT_RGBA; // four bytes a pixel in both cases
    return true;
}

bool readPixels(JpegReader &reader, std::uint8_t *rgba) {
    if (setjmp(reader.onError) != 0)
        return false;
    jpeg_start_decompress(&reader.info);
    while (reader.info.output_scanline < reader.info.output_height) {
        JSAMPLE *row = rgba + std::size_t{4} * reader.info.output_width * reader.info.output_scanline;
        jpeg_read_scanlines(&reader.info, &row, 1);
    }
    return true;
}

/// In place. Programs of one maker store inks inverted and leave their marker in the file.
void convertInks(std::uint8_t *pixels, std::size_t count, bool inverted) {
    const unsigned int flip = inverted ? 0 : 255;
    for (std::uint8_t *pixel = pixels, *end = pixels + count * 4; pixel != end; pixel += 4) {
        const unsigned int key = pixel[3] ^ flip;
        for (int i = 0; i < 3; ++i)
            pixel[i] = static_cast<std::uint8_t>(((pixel[i] ^ flip) * key + 127) / 255);
        pixel[3] = 255;
    }
}

} // namespace

Image detail::readJpeg(const void *file, std::size_t size) {
    JpegReader reader;
    if (!readHeader(reader, file, size))
        throw ::core::IOException("%s", reader.message);
    Image image(reader.info.image_width, reader.info.image_height);
    if (!readPixels(reader, image.rgba.get()))
        throw ::core::IOException("%s", reader.message);
    if (reader.info.out_color_space == JCS_CMYK)
        convertInks(image.rgba.get(), std::size_t{image.width} * image.height, reader.info.saw_Adobe_marker);
    return image;
}

} // namespace nurel::texture
