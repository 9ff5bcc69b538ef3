#include "nui/ui/css/Common.h"

#include <gtest/gtest.h>

#include <cstring>

namespace nurel::ui::css {

namespace {

math::Vector4 parsed(const char *text, bool expected) {
    math::Vector4 color(9, 9, 9, 9);
    EXPECT_EQ(Common::parseColor(text, color), expected) << (text ? text : "null");
    return color;
}

void expectColor(const char *text, float red, float green, float blue, float alpha) {
    const math::Vector4 color = parsed(text, true);
    EXPECT_FLOAT_EQ(color.x, red) << text;
    EXPECT_FLOAT_EQ(color.y, green) << text;
    EXPECT_FLOAT_EQ(color.z, blue) << text;
    EXPECT_FLOAT_EQ(color.w, alpha) << text;
}

} // namespace

struct SizeCase {
    const char *name;
    const char *text;
    Size::Measurement measurement;
    float value;
};

class CommonSizeTest : public testing::TestWithParam<SizeCase> {};

TEST_P(CommonSizeTest, ReadsAsTold) {
    Size size{Size::AUTO, 77};
    EXPECT_TRUE(Common::parseSize(GetParam().text, size));
    EXPECT_EQ(size.measurement, GetParam().measurement);
    EXPECT_FLOAT_EQ(size.value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Sizes, CommonSizeTest,
                         testing::Values(SizeCase{"Pixels", "12px", Size::PIXELS, 12},
                                         SizeCase{"AnEmIsAPixel", "12em", Size::PIXELS, 12},
                                         SizeCase{"ABareNumberCountsPixels", "12", Size::PIXELS, 12},
                                         SizeCase{"PercentIsKeptAsAFraction", "1.5%", Size::PERCENT, 0.015F},
                                         SizeCase{"AutoAlone", "auto", Size::AUTO, 0},
                                         SizeCase{"PixelsAreLookedForAheadOfAuto", "autopx", Size::PIXELS, 0},
                                         SizeCase{"PixelsAreLookedForAheadOfPercent", "5%px", Size::PIXELS, 5},
                                         SizeCase{"AWordReadsAsNoPixels", "wide", Size::PIXELS, 0},
                                         SizeCase{"Negative", "-3.5px", Size::PIXELS, -3.5F},
                                         SizeCase{"Empty", "", Size::PIXELS, 0},
                                         SizeCase{"NullReadsAsEmpty", nullptr, Size::PIXELS, 0}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(CommonColor, HexadecimalFormsOfThreeAndSixDigitsSayNothingOfAlpha) {
    expectColor("#f00", 1.0000001F, 0, 0, -1);
    expectColor("#8aF", 8 * 0.06666667F, 10 * 0.06666667F, 15 * 0.06666667F, -1);
    expectColor("#102030", 16 * 0.003921569F, 32 * 0.003921569F, 48 * 0.003921569F, -1);
}

TEST(CommonColor, HexadecimalFormsOfFourAndEightDigitsCarryAlpha) {
    expectColor("#f008", 15 * 0.06666667F, 0, 0, 8 * 0.06666667F);
    expectColor("#ff000080", 255 * 0.003921569F, 0, 0, 0.5019608F);
}

TEST(CommonColor, OtherLengthsOfHexadecimalAreRefusedAndLeaveTheColour) {
    for (const char *text : {"#", "#f", "#ff", "#fffff", "#fffffff", "#fffffffff"}) {
        const math::Vector4 color = parsed(text, false);
        EXPECT_EQ(color, math::Vector4(9, 9, 9, 9)) << text;
    }
}

TEST(CommonColor, ABadDigitIsRefusedAndKeepsTheChannelsReadBeforeIt) {
    const math::Vector4 color = parsed("#1g2", false);
    EXPECT_FLOAT_EQ(color.x, 0.06666667F);
    EXPECT_FLOAT_EQ(color.y, 9);
    EXPECT_FLOAT_EQ(color.w, 9);
}

TEST(CommonColor, FunctionsReadAllNumbersOnTheByteScale) {
    expectColor("rgb(255,0,128)", 255 * 0.003921569F, 0, 128 * 0.003921569F, -1);
    expectColor("rgba(255,0,0,128)", 255 * 0.003921569F, 0, 0, 0.5019608F);
    expectColor("rgb( 1, 2, 3", 0.003921569F, 2 * 0.003921569F, 3 * 0.003921569F, -1);
}

TEST(CommonColor, FunctionsThatAreCutOrMalformedAreRefusedWithoutReadingPastTheEnd) {
    for (const char *text : {"rgb", "rgba", "rgb(", "rgb(1", "rgb(1,2", "rgba(1,2,3)", "rgb (1,2,3)", "rgb(1 ,2,3)",
                             "rgb(x,2,3)", "rgb[1,2,3)", "rgb1,2,3", "rgb(1;2;3)", "rgba(1,2,3;4)"}) {
        const math::Vector4 color = parsed(text, false);
        EXPECT_EQ(color, math::Vector4(9, 9, 9, 9)) << text;
    }
}

TEST(CommonColor, NumbersOfFunctionsBeyondAnIntReadAsTheNearestOne) {
    expectColor("rgb(99999999999,0,-99999999999)", 2147483648.0F * 0.003921569F, 0, -2147483648.0F * 0.003921569F, -1);
}

TEST(CommonColor, EightNamesAreKnown) {
    expectColor("black", 0, 0, 0, -1);
    expectColor("red", 1, 0, 0, -1);
    expectColor("green", 0, 1, 0, -1);
    expectColor("blue", 0, 0, 1, -1);
    expectColor("white", 1, 1, 1, -1);
    expectColor("yellow", 1, 1, 0, -1);
    expectColor("orange", 1, 0.5F, 0, -1);
    expectColor("gray", 0.5F, 0.5F, 0.5F, -1);
}

TEST(CommonColor, AnUnknownWordIsRefusedAndTurnsTheColourWhite) {
    for (const char *text : {"foo", "Red", ""})
        EXPECT_EQ(parsed(text, false), math::Vector4(1, 1, 1, -1)) << text;
}

TEST(CommonColor, NoneAndNullAreRefusedAndLeaveTheColour) {
    EXPECT_EQ(parsed("none", false), math::Vector4(9, 9, 9, 9));
    EXPECT_EQ(parsed(nullptr, false), math::Vector4(9, 9, 9, 9));
}

TEST(CommonAnchor, ReadsTheNineWords) {
    const struct {
        const char *word;
        unsigned int value;
    } words[] = {{"top-left", 9},       {"center-left", 10}, {"bottom-left", 12},  {"top-center", 17},  {"center", 18},
                 {"bottom-center", 20}, {"top-right", 33},   {"center-right", 34}, {"bottom-right", 36}};
    for (const auto &entry : words) {
        Component::Anchor anchor{};
        EXPECT_TRUE(Common::parseAnchor(entry.word, anchor)) << entry.word;
        EXPECT_EQ(static_cast<unsigned int>(anchor), entry.value) << entry.word;
    }
}

TEST(CommonAnchor, EveryWordComesBackFromItsNumber) {
    for (unsigned int number = 0; number < 64; ++number) {
        const char *const word = Common::unparseAnchor(static_cast<Component::Anchor>(number));
        Component::Anchor anchor{};
        EXPECT_EQ(Common::parseAnchor(word, anchor), word != nullptr) << number;
        EXPECT_EQ(static_cast<unsigned int>(anchor), word ? number : 9) << number;
        const unsigned int column = number & 0x38;
        const unsigned int row = number & 0x07;
        const bool isOneOfNine = (column == 8 || column == 16 || column == 32) && (row == 1 || row == 2 || row == 4);
        EXPECT_EQ(word != nullptr, isOneOfNine) << number;
    }
}

TEST(CommonAnchor, AnyOtherWordStoresTopLeftAndIsFalse) {
    for (const char *word : {"left", "Center", "", static_cast<const char *>(nullptr)}) {
        auto anchor = static_cast<Component::Anchor>(0x12);
        EXPECT_FALSE(Common::parseAnchor(word, anchor));
        EXPECT_EQ(static_cast<unsigned int>(anchor), 9U);
    }
}

} // namespace nurel::ui::css
