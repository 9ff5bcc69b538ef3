#include "nui/ui/css/Property.h"

#include "PropertyText.h"
#include "foundation/core/SmartPtr.h"
#include "nui/ui/css/Background.h"
#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/NAnchor.h"
#include "nui/ui/css/NBackground.h"
#include "nui/ui/css/Opacity.h"
#include "nui/ui/css/Overflow.h"
#include "nui/ui/css/PropertyEntry.h"
#include "nui/ui/css/SizeProperties.h"
#include "nui/ui/css/TextAlign.h"
#include "nui/ui/css/Transform.h"
#include "nui/ui/css/VerticalAlign.h"
#include "nui/ui/css/ZIndex.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace nurel::ui::css {

namespace {

constexpr unsigned int KIND_COUNT = 23;

std::vector<core::SmartPtr<Property>> makeEveryKind() {
    std::vector<core::SmartPtr<Property>> kinds;
    for (unsigned int number = 1; number <= KIND_COUNT; ++number)
        kinds.emplace_back(Property::create(static_cast<Property::Name>(number)));
    return kinds;
}

/// What a static initialiser of another file finds.
const Property::Name NAME_BEFORE_MAIN = [] {
    int index = 0;
    return Property::parseName("padding-left", index);
}();

core::SmartPtr<Property> parsed(const char *cssName, std::initializer_list<const char *> words) {
    int index = 0;
    core::SmartPtr<Property> property(Property::parse(cssName, index));
    for (const char *word : words)
        property->setValue(word, index);
    return property;
}

/// A property whose every value differs from what it is at first, with a state for each.
core::SmartPtr<Property> makeChanged(Property::Name kind) {
    core::SmartPtr<Property> property(Property::create(kind));
    std::vector<const char *> words = {"3", "4", "5", "6", "7", "8", "9", "10"};
    if (kind == Property::COLOR)
        words = {"#12345678"};
    else if (kind == Property::BACKGROUND)
        words = {"#12345678", "left", "bottom", "repeat-y", "image"};
    else if (kind == Property::NANCHOR)
        words = {"bottom-center"};
    else if (kind == Property::OVERFLOW)
        words = {"scroll", "auto"};
    else if (kind == Property::TEXT_ALIGN)
        words = {"right"};
    else if (kind == Property::VERTICAL_ALIGN)
        words = {"bottom"};
    else if (kind == Property::TRANSFORM)
        words = {"scale(2,3,4)"};
    else if (property->getValueCount() == 2 && kind != Property::FONT)
        words = {"auto", "3%", "4"};
    int index = 0;
    for (const char *word : words)
        property->setValue(word, index);
    return property;
}

} // namespace

TEST(PropertyNames, TheTableIsReachableBeforeMain) {
    EXPECT_EQ(NAME_BEFORE_MAIN, Property::PADDING);
}

TEST(PropertyNames, AnUnknownNameLeavesTheIndexAlone) {
    for (const char *name : {"", "Margin", "margin ", " margin", "margin-", "margin-topp", "none", "unknown",
                             "background-positions", "-n-background-offsett", static_cast<const char *>(nullptr)}) {
        int index = 77;
        EXPECT_EQ(Property::parseName(name, index), Property::NONE);
        EXPECT_EQ(Property::parse(name, index), nullptr);
        EXPECT_EQ(index, 77) << (name ? name : "null");
    }
}

TEST(PropertyNames, AVeryLongNameIsUnknown) {
    const std::string name(1U << 20, 'm');
    int index = 77;
    EXPECT_EQ(Property::parseName(name.c_str(), index), Property::NONE);
    EXPECT_EQ(Property::parseName((name + "margin").c_str(), index), Property::NONE);
}

TEST(PropertyNames, KindsGiveTheirShorthand) {
    EXPECT_STREQ(Property::unparse(Property::MARGIN), "margin");
    EXPECT_STREQ(Property::unparse(Property::BACKGROUND), "background");
    EXPECT_STREQ(Property::unparse(Property::NBACKGROUND), "-n-background");
    EXPECT_STREQ(Property::unparse(Property::ZINDEX), "z-index");
}

