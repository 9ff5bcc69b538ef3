#include "nengine/font/detail/ShapeCache.h"

#include "nengine/font/TestFonts.h"

namespace nurel {
namespace {

using font::detail::ShapeCache;
using font::detail::ShapedParagraph;
using Shape = core::SmartPtr<ShapedParagraph>;

Shape makeShape(std::uint32_t font, const std::string &text) {
    return new ShapedParagraph(font, text);
}

TEST(ShapeCache, FindsByFontAndText) {
    ShapeCache cache;
    const Shape one = makeShape(1, "text");
    const Shape two = makeShape(2, "text");
    cache.put(one.get());
    cache.put(two.get());
    EXPECT_EQ(cache.find(1, "text"), one.get());
    EXPECT_EQ(cache.find(2, "text"), two.get());
    EXPECT_EQ(cache.find(3, "text"), nullptr);
    EXPECT_EQ(cache.find(1, "tex"), nullptr);
}

TEST(ShapeCache, KeepsToItsLimitAndLetsTheLongestUnusedGo) {
    ShapeCache cache;
    const std::string large(100000, 'x');
    cache.put(makeShape(1, "early").get());
    for (std::uint32_t i = 2; i < 200; ++i) {
        cache.put(makeShape(i, large).get());
        EXPECT_NE(cache.find(1, "early"), nullptr) << "used all the time";
        EXPECT_LE(cache.getCost(), ShapeCache::LIMIT + large.size() * 2);
    }
    EXPECT_EQ(cache.find(2, large), nullptr);
    EXPECT_NE(cache.find(199, large), nullptr);
}

TEST(ShapeCache, KeepsWhatIsInUseWhateverItCosts) {
    ShapeCache cache;
    const std::string large(100000, 'x');
    std::vector<Shape> used;
    for (std::uint32_t i = 0; i < 100; ++i) {
        used.push_back(makeShape(i, large));
        cache.put(used.back().get());
    }
    for (std::uint32_t i = 0; i < 100; ++i)
        EXPECT_EQ(cache.find(i, large), used[i].get());
    used.clear();
    for (std::uint32_t i = 100; i < 200; ++i)
        cache.put(makeShape(i, large).get());
    EXPECT_LE(cache.getCost(), ShapeCache::LIMIT + large.size() * 2);
}

class ShapeCacheInUse : public test::TextTest {};

TEST_F(ShapeCacheInUse, AParagraphIsShapedOnce) {
    const font::Font &font = *manager->getDefaultFont();
    const auto shaped = getShaping().shapedParagraphs;
    const Shape first = getSystem().shape(font, "Shaped once");
    EXPECT_EQ(getShaping().shapedParagraphs, shaped + 1);
    EXPECT_EQ(getSystem().shape(font, "Shaped once"), first);
    EXPECT_EQ(getShaping().shapedParagraphs, shaped + 1);
    EXPECT_EQ(getShaping().cacheHits, 1u);
}

} // namespace
} // namespace nurel
