#include "nui/ui/components/Checkbox.h"

#include "nui/ui/ManagerTest.h"
#include "support/MessageOf.h"

#include "nengine/scene/meshes/TextMesh.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <vector>

using namespace nurel::ui;
using components::Checkbox;
using components::Label;
using nurel::input::Keyboard;
using test::messageOf;

namespace {

constexpr unsigned int HOVER = Component::STATE_HOVER;
constexpr unsigned int ACTIVE = Component::STATE_ACTIVE;
constexpr unsigned int RELEASED = Component::STATE_RELEASED;
constexpr unsigned int CHECKED = Component::STATE_CHECKED;
constexpr unsigned int FOCUSED = Component::STATE_FOCUSED;
constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;

class OpenCheckbox : public Checkbox {
public:
    explicit OpenCheckbox(const char *name) : Checkbox(name) {}
    OpenCheckbox(const char *name, const char *element) : Checkbox(name, element) {}

    using Checkbox::setClean;
    using Checkbox::visit;

    static void clean(Component &component) { (component.*&OpenCheckbox::setClean)(DIRTY_ALL); }
};

class CheckboxTest : public test::ManagerTest {
public:
    CheckboxTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mCheckbox = new OpenCheckbox("checkbox");
        place(*mCheckbox, 100, 100, 200, 100);
        mPanel->addChild(mCheckbox.get());
        frame();
    }

    UIEventHandler *sendClick() {
        const Ray ray;
        const CursorPosition cursor;
        return mCheckbox->handleEvent(ClickEvent(ray, cursor, cursor));
    }

    unsigned int stateOfCheck() const { return mCheckbox->getCheck()->getState(); }
    unsigned int stateOfLabel() const { return mCheckbox->getLabel()->getState(); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenCheckbox> mCheckbox; ///< around (200, 150)
};

/// Notes what it is told.
class NotingCheckbox : public Checkbox {
public:
    using Checkbox::Checkbox;
    void setChecked(bool checked) override {
        told.push_back(checked);
        Checkbox::setChecked(checked);
    }
    std::vector<bool> told;
};

core::SmartPtr<Checkbox> cloneOf(const Checkbox &checkbox) {
    return static_cast<Checkbox *>(checkbox.clone());
}

} // namespace

TEST_F(CheckboxTest, HasItsDefaults) {
    const core::SmartPtr<Checkbox> checkbox(new Checkbox);
    EXPECT_STREQ(checkbox->getName(), "");
    EXPECT_STREQ(Checkbox::ELEMENT, "checkbox");
    EXPECT_EQ(checkbox->getElement(), "checkbox");
    EXPECT_STREQ(checkbox->getType().getName(), "Checkbox");
    EXPECT_TRUE(checkbox->instanceOf(Container::TYPE));
    EXPECT_EQ(checkbox->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x80 | 0x1);
    EXPECT_EQ(checkbox->getScrollMask(), 0u);
    EXPECT_FALSE(checkbox->isChecked());
    EXPECT_EQ(checkbox->getLabel(), nullptr);
    EXPECT_EQ(checkbox->getChildCount(), 1u);
}

TEST_F(CheckboxTest, HasAMarkFromTheStart) {
    const core::SmartPtr<OpenCheckbox> checkbox(new OpenCheckbox("name", "special"));
    EXPECT_EQ(checkbox->getElement(), "special");
    EXPECT_EQ(checkbox->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x80);
    EXPECT_EQ(checkbox->getScrollMask(), 0u);
    components::Panel *check = checkbox->getCheck();
    ASSERT_NE(check, nullptr);
    EXPECT_EQ(checkbox->getChildAt(0), check);
    EXPECT_STREQ(check->getName(), "check");
    EXPECT_EQ(check->getElement(), "special");
    EXPECT_EQ(check->getEventMask(), 0u);
    EXPECT_EQ(check->getState(), 0u);
    EXPECT_TRUE(check->instanceOf(components::Panel::TYPE));
}

// --- text ---

