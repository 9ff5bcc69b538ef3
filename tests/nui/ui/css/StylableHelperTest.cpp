#include "nui/ui/css/StylableHelper.h"

#include "../TestComponents.h"
#include "support/EngineFixture.h"

#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/Property.h"

#include <string>

namespace nurel::ui::css {

namespace {

using test::Leaf;

class CSSStylableHelper : public test::EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        component = new Leaf("ok", "button");
        component->addClass("wide");
        component->addClass("big");
    }

    void TearDown() override {
        component = nullptr;
        EngineFixture::TearDown();
    }

    core::SmartPtr<Leaf> component;
    const core::SmartPtr<Property> color = Property::create(Property::COLOR);
    const core::SmartPtr<Property> font = Property::create(Property::FONT);
};

std::string textOf(const StylableHelper &helper) {
    std::string text;
    return helper.toString(text);
}

} // namespace

TEST_F(CSSStylableHelper, AnswersFromItsComponent) {
    const StylableHelper helper(component.get());
    EXPECT_EQ(helper.getComponent(), component.get());
    EXPECT_STREQ(helper.getElement(), "button");
    EXPECT_STREQ(helper.getID(), "ok");
    EXPECT_TRUE(helper.isID("ok"));
    EXPECT_FALSE(helper.isID("OK"));
    EXPECT_FALSE(helper.isID(""));
    EXPECT_FALSE(helper.isID(nullptr));
    EXPECT_TRUE(helper.isElement("button"));
    EXPECT_FALSE(helper.isElement("Button"));
    EXPECT_FALSE(helper.isElement("*"));
    EXPECT_FALSE(helper.isElement(nullptr));
    EXPECT_TRUE(helper.hasClass("wide"));
    EXPECT_TRUE(helper.hasClass("big"));
    EXPECT_FALSE(helper.hasClass("bi"));
    EXPECT_FALSE(helper.hasClass(nullptr));
}

TEST_F(CSSStylableHelper, FollowsChangesOfItsComponent) {
    const StylableHelper helper(component.get());
    component->setName("cancel");
    component->setElement("link");
    component->removeClass("wide");
    EXPECT_EQ(textOf(helper), "link.big#cancel");
}

TEST_F(CSSStylableHelper, HasStatesOfItsOwn) {
    StylableHelper helper(component.get());
    EXPECT_EQ(helper.getState(), 0U);
    EXPECT_TRUE(helper.hasState(0));
    EXPECT_FALSE(helper.hasState(SELECTOR_STATE_HOVER));
    helper.enableState(SELECTOR_STATE_HOVER | SELECTOR_STATE_FOCUS);
    EXPECT_TRUE(helper.hasState(SELECTOR_STATE_HOVER));
    EXPECT_TRUE(helper.hasState(SELECTOR_STATE_HOVER | SELECTOR_STATE_FOCUS));
    EXPECT_FALSE(helper.hasState(SELECTOR_STATE_HOVER | SELECTOR_STATE_CHECKED));
    helper.disableState(SELECTOR_STATE_HOVER | SELECTOR_STATE_CHECKED);
    EXPECT_EQ(helper.getState(), 0x10U);
    helper.clearState();
    EXPECT_EQ(helper.getState(), 0U);
    EXPECT_TRUE(helper.hasState(0));
}

TEST_F(CSSStylableHelper, WritesItselfAsASelectorWould) {
    StylableHelper helper(component.get());
    helper.enableState(SELECTOR_STATE_CHECKED | SELECTOR_STATE_ACTIVE);
    EXPECT_EQ(textOf(helper), "button.big.wide#ok:active:checked");
    std::string text = "before ";
    EXPECT_STREQ(helper.toString(text, false), "before button.big.wide#ok:active:checked");
    component->setName("");
    component->removeClasses();
    helper.clearState();
    EXPECT_EQ(textOf(helper), "button");
}

TEST_F(CSSStylableHelper, CollectsWhatIsAppliedInOrder) {
    StylableHelper helper(component.get());
    EXPECT_TRUE(helper.getProperties().empty());
    helper.apply(font.get());
    helper.apply(color.get());
    helper.apply(font.get());
    helper.apply(nullptr);
    EXPECT_EQ(helper.getProperties(), (std::deque<const Property *>{font.get(), color.get(), font.get()}));
    EXPECT_EQ(font->getRefCount(), 1U);
    helper.clearProperties();
    EXPECT_TRUE(helper.getProperties().empty());
    helper.clearProperties();
}

TEST_F(CSSStylableHelper, SeveralCollectSideBySide) {
    StylableHelper first(component.get());
    StylableHelper second(component.get());
    first.apply(font.get());
    first.clearProperties();
    first.apply(color.get());
    second.apply(font.get());
    second.apply(font.get());
    EXPECT_EQ(first.getProperties().size(), 1U);
    EXPECT_EQ(second.getProperties().size(), 2U);
    first.clearProperties();
    EXPECT_EQ(second.getProperties().size(), 2U);
    EXPECT_EQ(first.getProperties().size(), 0U);
    second.clearProperties();
    EXPECT_EQ(second.getProperties().size(), 0U);
}

TEST_F(CSSStylableHelper, DropsWhatTheViewIsToldToLeaveAlone) {
    const core::SmartPtr<CSSSkin> skin(new CSSSkin("styled"));
    const core::SmartPtr<CSSView> view(new CSSView("view", component.get(), skin.get()));
    component->setView(view.get());
    StylableHelper helper(component.get());
    view->setOverridden(Property::COLOR, true);
    helper.apply(font.get());
    helper.apply(color.get());
    EXPECT_EQ(helper.getProperties(), std::deque<const Property *>{font.get()});
    view->setOverridden(Property::COLOR, false);
    helper.apply(color.get());
    EXPECT_EQ(helper.getProperties().size(), 2U);
    component->clearView();
    helper.apply(color.get());
    EXPECT_EQ(helper.getProperties().size(), 3U);
}

TEST_F(CSSStylableHelper, WithoutAComponentItIsNothing) {
    StylableHelper helper(nullptr);
    EXPECT_FALSE(helper.isID(""));
    EXPECT_FALSE(helper.isElement(""));
    EXPECT_FALSE(helper.hasClass("a"));
    EXPECT_STREQ(helper.getElement(), "");
    EXPECT_STREQ(helper.getID(), "");
    helper.enableState(SELECTOR_STATE_HOVER);
    EXPECT_EQ(textOf(helper), ":hover");
    helper.apply(color.get());
    EXPECT_EQ(helper.getProperties().size(), 1U);
}

} // namespace nurel::ui::css
