#include "SamplePictures.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>
#include <png.h>
#include <webp/encode.h>

namespace test {

namespace {

void appendBytes(png_structp png, png_bytep bytes, std::size_t size) {
    static_cast<std::string *>(png_get_io_ptr(png))->append(reinterpret_cast<const char *>(bytes), size);
}

void flushNothing(png_structp) {}

void writePalette(png_structp png, png_infop info, const std::vector<Color> &palette) {
    std::vector<png_color> colors;
    std::vector<png_byte> alphas;
    for (const Color &color : palette) {
        colors.push_back({color[0], color[1], color[2]});
        alphas.push_back(color[3]);
    }
    png_set_PLTE(png, info, colors.data(), static_cast<int>(colors.size()));
    png_set_tRNS(png, info, alphas.data(), static_cast<int>(alphas.size()), nullptr);
}

} // namespace

std::string encodePng(unsigned int width, unsigned int height, const std::vector<std::uint8_t> &rows,
                      const PngOptions &options) {
    std::string file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, appendBytes, flushNothing);
    png_set_IHDR(png, info, width, height, options.bitDepth, options.colorType,
                 options.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (!options.palette.empty())
        writePalette(png, info, options.palette);
    png_write_info(png, info);
    const std::size_t rowBytes = rows.size() / height;
    std::vector<png_bytep> pointers;
    for (std::size_t row = 0; row < height; ++row)
        pointers.push_back(const_cast<png_bytep>(rows.data() + row * rowBytes));
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

std::string encodePng(unsigned int width, unsigned int height, const std::vector<Color> &pixels) {
    std::vector<std::uint8_t> rows(pixels.size() * 4);
    std::memcpy(rows.data(), pixels.data(), rows.size());
    return encodePng(width, height, rows, {PNG_COLOR_TYPE_RGB_ALPHA, 8, false, {}});
}

std::string encodePng(unsigned int width, unsigned int height, Color color) {
    return encodePng(width, height, std::vector<Color>(std::size_t{width} * height, color));
}

namespace {

/// The first scan has all DC coefficients; each further one has one AC coefficient of one component.
std::vector<jpeg_scan_info> makeScans(int components) {
    std::vector<jpeg_scan_info> scans;
    jpeg_scan_info scan{};
    scan.comps_in_scan = components;
    for (int i = 0; i < components; ++i)
        scan.component_index[i] = i;
    scans.push_back(scan);
    for (int component = 0; component < components; ++component) {
        for (int coefficient = 1; coefficient < 64; ++coefficient) {
            scan = {};
            scan.comps_in_scan = 1;
            scan.component_index[0] = component;
            scan.Ss = scan.Se = coefficient;
            scans.push_back(scan);
        }
    }
    return scans;
}

} // namespace

std::string encodeJpeg(unsigned int width, unsigned int height, const std::vector<std::uint8_t> &pixel,
                       const JpegOptions &options) {
    jpeg_compress_struct info;
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &bytes, &size);
    info.image_width = width;
    info.image_height = height;
    info.input_components = static_cast<int>(pixel.size());
    info.in_color_space = static_cast<J_COLOR_SPACE>(options.pixelSpace);
    jpeg_set_defaults(&info);
    jpeg_set_colorspace(&info, static_cast<J_COLOR_SPACE>(options.fileSpace));
    jpeg_set_quality(&info, 100, TRUE);
    info.write_Adobe_marker = info.write_Adobe_marker && options.adobeMarker;
    if (options.progressive)
        jpeg_simple_progression(&info);
    const std::vector<jpeg_scan_info> scans = makeScans(info.num_components);
    if (options.manyScans) {
        info.scan_info = scans.data();
        info.num_scans = static_cast<int>(scans.size());
    }
    jpeg_start_compress(&info, TRUE);
    std::vector<JSAMPLE> row;
    for (unsigned int x = 0; x < width; ++x)
        row.insert(row.end(), pixel.begin(), pixel.end());
    JSAMPLE *pointer = row.data();
    for (unsigned int y = 0; y < height; ++y)
        jpeg_write_scanlines(&info, &pointer, 1);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string file(reinterpret_cast<const char *>(bytes), size);
    std::free(bytes);
    return file;
}

std::string encodeWebp(unsigned int width, unsigned int height, const std::vector<Color> &pixels, bool lossless) {
    std::uint8_t *bytes = nullptr;
    const int w = static_cast<int>(width);
    const int h = static_cast<int>(height);
    const std::uint8_t *rgba = pixels.data()->data();
    const std::size_t size = lossless ? WebPEncodeLosslessRGBA(rgba, w, h, w * 4, &bytes)
                                      : WebPEncodeRGBA(rgba, w, h, w * 4, 100.0f, &bytes);
    std::string file(reinterpret_cast<const char *>(bytes), size);
    WebPFree(bytes);
    return file;
}

} // namespace test