TEST_F(CheckboxTest, TheTextOfOneThatIsDisabledAlreadyIsDisabledToo) {
    const core::SmartPtr<Checkbox> control(new Checkbox("control"));
    control->setEnabled(false);
    control->setText("text");
    EXPECT_EQ(control->getLabel()->getState(), static_cast<unsigned int>(Component::STATE_DISABLED));
    control->setEnabled(true);
    EXPECT_EQ(control->getLabel()->getState(), 0U);
}

TEST_F(CheckboxTest, MakesItsLabelWithTheFirstText) {
    mCheckbox->setElement("special");
    mCheckbox->addClass("big");
    mCheckbox->setText("Text");
    Label *label = mCheckbox->getLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_STREQ(label->getText(), "Text");
    EXPECT_STREQ(label->getName(), "label");
    EXPECT_EQ(label->getElement(), "special");
    EXPECT_EQ(label->getEventMask(), 0u);
    EXPECT_EQ(label->getZIndex(), 0);
    EXPECT_TRUE(label->hasClass("big"));
    EXPECT_EQ(label->getTextMesh()->getHorizontalAlignment(), 0u); // as any label has them
    EXPECT_EQ(label->getTextMesh()->getVerticalAlignment(), 1u);
    EXPECT_EQ(mCheckbox->getChildIndex(label), 1);
    mCheckbox->setText(nullptr);
    EXPECT_EQ(mCheckbox->getLabel(), label);
    EXPECT_STREQ(mCheckbox->getText(), "");
}

TEST_F(CheckboxTest, MakesItsLabelWhenAskedForTheText) {
    EXPECT_STREQ(mCheckbox->getText(), "");
    ASSERT_NE(mCheckbox->getLabel(), nullptr);
    EXPECT_EQ(mCheckbox->ensureLabel(), mCheckbox->getLabel());
    EXPECT_EQ(mCheckbox->getChildCount(), 2u);
}

TEST_F(CheckboxTest, PutsItsLabelUnderItsLayout) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mCheckbox->setLayout(layout.get());
    mCheckbox->setText("Text");
    EXPECT_TRUE(layout->hasComponent(mCheckbox->getLabel()));
    EXPECT_FALSE(layout->hasComponent(mCheckbox->getCheck())); // it was there before
}

TEST_F(CheckboxTest, HasANewLabelAfterTheOldOneWasTakenOut) {
    mCheckbox->setText("old");
    const core::SmartPtr<Label> old(mCheckbox->getLabel());
    mCheckbox->removeChild(old.get());
    EXPECT_EQ(mCheckbox->getLabel(), nullptr);
    mCheckbox->addClass("late");
    mCheckbox->removeClass("late");
    sendClick();
    EXPECT_EQ(old->getState(), 0u);
    EXPECT_STREQ(mCheckbox->getText(), "");
    EXPECT_NE(mCheckbox->getLabel(), old.get());
    mCheckbox->removeChild(mCheckbox->getLabel());
    mCheckbox->addChild(old.get());
    EXPECT_EQ(mCheckbox->getLabel(), nullptr); // the last one made is asked for
}

TEST_F(CheckboxTest, KeepsItsMarkWhenThatIsTakenOut) {
    mCheckbox->clearChildren();
    ASSERT_NE(mCheckbox->getCheck(), nullptr);
    sendClick();
    EXPECT_TRUE(mCheckbox->isChecked());
    EXPECT_EQ(stateOfCheck(), CHECKED);
    mCheckbox->addChild(mCheckbox->getCheck());
    mCheckbox->setChecked(false);
    EXPECT_EQ(stateOfCheck(), 0u);
}

TEST_F(CheckboxTest, LetsHitsThroughItsParts) {
    mCheckbox->setText("Text");
    frame();
    moveTo(200, 150);
    EXPECT_EQ(manager().getComponentAtCursor(), mCheckbox.get());
}

// --- classes ---

