#include "PropertyText.h"
#include "foundation/core/SmartPtr.h"
#include "nui/ui/css/Background.h"
#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/NAnchor.h"
#include "nui/ui/css/NBackground.h"
#include "nui/ui/css/TextAlign.h"
#include "nui/ui/css/VerticalAlign.h"

#include <gtest/gtest.h>

#include <climits>
#include <ostream>
#include <string>
#include <vector>

namespace nurel::ui::css {

namespace {

/// One value copied out of a declaration into a new property.
struct CopyCase {
    std::string name;
    std::string cssName;
    std::vector<const char *> words;
    int index;
    bool copied;
    std::string values;
};

void PrintTo(const CopyCase &row, std::ostream *out) {
    *out << row.cssName << " at " << row.index;
}

core::SmartPtr<Property> declare(const std::string &cssName, const std::vector<const char *> &words) {
    int index = 0;
    core::SmartPtr<Property> property(Property::parse(cssName.c_str(), index));
    for (const char *word : words)
        property->setValue(word, index);
    return property;
}

class PropertyCopy : public testing::TestWithParam<CopyCase> {};

const std::vector<const char *> FONT = {"12px", "Arial"};
const std::vector<const char *> BACKGROUND = {"#12345678", "left", "bottom", "repeat-y", "image"};
const std::vector<const char *> SIDES = {"1", "2", "3", "4"};
const std::vector<const char *> SKIN = {"1", "2", "3", "4", "5", "6", "7", "8"};
const std::string NO_COLOR = "color=-1 -1 -1 -1 ";
const std::string NO_FONT = "family= size=1 fraction";

std::vector<CopyCase> sideCases(const std::string &kind, const std::string &css) {
    return {{kind + "Top", css, SIDES, 0, true, "1 0 0 0"},
            {kind + "Right", css, SIDES, 1, true, "0 2 0 0"},
            {kind + "Bottom", css, SIDES, 2, true, "0 0 3 0"},
            {kind + "Left", css, SIDES, 3, true, "0 0 0 4"},
            {kind + "FifthSide", css, SIDES, 4, false, "0 0 0 0"}};
}

std::vector<CopyCase> sizeCases(const std::string &kind, const std::string &css) {
    return {{kind + "TakesBothParts", css, {"50%", "10px"}, 0, true, "absolute=10 relative=0.5"},
            {kind + "LeavesTheAutoFlag", css, {"auto", "10px"}, 0, true, "absolute=10 relative=0"},
            {kind + "HasNoSecondValue", css, {"50%", "10px"}, 1, false, "absolute=0 relative=0"}};
}

std::vector<CopyCase> familyCases() {
    std::vector<CopyCase> all;
    const auto append = [&all](const std::vector<CopyCase> &cases) {
        all.insert(all.end(), cases.begin(), cases.end());
    };
    append(sideCases("Margin", "margin"));
    append(sideCases("Border", "border"));
    append(sideCases("Padding", "padding"));
    append(sideCases("Radius", "border-radius"));
    append(sizeCases("Width", "width"));
    append(sizeCases("Height", "height"));
    append(sizeCases("Left", "left"));
    append(sizeCases("Top", "top"));
    append(sizeCases("MinWidth", "min-width"));
    append(sizeCases("MaxWidth", "max-width"));
    append(sizeCases("MinHeight", "min-height"));
    append(sizeCases("MaxHeight", "max-height"));
    return all;
}

} // namespace

TEST_P(PropertyCopy, OfOneValueTakesThatAlone) {
    const CopyCase &row = GetParam();
    const auto source = declare(row.cssName, row.words);
    const auto target = declare(row.cssName, {});
    EXPECT_EQ(target->setValue(source.get(), row.index), row.copied);
    EXPECT_EQ(describeValues(*target), row.values);
    std::string states(target->getValueCount(), '0');
    if (row.copied)
        states[static_cast<std::size_t>(row.index)] = '2';
    EXPECT_EQ(describeStates(*target), states);
}

INSTANTIATE_TEST_SUITE_P(Families, PropertyCopy, testing::ValuesIn(familyCases()),
                         [](const auto &row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Kinds, PropertyCopy,
    testing::Values(
        CopyCase{"FontSize", "font", FONT, 0, true, "family= size=12 pixels"},
        CopyCase{"FontFamily", "font", FONT, 1, true, "family=Arial size=1 fraction"},
        CopyCase{"FontHasNoThird", "font", FONT, 2, false, NO_FONT},
        CopyCase{"ColorWithoutAlpha", "color", {"#ff0000ff"}, 0, true, "1 0 0 0"},
        CopyCase{"ColorHasNoSecond", "color", {"red"}, 1, false, "0 0 0 0"},
        CopyCase{"BackgroundColourWithAlpha", "background", BACKGROUND, 0, true,
                 "color=0.07058824 0.2039216 0.3372549 0.4705883 position=1 1 repeat=0 image=<none>"},
        CopyCase{"BackgroundHorizontal", "background", BACKGROUND, 1, true,
                 NO_COLOR + "position=0 1 repeat=0 image=<none>"},
        CopyCase{"BackgroundVertical", "background", BACKGROUND, 2, true,
                 NO_COLOR + "position=1 2 repeat=0 image=<none>"},
        CopyCase{"BackgroundRepeat", "background", BACKGROUND, 3, true,
                 NO_COLOR + "position=1 1 repeat=2 image=<none>"},
        CopyCase{"BackgroundImage", "background", BACKGROUND, 4, true, NO_COLOR + "position=1 1 repeat=0 image=image"},
        CopyCase{"BackgroundHasNoSixth", "background", BACKGROUND, 5, false,
                 NO_COLOR + "position=1 1 repeat=0 image=<none>"},
        CopyCase{"Anchor", "-n-anchor", {"center"}, 0, true, "18"},
        CopyCase{"AnchorHasNoSecond", "-n-anchor", {"center"}, 1, false, "9"},
        CopyCase{"SkinNumber", "-n-background", SKIN, 0, true, "skin=1 count=0 0 offset=-1 -1 size=-1 -1 spacing=-1"},
        CopyCase{"SkinCountU", "-n-background", SKIN, 1, true, "skin=-1 count=2 0 offset=-1 -1 size=-1 -1 spacing=-1"},
        CopyCase{"SkinCountV", "-n-background", SKIN, 2, true, "skin=-1 count=0 3 offset=-1 -1 size=-1 -1 spacing=-1"},
        CopyCase{"SkinOffsetX", "-n-background", SKIN, 3, true, "skin=-1 count=0 0 offset=4 -1 size=-1 -1 spacing=-1"},
        CopyCase{"SkinOffsetY", "-n-background", SKIN, 4, true, "skin=-1 count=0 0 offset=-1 5 size=-1 -1 spacing=-1"},
        CopyCase{"SkinSizeX", "-n-background", SKIN, 5, true, "skin=-1 count=0 0 offset=-1 -1 size=6 -1 spacing=-1"},
        CopyCase{"SkinSizeY", "-n-background", SKIN, 6, true, "skin=-1 count=0 0 offset=-1 -1 size=-1 7 spacing=-1"},
        CopyCase{"SkinSpacing", "-n-background", SKIN, 7, true, "skin=-1 count=0 0 offset=-1 -1 size=-1 -1 spacing=8"},
        CopyCase{"SkinHasNoNinth", "-n-background", SKIN, 8, false,
                 "skin=-1 count=0 0 offset=-1 -1 size=-1 -1 spacing=-1"},
        CopyCase{"Opacity", "opacity", {"0.5"}, 0, true, "0.5"},
        CopyCase{"OpacityHasNoSecond", "opacity", {"0.5"}, 1, false, "1"},
        CopyCase{"OverflowX", "overflow", {"scroll", "auto"}, 0, true, "2 0"},
        CopyCase{"OverflowY", "overflow", {"scroll", "auto"}, 1, true, "0 3"},
        CopyCase{"OverflowHasNoThird", "overflow", {"scroll"}, 2, false, "0 0"},
        CopyCase{"TextAlign", "text-align", {"right"}, 0, true, "2"},
        CopyCase{"TextAlignHasNoSecond", "text-align", {"right"}, 1, false, "0"},
        CopyCase{"VerticalAlign", "vertical-align", {"bottom"}, 0, true, "2"},
        CopyCase{"VerticalAlignHasNoSecond", "vertical-align", {"bottom"}, 1, false, "0"},
        CopyCase{"Transform", "transform", {"scale(2,3)"}, 0, true, "scale=2 3 1"},
        CopyCase{"TransformHasNoSecond", "transform", {"scale(2,3)"}, 1, false, "scale=1 1 1"},
        CopyCase{"ZIndex", "z-index", {"4"}, 0, true, "4"},
        CopyCase{"ZIndexHasNoSecond", "z-index", {"4"}, 1, false, "0"}),
    [](const auto &row) { return row.param.name; });

TEST(PropertyCopying, OfAnyIndexOfEveryKindIsSafe) {
    for (unsigned int number = Property::FONT; number <= Property::ZINDEX; ++number) {
        const core::SmartPtr<Property> source(Property::create(static_cast<Property::Name>(number)));
        const core::SmartPtr<Property> target(Property::create(static_cast<Property::Name>(number)));
        for (const int index : {-1, INT_MIN, static_cast<int>(source->getValueCount()), 8, 100, INT_MAX})
            EXPECT_FALSE(target->setValue(source.get(), index)) << number << " at " << index;
        EXPECT_EQ(describeStates(*target).find('2'), std::string::npos) << number;
    }
}

TEST(PropertyCopying, OfAnotherKindOrOfNullChangesNothing) {
    for (unsigned int number = Property::FONT; number <= Property::ZINDEX; ++number) {
        const core::SmartPtr<Property> target(Property::create(static_cast<Property::Name>(number)));
        const unsigned int other = number == Property::ZINDEX ? Property::FONT : number + 1;
        const core::SmartPtr<Property> source(Property::create(static_cast<Property::Name>(other)));
        const std::string values = describeValues(*target);
        for (int index = 0; index < static_cast<int>(Property::MAX_VALUE_COUNT); ++index) {
            EXPECT_FALSE(target->setValue(source.get(), index)) << number;
            EXPECT_FALSE(target->setValue(static_cast<const Property *>(nullptr), index)) << number;
        }
        EXPECT_EQ(describeValues(*target), values);
        EXPECT_EQ(describeStates(*target).find('2'), std::string::npos) << number;
    }
}

TEST(PropertyCopying, OfAColourKeepsTheTargetsAlpha) {
    Color target;
    target.setColor({0, 0, 0, 0.25F});
    Color source;
    source.setColor({1, 1, 1, 1});
    EXPECT_TRUE(target.setValue(&source, 0));
    EXPECT_EQ(target.getColor(), math::Vector4(1, 1, 1, 0.25F));
}

TEST(PropertyInherit, TakesWhatIsSetThereAndNotHere) {
    const auto parent = declare("margin", {"1px", "2px", "3px", "4px"});
    Margin child;
    int index = Margin::CSSNAME_BOTTOM_IDX;
    child.setValue("9px", index);
    child.inherit(parent.get());
    EXPECT_EQ(child.getBox(), math::Vector4(1, 2, 9, 4));
    EXPECT_EQ(describeStates(child), "3323");
    EXPECT_TRUE(child.isValueSet(0));
    EXPECT_TRUE(child.isValueInherited(0));
    EXPECT_FALSE(child.isValueInherited(2));
}

TEST(PropertyInherit, LeavesWhatIsNotSetThere) {
    const auto parent = declare("margin-left", {"5px"});
    Margin child;
    child.inherit(parent.get());
    EXPECT_EQ(child.getBox(), math::Vector4(0, 0, 0, 5));
    EXPECT_EQ(describeStates(child), "0003");
}

TEST(PropertyInherit, MarksAValueThatCannotBeCopiedAsInheritedAndNotAsSet) {
    const auto parent = declare("width", {"50%", "10px"});
    const auto child = declare("width", {});
    child->inherit(parent.get());
    EXPECT_EQ(describeStates(*child), "31");
    EXPECT_EQ(describeValues(*child), "absolute=10 relative=0.5");
}

TEST(PropertyInherit, TwiceTakesTheNewValueOfWhatCouldNotBeCopiedOnly) {
    const auto first = declare("opacity", {"0.5"});
    const auto second = declare("opacity", {"0.75"});
    const auto child = declare("opacity", {});
    child->inherit(first.get());
    child->inherit(second.get());
    EXPECT_EQ(describeValues(*child), "0.5");
}

TEST(PropertyInherit, FromAnotherKindOrNullDoesNothing) {
    const auto margin = declare("margin", {"1px"});
    const auto padding = declare("padding", {});
    padding->inherit(margin.get());
    padding->inherit(nullptr);
    EXPECT_EQ(describeStates(*padding), "0000");
    EXPECT_EQ(describeValues(*padding), "0 0 0 0");
}

TEST(PropertyText, OfABackground) {
    const auto background = declare("background", BACKGROUND);
    EXPECT_EQ(background->getValueString(), nullptr);
    EXPECT_STREQ(background->getValueString(1), "left");
    EXPECT_STREQ(background->getValueString(2), "bottom");
    EXPECT_STREQ(background->getValueString(3), "repeat-y");
    EXPECT_STREQ(background->getValueString(4), "image");
    EXPECT_EQ(background->getValueString(5), nullptr);
    EXPECT_EQ(background->getValueString(-1), nullptr);
    const auto other = declare("background", {"red", "right", "top"});
    EXPECT_STREQ(other->getValueString(1), "right");
    EXPECT_STREQ(other->getValueString(2), "top");
    EXPECT_STREQ(other->getValueString(3), "no-repeat");
    EXPECT_STREQ(other->getValueString(4), "");
    const Background fresh;
    EXPECT_STREQ(fresh.getValueString(1), "center");
    EXPECT_STREQ(fresh.getValueString(2), "center");
    EXPECT_STREQ(fresh.getValueString(4), "\1");
}

TEST(PropertyText, OfARepetitionGoesByItsBits) {
    EXPECT_STREQ(Background::unparse(0), "no-repeat");
    EXPECT_STREQ(Background::unparse(1), "repeat-x");
    EXPECT_STREQ(Background::unparse(2), "repeat-y");
    EXPECT_STREQ(Background::unparse(3), "repeat");
    EXPECT_STREQ(Background::unparse(4), "no-repeat");
    EXPECT_STREQ(Background::unparse(7), "repeat-x");
    EXPECT_EQ(Background::parseRepeat(nullptr), 0U);
}

TEST(PropertyText, OfAFontIsItsFamily) {
    const auto font = declare("font", FONT);
    EXPECT_EQ(font->getValueString(0), nullptr);
    EXPECT_STREQ(font->getValueString(1), "Arial");
    EXPECT_EQ(font->getValueString(2), nullptr);
    EXPECT_STREQ(Font().getValueString(1), "");
}

TEST(PropertyText, OfAnAnchorIsItsWordWhateverTheIndex) {
    NAnchor anchor;
    for (const char *word : {"top-left", "top-center", "top-right", "center-left", "center", "center-right",
                             "bottom-left", "bottom-center", "bottom-right"}) {
        anchor.setValue(word);
        for (const int index : {-1, 0, 3, 4})
            EXPECT_STREQ(anchor.getValueString(index), word);
    }
    anchor.setAnchor(0);
    EXPECT_EQ(anchor.getValueString(), nullptr);
}

TEST(PropertyText, OfAnAlignmentIsItsWordWhateverTheIndex) {
    TextAlign across;
    for (const char *word : {"left", "center", "right"}) {
        across.setValue(word);
        for (const int index : {-1, 0, 1})
            EXPECT_STREQ(across.getValueString(index), word);
    }
    VerticalAlign down;
    for (const char *word : {"top", "center", "bottom"}) {
        down.setValue(word);
        for (const int index : {-1, 0, 1})
            EXPECT_STREQ(down.getValueString(index), word);
    }
}

TEST(PropertyText, OfEveryOtherKindIsNullForEveryIndex) {
    for (unsigned int number = Property::FONT; number <= Property::ZINDEX; ++number) {
        const auto kind = static_cast<Property::Name>(number);
        if (kind == Property::BACKGROUND || kind == Property::FONT || kind == Property::NANCHOR ||
            kind == Property::TEXT_ALIGN || kind == Property::VERTICAL_ALIGN)
            continue;
        const core::SmartPtr<Property> property(Property::create(kind));
        for (int index = -1; index <= static_cast<int>(property->getValueCount()); ++index)
            EXPECT_EQ(property->getValueString(index), nullptr) << number << " at " << index;
    }
}

TEST(PropertyTests, OfASkin) {
    NBackground skin;
    EXPECT_FALSE(skin.isValid());
    EXPECT_FALSE(skin.hasCurrentSkin());
    EXPECT_FALSE(skin.hasSkinCount());
    EXPECT_FALSE(skin.hasSkinOffset());
    EXPECT_FALSE(skin.hasSkinSize());
    EXPECT_FALSE(skin.hasSkinSpacing());
    int index = 0;
    for (const char *word : {"0", "1", "0", "0", "-1", "0.5", "-1", "0"})
        skin.setValue(word, index);
    EXPECT_TRUE(skin.isValid());
    EXPECT_FALSE(skin.hasSkinCount());
    skin.setSkinCountV(1);
    EXPECT_TRUE(skin.hasSkinCount());
    EXPECT_TRUE(skin.hasSkinOffset());
    EXPECT_TRUE(skin.hasSkinSize());
    EXPECT_TRUE(skin.hasSkinSpacing());
    skin.setSkinSize({0, 5});
    EXPECT_FALSE(skin.hasSkinSize());
    skin.setValue("none");
    EXPECT_FALSE(skin.isValid());
}

TEST(PropertyTests, OfABackgroundAndAFont) {
    Background background;
    EXPECT_TRUE(background.isNone());
    background.setImage("");
    EXPECT_FALSE(background.isNone());
    background.setImage("\1and more");
    EXPECT_TRUE(background.isNone());
    EXPECT_TRUE(background.setValue("red"));
    EXPECT_EQ(background.getImage(), "");
    background.setImage("image");
    EXPECT_TRUE(background.setValue("blue"));
    EXPECT_EQ(background.getImage(), "image");
    EXPECT_FALSE(background.setValue("none"));
    EXPECT_TRUE(background.isNone());
    EXPECT_EQ(background.getColor(), math::Vector4(0, 0, 1, -1));
    Font font;
    EXPECT_FALSE(font.hasFamily());
    font.setFamily("Arial");
    EXPECT_TRUE(font.hasFamily());
}

} // namespace nurel::ui::css
