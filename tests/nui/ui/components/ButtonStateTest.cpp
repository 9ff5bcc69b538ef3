// Buttons under the hand: states, toggling, keys, and callbacks that remove them.
#include "nui/ui/components/ButtonFixture.h"

#include <algorithm>

using namespace nurel::ui;
using components::Button;
using nurel::input::Keyboard;
using test::ButtonTest;

// --- state ---

TEST_F(ButtonTest, IsCheckedWithoutBeingCheckable) {
    mButton->setText("Text");
    frame();
    OpenButton::clean(*mButton);
    mButton->setChecked(true);
    EXPECT_TRUE(mButton->isChecked());
    EXPECT_EQ(mButton->getState(), CHECKED);
    EXPECT_EQ(stateOfLabel(), CHECKED);
    EXPECT_TRUE(mButton->isDirty(Component::DIRTY_VIEW));
    OpenButton::clean(*mButton);
    OpenButton::setChildState(*mButton->getLabel(), HOVER);
    OpenButton::clean(*mButton->getLabel());
    mButton->setChecked(true); // no news, but the parts are brought in line
    EXPECT_EQ(mButton->isDirty(Component::DIRTY_VIEW), 0u);
    EXPECT_EQ(stateOfLabel(), CHECKED);
    EXPECT_TRUE(mButton->getLabel()->isDirty(Component::DIRTY_VIEW));
    mButton->setChecked(false);
    EXPECT_EQ(mButton->getState(), 0u);
    EXPECT_EQ(stateOfLabel(), 0u);
}

TEST_F(ButtonTest, LooksPressedOrReleased) {
    mButton->setText("Text");
    mButton->setState(HOVER | RELEASED | CHECKED);
    mButton->setPressed(true);
    EXPECT_EQ(mButton->getState(), ACTIVE | CHECKED);
    EXPECT_EQ(stateOfLabel(), ACTIVE | CHECKED);
    EXPECT_TRUE(mButton->isPressed());
    mButton->setState(mButton->getState() | HOVER);
    mButton->setPressed(false);
    EXPECT_EQ(mButton->getState(), RELEASED | CHECKED);
    EXPECT_EQ(stateOfLabel(), RELEASED | CHECKED);
    EXPECT_FALSE(mButton->isPressed());
    OpenButton::clean(*mButton);
    mButton->setPressed(false);
    EXPECT_EQ(mButton->isDirty(Component::DIRTY_VIEW), 0u);
    mButton->setPressed(true);
    EXPECT_TRUE(mButton->isDirty(Component::DIRTY_VIEW));
}

TEST_F(ButtonTest, BringsItsPartsInLineWhenItBecomesCheckable) {
    mButton->setText("Text");
    mButton->setState(HOVER);
    EXPECT_EQ(stateOfLabel(), 0u);
    mButton->setCheckable(true);
    EXPECT_TRUE(mButton->isCheckable());
    EXPECT_EQ(mButton->getFlags(), 1u);
    EXPECT_EQ(stateOfLabel(), HOVER);
    mButton->setState(0);
    mButton->setCheckable(false);
    EXPECT_FALSE(mButton->isCheckable());
    EXPECT_EQ(stateOfLabel(), 0u);
}

TEST_F(ButtonTest, GivesRawAccessToItsFlags) {
    mButton->setFlags(0xf0);
    EXPECT_FALSE(mButton->isCheckable());
    mButton->enableFlags(0x05);
    EXPECT_EQ(mButton->getFlags(), 0xf5u);
    EXPECT_TRUE(mButton->isCheckable());
    EXPECT_EQ(mButton->getFlagsEnabled(0x0f), 0x05u);
    EXPECT_EQ(mButton->getFlagsEnabled(0x0a), 0u);
    mButton->disableFlags(0x14);
    EXPECT_EQ(mButton->getFlags(), 0xe1u);
    mButton->setCheckable(false);
    EXPECT_EQ(mButton->getFlags(), 0xe0u);
}

TEST_F(ButtonTest, MarksOnlyThePartsWhoseStateChanges) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    frame();
    OpenButton::setChildState(*mButton->getIcon(), CHECKED);
    OpenButton::clean(*mButton->getLabel());
    OpenButton::clean(*mButton->getIcon());
    mButton->syncChildrenState(CHECKED);
    EXPECT_TRUE(mButton->getLabel()->isDirty(Component::DIRTY_VIEW));
    EXPECT_EQ(mButton->getIcon()->isDirty(Component::DIRTY_VIEW), 0u);
    EXPECT_EQ(mButton->getState(), 0u);
}