TEST_F(CheckboxTest, HandsItsClassesOn) {
    mCheckbox->setText("Text");
    Label &label = *mCheckbox->getLabel();
    components::Panel &check = *mCheckbox->getCheck();
    frame();
    OpenCheckbox::clean(*mCheckbox);
    OpenCheckbox::clean(label);
    OpenCheckbox::clean(check);
    mCheckbox->addClass("a");
    mCheckbox->addClass("b");
    for (const Component *part : {static_cast<Component *>(mCheckbox.get()), static_cast<Component *>(&label),
                                  static_cast<Component *>(&check)}) {
        EXPECT_TRUE(part->hasClass("a")) << part->getName();
        EXPECT_EQ(part->isDirty(STYLE), STYLE) << part->getName();
    }
    mCheckbox->removeClass("a");
    EXPECT_FALSE(mCheckbox->hasClass("a"));
    EXPECT_FALSE(label.hasClass("a"));
    EXPECT_FALSE(check.hasClass("a"));
    EXPECT_TRUE(label.hasClass("b"));
    mCheckbox->removeClass(nullptr);
    mCheckbox->removeClass(mCheckbox->getClasses().begin()->first); // its own copy of the name
    EXPECT_FALSE(label.hasClass("b"));
    EXPECT_FALSE(check.hasClass("b"));
    mCheckbox->addClass("c");
    mCheckbox->removeClasses();
    EXPECT_TRUE(mCheckbox->getClasses().empty());
    EXPECT_TRUE(label.getClasses().empty());
    EXPECT_TRUE(check.getClasses().empty());
}

// --- checking ---

TEST_F(CheckboxTest, ShowsItsCheckedStateByTheMarkAlone) {
    mCheckbox->setText("Text");
    frame();
    OpenCheckbox::clean(*mCheckbox->getCheck());
    mCheckbox->setChecked(true);
    EXPECT_TRUE(mCheckbox->isChecked());
    EXPECT_EQ(mCheckbox->getState(), 0u);
    EXPECT_EQ(stateOfCheck(), CHECKED);
    EXPECT_EQ(stateOfLabel(), 0u); // until the next event
    EXPECT_TRUE(mCheckbox->getCheck()->isDirty(Component::DIRTY_VIEW));
    OpenCheckbox::clean(*mCheckbox->getCheck());
    mCheckbox->setChecked(true);
    EXPECT_EQ(mCheckbox->getCheck()->isDirty(Component::DIRTY_VIEW), 0u);
    mCheckbox->setChecked(false);
    EXPECT_FALSE(mCheckbox->isChecked());
    EXPECT_EQ(stateOfCheck(), 0u);
}

TEST_F(CheckboxTest, AClickTurnsItOver) {
    Lines seen;
    mCheckbox->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        seen.emplace_back(mCheckbox->isChecked() ? "on" : "off");
        return false;
    });
    click(200, 150);
    click(200, 150);
    click(200, 150);
    EXPECT_EQ(seen, (Lines{"on", "off", "on"}));
    EXPECT_TRUE(mCheckbox->isChecked());
    EXPECT_EQ(sendClick(), mCheckbox.get());
    EXPECT_FALSE(mCheckbox->isChecked());
}

TEST_F(CheckboxTest, AClickGoesThroughTheSetterThatADerivedClassHas) {
    const core::SmartPtr<NotingCheckbox> checkbox(new NotingCheckbox("noting"));
    const Ray ray;
    const CursorPosition cursor;
    checkbox->handleEvent(ClickEvent(ray, cursor, cursor));
    checkbox->handleEvent(ClickEvent(ray, cursor, cursor));
    EXPECT_EQ(checkbox->told, (std::vector<bool>{true, false}));
}

TEST_F(CheckboxTest, CheckingLeavesTheOtherStatesOfTheMark) {
    moveTo(200, 150);
    ASSERT_EQ(stateOfCheck(), HOVER);
    mCheckbox->setChecked(true);
    EXPECT_EQ(stateOfCheck(), HOVER | CHECKED);
    mCheckbox->setChecked(false);
    EXPECT_EQ(stateOfCheck(), HOVER);
}

