#include "nui/ui/css/Rule.h"

#include "StylableObject.h"

#include <gtest/gtest.h>

namespace nurel::ui::css {

namespace {

using test::OpenElement;
using test::StylableObject;

core::SmartPtr<Property> make(Property::Name name) {
    return Property::create(name);
}

core::SmartPtr<Rule> ruleOf(const char *selector) {
    core::SmartPtr<Rule> rule(new Rule());
    rule->append(Selector::parse(selector));
    return rule;
}

} // namespace

TEST(CSSRule, NumbersCountUpFromTheFirstRuleOfTheProcess) {
    const Rule first;
    EXPECT_GE(first.getID(), 1U);
    const Rule second;
    EXPECT_EQ(second.getID(), first.getID() + 1);
    const Rule copy(first);
    EXPECT_EQ(copy.getID(), first.getID());
    EXPECT_EQ(Rule().getID(), second.getID() + 1);
}

TEST(CSSRule, ANewRuleHasNothingAndMatchesEverything) {
    const Rule rule;
    EXPECT_EQ(rule.getPriority(), 0U);
    EXPECT_TRUE(rule.getSelectors().empty());
    EXPECT_TRUE(rule.getProperties().empty());
    const StylableObject object;
    EXPECT_TRUE(rule.matches(&object));
    std::string text = "x";
    EXPECT_STREQ(rule.toString(text), "");
    EXPECT_STREQ(rule.getFile(), "");
    EXPECT_EQ(rule.getLine(), 0);
}

TEST(CSSRule, SelectorsAddUpAndAllHaveToMatch) {
    const auto rule = ruleOf("a");
    EXPECT_EQ(rule->getPriority(), 1U);
    rule->append(Selector::parse("#n:hover"));
    rule->append(nullptr);
    EXPECT_EQ(rule->getPriority(), 111U);
    EXPECT_EQ(rule->getSelectors().size(), 2U);
    StylableObject object;
    object.element = "a";
    object.name = "n";
    EXPECT_FALSE(rule->matches(&object));
    object.state = SELECTOR_STATE_HOVER;
    EXPECT_TRUE(rule->matches(&object));
    object.element = "b";
    EXPECT_FALSE(rule->matches(&object));
    std::string text;
    EXPECT_STREQ(rule->toString(text), "a&#n:hover");
}

TEST(CSSRule, PropertiesAreHandedOverInTheOrderOfTheirNames) {
    const Rule empty;
    Rule rule;
    const auto zIndex = make(Property::ZINDEX);
    const auto width = make(Property::WIDTH);
    const auto font = make(Property::FONT);
    rule.add(zIndex.get());
    rule.add(font.get());
    rule.add(width.get());
    rule.add(nullptr);
    StylableObject object;
    rule.style(&object);
    EXPECT_EQ(object.applied, (std::vector<const Property *>{font.get(), width.get(), zIndex.get()}));
    empty.style(&object);
    EXPECT_EQ(object.applied.size(), 3U);
    rule.style(nullptr);
}

TEST(CSSRule, StyleDoesNotAskTheSelectors) {
    const auto rule = ruleOf("a");
    const auto color = make(Property::COLOR);
    rule->add(color.get());
    StylableObject object;
    object.element = "b";
    rule->style(&object);
    EXPECT_EQ(object.applied.size(), 1U);
}

TEST(CSSRule, TheFirstPropertyOfAKindStays) {
    Rule rule;
    const auto first = make(Property::COLOR);
    const auto second = make(Property::COLOR);
    rule.add(first.get());
    rule.add(second.get());
    ASSERT_EQ(rule.getProperties().size(), 1U);
    EXPECT_EQ(rule.getProperties().begin()->second, first);
    EXPECT_EQ(first->getRefCount(), 2U);
    EXPECT_EQ(second->getRefCount(), 1U);
}

TEST(CSSRule, RulesShareTheirProperties) {
    const auto color = make(Property::COLOR);
    {
        const auto a = ruleOf("a");
        const auto b = ruleOf("b");
        a->add(color.get());
        b->add(color.get());
        EXPECT_EQ(color->getRefCount(), 3U);
    }
    EXPECT_EQ(color->getRefCount(), 1U);
}

TEST(CSSRule, ACopyHasItsOwnSelectorsAndSharesTheProperties) {
    const auto rule = ruleOf("a.x");
    const auto color = make(Property::COLOR);
    rule->add(color.get());
    rule->setSource(std::make_shared<const std::string>("a.css"), 3);
    const core::SmartPtr<Rule> copy(new Rule(*rule));
    EXPECT_EQ(copy->getRefCount(), 1U);
    EXPECT_EQ(copy->getPriority(), 11U);
    ASSERT_EQ(copy->getSelectors().size(), 1U);
    EXPECT_NE(copy->getSelectors()[0], rule->getSelectors()[0]);
    EXPECT_EQ(copy->getProperties().begin()->second, color);
    EXPECT_STREQ(copy->getFile(), "a.css");
    EXPECT_EQ(copy->getLine(), 3);
    copy->append(Selector::parse("#n"));
    EXPECT_EQ(rule->getPriority(), 11U);
    EXPECT_EQ(rule->getSelectors().size(), 1U);
}

TEST(CSSRule, ComesBeforeByPriorityAndThenByNumber) {
    const auto early = ruleOf(".x");
    const auto late = ruleOf(".y");
    const auto element = ruleOf("a");
    const auto id = ruleOf("#n");
    EXPECT_TRUE(*early < *late);
    EXPECT_FALSE(*late < *early);
    EXPECT_TRUE(*element < *early);
    EXPECT_FALSE(*early < *element);
    EXPECT_TRUE(*late < *id);
    EXPECT_FALSE(*early < *early);
    const Rule copy(*early);
    EXPECT_FALSE(copy < *early);
    EXPECT_FALSE(*early < copy);
}

TEST(CSSRule, KnowsWhereItStands) {
    Rule rule;
    rule.setSource(std::make_shared<const std::string>("look.css"), 7);
    EXPECT_STREQ(rule.getFile(), "look.css");
    EXPECT_EQ(rule.getLine(), 7);
    rule.setSource(nullptr, 8);
    EXPECT_STREQ(rule.getFile(), "");
    EXPECT_EQ(rule.getLine(), 8);
}

} // namespace nurel::ui::css