TEST(PropertyNames, WhatIsNoKindIsUnknownAndMakesNothing) {
    for (const unsigned int number : {0U, KIND_COUNT + 1, 255U, 256U + Property::MARGIN, UINT_MAX}) {
        EXPECT_STREQ(Property::unparse(static_cast<Property::Name>(number)), "unknown") << number;
        EXPECT_EQ(Property::create(static_cast<Property::Name>(number)), nullptr) << number;
    }
}

TEST(PropertyNames, EveryKindIsMadeWithItsNumberAndItsShorthandComesFirst) {
    for (unsigned int number = 1; number <= KIND_COUNT; ++number) {
        const auto name = static_cast<Property::Name>(number);
        const core::SmartPtr<Property> property(Property::create(name));
        ASSERT_TRUE(property) << number;
        EXPECT_EQ(property->getName(), name);
        int index = 77;
        EXPECT_EQ(Property::parseName(Property::unparse(name), index), name);
        EXPECT_EQ(index, 0) << number;
    }
}

TEST(PropertyNames, TheTableHolds46NamesEachFoundInItsRow) {
    std::set<std::string> names;
    for (const PropertyEntry &entry : PropertyEntry::all()) {
        names.insert(entry.cssName);
        EXPECT_EQ(PropertyEntry::find(std::string(entry.cssName).c_str()), &entry);
        const core::SmartPtr<Property> property(entry.create());
        EXPECT_EQ(property->getName(), entry.name) << entry.cssName;
        EXPECT_LT(entry.index, static_cast<int>(property->getValueCount())) << entry.cssName;
        EXPECT_NE(describeValues(*property), "no kind") << entry.cssName;
    }
    EXPECT_EQ(names.size(), 46U);
    EXPECT_EQ(PropertyEntry::all().size(), 46U);
}

TEST(PropertyNames, ParseMakesAPropertyAndTellsWhereTheNameStarts) {
    int index = 77;
    const core::SmartPtr<Property> property(Property::parse("background-image", index));
    ASSERT_TRUE(property);
    EXPECT_EQ(property->getName(), Property::BACKGROUND);
    EXPECT_EQ(index, 4);
}

TEST(PropertyStates, ANewPropertyBelongsToNobodyAndHasNoValueSet) {
    for (unsigned int number = 1; number <= KIND_COUNT; ++number) {
        const core::SmartPtr<Property> holder(Property::create(static_cast<Property::Name>(number)));
        EXPECT_EQ(holder->getRefCount(), 1U);
        EXPECT_EQ(describeStates(*holder), std::string(holder->getValueCount(), '0')) << number;
    }
}

TEST(PropertyStates, KindsHaveTheirCounts) {
    const unsigned int counts[KIND_COUNT] = {2, 1, 5, 2, 2, 2, 2, 4, 4, 8, 1, 4, 4, 4, 2, 1, 2, 2, 2, 2, 1, 1, 1};
    for (const auto &property : makeEveryKind())
        EXPECT_EQ(property->getValueCount(), counts[property->getName() - 1]) << property->getName();
}

TEST(PropertyStates, AnIndexOutOfRangeIsNeitherSetNorInheritedNorWritten) {
    for (const auto &property : makeEveryKind()) {
        for (unsigned int i = 0; i < property->getValueCount(); ++i)
            property->setValueState(static_cast<int>(i), Property::VALUE_SET | Property::VALUE_INHERITED);
        const std::string states = describeStates(*property);
        EXPECT_EQ(states, std::string(property->getValueCount(), '3'));
        for (const int index : {-1, static_cast<int>(property->getValueCount()), 8, 100, INT_MAX, INT_MIN}) {
            EXPECT_FALSE(property->isValueSet(index)) << index;
            EXPECT_FALSE(property->isValueInherited(index)) << index;
            property->markValueSet(index);
            property->setValueState(index, 0);
            EXPECT_EQ(describeStates(*property), states) << index;
        }
    }
}

