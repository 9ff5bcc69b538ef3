#include "nengine/font/detail/GlyphCache.h"

#include "nengine/font/TestFonts.h"
#include "nengine/font/detail/GlyphRasterizer.h"

#include <limits>

namespace nurel {
namespace {

using font::detail::Face;
using font::detail::GlyphBitmap;
using font::detail::GlyphCache;
using font::detail::GlyphImage;
using font::detail::GlyphRasterizer;
using font::detail::Strike;

class GlyphCacheTest : public test::TextTest {
protected:
    Face &getFace() { return *manager->getDefaultFont()->getFace(); }
    GlyphCache &getGlyphs() { return *getSystem().getGlyphs(); }
    std::uint32_t glyph(char32_t c) const { return facts.getGlyph(c); }
};

TEST_F(GlyphCacheTest, SizesAreQuartersOfAPixelWithinLimits) {
    EXPECT_EQ(GlyphCache::toQuarters(16.0f), 64u);
    EXPECT_EQ(GlyphCache::toQuarters(16.1f), 64u);
    EXPECT_EQ(GlyphCache::toQuarters(16.13f), 65u);
    EXPECT_EQ(GlyphCache::toQuarters(0.0f), GlyphCache::SMALLEST);
    EXPECT_EQ(GlyphCache::toQuarters(-5.0f), GlyphCache::SMALLEST);
    EXPECT_EQ(GlyphCache::toQuarters(1e9f), GlyphCache::LARGEST);
    EXPECT_EQ(GlyphCache::toQuarters(std::numeric_limits<float>::quiet_NaN()), GlyphCache::SMALLEST);
}

TEST_F(GlyphCacheTest, AGlyphIsRasterisedOnceForEachSizeAndPlaceBetweenPixels) {
    Strike &strike = getGlyphs().getStrike(getFace(), 64);
    EXPECT_EQ(&getGlyphs().getStrike(getFace(), 64), &strike);
    strike.getGlyph(glyph(U'n'), 0);
    strike.getGlyph(glyph(U'n'), 0);
    EXPECT_EQ(getShaping().rasterizedGlyphs, 1u);
    const GlyphBitmap &shifted = strike.getGlyph(glyph(U'n'), 2);
    EXPECT_EQ(getShaping().rasterizedGlyphs, 2u);
    EXPECT_NE(shifted.region.x, strike.getGlyph(glyph(U'n'), 0).region.x);
    getGlyphs().getStrike(getFace(), 65).getGlyph(glyph(U'n'), 0);
    EXPECT_EQ(getShaping().rasterizedGlyphs, 3u);
}

TEST_F(GlyphCacheTest, LargeGlyphsAreNotDrawnBetweenPixels) {
    Strike &strike = getGlyphs().getStrike(getFace(), GlyphCache::LARGEST_SUBPIXEL + 4);
    EXPECT_FALSE(strike.isSubpixel());
    strike.getGlyph(glyph(U'n'), 0);
    strike.getGlyph(glyph(U'n'), 3);
    EXPECT_EQ(getShaping().rasterizedGlyphs, 1u);
}

TEST_F(GlyphCacheTest, TheAtlasHoldsWhiteOfTheGlyphsCoverage) {
    const GlyphBitmap &bitmap = getGlyphs().getStrike(getFace(), 64).getGlyph(glyph(U'l'), 0);
    ASSERT_NE(bitmap.region.page, nullptr);
    EXPECT_FALSE(bitmap.colored);
    std::vector<std::uint8_t> pixels(std::size_t{4} * bitmap.region.w * bitmap.region.h);
    screen.atlas->read(bitmap.region, pixels.data());
    unsigned int strongest = 0;
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        EXPECT_EQ(pixels[i], pixels[i + 3]);
        EXPECT_EQ(pixels[i + 1], pixels[i + 3]);
        EXPECT_EQ(pixels[i + 2], pixels[i + 3]);
        strongest = std::max<unsigned int>(strongest, pixels[i + 3]);
    }
    EXPECT_GT(strongest, 200u);
}

TEST_F(GlyphCacheTest, ASpaceHasNothingToDraw) {
    EXPECT_EQ(getGlyphs().getStrike(getFace(), 64).getGlyph(glyph(U' '), 0).region.page, nullptr);
}

TEST_F(GlyphCacheTest, AGlyphThatTheFileHasNotDrawsNothing) {
    EXPECT_EQ(getGlyphs().getStrike(getFace(), 64).getGlyph(65000, 0).region.page, nullptr);
}

TEST_F(GlyphCacheTest, TheNearestSizeStandsInForAnother) {
    EXPECT_EQ(getGlyphs().findNearest(getFace(), 64), 64u) << "nothing there yet";
    getGlyphs().getStrike(getFace(), 50);
    getGlyphs().getStrike(getFace(), 70);
    EXPECT_EQ(getGlyphs().findNearest(getFace(), 64), 70u);
    EXPECT_EQ(getGlyphs().findNearest(getFace(), 55), 50u);
    EXPECT_EQ(getGlyphs().findNearest(getFace(), 200), 200u) << "too far away";
    EXPECT_TRUE(GlyphCache::isNear(64, 90));
    EXPECT_FALSE(GlyphCache::isNear(64, 100));
    EXPECT_TRUE(GlyphCache::isNear(64, 43));
    EXPECT_FALSE(GlyphCache::isNear(64, 42));
}

TEST_F(GlyphCacheTest, WhatAMeshHoldsStaysWhereItIsWhenAllIsDropped) {
    const core::SmartPtr<Strike> held(&getGlyphs().getStrike(getFace(), 64));
    const GlyphBitmap before = held->getGlyph(glyph(U'n'), 0);
    getGlyphs().drop();
    EXPECT_NE(&getGlyphs().getStrike(getFace(), 64), held.get());
    const GlyphBitmap other = getGlyphs().getStrike(getFace(), 64).getGlyph(glyph(U'n'), 0);
    EXPECT_NE(other.region.x, before.region.x);
    EXPECT_EQ(held->getGlyph(glyph(U'n'), 0).region.x, before.region.x);
}

TEST_F(GlyphCacheTest, UnusedSizesGoWhenThereIsTooMuchAndUsedOnesStay) {
    const core::SmartPtr<Strike> held(&getGlyphs().getStrike(getFace(), 100));
    held->getGlyph(glyph(U'n'), 0);
    std::size_t most = 0;
    for (unsigned int size = 1000; size < 1200; ++size) {
        Strike &strike = getGlyphs().getStrike(getFace(), size);
        for (const char32_t c : std::u32string(U"MW@"))
            strike.getGlyph(glyph(c), 0);
        getGlyphs().collect();
        most = std::max(most, getGlyphs().getTexels());
    }
    EXPECT_LE(most, GlyphCache::LIMIT);
    EXPECT_LT(getGlyphs().getStrikeCount(), 100u);
    EXPECT_EQ(&getGlyphs().getStrike(getFace(), 100), held.get());
    EXPECT_LE(screen.atlas->getPageCount(), 6u) << "the room is used again";
}

TEST_F(GlyphCacheTest, AStrikeOutlivesItsCache) {
    const core::SmartPtr<Strike> held(&getGlyphs().getStrike(getFace(), 64));
    held->getGlyph(glyph(U'n'), 0);
    manager.reset();
    EXPECT_NE(held->getGlyph(glyph(U'n'), 0).region.page, nullptr);
    EXPECT_EQ(held->getGlyph(glyph(U'm'), 0).region.page, nullptr);
}

TEST_F(GlyphCacheTest, AGlyphThatIsTooLargeIsDrawnSmallerAndTellsSo) {
    GlyphRasterizer rasterizer;
    GlyphImage image;
    ASSERT_TRUE(rasterizer.rasterize(getFace(), glyph(U'W'), 400, 0, 64, image));
    EXPECT_LE(image.width, 64u);
    EXPECT_LE(image.height, 64u);
    EXPECT_GT(image.scale, 1.2f);
    GlyphImage whole;
    ASSERT_TRUE(rasterizer.rasterize(getFace(), glyph(U'W'), 400, 0, 1000, whole));
    EXPECT_EQ(whole.scale, 1.0f);
    EXPECT_NEAR(static_cast<float>(image.width) * image.scale, static_cast<float>(whole.width), 4.0f);
}

TEST_F(GlyphCacheTest, AShiftByAPartOfAPixelShiftsThePicture) {
    GlyphRasterizer rasterizer;
    const auto center = [&](unsigned int bin) {
        GlyphImage image;
        rasterizer.rasterize(getFace(), glyph(U'l'), 64, bin, 1000, image);
        double sum = 0;
        double weighted = 0;
        for (unsigned int y = 0; y < image.height; ++y) {
            for (unsigned int x = 0; x < image.width; ++x) {
                const double alpha = image.rgba[(std::size_t{y} * image.width + x) * 4 + 3];
                sum += alpha;
                weighted += alpha * (image.left + static_cast<double>(x));
            }
        }
        return weighted / sum;
    };
    EXPECT_LT(center(0), center(1));
    EXPECT_LT(center(1), center(2));
    EXPECT_LT(center(2), center(3));
    EXPECT_NEAR(center(3) - center(0), 0.75, 0.2) << "the sum over whole pixels is not exact";
}

} // namespace
} // namespace nurel