TEST_F(ButtonTest, ItsPartsFollowHoverPressAndRelease) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    frame();
    pointAtButton();
    EXPECT_EQ(stateOfLabel(), HOVER);
    press();
    EXPECT_EQ(stateOfLabel(), HOVER | ACTIVE);
    EXPECT_EQ(mButton->getIcon()->getState(), HOVER | ACTIVE);
    release();
    EXPECT_EQ(stateOfLabel(), HOVER | RELEASED);
    moveTo(10, 10);
    EXPECT_EQ(stateOfLabel(), RELEASED);
    EXPECT_EQ(mButton->getState(), RELEASED);
}

TEST_F(ButtonTest, ItsPartsDoNotShowTheFocus) {
    mButton->setText("Text");
    mButton->setTabStop(0);
    mButton->setFocus();
    EXPECT_EQ(mButton->getState(), FOCUSED);
    EXPECT_EQ(stateOfLabel(), 0u);
    pointAtButton();
    EXPECT_EQ(mButton->getState(), FOCUSED | HOVER);
    EXPECT_EQ(stateOfLabel(), HOVER);
    manager().setFocus(nullptr);
    EXPECT_EQ(mButton->getState(), HOVER);
    EXPECT_EQ(stateOfLabel(), HOVER);
}

TEST_F(ButtonTest, CheckingAFocusedButtonPassesTheFocusOnUntilTheNextEvent) {
    mButton->setText("Text");
    mButton->setTabStop(0);
    mButton->setFocus();
    mButton->setChecked(true);
    EXPECT_EQ(stateOfLabel(), FOCUSED | CHECKED);
    pointAtButton();
    EXPECT_EQ(stateOfLabel(), HOVER | CHECKED);
}

TEST_F(ButtonTest, DisablingReachesItsParts) {
    mButton->setText("Text");
    mButton->setEnabled(false);
    EXPECT_EQ(mButton->getState(), DISABLED);
    EXPECT_EQ(stateOfLabel(), DISABLED);
    mButton->setEnabled(true);
    EXPECT_EQ(stateOfLabel(), 0u);
}

// --- toggling ---

TEST_F(ButtonTest, TogglesOnlyWhenCheckable) {
    click(200, 150);
    EXPECT_FALSE(mButton->isChecked());
    mButton->setCheckable(true);
    click(200, 150);
    EXPECT_TRUE(mButton->isChecked());
    click(200, 150);
    EXPECT_FALSE(mButton->isChecked());
}

TEST_F(ButtonTest, TogglesWhenReleasedAwayFromItWithoutAClick) {
    mButton->setCheckable(true);
    int clicks = 0;
    mButton->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        ++clicks;
        return false;
    });
    pointAtButton();
    press();
    moveTo(600, 500);
    release();
    EXPECT_TRUE(mButton->isChecked());
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonTest, TogglesWhenTheToolkitReleasesIt) {
    mButton->setCheckable(true);
    pointAtButton();
    press();
    record();
    const core::SmartPtr<Widget> top = addWidget("top"); // comes up under the cursor
    const Lines seen = events();
    EXPECT_NE(std::find(seen.begin(), seen.end(), "release* button>button"), seen.end());
    EXPECT_TRUE(mButton->isChecked());
}

TEST_F(ButtonTest, TogglesAtReleasesOfTheLeftMouseButtonOnly) {
    mButton->setCheckable(true);
    send(MouseEvent::MOUSE_PRESS);
    EXPECT_FALSE(mButton->isChecked());
    send(MouseEvent::MOUSE_RELEASE, 1);
    EXPECT_FALSE(mButton->isChecked());
    send(MouseEvent::MOUSE_RELEASE, 0, 0);
    EXPECT_TRUE(mButton->isChecked());
    const Ray ray;
    const CursorPosition cursor;
    mButton->handleEvent(ClickEvent(ray, cursor, cursor));
    EXPECT_TRUE(mButton->isChecked());
}

TEST_F(ButtonTest, TogglesEvenWhereItDoesNotTakeTheRelease) {
    mButton->setCheckable(true);
    mButton->setEnabled(false);
    send(MouseEvent::MOUSE_RELEASE);
    EXPECT_TRUE(mButton->isChecked());
    mButton->setEnabled(true);
    mButton->setEventMask(0);
    send(MouseEvent::MOUSE_RELEASE);
    EXPECT_FALSE(mButton->isChecked());
}