TEST(PropertyStates, EachValueHasItsOwn) {
    NBackground property;
    property.markValueSet(7);
    property.setValueState(0, Property::VALUE_INHERITED);
    property.setValueState(3, 0xff);
    EXPECT_EQ(describeStates(property), "10030002");
    property.markValueSet(3);
    EXPECT_EQ(describeStates(property), "10020002");
}

TEST(PropertyStates, ResetForgetsThemAndKeepsTheValues) {
    const auto property = parsed("margin", {"1px", "2px"});
    property->setValueState(2, Property::VALUE_INHERITED);
    property->reset();
    EXPECT_EQ(describeStates(*property), "0000");
    EXPECT_EQ(describeValues(*property), "1 2 1 2");
}

TEST(PropertyStates, AWordWithoutAnIndexGoesToTheFirstValue) {
    Margin margin;
    EXPECT_TRUE(margin.setValue("3px"));
    EXPECT_EQ(describeStates(margin), "2222");
    EXPECT_EQ(margin.getBox(), math::Vector4(3, 3, 3, 3));
    ZIndex order;
    EXPECT_FALSE(order.setValue("abc"));
    EXPECT_FALSE(order.isValueSet(0));
    EXPECT_EQ(order.getValue(), 0);
}

TEST(PropertyStates, TheInnerParserDoesNotMarkItsOwnValue) {
    Margin margin;
    int index = 0;
    EXPECT_TRUE(margin._setValue("3px", index));
    EXPECT_EQ(describeStates(margin), "0222");
    Overflow overflow;
    index = 0;
    EXPECT_TRUE(overflow._setValue("hidden", index));
    EXPECT_EQ(describeStates(overflow), "02");
}

TEST(PropertyStates, AWordThatIsTakenEndsAnInheritance) {
    Opacity opacity;
    opacity.setValueState(0, Property::VALUE_INHERITED);
    opacity.setValue("0.5");
    EXPECT_EQ(describeStates(opacity), "2");
}

TEST(PropertyClone, GivesTheValuesAndTheirStates) {
    for (const auto &property : makeEveryKind()) {
        const Property::Name kind = property->getName();
        if (kind == Property::BACKGROUND || kind == Property::NANCHOR)
            continue;
        const auto changed = makeChanged(kind);
        ASSERT_NE(describeValues(*changed), describeValues(*property)) << kind;
        const core::SmartPtr<Property> copy(changed->clone());
        EXPECT_EQ(copy->getName(), kind);
        EXPECT_EQ(copy->getRefCount(), 1U);
        EXPECT_EQ(describeValues(*copy), describeValues(*changed)) << kind;
        EXPECT_EQ(describeStates(*copy), describeStates(*changed)) << kind;
    }
}

TEST(PropertyClone, OfABackgroundLeavesOutTheRepetition) {
    const auto background = makeChanged(Property::BACKGROUND);
    const core::SmartPtr<Property> copy(background->clone());
    EXPECT_EQ(static_cast<const Background &>(*background).getRepeat(), 2U);
    EXPECT_EQ(static_cast<const Background &>(*copy).getRepeat(), 0U);
    EXPECT_EQ(describeValues(*copy),
              "color=0.07058824 0.2039216 0.3372549 0.4705883 position=0 2 repeat=0 image=image");
    EXPECT_EQ(describeStates(*copy), "22222");
}

TEST(PropertyClone, OfAnAnchorLeavesOutTheStates) {
    const auto anchor = makeChanged(Property::NANCHOR);
    const core::SmartPtr<Property> copy(anchor->clone());
    EXPECT_EQ(describeStates(*anchor), "2000");
    EXPECT_EQ(describeStates(*copy), "0000");
    EXPECT_EQ(describeValues(*copy), "20");
}

