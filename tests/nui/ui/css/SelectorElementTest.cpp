#include "nui/ui/css/SelectorElement.h"

#include "StylableObject.h"

#include <gtest/gtest.h>

#include <ostream>

namespace nurel::ui::css {

namespace {

using test::OpenElement;
using test::StylableObject;

using Type = SelectorElement::ElementType;

std::string textOf(const SelectorElement &element) {
    std::string text;
    return element.toString(text);
}

struct StateRow {
    const char *word;
    unsigned int bit;
};

constexpr StateRow STATE_ROWS[] = {
    {"active", 0x01}, {"hover", 0x02}, {"enabled", 0x04}, {"disabled", 0x08}, {"focus", 0x10}, {"checked", 0x20},
};

std::ostream &operator<<(std::ostream &out, const StateRow &row) {
    return out << row.word;
}

class SelectorStateWord : public testing::TestWithParam<StateRow> {};

} // namespace

TEST_P(SelectorStateWord, HasItsBitItsTextAndTheCostOfOneState) {
    const StateRow &row = GetParam();
    EXPECT_EQ(parseSelectorState(row.word), row.bit);
    std::string text = "x";
    appendSelectorStates(text, row.bit);
    EXPECT_EQ(text, std::string("x:") + row.word);
    const OpenElement element(static_cast<SelectorState>(row.bit));
    EXPECT_EQ(element.getPriority(), 10U);
    EXPECT_EQ(element.getState(), row.bit);
    EXPECT_EQ(textOf(element), std::string(":") + row.word);
}

INSTANTIATE_TEST_SUITE_P(AllSix, SelectorStateWord, testing::ValuesIn(STATE_ROWS),
                         [](const auto &row) { return std::string(row.param.word); });

TEST(SelectorElement, UnknownStateWordsHaveNoBit) {
    for (const char *word : {"", "Hover", "hover ", "hove", "hovers", "visited"})
        EXPECT_EQ(parseSelectorState(word), 0U) << word;
    EXPECT_EQ(parseSelectorState(nullptr), 0U);
}

TEST(SelectorElement, TheTypesAndStatesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<unsigned int>(SelectorElement::TYPE_NONE), 0U);
    EXPECT_EQ(static_cast<unsigned int>(SelectorElement::TYPE_STATE), 1U);
    EXPECT_EQ(static_cast<unsigned int>(SelectorElement::TYPE_ELEMENT), 2U);
    EXPECT_EQ(static_cast<unsigned int>(SelectorElement::TYPE_CLASS), 3U);
    EXPECT_EQ(static_cast<unsigned int>(SelectorElement::TYPE_ID), 4U);
}

TEST(SelectorElement, StatesCostTenForEachOfTheSixBits) {
    EXPECT_EQ(OpenElement(SELECTOR_STATE_NONE).getPriority(), 0U);
    EXPECT_EQ(OpenElement(SELECTOR_STATE_ALL).getPriority(), 60U);
    EXPECT_EQ(textOf(OpenElement(SELECTOR_STATE_ALL)), ":active:hover:enabled:disabled:focus:checked");
    OpenElement element(SELECTOR_STATE_HOVER);
    element.enableState(SELECTOR_STATE_HOVER | SELECTOR_STATE_FOCUS);
    EXPECT_EQ(element.getPriority(), 20U);
    element.enableState(0x40);
    EXPECT_EQ(element.getPriority(), 20U);
    EXPECT_EQ(element.getState(), 0x52U);
    EXPECT_EQ(textOf(element), ":hover:focus");
}

TEST(SelectorElement, StatesAllHaveToBeThere) {
    StylableObject object;
    const OpenElement both(static_cast<SelectorState>(SELECTOR_STATE_HOVER | SELECTOR_STATE_FOCUS));
    object.state = SELECTOR_STATE_HOVER;
    EXPECT_FALSE(both.matches(&object));
    object.state = SELECTOR_STATE_ALL;
    EXPECT_TRUE(both.matches(&object));
    object.state = 0;
    EXPECT_FALSE(both.matches(&object));
    EXPECT_TRUE(OpenElement(SELECTOR_STATE_NONE).matches(&object));
}

TEST(SelectorElement, AnElementWordMatchesExactlyOrBeginsWithAnAsterisk) {
    StylableObject object;
    object.element = "a";
    EXPECT_TRUE(OpenElement(Type::TYPE_ELEMENT, "a").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ELEMENT, "A").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ELEMENT, "ab").matches(&object));
    EXPECT_TRUE(OpenElement(Type::TYPE_ELEMENT, "*").matches(&object));
    EXPECT_TRUE(OpenElement(Type::TYPE_ELEMENT, "*b").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ELEMENT, "b*").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ELEMENT, "").matches(&object));
    object.element = "";
    EXPECT_TRUE(OpenElement(Type::TYPE_ELEMENT, "").matches(&object));
    EXPECT_EQ(OpenElement(Type::TYPE_ELEMENT, "*").getPriority(), 1U);
    EXPECT_EQ(OpenElement(Type::TYPE_ELEMENT, "").getPriority(), 1U);
}

