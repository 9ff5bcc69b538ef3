#include "nengine/font/detail/Shaper.h"

#include "foundation/text/Utf8.h"
#include "nengine/font/TestFonts.h"

#include <algorithm>
#include <random>

namespace nurel {
namespace {

using font::detail::ShapedParagraph;
using Shape = core::SmartPtr<ShapedParagraph>;

class ShaperTest : public test::TextTest {
protected:
    Shape shape(const std::string &utf8) { return getSystem().shape(*manager->getDefaultFont(), utf8); }

    std::uint32_t getGlyph(const Shape &shape, std::size_t index) { return shape->glyphs.at(index).glyph; }
};

TEST_F(ShaperTest, GivesTheGlyphsOfALatinTextWithTheirAdvancesInEm) {
    const Shape shaped = shape("nio");
    ASSERT_EQ(shaped->runs.size(), 1u);
    EXPECT_EQ(shaped->characterCount, 3u);
    ASSERT_EQ(shaped->glyphs.size(), 3u);
    const std::u32string characters = U"nio";
    for (std::uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(shaped->glyphs[i].glyph, facts.getGlyph(characters[i]));
        EXPECT_EQ(shaped->glyphs[i].cluster, i);
        EXPECT_NEAR(shaped->glyphs[i].advance, facts.getAdvance(characters[i]), 1e-4f);
    }
    EXPECT_NEAR(shaped->width, facts.getAdvance(characters), 1e-4f);
}

TEST_F(ShaperTest, KernsPairs) {
    EXPECT_LT(shape("AV")->width, facts.getAdvance(U"AV") - 0.01f);
}

TEST_F(ShaperTest, JoinsLigatures) {
    const Shape shaped = shape("ffi");
    ASSERT_EQ(shaped->glyphs.size(), 1u);
    EXPECT_EQ(shaped->characterCount, 3u);
    EXPECT_NEAR(shaped->width, facts.getAdvance(U'ﬃ'), 1e-4f);
}

TEST_F(ShaperTest, SetsRightToLeftTextFromRightToLeft) {
    const Shape shaped = shape("שלום");
    EXPECT_EQ(shaped->baseLevel, 1);
    ASSERT_EQ(shaped->glyphs.size(), 4u);
    EXPECT_EQ(getGlyph(shaped, 0), facts.getGlyph(U'ם'));
    EXPECT_EQ(shaped->glyphs[0].cluster, 3u);
    EXPECT_EQ(getGlyph(shaped, 3), facts.getGlyph(U'ש'));
}

TEST_F(ShaperTest, JoinsArabicLetters) {
    const Shape shaped = shape("ببب");
    ASSERT_EQ(shaped->glyphs.size(), 3u);
    EXPECT_EQ(getGlyph(shaped, 2), facts.getGlyph(0xfe91)) << "initial form";
    EXPECT_EQ(getGlyph(shaped, 1), facts.getGlyph(0xfe92)) << "medial form";
    EXPECT_EQ(getGlyph(shaped, 0), facts.getGlyph(0xfe90)) << "final form";
}

TEST_F(ShaperTest, SplitsByDirection) {
    const Shape shaped = shape("ab שלום 12");
    EXPECT_EQ(shaped->baseLevel, 0);
    ASSERT_GE(shaped->runs.size(), 2u);
    EXPECT_FALSE(shaped->runs.front().isRightToLeft());
    bool backward = false;
    for (const auto &run : shaped->runs)
        backward = backward || run.isRightToLeft();
    EXPECT_TRUE(backward);
}

TEST_F(ShaperTest, ControlsTakeNoRoomAndShowNoBox) {
    const std::uint32_t missing = 0;
    for (const char *text : {"n\x01n", "n\x1bn", "n\x7fn", "n\xc2\x85n", "n\xe2\x80\x8bn", "n\xe2\x80\x8fn"}) {
        const Shape shaped = shape(text);
        EXPECT_EQ(shaped->characterCount, 3u);
        EXPECT_NEAR(shaped->width, facts.getAdvance(U"nn"), 1e-4f);
        for (const auto &glyph : shaped->glyphs)
            EXPECT_NE(glyph.glyph, missing);
    }
}

TEST_F(ShaperTest, ATabIsFourSpacesWide) {
    const Shape shaped = shape("n\tn");
    EXPECT_NEAR(shaped->width, facts.getAdvance(U"nn") + 4 * facts.getAdvance(U' '), 1e-4f);
}

TEST_F(ShaperTest, MalformedBytesBecomeReplacementCharacters) {
    const Shape shaped = shape("a\xff\xc3z");
    EXPECT_EQ(shaped->characterCount, 4u);
    ASSERT_EQ(shaped->glyphs.size(), 4u);
    EXPECT_EQ(getGlyph(shaped, 1), facts.getGlyph(0xfffd));
    EXPECT_EQ(getGlyph(shaped, 2), facts.getGlyph(0xfffd));
}

TEST_F(ShaperTest, ACharacterThatNoFontHasShowsTheBoxOfTheTextsFont) {
    const Shape shaped = shape("漢");
    ASSERT_EQ(shaped->glyphs.size(), 1u);
    EXPECT_EQ(getGlyph(shaped, 0), 0u);
    EXPECT_EQ(shaped->runs[0].face, manager->getDefaultFont()->getFace());
    EXPECT_GT(shaped->width, 0.0f);
}

TEST_F(ShaperTest, AMissingCharacterComesFromTheDefaultFontBehindTheAddedOnes) {
    const font::Font *mono = manager->add("Mono", test::MONO_FILE);
    ASSERT_EQ(mono->getGlyph(U'𐌀'), nullptr); // Old Italic, which only the other one has
    const Shape before = getSystem().shape(*mono, "a𐌀b");
    ASSERT_EQ(before->runs.size(), 3u);
    EXPECT_EQ(before->runs[1].face, manager->getDefaultFont()->getFace());

    const font::Font *sans = manager->add("Sans", test::SANS_FILE);
    const Shape after = getSystem().shape(*mono, "a𐌀b");
    ASSERT_EQ(after->runs.size(), 3u);
    EXPECT_EQ(after->runs[1].face, sans->getFace());
    EXPECT_NEAR(after->glyphs[1].advance, facts.getAdvance(U'𐌀'), 1e-4f);
}

TEST_F(ShaperTest, AMissingCharacterComesFromTheFirstAddedFontThatHasIt) {
    useDefault(test::MONO_FILE);
    const font::Font *first = manager->add("First", test::SANS_FILE);
    const font::Font *second = manager->add("Second", test::SANS_FILE);
    EXPECT_NE(first->getFace(), second->getFace());
    const Shape shaped = shape("𐌀");
    ASSERT_EQ(shaped->runs.size(), 1u);
    EXPECT_EQ(shaped->runs[0].face, first->getFace());

    manager->add("First", test::MONO_FILE);
    EXPECT_EQ(shape("𐌀")->runs[0].face, second->getFace()) << "a font that was replaced is asked no more";
}

TEST_F(ShaperTest, MarksStayWithTheirLetter) {
    const Shape shaped = shape("xe\xcc\x81\xcc\x82y"); // e with acute and circumflex
    for (const auto &glyph : shaped->glyphs)
        EXPECT_TRUE(glyph.cluster == 0 || glyph.cluster == 1 || glyph.cluster == 4) << glyph.cluster;
    EXPECT_EQ(shaped->runs.size(), 1u);
}

TEST_F(ShaperTest, AFontWithoutAFaceShapesToNothing) {
    const core::SmartPtr<font::Font> none(new font::Font("none", nullptr, 16));
    const Shape shaped = getSystem().shape(*none, "abc");
    EXPECT_EQ(shaped->characterCount, 3u);
    EXPECT_TRUE(shaped->glyphs.empty());
    EXPECT_EQ(shaped->width, 0.0f);
}

// What holds for every text, whatever is in it.
void expectSound(const ShapedParagraph &shape, const std::string &utf8) {
    EXPECT_EQ(shape.characterCount, ::text::getUTF8Length(utf8.c_str()));
    std::uint32_t character = 0;
    std::uint32_t glyph = 0;
    for (const auto &run : shape.runs) {
        EXPECT_EQ(run.firstCharacter, character);
        EXPECT_EQ(run.firstGlyph, glyph);
        EXPECT_LT(run.firstCharacter, run.endCharacter);
        character = run.endCharacter;
        glyph = run.endGlyph;
        for (std::uint32_t i = run.firstGlyph; i < run.endGlyph; ++i) {
            EXPECT_GE(shape.glyphs[i].cluster, run.firstCharacter);
            EXPECT_LT(shape.glyphs[i].cluster, run.endCharacter);
            const std::uint32_t before = shape.glyphs[std::max(i, run.firstGlyph + 1) - 1].cluster;
            const std::uint32_t cluster = shape.glyphs[i].cluster;
            EXPECT_TRUE(run.isRightToLeft() ? cluster <= before : cluster >= before);
        }
    }
    EXPECT_EQ(character, shape.characterCount);
    EXPECT_EQ(glyph, shape.glyphs.size());
    std::vector<double> sums;
    shape.sumAdvances(sums);
    ASSERT_EQ(sums.size(), shape.characterCount + 1);
    EXPECT_NEAR(sums.back(), static_cast<double>(shape.width), 1e-3);
}

TEST_F(ShaperTest, RandomTextsAreCoveredByRunsWithoutGaps) {
    const std::vector<std::string> letters = {
        "a", "b",      " ",      "f",      "i",      "\t",     "\u0301", "\u0302", "ש", "ל", "ב",    "א",    "۱",
        "۲", "\u200d", "\u200f", "\u202e", "\u202c", "\u2066", "\u2069", "漢",     "😀", "👍", "🏽", "\x01", "é"};
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        std::string utf8;
        for (auto count = 1 + random() % 30; count > 0; --count) {
            if (random() % 20 == 0) {
                utf8 += static_cast<char>(0x80 + random() % 0x80); // malformed
                continue;
            }
            utf8 += letters[random() % letters.size()];
        }
        SCOPED_TRACE(testing::PrintToString(utf8));
        expectSound(*shape(utf8), utf8);
    }
}

TEST_F(ShaperTest, BoundariesAreOnlyWhereClustersBegin) {
    const Shape shaped = shape("ffi e\xcc\x81 fi");
    const auto &boundaries = getSystem().getBoundaries(*shaped);
    ASSERT_EQ(boundaries.size(), 10u);
    const auto is = [&](std::size_t index, unsigned int bit) { return (boundaries[index] & bit) != 0; };
    EXPECT_TRUE(is(0, ShapedParagraph::GRAPHEME));
    EXPECT_FALSE(is(1, ShapedParagraph::GRAPHEME)) << "inside a ligature";
    EXPECT_TRUE(is(3, ShapedParagraph::SPACE));
    EXPECT_TRUE(is(4, ShapedParagraph::LINE_BREAK));
    EXPECT_FALSE(is(5, ShapedParagraph::GRAPHEME)) << "a mark";
    EXPECT_TRUE(is(7, ShapedParagraph::LINE_BREAK));
    EXPECT_FALSE(is(3, ShapedParagraph::LINE_BREAK)) << "in front of a space";
}

} // namespace
} // namespace nurel
