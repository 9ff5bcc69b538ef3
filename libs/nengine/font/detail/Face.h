#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"

#include <cstddef>
#include <cstdint>
#include <string>

typedef struct FT_FaceRec_ *FT_Face;
typedef struct FT_LibraryRec_ *FT_Library;
struct hb_blob_t;
struct hb_font_t;

namespace nurel::font::detail {

/// The rasteriser's library. Shared by everything that was opened with it, so faces may outlive whoever opened them.
class FontLibrary : public ::core::IRefCount {
public:
    FontLibrary();
    ~FontLibrary() override;
    FontLibrary(const FontLibrary &) = delete;
    FontLibrary &operator=(const FontLibrary &) = delete;

    /// Null when the library could not be started.
    FT_Library get() const { return mLibrary; }

private:
    FT_Library mLibrary = nullptr;
};

/// One typeface of an open font file: for shaping in units of an em, and for rasterising. Both read the same memory,
/// which is the mapped file or a copy of the bytes.
class Face : public ::core::IRefCount {
public:
    /// Shaping results are in this fraction of an em.
    static constexpr int UNITS_PER_EM = 1 << 16;

    /// The glyph for what a face has not.
    static constexpr std::uint32_t MISSING = 0;

    /// `index` is the face's number in a collection, with that of a named instance in the upper half. Null, with the
    /// reason in words, when the file is missing or cannot be used.
    static ::core::SmartPtr<Face> openFile(FontLibrary &library, const char *file, unsigned int index,
                                           std::string &reason);
    static ::core::SmartPtr<Face> openMemory(FontLibrary &library, const void *bytes, std::size_t size,
                                             std::string &reason);

    ~Face() override;
    Face(const Face &) = delete;
    Face &operator=(const Face &) = delete;

    /// Tells faces apart, also from ones that are gone.
    std::uint32_t getId() const { return mId; }

    /// MISSING when the face has not this character.
    std::uint32_t getGlyphIndex(char32_t character) const;
    bool hasCharacter(char32_t character) const { return getGlyphIndex(character) != MISSING; }

    /// Unhinted advance, in em.
    float getAdvance(std::uint32_t glyph) const;

    /// From the top of a line to its base line and from there to its bottom, in em. Half of the gap between lines is in
    /// each.
    float getAscent() const { return mAscent; }
    float getDescent() const { return mDescent; }

    /// Whether it has glyphs with colours of their own.
    bool isColored() const { return mColored; }

    hb_font_t *getShapingFont() const { return mShaping; }

    /// Its current size is whatever the last user has set.
    FT_Face getRasterFace() const { return mRaster; }

private:
    Face(FontLibrary &library, hb_blob_t *blob);
    static ::core::SmartPtr<Face> open(FontLibrary &library, hb_blob_t *blob, unsigned int index, std::string &reason);
    bool init(unsigned int index, std::string &reason);
    void initMetrics();

    const ::core::SmartPtr<FontLibrary> mLibrary;
    hb_blob_t *const mBlob;
    hb_font_t *mShaping = nullptr;
    FT_Face mRaster = nullptr;
    float mAscent = 0.0f;
    float mDescent = 0.0f;
    const std::uint32_t mId;
    bool mColored = false;
};

} // namespace nurel::font::detail
