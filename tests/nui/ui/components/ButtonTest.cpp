#include "nui/ui/components/Button.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <algorithm>
#include <functional>

using namespace nurel::ui;
using components::Button;
using components::Image;
using components::Label;
using nurel::input::Keyboard;

namespace {

constexpr unsigned int HOVER = Component::STATE_HOVER;
constexpr unsigned int ACTIVE = Component::STATE_ACTIVE;
constexpr unsigned int RELEASED = Component::STATE_RELEASED;
constexpr unsigned int CHECKED = Component::STATE_CHECKED;
constexpr unsigned int FOCUSED = Component::STATE_FOCUSED;
constexpr unsigned int DISABLED = Component::STATE_DISABLED;

class OpenButton : public Button {
public:
    explicit OpenButton(const char *name) : Button(name) {}
    OpenButton(const char *name, const char *element) : Button(name, element) {}

    using Button::processEvent;
    using Button::setChildState;
    using Button::setClean;
    using Button::setState;
    using Button::visit;

    static void clean(Component &component) { (component.*&OpenButton::setClean)(DIRTY_ALL); }
};

class ButtonTest : public test::ManagerTest {
public:
    ButtonTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mButton = new OpenButton("button");
        place(*mButton, 100, 100, 200, 100);
        mPanel->addChild(mButton.get());
        frame();
    }

    /// Around the middle of the button.
    static void pointAtButton() { moveTo(200, 150); }

    static void setEventsOfButton(Component &icon) {
        icon.setEventMask(Component::EVENT_MASK_DEFAULT);
        icon.setTabStop(0);
    }

    /// Sends a mouse event to the button past the manager.
    void send(int action, int button = 0, int count = 1) {
        const Ray ray;
        const CursorPosition cursor;
        mButton->handleEvent(MouseEvent(ray, cursor, action, button, count));
    }

    unsigned int stateOfLabel() const { return mButton->getLabel()->getState(); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenButton> mButton; ///< around (200, 150)
};

std::string messageOf(const std::function<void()> &act) {
    try {
        act();
    } catch (const core::Exception &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

} // namespace

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

// --- clones ---

TEST_F(ButtonTest, ACloneHasPartsOfItsOwn) {
    mButton->addChild(new Panel("child"));
    mButton->setText("Text");
    mButton->setIconVisible(false);
    mButton->addClass("big");
    mButton->setFlags(0x81);
    mButton->setChecked(true);
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(&copy->getType(), &Button::TYPE);
    EXPECT_STREQ(copy->getName(), "button");
    EXPECT_EQ(copy->getFlags(), 0x81u);
    EXPECT_TRUE(copy->isChecked());
    EXPECT_EQ(copy->getChildCount(), 3u);
    EXPECT_EQ(copy->getEventMask(), mButton->getEventMask());
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_NE(copy->getLabel(), mButton->getLabel());
    EXPECT_EQ(copy->getChildIndex(copy->getLabel()), mButton->getChildIndex(mButton->getLabel()));
    EXPECT_EQ(copy->getChildIndex(copy->getIcon()), mButton->getChildIndex(mButton->getIcon()));
    EXPECT_EQ(&copy->getLabel()->getType(), &Label::TYPE);
    EXPECT_STREQ(copy->getText(), "Text");
    EXPECT_EQ(copy->getLabel()->getState(), CHECKED);
    EXPECT_EQ(copy->getLabel()->getEventMask(), 0u);
    EXPECT_EQ(copy->getLabel()->getElement(), "button");
    EXPECT_TRUE(copy->getLabel()->hasClass("big"));
    ASSERT_NE(copy->getIcon(), nullptr);
    EXPECT_STREQ(copy->getIcon()->getName(), "icon");
    EXPECT_FALSE(copy->isIconVisible());
    copy->setText("other");
    copy->setPressed(true);
    copy->removeClasses();
    EXPECT_STREQ(mButton->getText(), "Text");
    EXPECT_EQ(stateOfLabel(), CHECKED);
    EXPECT_TRUE(mButton->getLabel()->hasClass("big"));
    EXPECT_EQ(copy->getLabel()->getState(), ACTIVE | CHECKED);
    EXPECT_FALSE(copy->getLabel()->hasClass("big"));
}

TEST_F(ButtonTest, ACloneWithoutPartsMakesThemWhenAsked) {
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getIcon(), nullptr);
    copy->setText("own");
    EXPECT_STREQ(copy->getText(), "own");
    EXPECT_EQ(mButton->getLabel(), nullptr);
}

TEST_F(ButtonTest, ACloneHasNoPartThatWasTakenOut) {
    mButton->addChild(new Label("first"));
    mButton->setText("Text");
    mButton->setIconVisible(true);
    const core::SmartPtr<Label> label(mButton->getLabel());
    mButton->removeChild(label.get());
    mButton->removeChild(mButton->getIcon());
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    EXPECT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_EQ(copy->getIcon(), nullptr);
}

TEST_F(ButtonTest, ACloneFindsItsPartsWhileTheChildrenWaitToBeSorted) {
    mButton->setText("Text");
    mButton->setIconVisible(true);
    mButton->getIcon()->setZIndex(-5);
    const core::SmartPtr<Button> copy(static_cast<Button *>(mButton->clone()));
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_STREQ(copy->getLabel()->getText(), "Text");
    ASSERT_NE(copy->getIcon(), nullptr);
    EXPECT_EQ(copy->getIcon()->getZIndex(), -5);
}

TEST_F(ButtonTest, AClonesTargetLosesWhatItHad) {
    mButton->setText("Text");
    const core::SmartPtr<Button> target(new Button("target"));
    target->setText("old");
    target->setIconVisible(true);
    target->addChild(new Panel("child"));
    const core::SmartPtr<Label> old(target->getLabel());
    nurel::core::CloningOptions options;
    mButton->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_STREQ(target->getText(), "Text");
    EXPECT_EQ(target->getIcon(), nullptr);
    EXPECT_FALSE(old->hasParent());
    mButton->_clone(mButton.get(), options);
    EXPECT_STREQ(mButton->getText(), "Text");
}

TEST_F(ButtonTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mButton->_clone(mPanel.get(), options); }), "Button cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mButton->_clone(nullptr, options); }), "Button cannot be cloned into nothing");
}

TEST_F(ButtonTest, ACopyHasNoPartsOfItsOwn) {
    mButton->setText("Text");
    mButton->setFlags(1);
    Button copy(*mButton);
    EXPECT_EQ(copy.getLabel(), nullptr);
    EXPECT_EQ(copy.getFlags(), 1u);
    copy.setPressed(true);
    EXPECT_EQ(stateOfLabel(), 0u);
    copy = *mButton;
    EXPECT_EQ(copy.getLabel(), nullptr);
    EXPECT_STREQ(mButton->getText(), "Text");
}

// --- views ---

TEST_F(ButtonTest, IsSkinnedAsAButtonWithItsParts) {
    mButton->setText("Text");
    ASSERT_NE(mButton->getView(), nullptr);
    ASSERT_NE(mButton->getLabel()->getView(), nullptr);
    EXPECT_EQ(mButton->getLabel()->getView()->getParent(), mButton->getView()->getContent());
    ComponentView *view = mButton->getView();
    EXPECT_EQ(mButton->visit(mSkin.get()), view); // never a second one
    const core::SmartPtr<OpenButton> loose(new OpenButton("loose"));
    EXPECT_EQ(loose->visit(nullptr), nullptr);
    const core::SmartPtr<ComponentView> made(mSkin->skin(loose.get()));
    EXPECT_EQ(made->getComponent(), loose.get());
}
