#include "nui/ui/css/Selector.h"

#include "StylableObject.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace nurel::ui::css {

namespace {

using test::OpenElement;
using test::StylableObject;

std::unique_ptr<Selector> parsed(const char *text) {
    return std::unique_ptr<Selector>(Selector::parse(text));
}

std::string textOf(const Selector &selector) {
    std::string text = "something";
    return selector.toString(text);
}

struct SelectorRow {
    const char *name;
    const char *text;
    unsigned int priority;
    std::size_t elements;
    const char *written; ///< what toString() makes of it
};

constexpr SelectorRow SELECTOR_ROWS[] = {
    {"Empty", "", 0, 0, ""},
    {"Element", "a", 1, 1, "a"},
    {"Class", ".x", 10, 1, ".x."},
    {"ElementClass", "a.x", 11, 2, "a.x."},
    {"TwoClasses", "a.x.y", 21, 2, "a.x.y."},
    {"State", "a:hover", 11, 2, "a:hover"},
    {"TwoStates", "a:hover:focus", 21, 2, "a:hover:focus"},
    {"TheSameStateTwice", "a:hover:hover", 11, 2, "a:hover"},
    {"StatesInTheOrderOfTheirBits", ":checked:active", 20, 1, ":active:checked"},
    {"ID", "#n", 100, 1, "#n"},
    {"AllOfThem", "a#n.x:hover", 121, 4, "a#n.x.:hover"},
    {"AnotherOrder", ":hover.x#n", 120, 3, ":hover.x.#n"},
    {"ClassesApart", ".x#n.y", 120, 2, ".x.y.#n"},
    {"TenClasses", ".a.b.c.d.e.f.g.h.i.j", 100, 1, ".a.b.c.d.e.f.g.h.i.j."},
    {"TheSameClassTwice", ".x.x", 20, 1, ".x.x."},
    {"Any", "*", 1, 1, "*"},
    {"AnyWithClass", "*.x", 11, 2, "*.x."},
    {"TheLastIDCounts", "a#n#m", 101, 2, "a#m"},
    {"AnEmptyIDChangesNone", "#n#", 100, 1, "#n"},
    {"AnEmptyIDIsReplaced", "##n", 100, 1, "#n"},
    {"EmptyID", "#", 100, 1, "#"},
    {"EmptyClass", ".", 0, 1, "."},
    {"EmptyClasses", "...", 0, 1, "."},
    {"ClassAfterAnEmptyOne", "..x", 10, 1, ".x."},
    {"TrailingDot", ".x.", 10, 1, ".x."},
    {"EmptyState", ":", 0, 1, ""},
    {"UnknownState", "a:foo", 1, 2, "a"},
    {"UnknownAndKnownState", "a:foo:hover", 11, 2, "a:hover"},
    {"StateInCapitals", "a:HOVER", 1, 2, "a"},
    {"EnabledCosts", ":enabled", 10, 1, ":enabled"},
    {"OtherCharacters", "a-b_c 1>x", 1, 1, "a-b_c 1>x"},
};

std::ostream &operator<<(std::ostream &out, const SelectorRow &row) {
    return out << row.text;
}

class SelectorText : public testing::TestWithParam<SelectorRow> {};

/// Which of the texts below match an object "n" of element "a" with the classes "x" and "y" that is hovered.
struct MatchRow {
    const char *name;
    const char *text;
    bool matches;
};

constexpr MatchRow MATCH_ROWS[] = {
    {"Empty", "", true},
    {"Element", "a", true},
    {"OtherElement", "b", false},
    {"Any", "*", true},
    {"AnyWithMore", "*what", true},
    {"Class", ".x", true},
    {"BothClasses", ".y.x", true},
    {"OneClassMissing", ".x.z", false},
    {"ElementWithoutTheClass", "a.z", false},
    {"OtherElementWithTheClass", "b.x", false},
    {"ID", "#n", true},
    {"OtherID", "#m", false},
    {"TheFirstOfTwoIDs", "a#n#m", false},
    {"TheSecondOfTwoIDs", "a#m#n", true},
    {"EmptyID", "#", false},
    {"EmptyClass", ".", true},
    {"TrailingDot", ".x.", true},
    {"State", "a:hover", true},
    {"OtherState", "a:focus", false},
    {"OneStateMissing", ":hover:focus", false},
    {"UnknownState", "a:foo", true},
    {"UnknownStateOfAnotherElement", "b:foo", false},
    {"AllOfThem", "a#n.x.y:hover", true},
};

std::ostream &operator<<(std::ostream &out, const MatchRow &row) {
    return out << row.text;
}

class SelectorMatch : public testing::TestWithParam<MatchRow> {};

} // namespace

