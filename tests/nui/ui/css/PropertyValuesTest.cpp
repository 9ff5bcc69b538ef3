#include "PropertyValues.h"

#include "PropertyText.h"
#include "foundation/core/SmartPtr.h"
#include "nui/ui/css/PropertyEntry.h"

#include <climits>
#include <cstring>
#include <map>
#include <set>

namespace nurel::ui::css {

TEST_P(PropertyValues, AreReadAsTold) {
    const PropertyCase &row = GetParam();
    int index = -1;
    const core::SmartPtr<Property> property(Property::parse(row.cssName.c_str(), index));
    ASSERT_TRUE(property);
    std::string steps;
    for (const std::string &word : row.words) {
        if (!steps.empty())
            steps += ' ';
        steps += property->setValue(word.c_str(), index) ? '+' : '-';
        steps += std::to_string(index);
    }
    EXPECT_EQ(steps, row.steps);
    EXPECT_EQ(describeStates(*property), row.states);
    EXPECT_EQ(describeValues(*property), row.values);
}

namespace {

using Cases = std::vector<PropertyCase>;

Cases sizeCases(const std::string &kind, const std::string &css) {
    return {
        {kind + "InPixels", css, {"10px"}, "+1", "20", "absolute=10 relative=0"},
        {kind + "InEmsThatArePixels", css, {"10em"}, "+1", "20", "absolute=10 relative=0"},
        {kind + "OfABareNumber", css, {"10"}, "+1", "20", "absolute=10 relative=0"},
        {kind + "InPercent", css, {"50%"}, "+1", "20", "absolute=0 relative=0.5"},
        {kind + "InPercentAndPixels", css, {"50%", "10px"}, "+1 +2", "22", "absolute=10 relative=0.5"},
        {kind + "InPixelsAndPercent", css, {"10px", "50%"}, "+1 +2", "22", "absolute=10 relative=0.5"},
        {kind + "InPixelsTwiceHoldsTheSecond", css, {"10px", "20px"}, "+1 +2", "22", "absolute=20 relative=0"},
        {kind + "Auto", css, {"auto"}, "+1", "20", "absolute=0 relative=0 auto"},
        {kind + "AutoClearsWhatStoodBefore", css, {"10px", "auto"}, "+1 +2", "22", "absolute=0 relative=0 auto"},
        {kind + "PixelsAfterAutoLeaveItOn", css, {"auto", "10px"}, "+1 +2", "22", "absolute=10 relative=0 auto"},
        {kind + "IgnoresAThirdWord", css, {"1px", "2%", "3px"}, "+1 +2 -2", "22", "absolute=1 relative=0.02"},
        {kind + "LooksForPixelsAheadOfAuto", css, {"autopx"}, "+1", "20", "absolute=0 relative=0"},
        {kind + "OfNegativePixels", css, {"-3.5px"}, "+1", "20", "absolute=-3.5 relative=0"},
        {kind + "OfAWordIsZero", css, {"wide"}, "+1", "20", "absolute=0 relative=0"},
        {kind + "OfAnEmptyWordIsZero", css, {""}, "+1", "20", "absolute=0 relative=0"},
        {kind + "OutOfRangeStaysFinite", css, {"1e99px"}, "+1", "20", "absolute=3.402823e+38 relative=0"},
        {kind + "InfIsNoNumber", css, {"infpx"}, "+1", "20", "absolute=0 relative=0"},
    };
}

Cases boxCases(const std::string &kind, const std::string &css) {
    return {
        {kind + "OneWordSetsAllSides", css, {"1px"}, "+1", "2222", "1 1 1 1"},
        {kind + "TwoWordsSetPairs", css, {"1px", "2px"}, "+1 +2", "2222", "1 2 1 2"},
        {kind + "ThreeWordsSetTheBottomToo", css, {"1px", "2px", "3px"}, "+1 +2 +3", "2222", "1 2 3 2"},
        {kind + "FourWordsSetEachSide", css, {"1px", "2px", "3px", "4px"}, "+1 +2 +3 +4", "2222", "1 2 3 4"},
        {kind + "IgnoresAFifthWord", css, {"1", "2", "3", "4", "5"}, "+1 +2 +3 +4 -4", "2222", "1 2 3 4"},
        {kind + "TopSetsAllSides", css + "-top", {"5px"}, "+1", "2222", "5 5 5 5"},
        {kind + "RightSetsLeftToo", css + "-right", {"5px"}, "+2", "0202", "0 5 0 5"},
        {kind + "RightTakesTheBottomFromASecondWord", css + "-right", {"5", "6"}, "+2 +3", "0222", "0 5 6 5"},
        {kind + "BottomSetsOneSide", css + "-bottom", {"5px"}, "+3", "0020", "0 0 5 0"},
        {kind + "LeftSetsOneSide", css + "-left", {"5px"}, "+4", "0002", "0 0 0 5"},
        {kind + "LeftIgnoresASecondWord", css + "-left", {"5px", "6px"}, "+4 -4", "0002", "0 0 0 5"},
        {kind + "PercentDropsItsMeasure", css, {"50%"}, "+1", "2222", "0.5 0.5 0.5 0.5"},
        {kind + "AutoIsZero", css, {"auto"}, "+1", "2222", "0 0 0 0"},
        {kind + "AWordIsZero", css, {"3px", "wide"}, "+1 +2", "2222", "3 0 3 0"},
        {kind + "AnEmptyWordIsZero", css + "-left", {""}, "+4", "0002", "0 0 0 0"},
        {kind + "NegativeNumbers", css + "-bottom", {"-2.5em"}, "+3", "0020", "0 0 -2.5 0"},
    };
}

Cases join(std::initializer_list<Cases> lists) {
    Cases all;
    for (const Cases &list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Sizes, PropertyValues,
                         testing::ValuesIn(join({sizeCases("Width", "width"), sizeCases("Height", "height"),
                                                 sizeCases("Left", "left"), sizeCases("Top", "top"),
                                                 sizeCases("MinWidth", "min-width"), sizeCases("MaxWidth", "max-width"),
                                                 sizeCases("MinHeight", "min-height"),
                                                 sizeCases("MaxHeight", "max-height")})),
                         nameOfPropertyCase);

INSTANTIATE_TEST_SUITE_P(Boxes, PropertyValues,
                         testing::ValuesIn(join({boxCases("Margin", "margin"), boxCases("Border", "border"),
                                                 boxCases("Padding", "padding")})),
                         nameOfPropertyCase);

namespace {

/// A word that the first value of the kind takes.
const char *goodWord(Property::Name kind) {
    const std::map<Property::Name, const char *> words = {
        {Property::COLOR, "red"},           {Property::BACKGROUND, "red"},   {Property::NANCHOR, "center"},
        {Property::OVERFLOW, "hidden"},     {Property::TEXT_ALIGN, "right"}, {Property::VERTICAL_ALIGN, "bottom"},
        {Property::TRANSFORM, "scale(2,3)"}};
    const auto found = words.find(kind);
    return found == words.end() ? "7" : found->second;
}

/// The kinds that move the index on at a value that they do not have.
bool movesBeyondTheEnd(Property::Name kind) {
    static const std::set<Property::Name> KINDS = {Property::BORDER_RADIUS, Property::NANCHOR, Property::NBACKGROUND,
                                                   Property::TEXT_ALIGN, Property::VERTICAL_ALIGN};
    return KINDS.contains(kind);
}

int valuesReadBy(const Property &property) {
    return property.getName() == Property::NANCHOR ? 1 : static_cast<int>(property.getValueCount());
}

/// Beginnings of values, over and over for a megabyte.
const std::vector<std::string> &longTexts() {
    static const std::vector<std::string> TEXTS = [] {
        constexpr std::size_t MEGABYTE = 1U << 20;
        std::vector<std::string> texts;
        for (const char *piece : {"x", "7", "-", "#", "rgb(", "rgb(1,", "scale(1,", "1e9", "%", ",", "px", " "}) {
            std::string &text = texts.emplace_back();
            while (text.size() < MEGABYTE)
                text += piece;
        }
        return texts;
    }();
    return TEXTS;
}

class EveryPropertyName : public testing::TestWithParam<PropertyEntry> {
protected:
    core::SmartPtr<Property> mProperty{GetParam().create()};
};

} // namespace

TEST_P(EveryPropertyName, TakesAGoodWordAtItsOwnIndex) {
    int index = -1;
    ASSERT_EQ(Property::parseName(GetParam().cssName, index), GetParam().name);
    const int start = index;
    EXPECT_EQ(start, GetParam().index);
    EXPECT_TRUE(mProperty->setValue(start == 0 ? goodWord(GetParam().name) : "hidden", index));
    EXPECT_TRUE(mProperty->isValueSet(start));
    EXPECT_EQ(index, GetParam().name == Property::COLOR ? 0 : start + 1);
}

TEST_P(EveryPropertyName, RefusesWordsBeyondTheLastValue) {
    const std::string values = describeValues(*mProperty);
    const int end = valuesReadBy(*mProperty);
    for (const int index : {end, end + 1, 100, INT_MAX - 1, -1, -2, INT_MIN}) {
        int after = index;
        EXPECT_FALSE(mProperty->setValue(goodWord(GetParam().name), after)) << index;
        EXPECT_EQ(after, movesBeyondTheEnd(GetParam().name) ? index + 1 : index);
        EXPECT_EQ(describeValues(*mProperty), values) << index;
        EXPECT_EQ(describeStates(*mProperty).find_first_not_of('0'), std::string::npos) << index;
    }
}

TEST_P(EveryPropertyName, TheGreatestIndexDoesNotOverflow) {
    int index = INT_MAX;
    EXPECT_FALSE(mProperty->setValue(goodWord(GetParam().name), index));
    EXPECT_EQ(index, INT_MAX);
}

TEST_P(EveryPropertyName, RefusesANullText) {
    for (int start = -1; start <= static_cast<int>(mProperty->getValueCount()); ++start) {
        int index = start;
        EXPECT_FALSE(mProperty->setValue(static_cast<const char *>(nullptr), index)) << start;
    }
    EXPECT_FALSE(mProperty->setValue(static_cast<const char *>(nullptr)));
    EXPECT_EQ(describeStates(*mProperty).find_first_not_of('0'), std::string::npos);
    const core::SmartPtr<Property> fresh(GetParam().create());
    EXPECT_EQ(describeValues(*mProperty), describeValues(*fresh));
}

TEST_P(EveryPropertyName, ReadsLongTextsToTheirEnd) {
    for (const std::string &text : longTexts()) {
        int index = GetParam().index;
        mProperty->setValue(text.c_str(), index);
        EXPECT_GE(index, GetParam().index) << text.substr(0, 20);
        EXPECT_LE(index, GetParam().index + 1) << text.substr(0, 20);
    }
}

INSTANTIATE_TEST_SUITE_P(Names, EveryPropertyName,
                         testing::ValuesIn(std::vector<PropertyEntry>(PropertyEntry::all().begin(),
                                                                      PropertyEntry::all().end())),
                         [](const auto &row) {
                             std::string name;
                             bool capital = true;
                             for (const char *c = row.param.cssName; *c; ++c) {
                                 if (*c != '-')
                                     name += capital ? static_cast<char>(*c - 'a' + 'A') : *c;
                                 capital = *c == '-';
                             }
                             return name;
                         });

} // namespace nurel::ui::css
