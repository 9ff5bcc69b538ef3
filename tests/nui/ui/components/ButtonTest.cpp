#include "nui/ui/components/Button.h"

#include "nui/ui/components/ButtonFixture.h"

#include "nengine/scene/meshes/TextMesh.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "support/MessageOf.h"

using namespace nurel::ui;
using components::Button;
using components::Image;
using components::Label;
using test::ButtonTest;
using test::messageOf;

TEST_F(ButtonTest, HasItsDefaults) {
    const core::SmartPtr<Button> button(new Button);
    EXPECT_STREQ(button->getName(), "");
    EXPECT_STREQ(Button::ELEMENT, "button");
    EXPECT_EQ(button->getElement(), "button");
    EXPECT_STREQ(button->getType().getName(), "Button");
    EXPECT_TRUE(button->instanceOf(Container::TYPE));
    EXPECT_EQ(button->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x80 | 0x40 | 0x1);
    EXPECT_EQ(button->getScrollMask(), 0u);
    EXPECT_EQ(button->getFlags(), 0u);
    EXPECT_EQ(button->getLabel(), nullptr);
    EXPECT_EQ(button->getIcon(), nullptr);
    EXPECT_EQ(button->getChildCount(), 0u);
    EXPECT_FALSE(button->isChecked());
    EXPECT_FALSE(button->isPressed());
    EXPECT_FALSE(button->isCheckable());
    EXPECT_FALSE(button->isIconVisible());
}

TEST_F(ButtonTest, OfAnElementOfItsOwnTakesNoKeys) {
    const OpenButton button("name", "combo");
    EXPECT_STREQ(button.getName(), "name");
    EXPECT_EQ(button.getElement(), "combo");
    EXPECT_EQ(button.getEventMask(), Component::EVENT_MASK_DEFAULT | 0x80);
    EXPECT_EQ(button.getScrollMask(), 0u);
    EXPECT_EQ(button.getFlags(), 0u);
}

// --- text ---

TEST_F(ButtonTest, ThePartsOfOneThatIsDisabledAlreadyAreDisabledToo) {
    const core::SmartPtr<Button> control(new Button("control"));
    control->setEnabled(false);
    control->setText("text");
    control->setIconVisible(true);
    EXPECT_EQ(control->getLabel()->getState(), static_cast<unsigned int>(Component::STATE_DISABLED));
    EXPECT_EQ(control->getIcon()->getState(), static_cast<unsigned int>(Component::STATE_DISABLED));
    control->setEnabled(true);
    EXPECT_EQ(control->getLabel()->getState(), 0U);
}

TEST_F(ButtonTest, MakesItsLabelWithTheFirstText) {
    mButton->setElement("special");
    mButton->addClass("big");
    mButton->addClass("blue");
    mPanel->addChild(new Panel("other"));
    mButton->addChild(new Panel("child"));
    mButton->setText("Text");
    Label *label = mButton->getLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_STREQ(label->getText(), "Text");
    EXPECT_STREQ(label->getName(), "label");
    EXPECT_EQ(label->getElement(), "special");
    EXPECT_EQ(label->getEventMask(), 0u);
    EXPECT_EQ(label->getZIndex(), -1);
    EXPECT_TRUE(label->hasClass("big"));
    EXPECT_TRUE(label->hasClass("blue"));
    EXPECT_EQ(label->getClasses().size(), 2u);
    EXPECT_EQ(label->getTextMesh()->getHorizontalAlignment(), 1u);
    EXPECT_EQ(label->getTextMesh()->getVerticalAlignment(), 1u);
    EXPECT_EQ(mButton->getChildIndex(label), 0); // behind the child that was there
    EXPECT_EQ(&label->getType(), &Label::TYPE);
    mButton->setText("Other");
    EXPECT_EQ(mButton->getLabel(), label);
    EXPECT_STREQ(mButton->getText(), "Other");
    mButton->setText(nullptr);
    EXPECT_STREQ(mButton->getText(), "");
}