TEST_P(SelectorText, HasItsPriorityElementsAndText) {
    const SelectorRow &row = GetParam();
    const auto selector = parsed(row.text);
    ASSERT_NE(selector, nullptr);
    EXPECT_EQ(selector->getPriority(), row.priority);
    EXPECT_EQ(selector->getElements().size(), row.elements);
    EXPECT_EQ(textOf(*selector), row.written);
    unsigned int sum = 0;
    for (const auto &element : selector->getElements())
        sum += element->getPriority();
    EXPECT_EQ(sum, row.priority);
}

INSTANTIATE_TEST_SUITE_P(Rows, SelectorText, testing::ValuesIn(SELECTOR_ROWS),
                         [](const auto &row) { return row.param.name; });

TEST_P(SelectorMatch, IsAsTold) {
    StylableObject object;
    object.name = "n";
    object.element = "a";
    object.classes = {"x", "y"};
    object.state = SELECTOR_STATE_HOVER;
    EXPECT_EQ(parsed(GetParam().text)->matches(&object), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Rows, SelectorMatch, testing::ValuesIn(MATCH_ROWS),
                         [](const auto &row) { return row.param.name; });

TEST(CSSSelector, NullGivesNone) {
    EXPECT_EQ(Selector::parse(nullptr), nullptr);
}

TEST(CSSSelector, TheTextIsOnlyRead) {
    const std::string text = "a#n.x:hover";
    const auto selector = parsed(text.c_str());
    EXPECT_EQ(text, "a#n.x:hover");
}

TEST(CSSSelector, AStatelessObjectMatchesUnknownStatesAndNoKnownOne) {
    StylableObject object;
    object.element = "a";
    EXPECT_TRUE(parsed("a:foo")->matches(&object));
    EXPECT_FALSE(parsed("a:hover")->matches(&object));
    EXPECT_FALSE(parsed(":enabled")->matches(&object));
}

TEST(CSSSelector, ElementsAreFoundByType) {
    const auto selector = parsed("a.x:hover");
    ASSERT_NE(selector->getElement(SelectorElement::TYPE_CLASS), nullptr);
    EXPECT_EQ(selector->getElement(SelectorElement::TYPE_CLASS)->getValue(), std::string("x\0", 2));
    EXPECT_EQ(selector->getElement(SelectorElement::TYPE_ELEMENT)->getValue(), "a");
    EXPECT_EQ(selector->getElement(SelectorElement::TYPE_STATE)->getState(), 2U);
    EXPECT_EQ(selector->getElement(SelectorElement::TYPE_ID), nullptr);
    EXPECT_EQ(selector->getElement(SelectorElement::TYPE_NONE), nullptr);
}

TEST(CSSSelector, AppendedElementsAddTheirPriorityAndAllHaveToMatch) {
    Selector selector;
    EXPECT_EQ(selector.getPriority(), 0U);
    auto *first = new OpenElement(SelectorElement::TYPE_CLASS, "x");
    selector.append(first);
    selector.append(new OpenElement(SelectorElement::TYPE_CLASS, "y"));
    selector.append(new OpenElement(SELECTOR_STATE_HOVER));
    selector.append(nullptr);
    EXPECT_EQ(selector.getPriority(), 30U);
    EXPECT_EQ(selector.getElement(SelectorElement::TYPE_CLASS), first);
    EXPECT_EQ(textOf(selector), ".x..y.:hover");
    StylableObject object;
    object.classes = {"x"};
    object.state = SELECTOR_STATE_HOVER;
    EXPECT_FALSE(selector.matches(&object));
    object.classes = {"x", "y"};
    EXPECT_TRUE(selector.matches(&object));
    selector.append(new OpenElement(SelectorElement::TYPE_NONE, ""));
    EXPECT_FALSE(selector.matches(&object));
    EXPECT_EQ(textOf(selector), ".x..y.:hover!unsupported");
}

TEST(CSSSelector, ACopyHasElementsOfItsOwn) {
    const auto original = parsed("a.x:hover");
    const Selector copy(*original);
    EXPECT_EQ(textOf(copy), "a.x.:hover");
    EXPECT_EQ(copy.getPriority(), 21U);
    EXPECT_NE(copy.getElements()[0], original->getElements()[0]);
}

TEST(CSSSelector, WhatIsInNoRuleChangesWithoutANote) {
    const unsigned int before = Selector::getRevision();
    const auto selector = parsed("a.x.y#n#m:hover:focus");
    auto *element = new OpenElement(SelectorElement::TYPE_CLASS, "z");
    selector->append(element);
    element->addClass("q");
    EXPECT_EQ(Selector::getRevision(), before);
}

TEST(CSSSelector, AVeryLongTextIsReadInOneGo) {
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += ".c";
    const auto selector = parsed(text.c_str());
    EXPECT_EQ(selector->getPriority(), 1000000U);
    StylableObject object;
    object.classes = {"c"};
    EXPECT_TRUE(selector->matches(&object));
}

} // namespace nurel::ui::css
