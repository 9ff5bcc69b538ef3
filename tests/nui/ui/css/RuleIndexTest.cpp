#include "nui/ui/css/detail/RuleIndex.h"

#include "../TestComponents.h"
#include "StylableObject.h"
#include "nengine/support/AllocationCounter.h"

#include "nui/ui/css/CSS.h"
#include "nui/ui/css/Rule.h"
#include "nui/ui/css/StylableHelper.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <utility>

namespace nurel::ui::css {

namespace {

using test::Leaf;
using test::OpenElement;

using Properties = std::deque<const Property *>;

/// The same answers, but a class that the sheet does not know: it walks over all rules for it.
class ForeignHelper : public StylableHelper {
public:
    using StylableHelper::StylableHelper;
};

/// Denies everything that its base says.
class ContraryHelper : public StylableHelper {
public:
    using StylableHelper::StylableHelper;
    bool isElement(const char *word) const override { return !StylableHelper::isElement(word); }
};

core::SmartPtr<Rule> ruleOf(const char *selector) {
    core::SmartPtr<Rule> rule(new Rule());
    rule->append(Selector::parse(selector));
    rule->add(Property::create(Property::COLOR));
    return rule;
}

template <class Helper>
Properties propertiesOf(const CSS &sheet, Component &component, unsigned int state) {
    Helper helper(&component);
    helper.enableState(state);
    sheet.style(&helper);
    return helper.getProperties();
}

/// Whether the index and the walk give the component the same; returns how many properties that are.
std::size_t compare(const CSS &sheet, Component &component, unsigned int state) {
    const Properties walked = propertiesOf<ForeignHelper>(sheet, component, state);
    EXPECT_EQ(propertiesOf<StylableHelper>(sheet, component, state), walked);
    StylableHelper helper(&component);
    helper.enableState(state);
    ForeignHelper foreign(&component);
    foreign.enableState(state);
    EXPECT_EQ(sheet.getMatches(helper), sheet.getMatches(foreign));
    return walked.size();
}

/// Rules and components out of few words, so that they often meet.
class Dice {
public:
    explicit Dice(unsigned int seed) : mRandom(seed) {}

    unsigned int below(unsigned int count) { return static_cast<unsigned int>(mRandom() % count); }
    bool oneIn(unsigned int count) { return below(count) == 0; }

    template <class List>
    auto from(const List &list) {
        return list[below(static_cast<unsigned int>(std::size(list)))];
    }

    std::string selectorText() {
        static constexpr std::array CHUNKS = {".x",   ".y", ".z",     ".w",     ".x",      ".y",       "#n",
                                              "#m",   "#x", ":hover", ":focus", ":active", ":checked", ":enabled",
                                              ":foo", ".",  "#",      ":",      ".unknown"};
        std::string text;
        if (!oneIn(3))
            text = from(std::array{"a", "b", "c", "a", "b", "*", "*a", "x", "unknown"});
        for (unsigned int chunks = below(4); chunks > 0; --chunks)
            text += from(CHUNKS);
        return text;
    }

    SelectorElement *element() {
        switch (below(8)) {
        case 0:
            return new OpenElement(SelectorElement::TYPE_NONE, "");
        case 1:
            return new OpenElement(SelectorElement::TYPE_ELEMENT, from(std::array{"a", "b", "*", ""}));
        case 2:
            return new OpenElement(SelectorElement::TYPE_ID, from(std::array{"n", "m", ""}));
        case 3:
            return new OpenElement(static_cast<SelectorState>(from(std::array{0x40U, 0x42U, 0x02U, 0U})));
        default:
            return new OpenElement(SelectorElement::TYPE_CLASS, from(std::array{"x", "y", "x.y", "x..y", ""}));
        }
    }

    Selector *selector() {
        Selector *selector = Selector::parse(selectorText().c_str());
        if (oneIn(12))
            selector->append(element());
        return selector;
    }

    core::SmartPtr<Rule> rule() {
        core::SmartPtr<Rule> rule(new Rule());
        const unsigned int selectors = oneIn(6) ? below(4) : 1;
        for (unsigned int i = 0; i < selectors; ++i)
            rule->append(selector());
        for (unsigned int properties = below(4); properties > 0; --properties)
            rule->add(property());
        return rule;
    }

    static Property *create(unsigned int name) { return Property::create(static_cast<Property::Name>(name)); }
    Property *property() { return create(1 + below(23)); }

    void shape(Component &component) {
        component.setName(from(std::array{"n", "m", "", "x", "other"}));
        component.setElement(from(std::array{"a", "b", "c", "x", "", "*", "other"}));
        component.removeClasses();
        for (unsigned int classes = below(5); classes > 0; --classes)
            component.addClass(from(std::array{"x", "y", "z", "w", "", "n", "a", "other"}));
    }