TEST_F(ButtonTest, MakesItsLabelWhenAskedForTheText) {
    EXPECT_STREQ(mButton->getText(), "");
    ASSERT_NE(mButton->getLabel(), nullptr);
    EXPECT_EQ(mButton->getChildCount(), 1u);
    EXPECT_EQ(mButton->ensureLabel(), mButton->getLabel());
    EXPECT_EQ(mButton->getChildCount(), 1u);
}

TEST_F(ButtonTest, PutsItsPartsUnderItsLayout) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mButton->setLayout(layout.get());
    mButton->setText("Text");
    mButton->setIconVisible(true);
    EXPECT_TRUE(layout->hasComponent(mButton->getLabel()));
    EXPECT_TRUE(layout->hasComponent(mButton->getIcon()));
}

TEST_F(ButtonTest, LetsHitsThroughItsParts) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    frame();
    pointAtButton();
    EXPECT_EQ(manager().getComponentAtCursor(), mButton.get());
}

TEST_F(ButtonTest, HasANewLabelAfterTheOldOneWasTakenOut) {
    mButton->setText("old");
    const core::SmartPtr<Label> old(mButton->getLabel());
    mButton->removeChild(old.get());
    EXPECT_EQ(mButton->getLabel(), nullptr);
    mButton->setChecked(true);
    mButton->addClass("late");
    EXPECT_EQ(old->getState(), 0u);
    EXPECT_FALSE(old->hasClass("late"));
    EXPECT_STREQ(mButton->getText(), "");
    EXPECT_NE(mButton->getLabel(), old.get());
    EXPECT_STREQ(old->getText(), "old");
    EXPECT_EQ(mButton->getChildCount(), 1u);
}

TEST_F(ButtonTest, ForgetsItsPartsWhenAllChildrenAreCleared) {
    mButton->setText("old");
    mButton->setIconVisible(true);
    mButton->clearChildren();
    EXPECT_EQ(mButton->getLabel(), nullptr);
    EXPECT_EQ(mButton->getIcon(), nullptr);
    mButton->setPressed(true);
    mButton->removeClasses();
    mButton->setText("new");
    EXPECT_STREQ(mButton->getText(), "new");
    EXPECT_EQ(stateOfLabel(), 0u); // follows with the next change
    mButton->setPressed(true);
    EXPECT_EQ(stateOfLabel(), ACTIVE);
}

TEST_F(ButtonTest, KeepsALabelThatWasPutBackOrIntoAPanelOfItsOwn) {
    mButton->setText("text");
    const core::SmartPtr<Label> label(mButton->getLabel());
    mButton->removeChild(label.get());
    const core::SmartPtr<Panel> inside(new Panel("inside"));
    inside->addChild(label.get());
    mButton->addChild(inside.get());
    EXPECT_EQ(mButton->getLabel(), label.get());
    mButton->setText("changed");
    EXPECT_STREQ(label->getText(), "changed");
    inside->removeChild(label.get());
    mPanel->addChild(label.get()); // beside the button: no longer its own
    EXPECT_EQ(mButton->getLabel(), nullptr);
}

// --- icon ---

TEST_F(ButtonTest, TakesAnIcon) {
    mButton->addClass("big");
    mButton->setElement("special");
    const core::SmartPtr<Image> icon(new Image("picture"));
    icon->addClass("own");
    mButton->setIcon(icon.get());
    EXPECT_EQ(mButton->getIcon(), icon.get());
    EXPECT_EQ(icon->getParent(), mButton.get());
    EXPECT_STREQ(icon->getName(), "icon");
    EXPECT_EQ(icon->getElement(), "special");
    EXPECT_EQ(icon->getEventMask(), 0u);
    EXPECT_TRUE(icon->hasClass("big"));
    EXPECT_FALSE(icon->hasClass("own"));
    EXPECT_TRUE(mButton->isIconVisible());
}