TEST_F(CheckboxTest, AReleaseAwayFromItTurnsNothingOver) {
    moveTo(200, 150);
    press();
    moveTo(600, 500);
    release();
    EXPECT_FALSE(mCheckbox->isChecked());
}

TEST_F(CheckboxTest, AClickOnADisabledOneTurnsNothingOver) {
    mCheckbox->setEnabled(false);
    EXPECT_EQ(sendClick(), mPanel.get());
    EXPECT_FALSE(mCheckbox->isChecked());
}

TEST_F(CheckboxTest, TheReturnKeyDoesNothing) {
    mCheckbox->setTabStop(0);
    mCheckbox->setFocus();
    ASSERT_EQ(manager().getFocus(), mCheckbox.get());
    int clicks = 0;
    mCheckbox->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) {
        ++clicks;
        return false;
    });
    key(Keyboard::K_RETURN, true);
    EXPECT_EQ(clicks, 0);
    EXPECT_FALSE(mCheckbox->isChecked());
    mPanel->enableEvents(UIEvent::ET_KEY_EVENT);
    EXPECT_EQ(mCheckbox->handleEvent(KeyEvent(Keyboard::K_RETURN, true)), mPanel.get());
}

TEST_F(CheckboxTest, ItsPartsFollowItsStateAndKeepTheMark) {
    mCheckbox->setText("Text");
    mCheckbox->setTabStop(0);
    frame();
    moveTo(200, 150);
    EXPECT_EQ(stateOfCheck(), HOVER);
    EXPECT_EQ(stateOfLabel(), HOVER);
    press();
    EXPECT_EQ(mCheckbox->getState(), HOVER | ACTIVE | FOCUSED);
    EXPECT_EQ(stateOfCheck(), HOVER | ACTIVE);
    EXPECT_EQ(stateOfLabel(), HOVER | ACTIVE);
    release();
    EXPECT_EQ(mCheckbox->getState(), HOVER | RELEASED | FOCUSED);
    EXPECT_EQ(stateOfCheck(), HOVER | RELEASED | CHECKED);
    EXPECT_EQ(stateOfLabel(), HOVER | RELEASED | CHECKED); // the label has the mark's bit from here on
    moveTo(600, 500);
    EXPECT_EQ(stateOfCheck(), RELEASED | CHECKED);
    EXPECT_EQ(stateOfLabel(), RELEASED | CHECKED);
    click(200, 150);
    EXPECT_EQ(stateOfCheck(), HOVER | RELEASED);
    EXPECT_EQ(stateOfLabel(), HOVER | RELEASED);
}

TEST_F(CheckboxTest, MarksOnlyThePartsWhoseStateChanges) {
    mCheckbox->setText("Text");
    frame();
    mCheckbox->setChecked(true);
    OpenCheckbox::clean(*mCheckbox->getCheck());
    OpenCheckbox::clean(*mCheckbox->getLabel());
    mCheckbox->handleEvent(TextEvent("x"));
    EXPECT_EQ(mCheckbox->getCheck()->isDirty(Component::DIRTY_VIEW), 0u);
    EXPECT_TRUE(mCheckbox->getLabel()->isDirty(Component::DIRTY_VIEW));
}

// --- callbacks that remove ---

TEST_F(CheckboxTest, MayBeRemovedByItsClick) {
    mCheckbox->setText("Text");
    mCheckbox->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        mPanel->clearChildren();
        return false;
    });
    Checkbox *checkbox = mCheckbox.get();
    mCheckbox = nullptr;
    const Ray ray;
    const CursorPosition cursor;
    EXPECT_EQ(checkbox->handleEvent(ClickEvent(ray, cursor, cursor)), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
}

TEST_F(CheckboxTest, MayBeRemovedByItsPressTogetherWithItsParent) {
    mCheckbox->MouseCallbacks::subscribeCallback([this](UIEventHandler *, const MouseEvent &) {
        mWidget->clearChildren();
        return false;
    });
    mCheckbox = nullptr;
    mPanel = nullptr;
    click(200, 150);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
}

