#include "nengine/font/detail/Face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <harfbuzz/hb-ot.h>
#include <harfbuzz/hb.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace nurel::font::detail {

namespace {

std::uint32_t nextFaceId() {
    static std::atomic<std::uint32_t> last{0};
    return ++last;
}

std::string describeOpenFailure(const char *file) {
    std::FILE *opened = std::fopen(file, "rb");
    if (!opened)
        return std::strerror(errno);
    std::fclose(opened);
    return "it cannot be read";
}

std::string describeRasterError(FT_Error error) {
    if (const char *words = FT_Error_String(error))
        return words;
    switch (error) {
    case FT_Err_Unknown_File_Format:
        return "unknown file format";
    case FT_Err_Out_Of_Memory:
        return "out of memory";
    case FT_Err_Invalid_Argument:
        return "the file has no such face";
    default:
        return "broken file (error " + std::to_string(error) + ")";
    }
}

} // namespace

FontLibrary::FontLibrary() {
    if (FT_Init_FreeType(&mLibrary) != 0)
        mLibrary = nullptr;
}

FontLibrary::~FontLibrary() {
    if (mLibrary)
        FT_Done_FreeType(mLibrary);
}

Face::Face(FontLibrary &library, hb_blob_t *blob) : mLibrary(&library), mBlob(blob), mId(nextFaceId()) {}

Face::~Face() {
    if (mRaster)
        FT_Done_Face(mRaster);
    hb_font_destroy(mShaping);
    hb_blob_destroy(mBlob);
}

::core::SmartPtr<Face> Face::openFile(FontLibrary &library, const char *file, unsigned int index, std::string &reason) {
    hb_blob_t *blob = hb_blob_create_from_file_or_fail(file);
    if (!blob) {
        reason = describeOpenFailure(file);
        return nullptr;
    }
    return open(library, blob, index, reason);
}

::core::SmartPtr<Face> Face::openMemory(FontLibrary &library, const void *bytes, std::size_t size,
                                        std::string &reason) {
    hb_blob_t *blob = nullptr;
    if (size > 0 && size <= 0x7fffffff)
        blob = hb_blob_create_or_fail(static_cast<const char *>(bytes), static_cast<unsigned int>(size),
                                      HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr);
    if (!blob) {
        reason = size == 0 ? "the file is empty" : "the file is too large";
        return nullptr;
    }
    return open(library, blob, 0, reason);
}

::core::SmartPtr<Face> Face::open(FontLibrary &library, hb_blob_t *blob, unsigned int index, std::string &reason) {
    hb_blob_make_immutable(blob);
    ::core::SmartPtr<Face> face(new Face(library, blob));
    if (!face->init(index, reason))
        return nullptr;
    return face;
}

bool Face::init(unsigned int index, std::string &reason) {
    if (!mLibrary->get()) {
        reason = "the rasteriser could not be started";
        return false;
    }
    unsigned int size = 0;
    const char *bytes = hb_blob_get_data(mBlob, &size);
    if (size == 0) {
        reason = "the file is empty";
        return false;
    }

    // fontconfig marks a whole variable font with all bits of the instance; its default instance is number 0.
    constexpr unsigned int WHOLE_VARIABLE_FONT = 0x8000;
    const unsigned int instance = index >> 16 == WHOLE_VARIABLE_FONT ? 0 : index >> 16;
    const unsigned int faceIndex = index & 0xffff;
    const FT_Error error =
        FT_New_Memory_Face(mLibrary->get(), reinterpret_cast<const FT_Byte *>(bytes), static_cast<FT_Long>(size),
                           static_cast<FT_Long>(instance << 16 | faceIndex), &mRaster);
    if (error != 0) {
        mRaster = nullptr;
        reason = describeRasterError(error);
        return false;
    }

    hb_face_t *shapingFace = hb_face_create(mBlob, faceIndex);
    const bool usable = FT_IS_SFNT(mRaster) && hb_face_get_glyph_count(shapingFace) > 0;
    mShaping = hb_font_create(shapingFace);
    hb_face_destroy(shapingFace);
    if (!usable) {
        reason = "neither a TrueType nor an OpenType font";
        return false;
    }
    hb_font_set_scale(mShaping, UNITS_PER_EM, UNITS_PER_EM);
    if (instance > 0)
        hb_font_set_var_named_instance(mShaping, instance - 1);
    hb_ot_font_set_funcs(mShaping);
    mColored = FT_HAS_COLOR(mRaster);
    initMetrics();
    return true;
}

void Face::initMetrics() {
    hb_font_extents_t extents = {};
    hb_font_get_h_extents(mShaping, &extents);
    constexpr float EM = UNITS_PER_EM;
    const float gap = static_cast<float>(extents.line_gap) / EM;
    mAscent = static_cast<float>(extents.ascender) / EM + gap / 2;
    mDescent = static_cast<float>(-extents.descender) / EM + gap / 2;

    constexpr float GREATEST = 16.0f; // a file that claims more is broken
    if (!(mAscent + mDescent > 0.0f && mAscent + mDescent < GREATEST)) {
        mAscent = 0.8f;
        mDescent = 0.2f;
    }
}

std::uint32_t Face::getGlyphIndex(char32_t character) const {
    hb_codepoint_t glyph = MISSING;
    return hb_font_get_nominal_glyph(mShaping, character, &glyph) ? glyph : MISSING;
}

float Face::getAdvance(std::uint32_t glyph) const {
    return static_cast<float>(hb_font_get_glyph_h_advance(mShaping, glyph)) / static_cast<float>(UNITS_PER_EM);
}

} // namespace nurel::font::detail