TEST(PropertyAssignment, BetweenEveryPairOfKindsChangesNothing) {
    for (const auto &target : makeEveryKind()) {
        for (const auto &other : makeEveryKind()) {
            if (target->getName() == other->getName())
                continue;
            const auto source = makeChanged(other->getName());
            const std::string values = describeValues(*target);
            *target = *source;
            source->_clone(target.get());
            EXPECT_EQ(describeValues(*target), values) << target->getName() << " from " << source->getName();
            EXPECT_EQ(describeStates(*target), std::string(target->getValueCount(), '0'));
        }
    }
}

TEST(PropertyAssignment, OfTheSameKindTakesValuesAndStatesAndLeavesTheCount) {
    for (const auto &property : makeEveryKind()) {
        const Property::Name kind = property->getName();
        if (kind == Property::BACKGROUND || kind == Property::NANCHOR)
            continue;
        const auto source = makeChanged(kind);
        *property = *source;
        EXPECT_EQ(property->getRefCount(), 1U);
        EXPECT_EQ(describeValues(*property), describeValues(*source)) << kind;
        EXPECT_EQ(describeStates(*property), describeStates(*source)) << kind;
    }
}

TEST(PropertyAssignment, OfABackgroundKeepsItsOwnRepetition) {
    Background target;
    target.setRepeat(Background::REPEAT_X);
    Background source;
    source.setRepeat(Background::REPEAT_BOTH);
    source.setImage("image");
    target = source;
    EXPECT_EQ(target.getRepeat(), 1U);
    EXPECT_EQ(target.getImage(), "image");
}

TEST(PropertyAssignment, OfAnAnchorKeepsItsOwnStates) {
    NAnchor target;
    target.setValueState(2, Property::VALUE_INHERITED);
    NAnchor source;
    source.setValue("center");
    target = source;
    EXPECT_EQ(target.getAnchor(), Component::ANCHOR_CENTER);
    EXPECT_EQ(describeStates(target), "0010");
}

TEST(PropertyAssignment, ThroughTheSharedBaseKeepsKindsApart) {
    const auto width = parsed("width", {"10px"});
    const auto height = parsed("height", {"20px"});
    static_cast<SizeBase &>(*width) = static_cast<const SizeBase &>(*height);
    EXPECT_EQ(describeValues(*width), "absolute=10 relative=0");
    const auto margin = parsed("margin", {"1px"});
    const auto padding = parsed("padding", {"2px"});
    static_cast<BoxBase &>(*margin) = static_cast<const BoxBase &>(*padding);
    EXPECT_EQ(describeValues(*margin), "1 1 1 1");
}

TEST(PropertyAssignment, ToItselfChangesNothing) {
    for (const auto &property : makeEveryKind()) {
        const auto changed = makeChanged(property->getName());
        const std::string values = describeValues(*changed);
        const std::string states = describeStates(*changed);
        const Property &same = *changed;
        *changed = same;
        EXPECT_EQ(describeValues(*changed), values);
        EXPECT_EQ(describeStates(*changed), states);
    }
}

TEST(PropertyDeclarations, OfOneKindInOneBlockWriteIntoOneProperty) {
    Width width;
    width.setValue("auto");
    width.setValue("10px");
    EXPECT_TRUE(width.isAuto());
    EXPECT_EQ(width.getSizeAbsolute(), 10);
    Margin margin;
    margin.setValue("1px");
    int index = Margin::CSSNAME_LEFT_IDX;
    margin.setValue("9px", index);
    EXPECT_EQ(margin.getBox(), math::Vector4(1, 1, 1, 9));
}

TEST(PropertySizes, ManyFitIntoLittleMemory) {
    if constexpr (sizeof(void *) == 8) {
        EXPECT_EQ(sizeof(Property), 16U);
        EXPECT_LE(sizeof(Margin), 32U);
        EXPECT_LE(sizeof(Width), 32U);
        EXPECT_LE(sizeof(Opacity), 24U);
    }
}

} // namespace nurel::ui::css