// --- clones ---

TEST_F(CheckboxTest, ACloneIsCheckedAsItsSourceWithPartsOfItsOwn) {
    mCheckbox->setText("Text");
    mCheckbox->addClass("big");
    mCheckbox->setChecked(true);
    const core::SmartPtr<Checkbox> copy = cloneOf(*mCheckbox);
    EXPECT_EQ(&copy->getType(), &Checkbox::TYPE);
    EXPECT_STREQ(copy->getName(), "checkbox");
    EXPECT_TRUE(copy->isChecked());
    EXPECT_EQ(copy->getChildCount(), 2u);
    ASSERT_NE(copy->getCheck(), nullptr);
    EXPECT_NE(copy->getCheck(), mCheckbox->getCheck());
    EXPECT_EQ(copy->getCheck()->getParent(), copy.get());
    EXPECT_EQ(copy->getCheck()->getState(), CHECKED);
    EXPECT_EQ(copy->getState(), 0u);
    EXPECT_EQ(copy->getCheck()->getEventMask(), 0u);
    EXPECT_EQ(&copy->getCheck()->getType(), &mCheckbox->getCheck()->getType());
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_STREQ(copy->getText(), "Text");
    EXPECT_EQ(&copy->getLabel()->getType(), &mCheckbox->getLabel()->getType());
    EXPECT_NE(&copy->getLabel()->getType(), &Label::TYPE);
    EXPECT_TRUE(copy->getLabel()->hasClass("big"));
    EXPECT_EQ(copy->getLabel()->getElement(), "checkbox");
    copy->setChecked(false);
    copy->setText("other");
    EXPECT_EQ(stateOfCheck(), CHECKED);
    EXPECT_STREQ(mCheckbox->getText(), "Text");
    EXPECT_FALSE(cloneOf(*copy)->isChecked());
}

TEST_F(CheckboxTest, ACloneFindsPartsThatWereRenamed) {
    mCheckbox->setText("Text");
    mCheckbox->getLabel()->setName("caption");
    mCheckbox->getCheck()->setName("tick");
    const core::SmartPtr<Checkbox> copy = cloneOf(*mCheckbox);
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_STREQ(copy->getLabel()->getName(), "caption");
    ASSERT_NE(copy->getCheck(), nullptr);
    EXPECT_STREQ(copy->getCheck()->getName(), "tick");
}

TEST_F(CheckboxTest, ACloneTakesThePartsOfItsOwnNamesAheadOfThoseOfACheckboxInside) {
    const core::SmartPtr<Checkbox> inside(new Checkbox("inside"));
    inside->setText("inside");
    inside->setZIndex(-1);
    mCheckbox->setText("Text");
    mCheckbox->getLabel()->setName("caption");
    mCheckbox->getCheck()->setName("tick");
    mCheckbox->addChild(inside.get());
    ASSERT_EQ(mCheckbox->getChildIndex(inside.get()), 0);
    const core::SmartPtr<Checkbox> copy = cloneOf(*mCheckbox);
    EXPECT_EQ(copy->getLabel()->getParent(), copy.get());
    EXPECT_STREQ(copy->getText(), "Text");
    EXPECT_EQ(copy->getCheck()->getParent(), copy.get());
    // Of equal names it is the first one, depth first
    mCheckbox->getLabel()->setName("label");
    EXPECT_STREQ(cloneOf(*mCheckbox)->getText(), "inside");
}

TEST_F(CheckboxTest, ACloneIsCheckedThroughTheSetterThatADerivedClassHas) {
    const core::SmartPtr<NotingCheckbox> target(new NotingCheckbox("target"));
    nurel::core::CloningOptions options;
    mCheckbox->_clone(target.get(), options);
    mCheckbox->setChecked(true);
    mCheckbox->_clone(target.get(), options);
    EXPECT_EQ(target->told, (std::vector<bool>{false, true}));
    EXPECT_EQ(target->getCheck()->getState(), CHECKED);
}

