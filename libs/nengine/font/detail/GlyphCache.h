#pragma once

#include "foundation/core/IRefCount.h"
#include "foundation/core/SmartPtr.h"
#include "nengine/font/detail/GlyphRasterizer.h"
#include "nengine/texture/Atlas.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

namespace nurel::font {
struct ShapingStatistics;
}

namespace nurel::font::detail {

class Face;
class GlyphCache;

/// The way from strikes to their cache.
struct GlyphCacheLink {
    GlyphCache *cache; ///< null: it has gone, and the atlas may have
};

/// A glyph in the atlas. Without a page it has nothing to draw.
struct GlyphBitmap {
    texture::Atlas::Region region;
    std::int16_t left = 0;
    std::int16_t top = 0;
    float scale = 1.0f; ///< see GlyphImage
    bool colored = false;
};

/// The rasterised glyphs of one face at one size. A mesh holds those that its vertices come from: while it does, they
/// stay where they are in the atlas, even if the cache has given them up.
class Strike : public ::core::IRefCount {
public:
    Strike(std::shared_ptr<GlyphCacheLink> link, Face &face, unsigned int quarters);
    ~Strike() override;
    Strike(const Strike &) = delete;
    Strike &operator=(const Strike &) = delete;

    /// Rasterises it at the first call. `bin` is ignored where isSubpixel() is false. Stays valid as long as the
    /// strike.
    const GlyphBitmap &getGlyph(std::uint32_t glyph, unsigned int bin);

    /// Pixels an em.
    float getSize() const { return static_cast<float>(mQuarters) / 4.0f; }
    unsigned int getQuarters() const { return mQuarters; }

    /// Whether glyphs are drawn at positions between pixels: not large ones, where nobody sees it, and not pictures.
    bool isSubpixel() const { return mSubpixel; }

private:
    friend class GlyphCache;

    GlyphBitmap makeGlyph(GlyphCache &cache, std::uint32_t glyph, unsigned int bin);

    const std::shared_ptr<GlyphCacheLink> mLink;
    const ::core::SmartPtr<Face> mFace;
    std::unordered_map<std::uint32_t, GlyphBitmap> mGlyphs; ///< by glyph and bin
    std::size_t mTexels = 0;
    std::uint64_t mUsed = 0;
    const unsigned int mQuarters;
    const bool mSubpixel;
};

/// All strikes. Those that no mesh holds stay until their pixels exceed LIMIT and then go, the longest unused first.
class GlyphCache {
public:
    static constexpr std::size_t LIMIT = 2 * 1024 * 1024; ///< pixels, of all strikes together
    static constexpr unsigned int SMALLEST = 2 * 4;       ///< sizes that are rasterised, in quarters of a pixel
    static constexpr unsigned int LARGEST = 512 * 4;
    static constexpr unsigned int LARGEST_SUBPIXEL = 48 * 4;

    GlyphCache(texture::Atlas &atlas, ShapingStatistics &statistics);
    ~GlyphCache();
    GlyphCache(const GlyphCache &) = delete;
    GlyphCache &operator=(const GlyphCache &) = delete;

    /// The size that is rasterised for a size on the screen.
    static unsigned int toQuarters(float pixels);

    Strike &getStrike(Face &face, unsigned int quarters);

    /// The size closest to the wanted one for which there are glyphs of this face, if it is less than half as large
    /// again and more than two thirds; the wanted one otherwise.
    unsigned int findNearest(const Face &face, unsigned int quarters) const;

    /// Whether a size may stand in for another while that is changing.
    static bool isNear(unsigned int quarters, unsigned int wanted);

    /// Gives all strikes up; those that meshes hold go with the last of them.
    void drop();

    /// Once a frame.
    void collect();

    std::size_t getTexels() const { return mTexels; }
    std::size_t getStrikeCount() const { return mStrikes.size(); }

private:
    friend class Strike;
    using Key = std::pair<std::uint32_t, unsigned int>;

    texture::Atlas &mAtlas;
    ShapingStatistics &mStatistics;
    GlyphRasterizer mRasterizer;
    GlyphImage mImage;
    std::map<Key, ::core::SmartPtr<Strike>> mStrikes; ///< by face and size
    std::shared_ptr<GlyphCacheLink> mLink;
    std::size_t mTexels = 0;
    std::size_t mCollectAt = LIMIT;
    std::uint64_t mClock = 0;
};

} // namespace nurel::font::detail
