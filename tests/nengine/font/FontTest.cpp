#include "nengine/font/Font.h"

#include "nengine/font/Glyph.h"
#include "nengine/font/TestFonts.h"

#include <limits>

namespace nurel {
namespace {

using font::Font;

class FontTest : public test::TextTest {};

TEST_F(FontTest, MetricsAreTheFilesOwnAtTheFontsSize) {
    const Font &plain = *manager->getDefaultFont();
    EXPECT_EQ(plain.getSize(), 16.0f);
    EXPECT_FLOAT_EQ(plain.getAscent(), facts.getAscent() * 16);
    EXPECT_FLOAT_EQ(plain.getDescent(), facts.getDescent() * 16);
    EXPECT_FLOAT_EQ(plain.getHeight(), (facts.getAscent() + facts.getDescent()) * 16);

    const Font &large = *manager->add("Large", test::SANS_FILE, 40);
    EXPECT_EQ(large.getSize(), 40.0f);
    EXPECT_FLOAT_EQ(large.getHeight(), (facts.getAscent() + facts.getDescent()) * 40);
}

TEST_F(FontTest, AGlyphHasItsUnhintedAdvanceAtTheFontsSize) {
    const Font &font = *manager->getDefaultFont();
    for (const char32_t c : {U'm', U'i', U' ', U'ß', U'ש'}) {
        const font::Glyph *glyph = font.getGlyph(c);
        ASSERT_NE(glyph, nullptr);
        EXPECT_EQ(glyph->index, facts.getGlyph(c));
        EXPECT_NEAR(glyph->advance, facts.getAdvance(c) * 16, 1e-3f);
    }
}

TEST_F(FontTest, AGlyphIsTheSameObjectEveryTime) {
    const Font &font = *manager->getDefaultFont();
    const font::Glyph *glyph = font.getGlyph(U'm');
    for (char32_t c = U'!'; c < 0x2000; ++c)
        font.getGlyph(c);
    EXPECT_EQ(font.getGlyph(U'm'), glyph);
}

TEST_F(FontTest, ACharacterThatTheFontHasNotGivesNoGlyph) {
    EXPECT_EQ(manager->getDefaultFont()->getGlyph(U'漢'), nullptr);
    EXPECT_EQ(manager->getDefaultFont()->getGlyph(0x110000), nullptr);
}

TEST_F(FontTest, AFontWithoutAFaceHasNoSizeAndNoGlyphs) {
    const core::SmartPtr<Font> font(new Font("none", nullptr, 20));
    EXPECT_EQ(font->getSize(), 20.0f);
    EXPECT_EQ(font->getHeight(), 0.0f);
    EXPECT_EQ(font->getGlyph(U'm'), nullptr);
}

TEST_F(FontTest, ASizeThatIsNoneBecomesTheDefaultSize) {
    for (const float size :
         {0.0f, -3.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        EXPECT_EQ(manager->add("Odd", test::SANS_FILE, size)->getSize(), 16.0f) << size;
}

TEST_F(FontTest, TheTextureIsTheFirstPageOfTheAtlas) {
    texture::Texture *texture = manager->getDefaultFont()->getTexture();
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(texture->getRenderData(), screen.atlas->getPage(0));
}

TEST_F(FontTest, AFontOutlivesItsManager) {
    const core::SmartPtr<Font> font(manager->getDefaultFont());
    manager.reset();
    EXPECT_NE(font->getGlyph(U'm'), nullptr);
    EXPECT_GT(font->getHeight(), 0.0f);
    EXPECT_EQ(font->getTexture(), nullptr);
}

} // namespace
} // namespace nurel