TEST_F(ButtonTest, IgnoresTheIconThatItHas) {
    const core::SmartPtr<Image> icon(new Image("picture"));
    mButton->setIcon(icon.get());
    icon->setName("mine");
    icon->setEventMask(5);
    mButton->setIcon(icon.get());
    EXPECT_STREQ(icon->getName(), "mine");
    EXPECT_EQ(icon->getEventMask(), 5u);
    mButton->setIcon(nullptr);
    mButton->setIcon(nullptr);
    EXPECT_EQ(mButton->getIcon(), nullptr);
    EXPECT_EQ(icon->getParent(), nullptr);
    EXPECT_EQ(icon->getRefCount(), 1u);
}

TEST_F(ButtonTest, SwapsItsIcon) {
    const core::SmartPtr<Image> first(new Image("first"));
    const core::SmartPtr<Image> second(new Image("second"));
    mButton->setIcon(first.get());
    mButton->setIcon(second.get());
    EXPECT_EQ(mButton->getIcon(), second.get());
    EXPECT_FALSE(first->hasParent());
    EXPECT_EQ(first->getRefCount(), 1u);
    EXPECT_EQ(mButton->getChildCount(), 1u);
    mButton->setPressed(true);
    EXPECT_EQ(first->getState(), 0u);
    EXPECT_EQ(second->getState(), ACTIVE);
}

TEST_F(ButtonTest, RefusesAnIconOfSomebodyElseAndKeepsItsOwn) {
    const core::SmartPtr<Image> own(new Image("own"));
    const core::SmartPtr<Image> foreign(new Image("foreign"));
    mButton->setIcon(own.get());
    mPanel->addChild(foreign.get());
    EXPECT_EQ(messageOf([&] { mButton->setIcon(foreign.get()); }), "Component already has a parent");
    EXPECT_EQ(mButton->getIcon(), own.get());
    EXPECT_EQ(own->getParent(), mButton.get());
    EXPECT_STREQ(foreign->getName(), "foreign");
    EXPECT_EQ(foreign->getParent(), mPanel.get());

    Button other("other");
    EXPECT_EQ(messageOf([&] { other.setIcon(own.get()); }), "Component already has a parent");
    EXPECT_EQ(other.getIcon(), nullptr);
}

TEST_F(ButtonTest, MakesAnIconOfAChildThatItHas) {
    const core::SmartPtr<Image> child(new Image("child"));
    mButton->addChild(child.get());
    mButton->setIcon(child.get());
    EXPECT_EQ(mButton->getIcon(), child.get());
    EXPECT_STREQ(child->getName(), "icon");
    EXPECT_EQ(mButton->getChildCount(), 1u);
}

TEST_F(ButtonTest, TakesAnIconAgainThatWasTakenOut) {
    const core::SmartPtr<Image> icon(new Image("picture"));
    mButton->setIcon(icon.get());
    mButton->removeChild(icon.get());
    EXPECT_EQ(mButton->getIcon(), nullptr);
    EXPECT_FALSE(mButton->isIconVisible());
    mButton->setIcon(icon.get());
    EXPECT_EQ(mButton->getIcon(), icon.get());
    EXPECT_EQ(icon->getParent(), mButton.get());
    mButton->removeChildAt(0);
    mButton->setIcon(new Image("other"));
    EXPECT_EQ(mButton->getChildCount(), 1u);
}

TEST_F(ButtonTest, KeepsAnIconThatNobodyElseHolds) {
    mButton->setIcon(new Image("picture"));
    frame();
    ASSERT_NE(mButton->getIcon(), nullptr);
    EXPECT_STREQ(mButton->getIcon()->getName(), "icon");
    mButton->removeChild(mButton->getIcon());
    frame();
    mButton->setChecked(true);
    EXPECT_EQ(mButton->getIcon(), nullptr);
}

TEST_F(ButtonTest, MakesAnIconToShowOrHide) {
    mButton->setIconVisible(false);
    Image *icon = mButton->getIcon();
    ASSERT_NE(icon, nullptr);
    EXPECT_STREQ(icon->getName(), "icon");
    EXPECT_FALSE(icon->isSelfVisible());
    EXPECT_FALSE(mButton->isIconVisible());
    mButton->setIconVisible(true);
    EXPECT_EQ(mButton->getIcon(), icon);
    EXPECT_TRUE(mButton->isIconVisible());
    mButton->setVisible(false);
    EXPECT_FALSE(mButton->isIconVisible());
}

