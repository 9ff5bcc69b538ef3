#include "Palette.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using drawing::getColor;
using drawing::getContrast;
using drawing::makeColor;
using drawing::Theme;

struct Pair {
    const char *front;
    const char *ground;
};

class PaletteContrast : public testing::TestWithParam<Theme> {
protected:
    void expectContrast(const Pair &pair, double wanted) const {
        EXPECT_GE(getContrast(getColor(GetParam(), pair.front), getColor(GetParam(), pair.ground)), wanted)
            << pair.front << " on " << pair.ground;
    }
};

INSTANTIATE_TEST_SUITE_P(BothLooks, PaletteContrast, testing::Values(Theme::LIGHT, Theme::DARK),
                         [](const testing::TestParamInfo<Theme> &parameter) {
                             return std::string(parameter.param == Theme::LIGHT ? "Light" : "Dark");
                         });

} // namespace

TEST_P(PaletteContrast, TextIsLegibleOnEveryGroundThatItStandsOn) {
    constexpr Pair PAIRS[] = {
        {"ink", "page"},
        {"ink", "card"},
        {"ink", "well"},
        {"ink", "field"},
        {"ink", "raised"},
        {"ink", "raisedHover"},
        {"ink", "raisedPressed"},
        {"ink", "accentSoft"},
        {"ink", "accentSoftHover"},
        {"ink", "bar"},
        {"subtle", "page"},
        {"subtle", "card"},
        {"subtle", "well"},
        {"subtle", "field"},
        {"accentInk", "page"},
        {"accentInk", "card"},
        {"accentInk", "accentSoft"},
        {"accentInk", "accentSoftHover"},
        {"onAccent", "accent"},
        {"onAccent", "accentHover"},
        {"onAccent", "accentPressed"},
        {"onAccent", "danger"},
        {"onAccent", "dangerHover"},
        {"onAccent", "dangerPressed"},
        {"dangerInk", "page"},
        {"dangerInk", "card"},
        {"goodInk", "page"},
        {"goodInk", "card"},
        {"warnInk", "page"},
        {"warnInk", "card"},
    };
    for (const Pair &pair : PAIRS)
        expectContrast(pair, 4.5);
}

TEST_P(PaletteContrast, EdgesOfControlsAndRingsStandOutFromTheirGround) {
    constexpr Pair PAIRS[] = {
        {"edge", "page"},       {"edge", "card"},      {"edge", "well"},      {"edge", "field"},
        {"edgeHover", "page"},  {"edgeHover", "card"}, {"edgeHover", "well"}, {"ring", "page"},
        {"ring", "card"},       {"ring", "well"},      {"ring", "field"},     {"ring", "raised"},
        {"ring", "accentSoft"}, {"accent", "page"},    {"accent", "card"},    {"accent", "well"},
        {"danger", "page"},     {"danger", "card"},    {"accentInk", "card"}, {"accentInk", "page"},
        {"accentInk", "well"},  {"caret", "field"},
    };
    for (const Pair &pair : PAIRS)
        expectContrast(pair, 3);
}

TEST(Palette, ContrastGoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(getContrast(makeColor(0), makeColor(0)), 1);
    EXPECT_NEAR(getContrast(makeColor(0), makeColor(0xffffff)), 21, 1e-9);
    EXPECT_NEAR(getContrast(makeColor(0x777777), makeColor(0xffffff)), 4.48, 0.01);
}

TEST(Palette, AnUnknownNameIsRefused) {
    try {
        getColor(Theme::LIGHT, "mauve");
        FAIL();
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.getMessage(), "the palette has no 'mauve'");
    }
}