TEST_F(CheckboxTest, ACloneFindsPartsDeepDownAndNothingElseOfTheirNames) {
    mCheckbox->setText("Text");
    const core::SmartPtr<Label> label(mCheckbox->getLabel());
    components::Panel *check = mCheckbox->getCheck();
    mCheckbox->clearChildren();
    mCheckbox->addChild(new Label("label"));
    mCheckbox->addChild(new Panel("check"));
    const core::SmartPtr<Panel> outer(new Panel("outer"));
    const core::SmartPtr<Panel> inner(new Panel("inner"));
    inner->addChild(label.get());
    inner->addChild(check);
    outer->addChild(inner.get());
    mCheckbox->addChild(outer.get());
    ASSERT_EQ(mCheckbox->getLabel(), label.get());
    mCheckbox->setChecked(true);
    const core::SmartPtr<Checkbox> copy = cloneOf(*mCheckbox);
    ASSERT_NE(copy->getLabel(), nullptr);
    EXPECT_STREQ(copy->getLabel()->getText(), "Text");
    EXPECT_STREQ(copy->getLabel()->getParent()->getName(), "inner");
    ASSERT_NE(copy->getCheck(), nullptr);
    EXPECT_STREQ(copy->getCheck()->getParent()->getName(), "inner");
    EXPECT_EQ(copy->getCheck()->getState(), CHECKED);
}

TEST_F(CheckboxTest, ACloneOfOneWithoutItsPartsDoesWithoutThem) {
    mCheckbox->setText("Text");
    mCheckbox->setChecked(true);
    mCheckbox->clearChildren();
    const core::SmartPtr<Checkbox> copy = cloneOf(*mCheckbox);
    EXPECT_EQ(copy->getCheck(), nullptr);
    EXPECT_EQ(copy->getLabel(), nullptr);
    EXPECT_TRUE(copy->isChecked());
    copy->setChecked(false);
    copy->addClass("a");
    copy->removeClass("a");
    copy->removeClasses();
    const Ray ray;
    const CursorPosition cursor;
    copy->handleEvent(ClickEvent(ray, cursor, cursor));
    EXPECT_TRUE(copy->isChecked());
    copy->setText("new");
    EXPECT_STREQ(copy->getText(), "new");
    EXPECT_EQ(cloneOf(*copy)->getCheck(), nullptr);
}

TEST_F(CheckboxTest, AClonesTargetLosesWhatItHad) {
    const core::SmartPtr<Checkbox> target(new Checkbox("target"));
    target->setText("old");
    target->setChecked(true);
    nurel::core::CloningOptions options;
    mCheckbox->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getLabel(), nullptr);
    EXPECT_FALSE(target->isChecked());
    EXPECT_EQ(target->getCheck()->getState(), 0u);
    mCheckbox->_clone(mCheckbox.get(), options);
    EXPECT_EQ(mCheckbox->getChildCount(), 1u);
}

TEST_F(CheckboxTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mCheckbox->_clone(mPanel.get(), options); }), "Checkbox cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mCheckbox->_clone(nullptr, options); }), "Checkbox cannot be cloned into nothing");
}

// --- views ---

TEST_F(CheckboxTest, IsSkinnedAsACheckboxWithItsParts) {
    ASSERT_NE(mCheckbox->getView(), nullptr);
    ASSERT_NE(mCheckbox->getCheck()->getView(), nullptr);
    EXPECT_EQ(mCheckbox->getCheck()->getView()->getParent(), mCheckbox->getView()->getContent());
    mCheckbox->setText("Text");
    EXPECT_NE(mCheckbox->getLabel()->getView(), nullptr);
    ComponentView *view = mCheckbox->getView();
    EXPECT_EQ(mCheckbox->visit(mSkin.get()), view);
    const core::SmartPtr<OpenCheckbox> loose(new OpenCheckbox("loose"));
    EXPECT_EQ(loose->visit(nullptr), nullptr);
}