TEST_F(ButtonTest, KeepsTheIconThatACallbackOfTheSwapHasSet) {
    const core::SmartPtr<Image> old(new Image("old"));
    const core::SmartPtr<Image> late(new Image("late"));
    mButton->setIcon(old.get());
    setEventsOfButton(*old);
    manager().setFocus(old.get());
    ASSERT_EQ(manager().getFocus(), old.get());
    old->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        mButton->setIcon(late.get());
        return true;
    });
    mButton->setIcon(new Image("lost"));
    EXPECT_EQ(mButton->getIcon(), late.get());
    EXPECT_EQ(mButton->getChildCount(), 1u);
    EXPECT_FALSE(old->hasParent());
}

TEST_F(ButtonTest, RefusesAnIconThatACallbackOfTheSwapHasPutElsewhere) {
    const core::SmartPtr<Image> old(new Image("old"));
    const core::SmartPtr<Image> taken(new Image("taken"));
    mButton->setIcon(old.get());
    setEventsOfButton(*old);
    manager().setFocus(old.get());
    old->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        mPanel->addChild(taken.get());
        return true;
    });
    EXPECT_EQ(messageOf([&] { mButton->setIcon(taken.get()); }), "Component already has a parent");
    EXPECT_EQ(mButton->getIcon(), nullptr);
    EXPECT_FALSE(old->hasParent());
    EXPECT_EQ(taken->getParent(), mPanel.get());
    EXPECT_STREQ(taken->getName(), "taken");
    EXPECT_EQ(taken->getEventMask(), Image("plain").getEventMask());
    mButton->setPressed(true);
    EXPECT_EQ(taken->getState(), 0u);
}

TEST_F(ButtonTest, SurvivesThatASwapOfItsIconRemovesIt) {
    const core::SmartPtr<Image> old(new Image("old"));
    mButton->setIcon(old.get());
    setEventsOfButton(*old);
    manager().setFocus(old.get());
    Button *button = mButton.get();
    mButton = nullptr;
    old->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        mPanel->clearChildren();
        return true;
    });
    const core::SmartPtr<Image> icon(new Image("new"));
    button->setIcon(icon.get());
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    EXPECT_FALSE(icon->hasParent()); // gone with the button
}

// --- classes ---

TEST_F(ButtonTest, HandsItsClassesOn) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    Label &label = *mButton->getLabel();
    Image &icon = *mButton->getIcon();
    label.addClass("own");
    frame();
    OpenButton::clean(label);
    OpenButton::clean(icon);
    mButton->addClass("a");
    mButton->addClass("b");
    EXPECT_TRUE(mButton->hasClass("a"));
    EXPECT_TRUE(label.hasClass("a"));
    EXPECT_TRUE(icon.hasClass("b"));
    EXPECT_EQ(label.isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW),
              Component::DIRTY_STYLE | Component::DIRTY_VIEW);
    EXPECT_EQ(icon.isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW),
              Component::DIRTY_STYLE | Component::DIRTY_VIEW);
    EXPECT_EQ(mButton->isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW),
              Component::DIRTY_STYLE | Component::DIRTY_VIEW);
    mButton->removeClass("a");
    EXPECT_FALSE(mButton->hasClass("a"));
    EXPECT_FALSE(label.hasClass("a"));
    EXPECT_FALSE(icon.hasClass("a"));
    EXPECT_TRUE(label.hasClass("own"));
    mButton->removeClass(nullptr);
    mButton->removeClass(mButton->getClasses().begin()->first); // its own copy of the name
    EXPECT_FALSE(mButton->hasClass("b"));
    EXPECT_FALSE(label.hasClass("b"));
    EXPECT_FALSE(icon.hasClass("b"));
    mButton->addClass("c");
    mButton->removeClasses();
    EXPECT_TRUE(mButton->getClasses().empty());
    EXPECT_TRUE(label.getClasses().empty()); // its own ones too
    EXPECT_TRUE(icon.getClasses().empty());
}