    unsigned int state() { return oneIn(3) ? 0 : below(0x80); }

private:
    std::mt19937 mRandom;
};

std::vector<core::SmartPtr<Rule>> rulesOf(const CSS &sheet) {
    return {sheet.begin(), sheet.end()};
}

/// One change as an application may make it by hand.
void change(Dice &dice, CSS &sheet) {
    const auto rules = rulesOf(sheet);
    const auto rule = dice.from(rules);
    switch (dice.below(6)) {
    case 0:
        sheet.add(dice.rule().get());
        break;
    case 1:
        rule->append(dice.selector());
        break;
    case 2:
        rule->add(dice.property());
        break;
    case 3:
        sheet.add(new Rule(*rule));
        break;
    case 4:
        if (!rule->getSelectors().empty())
            rule->getSelectors().back()->append(dice.element());
        break;
    default: {
        CSS other;
        for (unsigned int i = 0; i < 5; ++i)
            other.add(dice.rule().get());
        sheet.merge(&other);
        break;
    }
    }
}

} // namespace

class RuleIndexOfRandomSheets : public testing::TestWithParam<unsigned int> {};

TEST_P(RuleIndexOfRandomSheets, GivesTheSameAsTheWalk) {
    Dice dice(GetParam());
    CSS sheet;
    CSS second;
    const unsigned int count = 1 + dice.below(400);
    for (unsigned int i = 0; i < count; ++i)
        (dice.oneIn(3) ? second : sheet).add(dice.rule().get());
    sheet.add(dice.rule().get());
    sheet.merge(&second);
    const core::SmartPtr<Leaf> leaf(new Leaf());
    std::size_t applied = 0;
    for (unsigned int i = 0; i < 60; ++i) {
        dice.shape(*leaf);
        applied += compare(sheet, *leaf, dice.state());
        if (::testing::Test::HasFailure())
            return;
    }
    if (count > 50) {
        EXPECT_GT(applied, 0U);
    }
}

TEST_P(RuleIndexOfRandomSheets, GivesTheSameAsTheWalkAfterEachChange) {
    Dice dice(GetParam() + 1000);
    CSS sheet;
    for (unsigned int i = 0; i < 30; ++i)
        sheet.add(dice.rule().get());
    CSS sharing(sheet);
    const core::SmartPtr<Leaf> leaf(new Leaf());
    for (unsigned int i = 0; i < 60; ++i) {
        change(dice, dice.oneIn(4) ? sharing : sheet);
        for (unsigned int j = 0; j < 6; ++j) {
            dice.shape(*leaf);
            const unsigned int state = dice.state();
            compare(sheet, *leaf, state);
            compare(sharing, *leaf, state);
        }
        if (::testing::Test::HasFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RuleIndexOfRandomSheets, testing::Range(0U, 40U));

TEST(RuleIndex, FindsRulesByEachOfTheirWordsAndInTheirOrder) {
    CSS sheet;
    for (const char *text : {"#n", "a", ".x", "a.x#n:hover", "*", "", ".y.x", "b", ".z", "#m", "a:hover", ":focus"})
        sheet.add(ruleOf(text).get());
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    EXPECT_EQ(compare(sheet, *leaf, 0), 4U); // "", "*", "a" and "#n"
    leaf->addClass("x");
    EXPECT_EQ(compare(sheet, *leaf, 0), 5U);
    EXPECT_EQ(compare(sheet, *leaf, SELECTOR_STATE_HOVER), 7U);
    leaf->addClass("y");
    EXPECT_EQ(compare(sheet, *leaf, SELECTOR_STATE_HOVER | SELECTOR_STATE_FOCUS), 9U);
}

TEST(RuleIndex, SeesWhatIsChangedByHandInARuleOfTheSheet) {
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    CSS sheet;
    const auto rule = ruleOf("a");
    sheet.add(rule.get());
    EXPECT_EQ(compare(sheet, *leaf, 0), 1U);

    rule->add(Property::create(Property::FONT));
    EXPECT_EQ(compare(sheet, *leaf, 0), 2U);

    rule->append(Selector::parse(".x"));
    EXPECT_EQ(compare(sheet, *leaf, 0), 0U);
    leaf->addClass("x");
    EXPECT_EQ(compare(sheet, *leaf, 0), 2U);

    auto *element = new OpenElement(SELECTOR_STATE_HOVER);
    rule->getSelectors()[0]->append(element);
    EXPECT_EQ(compare(sheet, *leaf, 0), 0U);
    EXPECT_EQ(compare(sheet, *leaf, SELECTOR_STATE_HOVER), 2U);
    element->enableState(SELECTOR_STATE_FOCUS);
    EXPECT_EQ(compare(sheet, *leaf, SELECTOR_STATE_HOVER), 0U);
}

TEST(RuleIndex, ARuleThatGrewStaysWhereItStandsInTheSheet) {
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    CSS sheet;
    const auto grown = ruleOf("a");
    const auto id = ruleOf("#n");
    sheet.add(grown.get());
    sheet.add(id.get());
    grown->append(Selector::parse("#n:hover"));
    EXPECT_GT(grown->getPriority(), id->getPriority());
    EXPECT_EQ(propertiesOf<StylableHelper>(sheet, *leaf, SELECTOR_STATE_HOVER),
              (Properties{grown->getProperties().begin()->second.get(), id->getProperties().begin()->second.get()}));
    EXPECT_EQ(compare(sheet, *leaf, SELECTOR_STATE_HOVER), 2U);
}

TEST(RuleIndex, BuildingOtherSheetsLeavesItAsItIs) {
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    CSS sheet;
    sheet.add(ruleOf("a").get());
    EXPECT_EQ(compare(sheet, *leaf, 0), 1U);
    const unsigned int revision = Selector::getRevision();
    CSS other;
    other.add(ruleOf("a.x.y#n:hover").get());
    other.merge(&sheet);
    EXPECT_EQ(Selector::getRevision(), revision);
    EXPECT_EQ(compare(other, *leaf, 0), 1U);
}

TEST(RuleIndex, RulesThatAskForTwoNamesOrTwoElementsMatchNothing) {
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    CSS sheet;
    for (const auto &[first, second] : {std::pair("a", "b"), std::pair("#n", "#m")}) {
        const auto rule = ruleOf(first);
        rule->append(Selector::parse(second));
        sheet.add(rule.get());
    }
    EXPECT_EQ(compare(sheet, *leaf, 0), 0U);
    const auto rule = ruleOf("a");
    rule->append(Selector::parse("a*"));
    rule->append(Selector::parse("*b"));
    sheet.add(rule.get());
    EXPECT_EQ(compare(sheet, *leaf, 0), 0U);
}

TEST(RuleIndex, ADerivedHelperIsAskedRuleByRule) {
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    CSS sheet;
    sheet.add(ruleOf("b").get());
    EXPECT_TRUE(propertiesOf<StylableHelper>(sheet, *leaf, 0).empty());
    EXPECT_EQ(propertiesOf<ContraryHelper>(sheet, *leaf, 0).size(), 1U);
}

TEST(RuleIndex, AHelperWithoutAComponentMatchesWhatAsksForNothing) {
    CSS sheet;
    for (const char *text : {"*", "", ".", ":foo", "#", "a", ".x", ":hover"})
        sheet.add(ruleOf(text).get());
    StylableHelper helper(nullptr);
    sheet.style(&helper);
    EXPECT_EQ(helper.getProperties().size(), 4U);
    ForeignHelper foreign(nullptr);
    sheet.style(&foreign);
    EXPECT_EQ(helper.getProperties(), foreign.getProperties());
}

TEST(RuleIndex, ManyWordsAllFindTheirRules) {
    CSS sheet;
    for (unsigned int i = 0; i < 3000; ++i)
        sheet.add(ruleOf((".c" + std::to_string(i)).c_str()).get());
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    StylableHelper helper(leaf.get());
    for (unsigned int i = 0; i < 3000; ++i) {
        leaf->removeClasses();
        leaf->addClass(("c" + std::to_string(i)).c_str());
        sheet.style(&helper);
        ASSERT_EQ(helper.getProperties().size(), 1U) << i;
        helper.clearProperties();
    }
}

TEST(RuleIndex, MatchingAllocatesNothingOnceItIsWarm) {
    Dice dice(5);
    CSS sheet;
    for (unsigned int i = 0; i < 60; ++i)
        sheet.add(ruleOf(dice.selectorText().c_str()).get());
    const core::SmartPtr<Leaf> leaf(new Leaf("n", "a"));
    leaf->addClass("x");
    leaf->addClass("y");
    StylableHelper helper(leaf.get());
    helper.enableState(SELECTOR_STATE_ALL);
    sheet.style(&helper);
    ASSERT_GT(helper.getProperties().size(), 5U);
    helper.clearProperties();

    const std::size_t before = test::getAllocationCount();
    for (unsigned int i = 0; i < 100; ++i) {
        helper.clearState();
        helper.enableState(i % 0x40);
        sheet.style(&helper);
        helper.clearProperties();
    }
    EXPECT_EQ(test::getAllocationCount(), before);
}

} // namespace nurel::ui::css
