#include "nengine/texture/Atlas.h"

#include "foundation/core/Exception.h"
#include "nengine/renderer/RecordingBackend.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace nurel;
using texture::Atlas;

namespace {

using Pixel = std::array<std::uint8_t, 4>;

/// One pixel of what the backend was given.
Pixel getPixel(const renderer::RecordingBackend &backend, const texture::RenderData &page, unsigned int x,
               unsigned int y) {
    const std::uint8_t *bytes = backend.getTextures().at(page.id).pixels.data() + (std::size_t{y} * page.width + x) * 4;
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

std::vector<std::uint8_t> fill(unsigned int w, unsigned int h, std::uint8_t value) {
    return std::vector<std::uint8_t>(std::size_t{4} * w * h, value);
}

/// A backend without memory for textures.
class FullBackend : public renderer::RecordingBackend {
public:
    explicit FullBackend(unsigned int textures) : mLeft(textures) {}

    renderer::TextureId createTexture(unsigned int w, unsigned int h, renderer::PixelFormat format,
                                      const void *pixels) override {
        if (mLeft == 0)
            return renderer::NO_TEXTURE;
        --mLeft;
        return RecordingBackend::createTexture(w, h, format, pixels);
    }

private:
    unsigned int mLeft;
};

struct AtlasTest : testing::Test {
    renderer::RecordingBackend backend;
    Atlas atlas{backend};
};

} // namespace

TEST_F(AtlasTest, HasAWhiteTexelOnItsFirstPage) {
    const Atlas::Region &white = atlas.getWhite();
    ASSERT_EQ(white.page, atlas.getPage(0));
    EXPECT_EQ(white.u0, white.u1);
    EXPECT_EQ(white.v0, white.v1);
    atlas.flush();
    for (unsigned int y = white.y - 1; y <= white.y + 1; ++y) {
        for (unsigned int x = white.x - 1; x <= white.x + 1; ++x)
            EXPECT_EQ(getPixel(backend, *white.page, x, y), (Pixel{255, 255, 255, 255}));
    }
    EXPECT_EQ(white.u0 * 1024, static_cast<float>(white.x) + 0.5f);
    EXPECT_EQ(white.v0 * 1024, static_cast<float>(white.y) + 0.5f);
}

TEST_F(AtlasTest, PutsPixelsWhereTheRegionSays) {
    std::vector<std::uint8_t> pixels;
    for (unsigned int i = 0; i < 3 * 2 * 4; ++i)
        pixels.push_back(static_cast<std::uint8_t>(i + 1));
    Atlas::Region region;
    ASSERT_TRUE(atlas.allocate(3, 2, pixels.data(), Atlas::K_COMMON, region));
    EXPECT_EQ(region.page, atlas.getPage(0));
    EXPECT_EQ(region.w, 3u);
    EXPECT_EQ(region.h, 2u);
    EXPECT_EQ(region.u0 * 1024, static_cast<float>(region.x));
    EXPECT_EQ(region.v0 * 1024, static_cast<float>(region.y));
    EXPECT_EQ(region.u1 * 1024, static_cast<float>(region.x + 3));
    EXPECT_EQ(region.v1 * 1024, static_cast<float>(region.y + 2));
    atlas.flush();
    for (unsigned int y = 0; y < 2; ++y) {
        for (unsigned int x = 0; x < 3; ++x) {
            const auto first = static_cast<std::uint8_t>((y * 3 + x) * 4 + 1);
            const Pixel expected = {first, static_cast<std::uint8_t>(first + 1), static_cast<std::uint8_t>(first + 2),
                                    static_cast<std::uint8_t>(first + 3)};
            EXPECT_EQ(getPixel(backend, *region.page, region.x + x, region.y + y), expected);
        }
    }
}

TEST_F(AtlasTest, SurroundsARegionWithAClearBorderOrWithItsOwnEdge) {
    const std::vector<std::uint8_t> pixels = fill(2, 2, 9);
    Atlas::Region dirty, clear, extended;
    ASSERT_TRUE(atlas.allocate(2, 2, fill(2, 2, 200).data(), Atlas::K_COMMON, dirty, Atlas::B_EXTEND));
    atlas.release(dirty); // what was there before does not shine through
    ASSERT_TRUE(atlas.allocate(2, 2, pixels.data(), Atlas::K_COMMON, clear));
    ASSERT_TRUE(atlas.allocate(2, 2, pixels.data(), Atlas::K_COMMON, extended, Atlas::B_EXTEND));
    atlas.flush();
    for (unsigned int i = 0; i < 16; ++i) {
        const unsigned int x = i % 4, y = i / 4;
        const bool inside = x % 3 != 0 && y % 3 != 0;
        EXPECT_EQ(getPixel(backend, *clear.page, clear.x - 1 + x, clear.y - 1 + y),
                  inside ? (Pixel{9, 9, 9, 9}) : Pixel{});
        EXPECT_EQ(getPixel(backend, *extended.page, extended.x - 1 + x, extended.y - 1 + y), (Pixel{9, 9, 9, 9}));
    }
}

TEST_F(AtlasTest, SendsOneRectangleForAPageThatChangedAndNothingOtherwise) {
    atlas.flush();
    const unsigned int before = backend.getUpdatedTextureCount();
    const std::uint64_t pixelsBefore = backend.getUploadedPixelCount();
    atlas.flush();
    EXPECT_EQ(backend.getUpdatedTextureCount(), before);

    Atlas::Region a, b;
    ASSERT_TRUE(atlas.allocate(10, 10, nullptr, Atlas::K_COMMON, a));
    ASSERT_TRUE(atlas.allocate(10, 10, nullptr, Atlas::K_COMMON, b));
    EXPECT_EQ(backend.getUpdatedTextureCount(), before);
    atlas.flush();
    EXPECT_EQ(backend.getUpdatedTextureCount(), before + 1);
    EXPECT_EQ(backend.getUploadedPixelCount() - pixelsBefore, 24u * 12u);
    atlas.flush();
    EXPECT_EQ(backend.getUpdatedTextureCount(), before + 1);
}

TEST_F(AtlasTest, KeepsColorGlyphsOnPagesOfTheirOwn) {
    Atlas::Region glyph, other;
    EXPECT_EQ(atlas.getPageCount(), 1u);
    ASSERT_TRUE(atlas.allocate(4, 4, nullptr, Atlas::K_COLOR_GLYPH, glyph));
    EXPECT_EQ(atlas.getPageCount(), 2u);
    EXPECT_NE(glyph.page, atlas.getPage(0));
    ASSERT_TRUE(atlas.allocate(4, 4, nullptr, Atlas::K_COLOR_GLYPH, other));
    EXPECT_EQ(other.page, glyph.page);
    ASSERT_TRUE(atlas.allocate(4, 4, nullptr, Atlas::K_COMMON, other));
    EXPECT_EQ(other.page, atlas.getPage(0));
}

TEST_F(AtlasTest, MakesAnotherPageWhenOneIsFull) {
    std::vector<Atlas::Region> regions(9);
    for (Atlas::Region &region : regions)
        ASSERT_TRUE(atlas.allocate(500, 300, nullptr, Atlas::K_COMMON, region));
    EXPECT_EQ(atlas.getPageCount(), 2u);
    EXPECT_EQ(regions.front().page, atlas.getPage(0));
    EXPECT_EQ(regions.back().page, atlas.getPage(1));
    EXPECT_EQ(atlas.getPage(2), nullptr);
}

TEST_F(AtlasTest, RefusesWhatCannotFit) {
    Atlas::Region region;
    EXPECT_EQ(atlas.getMaximumSide(), 1022u);
    EXPECT_FALSE(atlas.allocate(0, 5, nullptr, Atlas::K_COMMON, region));
    EXPECT_FALSE(atlas.allocate(5, 0, nullptr, Atlas::K_COMMON, region));
    EXPECT_FALSE(atlas.allocate(1023, 5, nullptr, Atlas::K_COMMON, region));
    EXPECT_FALSE(atlas.allocate(5, 1023, nullptr, Atlas::K_COMMON, region));
    EXPECT_EQ(region.page, nullptr);
    EXPECT_EQ(atlas.getPageCount(), 1u);
    EXPECT_TRUE(atlas.allocate(1022, 1022, nullptr, Atlas::K_COMMON, region));
    EXPECT_EQ(atlas.getPageCount(), 2u);
}

TEST_F(AtlasTest, UsesAPlaceAgainWhenItsShelfIsFree) {
    std::array<Atlas::Region, 2> first;
    Atlas::Region other;
    for (Atlas::Region &region : first)
        ASSERT_TRUE(atlas.allocate(1022, 100, nullptr, Atlas::K_COMMON, region));
    const unsigned int y = first[0].y;
    const std::uint64_t revision = atlas.getRevision();
    atlas.release(first[0]);
    EXPECT_EQ(first[0].page, nullptr);
    EXPECT_GT(atlas.getRevision(), revision);
    ASSERT_TRUE(atlas.allocate(10, 60, nullptr, Atlas::K_COMMON, other));
    EXPECT_EQ(other.y, y);
}

TEST_F(AtlasTest, KeepsAPlaceWhileItsShelfIsInUse) {
    Atlas::Region a, b, c;
    ASSERT_TRUE(atlas.allocate(20, 20, nullptr, Atlas::K_COMMON, a));
    ASSERT_TRUE(atlas.allocate(20, 20, nullptr, Atlas::K_COMMON, b));
    const unsigned int x = a.x;
    const std::uint64_t revision = atlas.getRevision();
    atlas.release(a);
    EXPECT_EQ(atlas.getRevision(), revision);
    ASSERT_TRUE(atlas.allocate(20, 20, nullptr, Atlas::K_COMMON, c));
    EXPECT_NE(c.x, x);
}

TEST_F(AtlasTest, TakesALargeRegionAfterManySmallOnesAreGone) {
    std::vector<Atlas::Region> regions;
    for (;;) {
        Atlas::Region region;
        ASSERT_TRUE(
            atlas.allocate(62, 10 + static_cast<unsigned int>(regions.size() % 40), nullptr, Atlas::K_COMMON, region));
        if (atlas.getPageCount() > 1) {
            atlas.release(region);
            break;
        }
        regions.push_back(region);
    }
    for (Atlas::Region &region : regions)
        atlas.release(region);
    Atlas::Region large;
    ASSERT_TRUE(atlas.allocate(1022, 1000, nullptr, Atlas::K_COMMON, large));
    EXPECT_EQ(large.page, atlas.getPage(0));
}

TEST_F(AtlasTest, IgnoresARegionThatIsNone) {
    Atlas::Region none;
    atlas.release(none);
    atlas.update(none, fill(1, 1, 1).data());
    Atlas::Region white = atlas.getWhite();
    atlas.release(white);
    Atlas::Region region;
    ASSERT_TRUE(atlas.allocate(1, 1, fill(1, 1, 7).data(), Atlas::K_COMMON, region, Atlas::B_EXTEND));
    atlas.flush();
    EXPECT_EQ(getPixel(backend, *atlas.getWhite().page, atlas.getWhite().x, atlas.getWhite().y),
              (Pixel{255, 255, 255, 255}));
}

TEST_F(AtlasTest, ReadsAndReplacesPixels) {
    Atlas::Region region;
    ASSERT_TRUE(atlas.allocate(3, 4, fill(3, 4, 50).data(), Atlas::K_COMMON, region));
    std::vector<std::uint8_t> read = fill(3, 4, 0);
    atlas.read(region, read.data());
    EXPECT_EQ(read, fill(3, 4, 50));
    atlas.update(region, fill(3, 4, 60).data());
    atlas.read(region, read.data());
    EXPECT_EQ(read, fill(3, 4, 60));
    atlas.flush();
    EXPECT_EQ(getPixel(backend, *region.page, region.x + 2, region.y + 3), (Pixel{60, 60, 60, 60}));
}

TEST_F(AtlasTest, KeepsEveryLiveRegionWholeWhateverComesAndGoes) {
    struct Held {
        Atlas::Region region;
        std::uint8_t value;
    };
    std::mt19937 generator(7);
    const auto random = [&generator](unsigned int end) { return static_cast<unsigned int>(generator() % end); };
    std::vector<Held> held;
    std::vector<std::uint8_t> pixels;
    for (int step = 0; step < 6000; ++step) {
        if (!held.empty() && (random(100) < 45 || held.size() > 600)) {
            const std::size_t index = random(static_cast<unsigned int>(held.size()));
            atlas.release(held[index].region);
            held[index] = held.back();
            held.pop_back();
            continue;
        }
        const unsigned int highest = random(10) == 0 ? 200 : 40;
        const unsigned int w = 1 + random(60), h = 1 + random(highest);
        Held entry{{}, static_cast<std::uint8_t>(1 + random(255))};
        pixels = fill(w, h, entry.value);
        ASSERT_TRUE(atlas.allocate(w, h, pixels.data(), random(4) != 0 ? Atlas::K_COMMON : Atlas::K_COLOR_GLYPH,
                                   entry.region, Atlas::B_EXTEND));
        held.push_back(entry);
        if (step % 50 == 0)
            atlas.flush();
    }
    atlas.flush();
    ASSERT_GT(held.size(), 100u);
    for (const Held &entry : held) {
        const Atlas::Region &r = entry.region;
        const Pixel expected = {entry.value, entry.value, entry.value, entry.value};
        for (unsigned int y = r.y - 1; y <= r.y + r.h; ++y) {
            for (unsigned int x = r.x - 1; x <= r.x + r.w; ++x)
                ASSERT_EQ(getPixel(backend, *r.page, x, y), expected);
        }
    }
    EXPECT_LE(atlas.getPageCount(), 8u);
}

TEST(Atlas, KeepsItsPagesWithinTheBackendsLimit) {
    renderer::RecordingBackend backend;
    backend.setMaximumTextureSize(64);
    Atlas atlas(backend);
    EXPECT_EQ(atlas.getPageSize(), 64u);
    Atlas::Region region;
    EXPECT_FALSE(atlas.allocate(63, 1, nullptr, Atlas::K_COMMON, region));
    EXPECT_TRUE(atlas.allocate(62, 1, nullptr, Atlas::K_COMMON, region));
}

TEST(Atlas, CannotStartWithoutATexture) {
    FullBackend backend(0);
    try {
        Atlas atlas(backend);
        FAIL();
    } catch (const ::core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "Cannot make a texture of 1024 x 1024 pixels");
    }
}

TEST(Atlas, HasNoPlaceWhenTheBackendHasNoTextureLeft) {
    FullBackend backend(1);
    Atlas atlas(backend);
    Atlas::Region region;
    EXPECT_FALSE(atlas.allocate(4, 4, nullptr, Atlas::K_COLOR_GLYPH, region));
    EXPECT_EQ(region.page, nullptr);
    EXPECT_TRUE(atlas.allocate(4, 4, nullptr, Atlas::K_COMMON, region));
}

TEST(Atlas, DestroysItsTexturesAndMayBeOutlivedByItsPages) {
    renderer::RecordingBackend backend;
    ::core::SmartPtr<texture::RenderData> kept;
    {
        Atlas atlas(backend);
        Atlas::Region region;
        ASSERT_TRUE(atlas.allocate(4, 4, nullptr, Atlas::K_COLOR_GLYPH, region));
        kept = region.page;
    }
    EXPECT_EQ(backend.getDestroyedTextureCount(), 1u);
    kept = nullptr;
    EXPECT_EQ(backend.getDestroyedTextureCount(), 1u) << "the backend may be gone by now";
}