TEST_F(ButtonTest, HasToggledWhenTheCallbacksRun) {
    mButton->setCheckable(true);
    Lines seen;
    mButton->MouseCallbacks::subscribeCallback([&](UIEventHandler *, const MouseEvent &event) {
        seen.push_back(std::string(event.getAction() == MouseEvent::MOUSE_PRESS ? "press " : "release ") +
                       (mButton->isChecked() ? "on" : "off"));
        return false;
    });
    mButton->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        seen.push_back(std::string("click ") + (mButton->isChecked() ? "on" : "off"));
        return false;
    });
    click(200, 150);
    EXPECT_EQ(seen, (Lines{"press off", "release on", "click on"}));
}

// --- keys ---

TEST_F(ButtonTest, TheReturnKeyClicksAtNoPosition) {
    mButton->setTabStop(0);
    mButton->setCheckable(true);
    mButton->setFocus();
    int clicks = 0;
    mButton->ClickCallbacks::subscribeCallback([&](UIEventHandler *handler, const ClickEvent &event) {
        ++clicks;
        EXPECT_EQ(handler, mButton.get());
        EXPECT_EQ(event.getCursor(), CursorPosition());
        EXPECT_EQ(event.getPressPosition(), CursorPosition());
        EXPECT_EQ(event.getRay().origin, nurel::math::Vector3(0, 0, 0));
        return false;
    });
    moveTo(300, 300);
    key(0x1c, true);
    EXPECT_EQ(clicks, 1);
    key(0x1c, false);
    EXPECT_EQ(clicks, 1);
    key(Keyboard::K_A, true);
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(mButton->isChecked()); // it is the mouse that toggles
}

TEST_F(ButtonTest, SwallowsAllKeys) {
    mPanel->enableEvents(UIEvent::ET_KEY_EVENT);
    int keys = 0;
    mPanel->KeyCallbacks::subscribeCallback([&](UIEventHandler *, const KeyEvent &) {
        ++keys;
        return false;
    });
    int own = 0;
    mButton->KeyCallbacks::subscribeCallback([&](UIEventHandler *, const KeyEvent &) {
        ++own;
        return false;
    });
    for (const int code : {0, 0x01, 0x1c, 0x39}) {
        EXPECT_EQ(mButton->handleEvent(KeyEvent(code, true)), mButton.get());
        EXPECT_EQ(mButton->handleEvent(KeyEvent(code, false)), mButton.get());
    }
    EXPECT_EQ(keys, 0);
    EXPECT_EQ(own, 8);
}

TEST_F(ButtonTest, OfAnElementOfItsOwnPassesKeysOn) {
    const core::SmartPtr<OpenButton> button(new OpenButton("combo", "combo"));
    mPanel->addChild(button.get());
    mPanel->enableEvents(UIEvent::ET_KEY_EVENT);
    EXPECT_EQ(button->handleEvent(KeyEvent(0x1c, true)), mPanel.get());
}

// --- callbacks that remove ---

TEST_F(ButtonTest, MayBeRemovedByItsClick) {
    mButton->setText("Text");
    mButton->setCheckable(true);
    Button *button = mButton.get();
    mButton = nullptr;
    button->ClickCallbacks::subscribeCallback([this, button](UIEventHandler *, const ClickEvent &) {
        mPanel->removeChild(button);
        return false;
    });
    click(200, 150);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
}

TEST_F(ButtonTest, MayBeRemovedByItsToggleTogetherWithItsParent) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    mButton->setCheckable(true);
    mButton->MouseCallbacks::subscribeCallback([this](UIEventHandler *, const MouseEvent &event) {
        if (event.getAction() == MouseEvent::MOUSE_RELEASE)
            mWidget->clearChildren();
        return false;
    });
    mButton = nullptr;
    mPanel = nullptr;
    click(200, 150);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
}

TEST_F(ButtonTest, MayTakeTheWholeScreenAway) {
    mButton->setText("Text");
    mButton->setTabStop(0);
    mButton->setFocus();
    mButton->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        manager().clearWidgets();
        mWidget->clearChildren();
        mWidget = nullptr;
        return false;
    });
    mButton = nullptr;
    mPanel = nullptr;
    key(Keyboard::K_RETURN, true);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(ButtonTest, IsNotGivenBackAsTheConsumerOfTheEventThatEndedIt) {
    const core::SmartPtr<Container> panel(mPanel.get());
    Button *button = mButton.get();
    mButton = nullptr;
    button->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        panel->clearChildren();
        return false;
    });
    const Ray ray;
    const CursorPosition cursor;
    EXPECT_EQ(button->handleEvent(ClickEvent(ray, cursor, cursor)), nullptr);
}