TEST(SelectorElement, EveryClassHasToBeThere) {
    OpenElement element(Type::TYPE_CLASS, "a");
    EXPECT_EQ(element.getPriority(), 10U);
    element.addClass("b");
    EXPECT_EQ(element.getPriority(), 20U);
    EXPECT_EQ(textOf(element), ".a.b.");
    StylableObject object;
    object.classes = {"a"};
    EXPECT_FALSE(element.matches(&object));
    object.classes = {"b"};
    EXPECT_FALSE(element.matches(&object));
    object.classes = {"a", "b", "c"};
    EXPECT_TRUE(element.matches(&object));
    object.classes = {"a.b."};
    EXPECT_FALSE(element.matches(&object));
}

TEST(SelectorElement, AClassNameWithADotIsCutAtIt) {
    OpenElement element(Type::TYPE_CLASS, "a.b");
    EXPECT_EQ(element.getPriority(), 10U);
    StylableObject object;
    object.classes = {"a", "b"};
    EXPECT_TRUE(element.matches(&object));
    object.classes = {"a.b"};
    EXPECT_FALSE(element.matches(&object));
    EXPECT_EQ(textOf(element), ".a.b.");
}

TEST(SelectorElement, ClassesWithoutANameCostNothingAndMatchEverything) {
    OpenElement element(Type::TYPE_CLASS, "");
    element.addClass("");
    element.addClass(nullptr);
    EXPECT_EQ(element.getPriority(), 0U);
    EXPECT_EQ(textOf(element), ".");
    const StylableObject object;
    EXPECT_TRUE(element.matches(&object));
}

TEST(SelectorElement, AnIDMatchesTheWholeName) {
    StylableObject object;
    object.name = "ok";
    EXPECT_TRUE(OpenElement(Type::TYPE_ID, "ok").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ID, "OK").matches(&object));
    EXPECT_FALSE(OpenElement(Type::TYPE_ID, "").matches(&object));
    object.name = "";
    EXPECT_TRUE(OpenElement(Type::TYPE_ID, "").matches(&object));
    EXPECT_EQ(OpenElement(Type::TYPE_ID, "").getPriority(), 100U);
    EXPECT_EQ(textOf(OpenElement(Type::TYPE_ID, "ok")), "#ok");
}

TEST(SelectorElement, TheTypeNoneMatchesNothing) {
    const OpenElement element(Type::TYPE_NONE, "a");
    StylableObject object;
    EXPECT_FALSE(element.matches(&object));
    EXPECT_EQ(element.getPriority(), 0U);
    EXPECT_EQ(textOf(element), "!unsupported");
}

TEST(SelectorElement, ChangesOfAnotherTypeOrToAnEmptyTextDoNothing) {
    OpenElement id(Type::TYPE_ID, "long-name");
    id.setID("");
    id.setID(nullptr);
    id.setElement("x");
    id.addClass("x");
    id.enableState(SELECTOR_STATE_HOVER);
    EXPECT_EQ(textOf(id), "#long-name");
    EXPECT_EQ(id.getPriority(), 100U);
    EXPECT_EQ(id.getState(), 0U);
    id.setID("m");
    EXPECT_EQ(textOf(id), "#m");
    id.setID("longer-than-before");
    EXPECT_EQ(textOf(id), "#longer-than-before");

    OpenElement word(Type::TYPE_ELEMENT, "a");
    word.setElement("");
    word.setID("x");
    EXPECT_EQ(textOf(word), "a");
    word.setElement("b");
    EXPECT_EQ(textOf(word), "b");
    EXPECT_EQ(word.getPriority(), 1U);
}

TEST(SelectorElement, TextsJoinWhatIsThereUnlessItIsCleared) {
    std::string text = "x";
    EXPECT_STREQ(OpenElement(Type::TYPE_ID, "n").toString(text, false), "x#n");
    EXPECT_STREQ(OpenElement(Type::TYPE_ELEMENT, "a").toString(text), "a");
    EXPECT_EQ(text, "a");
}

TEST(SelectorElement, NothingMatchesNull) {
    EXPECT_FALSE(OpenElement(Type::TYPE_ELEMENT, "*").matches(nullptr));
    EXPECT_FALSE(OpenElement(SELECTOR_STATE_NONE).matches(nullptr));
}

TEST(Stylable, TheBaseOnlyClearsTheText) {
    const StylableObject object;
    std::string text = "x";
    EXPECT_STREQ(object.toString(text, false), "x");
    EXPECT_STREQ(object.toString(text), "");
    EXPECT_EQ(text, "");
}

} // namespace nurel::ui::css
