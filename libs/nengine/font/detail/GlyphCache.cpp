#include "nengine/font/detail/GlyphCache.h"

#include "nengine/font/ShapingStatistics.h"
#include "nengine/font/detail/Face.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace nurel::font::detail {

namespace {

std::int16_t toShort(int value) {
    constexpr int LOWEST = std::numeric_limits<std::int16_t>::min();
    constexpr int HIGHEST = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(value, LOWEST, HIGHEST));
}

} // namespace

Strike::Strike(std::shared_ptr<GlyphCacheLink> link, Face &face, unsigned int quarters)
    : mLink(std::move(link)), mFace(&face), mQuarters(quarters),
      mSubpixel(quarters <= GlyphCache::LARGEST_SUBPIXEL && !face.isColored()) {}

Strike::~Strike() {
    GlyphCache *cache = mLink->cache;
    if (!cache)
        return;
    for (auto &entry : mGlyphs)
        cache->mAtlas.release(entry.second.region);
    cache->mTexels -= mTexels;
}

const GlyphBitmap &Strike::getGlyph(std::uint32_t glyph, unsigned int bin) {
    static_assert(GlyphRasterizer::SUBPIXEL_BINS == 4);
    const unsigned int used = mSubpixel ? bin : 0;
    const auto [entry, isNew] = mGlyphs.try_emplace(glyph << 2 | used);
    if (isNew && mLink->cache)
        entry->second = makeGlyph(*mLink->cache, glyph, used);
    return entry->second;
}

GlyphBitmap Strike::makeGlyph(GlyphCache &cache, std::uint32_t glyph, unsigned int bin) {
    GlyphBitmap bitmap;
    GlyphImage &image = cache.mImage;
    ++cache.mStatistics.rasterizedGlyphs;
    if (!cache.mRasterizer.rasterize(*mFace, glyph, mQuarters, bin, cache.mAtlas.getMaximumSide(), image) ||
        image.width == 0)
        return bitmap;
    const auto kind = image.colored ? texture::Atlas::K_COLOR_GLYPH : texture::Atlas::K_COMMON;
    if (!cache.mAtlas.allocate(image.width, image.height, image.rgba.data(), kind, bitmap.region))
        return bitmap;
    bitmap.left = toShort(image.left);
    bitmap.top = toShort(image.top);
    bitmap.scale = image.scale;
    bitmap.colored = image.colored;
    const std::size_t texels = std::size_t{image.width} * image.height;
    mTexels += texels;
    cache.mTexels += texels;
    return bitmap;
}

GlyphCache::GlyphCache(texture::Atlas &atlas, ShapingStatistics &statistics)
    : mAtlas(atlas), mStatistics(statistics), mLink(std::make_shared<GlyphCacheLink>(GlyphCacheLink{this})) {}

GlyphCache::~GlyphCache() {
    mStrikes.clear();
    mLink->cache = nullptr;
}

unsigned int GlyphCache::toQuarters(float pixels) {
    const float quarters = std::round(pixels * 4.0f);
    if (!(quarters > static_cast<float>(SMALLEST)))
        return SMALLEST;
    return quarters < static_cast<float>(LARGEST) ? static_cast<unsigned int>(quarters) : LARGEST;
}

Strike &GlyphCache::getStrike(Face &face, unsigned int quarters) {
    ::core::SmartPtr<Strike> &strike = mStrikes[{face.getId(), quarters}];
    if (!strike)
        strike = new Strike(mLink, face, quarters);
    strike->mUsed = mClock;
    return *strike;
}

bool GlyphCache::isNear(unsigned int quarters, unsigned int wanted) {
    return quarters * 3 >= wanted * 2 && quarters * 2 <= wanted * 3;
}

unsigned int GlyphCache::findNearest(const Face &face, unsigned int quarters) const {
    const auto above = mStrikes.lower_bound({face.getId(), quarters});
    unsigned int nearest = 0;
    const auto consider = [&](unsigned int candidate) {
        const auto distance = [&](unsigned int q) { return q > quarters ? q - quarters : quarters - q; };
        if (isNear(candidate, quarters) && (nearest == 0 || distance(candidate) < distance(nearest)))
            nearest = candidate;
    };
    if (above != mStrikes.end() && above->first.first == face.getId())
        consider(above->first.second);
    if (above != mStrikes.begin() && std::prev(above)->first.first == face.getId())
        consider(std::prev(above)->first.second);
    return nearest != 0 ? nearest : quarters;
}

void GlyphCache::drop() {
    mStrikes.clear();
    mCollectAt = LIMIT;
}

void GlyphCache::collect() {
    ++mClock;
    if (mTexels <= mCollectAt)
        return;
    constexpr std::size_t ENOUGH = LIMIT - LIMIT / 4;
    while (mTexels > ENOUGH) {
        auto oldest = mStrikes.end();
        for (auto it = mStrikes.begin(); it != mStrikes.end(); ++it) {
            const bool idle = it->second->getRefCount() == 1;
            if (idle && (oldest == mStrikes.end() || it->second->mUsed < oldest->second->mUsed))
                oldest = it;
        }
        if (oldest == mStrikes.end())
            break;
        mStrikes.erase(oldest);
    }
    // Where what is left is in use, look again when there is a quarter more.
    mCollectAt = std::max(LIMIT, mTexels + mTexels / 4);
}

} // namespace nurel::font::detail
