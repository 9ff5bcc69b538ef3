#include "nui/ui/css/CSS.h"

#include "StylableObject.h"

#include "nui/ui/css/Rule.h"

#include <gtest/gtest.h>

namespace nurel::ui::css {

namespace {

using test::StylableObject;

/// A rule with one property, a colour.
core::SmartPtr<Rule> ruleOf(const char *selector) {
    core::SmartPtr<Rule> rule(new Rule());
    rule->append(Selector::parse(selector));
    rule->add(Property::create(Property::COLOR));
    return rule;
}

const Property *propertyOf(const core::SmartPtr<Rule> &rule) {
    return rule->getProperties().begin()->second.get();
}

std::vector<const Property *> style(const CSS &sheet, StylableObject &object) {
    object.applied.clear();
    sheet.style(&object);
    return object.applied;
}

std::string textOf(const CSS &sheet) {
    std::string all;
    std::string text;
    for (const auto &rule : sheet)
        all += std::string(rule->toString(text)) + " ";
    return all;
}

using Applied = std::vector<const Property *>;

} // namespace

TEST(CSSSheet, RulesStandInTheOrderOfPriorityAndNumber) {
    const auto id = ruleOf("#n");
    const auto element = ruleOf("a");
    const auto second = ruleOf("b");
    const auto classRule = ruleOf(".x");
    CSS sheet;
    EXPECT_TRUE(sheet.empty());
    for (const auto &rule : {second, id, classRule, element})
        sheet.add(rule.get());
    EXPECT_EQ(textOf(sheet), "a b .x. #n ");
    EXPECT_EQ(sheet.size(), 4U);
    EXPECT_FALSE(sheet.empty());
    EXPECT_TRUE(CSS::ruleCompare(element, second));
    EXPECT_FALSE(CSS::ruleCompare(second, element));
    EXPECT_TRUE(CSS::ruleCompare(classRule, id));
    EXPECT_FALSE(CSS::ruleCompare(id, id));
}

TEST(CSSSheet, ObjectsGetWhatMatchesFromTheLeastToTheMostSpecific) {
    const auto id = ruleOf("#n");
    const auto element = ruleOf("a");
    const auto hover = ruleOf("a:hover");
    const auto other = ruleOf("b");
    CSS sheet;
    for (const auto &rule : {id, element, hover, other})
        sheet.add(rule.get());
    StylableObject object;
    object.element = "a";
    object.name = "n";
    EXPECT_EQ(style(sheet, object), (Applied{propertyOf(element), propertyOf(id)}));
    object.state = SELECTOR_STATE_HOVER;
    EXPECT_EQ(style(sheet, object), (Applied{propertyOf(element), propertyOf(hover), propertyOf(id)}));
    object.element = "c";
    object.name = "";
    EXPECT_EQ(style(sheet, object), Applied());
    sheet.style(nullptr);
}

TEST(CSSSheet, OfTwoEquallySpecificRulesTheLaterOneIsAppliedLast) {
    const auto tenClasses = ruleOf(".a.b.c.d.e.f.g.h.i.j");
    const auto id = ruleOf("#n");
    const auto laterTenClasses = ruleOf(".j.i.h.g.f.e.d.c.b.a");
    CSS sheet;
    for (const auto &rule : {laterTenClasses, id, tenClasses})
        sheet.add(rule.get());
    StylableObject object;
    object.name = "n";
    object.classes = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"};
    EXPECT_EQ(style(sheet, object), (Applied{propertyOf(tenClasses), propertyOf(id), propertyOf(laterTenClasses)}));
}

TEST(CSSSheet, AnythingMatchesAtTheCostOfAnElementWord) {
    const auto any = ruleOf("*");
    const auto empty = ruleOf("");
    const auto element = ruleOf("a");
    CSS sheet;
    for (const auto &rule : {any, empty, element})
        sheet.add(rule.get());
    StylableObject object;
    object.element = "a";
    EXPECT_EQ(style(sheet, object), (Applied{propertyOf(empty), propertyOf(any), propertyOf(element)}));
    object.element = "";
    EXPECT_EQ(style(sheet, object), (Applied{propertyOf(empty), propertyOf(any)}));
}

TEST(CSSSheet, OfARuleAndItsCopyTheFirstStays) {
    const auto rule = ruleOf("a");
    const core::SmartPtr<Rule> copy(new Rule(*rule));
    CSS sheet;
    sheet.add(copy.get());
    sheet.add(rule.get());
    sheet.add(nullptr);
    ASSERT_EQ(sheet.size(), 1U);
    EXPECT_EQ(*sheet.begin(), copy);
    EXPECT_EQ(rule->getRefCount(), 1U);
}

TEST(CSSSheet, MergingSharesTheRulesWhateverSheetItIsCalledOn) {
    const auto early = ruleOf(".x");
    const auto late = ruleOf(".x");
    CSS first;
    first.add(early.get());
    CSS second;
    second.add(late.get());
    StylableObject object;
    object.classes = {"x"};

    CSS firstThenSecond(first);
    firstThenSecond.merge(&second);
    EXPECT_EQ(style(firstThenSecond, object), (Applied{propertyOf(early), propertyOf(late)}));
    CSS secondThenFirst(second);
    secondThenFirst.merge(&first);
    EXPECT_EQ(style(secondThenFirst, object), (Applied{propertyOf(early), propertyOf(late)}));
    EXPECT_EQ(early->getRefCount(), 4U);

    firstThenSecond.merge(&second);
    firstThenSecond.merge(&firstThenSecond);
    firstThenSecond.merge(nullptr);
    EXPECT_EQ(firstThenSecond.size(), 2U);
    EXPECT_EQ(style(first, object), Applied{propertyOf(early)});
}

TEST(CSSSheet, CopiesShareTheRulesAndGoTheirOwnWays) {
    const auto a = ruleOf("a");
    const auto b = ruleOf("b");
    CSS sheet;
    sheet.add(a.get());
    {
        CSS copy(sheet);
        copy.add(b.get());
        EXPECT_EQ(a->getRefCount(), 3U);
        EXPECT_EQ(sheet.size(), 1U);
        CSS assigned;
        assigned.add(b.get());
        assigned = sheet;
        EXPECT_EQ(textOf(assigned), "a ");
        assigned = *&assigned;
        EXPECT_EQ(textOf(assigned), "a ");
    }
    EXPECT_EQ(a->getRefCount(), 2U);
    EXPECT_EQ(b->getRefCount(), 1U);
}

TEST(CSSSheet, TellsWhichRulesMatch) {
    const auto element = ruleOf("a");
    const auto classRule = ruleOf(".x");
    const auto id = ruleOf("#n");
    CSS sheet;
    for (const auto &rule : {id, classRule, element})
        sheet.add(rule.get());
    StylableObject object;
    object.element = "a";
    object.name = "n";
    EXPECT_EQ(sheet.getMatches(object), (std::vector<const Rule *>{element.get(), id.get()}));
    EXPECT_TRUE(object.applied.empty());
}

TEST(CSSSheet, ASheetWithoutRulesAppliesNothing) {
    const CSS sheet;
    StylableObject object;
    EXPECT_EQ(style(sheet, object), Applied());
    EXPECT_TRUE(sheet.getMatches(object).empty());
    EXPECT_EQ(sheet.begin(), sheet.end());
}

} // namespace nurel::ui::css
