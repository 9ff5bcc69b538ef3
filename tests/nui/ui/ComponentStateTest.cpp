#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "foundation/core/Exception.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <string>

namespace test {

namespace {

class ComponentState : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        parent = new Box("parent");
        child = new Leaf("child");
        parent->addChild(child.get());
        clean();
    }

    void TearDown() override {
        child = nullptr;
        parent = nullptr;
        EngineFixture::TearDown();
    }

    void clean() {
        parent->clean();
        child->clean();
    }

    core::SmartPtr<Box> parent;
    core::SmartPtr<Leaf> child;
};

class Data : public Component::UserData {
public:
    explicit Data(bool &alive) : mAlive(alive) { mAlive = true; }
    ~Data() override { mAlive = false; }

private:
    bool &mAlive;
};

std::string classesOf(const Component &component) {
    std::string names;
    for (const auto &entry : component.getClasses())
        names += std::string(entry.first) + " ";
    return names;
}

} // namespace

TEST_F(ComponentState, ANewComponentHasItsDefaults) {
    const Leaf leaf("leaf", "element");
    EXPECT_STREQ(leaf.getName(), "leaf");
    EXPECT_EQ(leaf.getElement(), "element");
    EXPECT_EQ(leaf.getHandler(), nullptr);
    EXPECT_EQ(leaf.getTabStop(), -1);
    EXPECT_EQ(leaf.getView(), nullptr);
    EXPECT_FALSE(leaf.hasView());
    EXPECT_FALSE(leaf.isContainer());
    EXPECT_TRUE(leaf.isSelfVisible());
    EXPECT_TRUE(leaf.isVisible());
    EXPECT_TRUE(leaf.isEnabled());
    EXPECT_EQ(leaf.getOpacity(), 1);
    EXPECT_FALSE(leaf.hasUserData());
    EXPECT_FALSE(leaf.hasMesh());
    EXPECT_TRUE(leaf.getClasses().empty());
    EXPECT_FALSE(leaf.getClasses().isOwning());
    EXPECT_EQ(leaf.getState(), 0U);
    EXPECT_TRUE(Box().isContainer());
    EXPECT_EQ(Leaf(nullptr, nullptr).getElement(), "");
}

TEST_F(ComponentState, ClassesAreASet) {
    child->addClass("b");
    child->setClass("a");
    child->addClass("b");
    EXPECT_EQ(classesOf(*child), "a b ");
    EXPECT_TRUE(child->hasClass("a"));
    child->removeClass("a");
    EXPECT_FALSE(child->hasClass("a"));
    child->removeClasses();
    EXPECT_EQ(classesOf(*child), "");
    child->addClass(nullptr);
    child->removeClass(nullptr);
    EXPECT_FALSE(child->hasClass(nullptr));
    EXPECT_EQ(classesOf(*child), "");
}

TEST_F(ComponentState, EveryClassOperationMarksTheStyleEvenWhenNothingChanges) {
    child->addClass("a");
    EXPECT_EQ(child->dirty(), 0x18U);
    EXPECT_EQ(parent->dirty(), 0x20U);
    child->clean();
    child->addClass("a");
    EXPECT_EQ(child->dirty(), 0x18U);
    child->clean();
    child->removeClass("unknown");
    EXPECT_EQ(child->dirty(), 0x18U);
    child->clean();
    child->setClasses(child->getClasses());
    EXPECT_EQ(child->dirty(), 0x18U);
    EXPECT_EQ(classesOf(*child), "a ");
    child->removeClasses();
    child->clean();
    child->removeClasses();
    EXPECT_EQ(child->dirty(), 0x18U);
}

namespace {

class NotingClasses : public Leaf {
public:
    using Leaf::Leaf;
    void addClass(const char *name) override {
        added += std::string(name) + " ";
        Leaf::addClass(name);
    }
    std::string added;
};

} // namespace

TEST_F(ComponentState, SetClassesReplacesTheSetByAddClassInKeyOrder) {
    core::CKHashMapValue<bool> classes(false, false);
    for (const char *name : {"z", "a", "m"})
        classes.put(name, false); // only the presence counts
    NotingClasses leaf("leaf");
    leaf.addClass("old");
    leaf.setClasses(classes);
    EXPECT_EQ(leaf.added, "old a m z ");
    EXPECT_EQ(classesOf(leaf), "a m z ");
}

TEST_F(ComponentState, AnInvisibleComponentIsNotEnabled) {
    child->setVisible(false);
    EXPECT_FALSE(child->isEnabled());
    EXPECT_FALSE(child->isVisible());
    EXPECT_EQ(child->getState(), 0U);
    child->setVisible(true);
    EXPECT_TRUE(child->isEnabled());
    parent->setVisible(false);
    EXPECT_TRUE(child->isSelfVisible());
    EXPECT_FALSE(child->isVisible());
    EXPECT_FALSE(child->isEnabled());
}

TEST_F(ComponentState, DisablingChangesTheStateAndDropsTheHover) {
    child->setState(Component::STATE_HOVER | Component::STATE_ACTIVE);
    clean();
    child->setEnabled(false);
    EXPECT_EQ(child->getState(), 0x42U);
    EXPECT_EQ(child->dirty(), 0x10U);
    EXPECT_EQ(parent->dirty(), 0x20U);
    child->enableState(Component::STATE_HOVER);
    child->setEnabled(true);
    EXPECT_EQ(child->getState(), 0x02U);
}

TEST_F(ComponentState, SettingTheEnabledValueInForceDoesNothingAtAll) {
    child->setState(Component::STATE_HOVER);
    clean();
    child->setEnabled(true);
    EXPECT_EQ(child->getState(), 0x01U);
    EXPECT_EQ(child->dirty(), 0U);
    child->setEnabled(false);
    child->setState(Component::STATE_HOVER);
    clean();
    child->setEnabled(false);
    EXPECT_EQ(child->getState(), 0x01U);
    EXPECT_EQ(child->dirty(), 0U);
}

TEST_F(ComponentState, ADisabledParentDisablesItsChildren) {
    parent->setEnabled(false);
    EXPECT_FALSE(child->isEnabled());
    EXPECT_EQ(child->getState(), 0x40U);
    EXPECT_EQ(child->isDirty(0x10), 0x10U);
    parent->setEnabled(true);
    EXPECT_TRUE(child->isEnabled());
    EXPECT_EQ(child->getState(), 0U);
}

TEST_F(ComponentState, AChildOfAnEnabledParentStaysDisabledByItself) {
    child->setEnabled(false);
    parent->setEnabled(false);
    parent->setEnabled(true);
    EXPECT_EQ(child->getState(), 0x40U);
    EXPECT_FALSE(child->isEnabled());
}

TEST_F(ComponentState, APushedEnabledFlagMarksTheViewOnlyIfTheStateChanges) {
    child->setEnabled(false);
    clean();
    child->setParentEnabled(false);
    EXPECT_EQ(child->dirty(), 0U);
    child->setParentEnabled(false);
    child->setParentEnabled(true);
    EXPECT_EQ(child->dirty(), 0U);
    EXPECT_EQ(child->getState(), 0x40U);
}

TEST_F(ComponentState, HidingAParentDoesNotSetTheDisabledState) {
    // The enabled flag is stored along with the visible one without a word.
    parent->setVisible(false);
    EXPECT_FALSE(child->isEnabled());
    EXPECT_EQ(child->getState(), 0U);
    child->setParentEnabled(false);
    EXPECT_EQ(child->getState(), 0U);
}

TEST_F(ComponentState, APushedVisibleFlagMarksTheViewOnlyWhenTheComponentShows) {
    parent->forceDirty(0);
    child->setParentVisible(true);
    EXPECT_EQ(child->dirty(), 0U);
    child->setParentVisible(false);
    EXPECT_EQ(child->dirty(), 0U);
    child->setParentVisible(true);
    EXPECT_EQ(child->dirty(), 0x10U);
}

TEST_F(ComponentState, ShowingAChildMarksTheChildAndNotTheParentsContent) {
    child->setVisible(false);
    EXPECT_EQ(child->dirty(), 0x12U);
    EXPECT_EQ(parent->dirty(), 0x20U);
    clean();
    Leaf alone("alone");
    alone.clean();
    alone.setVisible(false);
    EXPECT_EQ(alone.dirty(), 0x10U);
    Box box("box");
    box.clean();
    box.setVisible(false);
    EXPECT_EQ(box.dirty(), 0x12U);
}

TEST_F(ComponentState, SettingTheVisibleValueInForceDoesNothingAlsoDuringAnAnimation) {
    child->setVisible(true);
    EXPECT_EQ(child->dirty(), 0U);
    AnimationContext *open = UIManager::getSingleton().beginAnimation();
    child->setVisible(true);
    EXPECT_TRUE(open->getAnimations().empty());
    child->setVisible(false);
    EXPECT_EQ(open->getAnimations().size(), 1U);
    EXPECT_TRUE(child->isVisible());
    UIManager::getSingleton().cancelAnimation();
}

TEST_F(ComponentState, AParentIsSetOnlyOnce) {
    Box other("other");
    try {
        child->setParent(&other);
        FAIL();
    } catch (const core::IllegalStateException &e) {
        EXPECT_STREQ(e.getMessage(), "A parent is already set on component child");
    }
    EXPECT_EQ(child->getParent(), parent.get());
}

TEST_F(ComponentState, AComponentCannotBeItsOwnParentsParent) {
    try {
        parent->setParent(parent.get());
        FAIL();
    } catch (const core::IllegalStateException &e) {
        EXPECT_STREQ(e.getMessage(), "Component parent cannot be put into itself or its own descendant parent");
    }
    EXPECT_FALSE(parent->hasParent());
}

TEST_F(ComponentState, ANewParentMarksEverythingAndPassesItsFlagsOn) {
    Box other("other");
    other.setVisible(false);
    other.setEnabled(false);
    core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    leaf->clean();
    other.addChild(leaf.get());
    EXPECT_EQ(leaf->dirty(), 0x7fU);
    EXPECT_FALSE(leaf->isVisible());
    EXPECT_FALSE(leaf->isEnabled());
    EXPECT_EQ(leaf->getHierrarchyDepth(), 1U);
    leaf->clean();
    other.removeChild(leaf.get());
    EXPECT_EQ(leaf->dirty(), 0x7fU);
    EXPECT_TRUE(leaf->isVisible());
    EXPECT_TRUE(leaf->isEnabled());
    EXPECT_EQ(leaf->getHierrarchyDepth(), 0U);
}

TEST_F(ComponentState, AnEnabledChildThatIsAddedToADisabledParentHasNoDisabledState) {
    // The enabled flag comes along with the visible one, so that nothing is left for it to change.
    Box other("other");
    other.setEnabled(false);
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    other.addChild(leaf.get());
    EXPECT_FALSE(leaf->isEnabled());
    EXPECT_TRUE(leaf->isVisible());
    EXPECT_FALSE(leaf->hasState(Component::STATE_DISABLED));
    EXPECT_TRUE(other.hasState(Component::STATE_DISABLED));
    other.removeChild(leaf.get());
    EXPECT_TRUE(leaf->isEnabled());
}

TEST_F(ComponentState, LeavingAParentStillMarksIt) {
    child->setParent(nullptr);
    EXPECT_EQ(child->dirty(), 0x7fU);
    EXPECT_EQ(parent->dirty(), 0x26U);
    EXPECT_FALSE(child->hasParent());
    clean();
    child->setParent(nullptr); // no other parent than before
    EXPECT_EQ(child->dirty(), 0U);
    EXPECT_EQ(parent->dirty(), 0U);
}

TEST_F(ComponentState, DepthsInTheTreeFollowItsRoot) {
    Box root("root");
    EXPECT_EQ(child->getHierrarchyDepth(), 1U);
    root.addChild(parent.get());
    EXPECT_EQ(parent->getHierrarchyDepth(), 1U);
    EXPECT_EQ(child->getHierrarchyDepth(), 2U);
    root.removeChild(parent.get());
    EXPECT_EQ(child->getHierrarchyDepth(), 1U);
}

TEST_F(ComponentState, AComponentIsItsOwnDescendant) {
    EXPECT_TRUE(child->isDescendantOf(child.get()));
    EXPECT_TRUE(child->isDescendantOf(parent.get()));
    EXPECT_FALSE(parent->isDescendantOf(child.get()));
    EXPECT_FALSE(child->isDescendantOf(nullptr));
}

TEST_F(ComponentState, StateOperationsMarkOnlyAChange) {
    child->enableState(0x11);
    EXPECT_EQ(child->getState(), 0x11U);
    EXPECT_EQ(child->dirty(), 0x10U);
    EXPECT_TRUE(child->hasState(0x30));
    EXPECT_FALSE(child->hasState(0x20));
    clean();
    child->enableState(0x01);
    child->disableState(0x40);
    child->setState(0x11);
    EXPECT_EQ(child->dirty(), 0U);
    child->disableState(0x01);
    EXPECT_EQ(child->getState(), 0x10U);
    EXPECT_EQ(child->dirty(), 0x10U);
}

TEST_F(ComponentState, TheTabStopIsStoredAndMarksTheView) {
    child->setTabStop(3);
    EXPECT_EQ(child->getTabStop(), 3);
    EXPECT_EQ(child->dirty(), 0x10U);
    clean();
    child->setTabStop(3);
    EXPECT_EQ(child->dirty(), 0x10U);
}

TEST_F(ComponentState, TheFocusIsTheManagers) {
    EXPECT_FALSE(child->hasFocus());
    child->setFocus();
    EXPECT_FALSE(child->hasFocus()); // no tab stop
    child->setTabStop(0);
    child->setFocus();
    EXPECT_TRUE(child->hasFocus());
    EXPECT_EQ(UIManager::getSingleton().getFocus(), child.get());
    EXPECT_TRUE(child->hasState(Component::STATE_FOCUSED));
}

TEST_F(ComponentState, OnlyWhatWasEnabledAndVisibleHasTheFocusCheckedWhenItIsShownOrHidden) {
    const core::SmartPtr<Leaf> other(new Leaf("other"));
    other->setEnabled(false);
    child->setTabStop(0);
    child->setFocus();
    child->setParentEnabled(false); // it can no longer keep the focus, which nobody has looked at
    ASSERT_TRUE(child->hasFocus());
    other->setVisible(false); // visible, but disabled
    EXPECT_TRUE(child->hasFocus());
    other->setVisible(true);
    EXPECT_TRUE(child->hasFocus());
    const core::SmartPtr<Leaf> hidden(new Leaf("hidden"));
    const core::SmartPtr<Leaf> shown(new Leaf("shown"));
    child->setParentEnabled(true);
    hidden->setVisible(false);
    child->setParentEnabled(false);
    hidden->setVisible(true); // enabled, but it was hidden
    EXPECT_TRUE(child->hasFocus());
    shown->setVisible(false);
    EXPECT_FALSE(child->hasFocus());
}

TEST_F(ComponentState, TheElementMayBeChanged) {
    child->setElement("other");
    EXPECT_EQ(child->getElement(), "other");
    child->setElement(nullptr);
    EXPECT_EQ(child->getElement(), "");
}

TEST_F(ComponentState, UserDataIsHeld) {
    bool alive = false;
    child->setUserData(new Data(alive));
    EXPECT_TRUE(child->hasUserData());
    EXPECT_NE(child->getUserData(), nullptr);
    EXPECT_TRUE(alive);
    child->clearUserData();
    EXPECT_FALSE(alive);
    EXPECT_FALSE(child->hasUserData());
}

TEST_F(ComponentState, TheSkinIsThatOfTheNearestViewUpwards) {
    EXPECT_EQ(child->getSkin(), &skin());
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    parent->setView(new ComponentView("view", parent.get(), plain.get()));
    EXPECT_EQ(child->getSkin(), plain.get());
    child->setView(new ComponentView("view", child.get(), &skin()));
    EXPECT_EQ(child->getSkin(), &skin());
}

TEST_F(ComponentState, AWidgetWithoutAViewNamesTheSkin) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("widget"));
    widget->addChild(parent.get());
    EXPECT_EQ(child->getSkin(), &skin());
    widget->setSkinName("plain");
    EXPECT_EQ(child->getSkin(), plain.get());
    widget->setSkinName("unknown");
    EXPECT_EQ(child->getSkin(), &skin());
    SkinManager::getSingleton().setDefaultSkin(nullptr);
    EXPECT_EQ(child->getSkin(), nullptr);
}

TEST_F(ComponentState, SetSkinMakesAViewUnlessThereIsOneOfTheSkin) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    child->setSkin(plain.get());
    ASSERT_TRUE(child->hasView());
    const core::SmartPtr<ComponentView> first(child->getView());
    EXPECT_EQ(first->getSkin(), plain.get());
    child->setSkin(plain.get());
    EXPECT_EQ(child->getView(), first.get());
    child->setSkin(plain.get(), true);
    EXPECT_NE(child->getView(), first.get());
    EXPECT_EQ(plain->made, 2);
    child->setSkin(nullptr, true);
    EXPECT_TRUE(child->hasView());
}

TEST_F(ComponentState, ANewViewGoesIntoTheParentsAndMarksEverything) {
    parent->visit(&skin());
    const core::SmartPtr<ComponentView> first(child->getView());
    ASSERT_TRUE(first);
    EXPECT_EQ(parent->getView()->getContent()->getChild(0), first.get());
    clean();
    child->setView(first.get());
    EXPECT_EQ(child->dirty(), 0U);
    const core::SmartPtr<ComponentView> second(new ComponentView("second", child.get(), &skin()));
    child->setView(second.get());
    EXPECT_EQ(first->getParent(), nullptr);
    ASSERT_EQ(parent->getView()->getContent()->getChildCount(), 1U);
    EXPECT_EQ(parent->getView()->getContent()->getChild(0), second.get());
    EXPECT_EQ(child->dirty(), 0x7fU);
    EXPECT_EQ(parent->isDirty(0x22), 0x22U);
    child->setView(nullptr);
    EXPECT_FALSE(child->hasView());
    EXPECT_EQ(parent->getView()->getContent()->getChildCount(), 0U);
}

TEST_F(ComponentState, ClearingTheViewLeavesItInTheScene) {
    parent->visit(&skin());
    const core::SmartPtr<ComponentView> view(child->getView());
    child->clearView();
    EXPECT_FALSE(child->hasView());
    EXPECT_EQ(view->getParent(), parent->getView()->getContent());
    EXPECT_EQ(view->getComponent(), nullptr);
    frame(); // a view without its component is harmless
}

TEST_F(ComponentState, AViewOutlivesItsComponent) {
    core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    const core::SmartPtr<ComponentView> view(new ComponentView("view", leaf.get(), &skin()));
    leaf->setView(view.get());
    EXPECT_EQ(view->getComponent(), leaf.get());
    leaf = nullptr;
    EXPECT_EQ(view->getComponent(), nullptr);
    view->updateView();
    view->update(0, true);
}

TEST_F(ComponentState, TheDestructorMakesTheManagerForgetTheComponent) {
    core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    leaf->setTabStop(0);
    leaf->setFocus();
    ASSERT_TRUE(leaf->hasFocus());
    leaf = nullptr;
    EXPECT_EQ(UIManager::getSingleton().getFocus(), nullptr);
}

namespace {

/// Its focus events are held by a SmartPtr for a while, as a careful callback does.
void holdForAWhile(Component &component, int &calls) {
    component.FocusCallbacks::subscribeCallback([&calls](UIEventHandler *handler, const FocusEvent &) {
        const core::SmartPtr<UIEventHandler> held(handler);
        ++calls;
        return false;
    });
}

} // namespace

TEST_F(ComponentState, ADyingComponentThatACallbackHoldsForAWhileDiesOnce) {
    int calls = 0;
    auto *leaf = new Leaf("leaf");
    holdForAWhile(*leaf, calls);
    leaf->setTabStop(0);
    leaf->setFocus();
    delete leaf;
    auto *box = new Box("box");
    holdForAWhile(*box, calls);
    box->setTabStop(0);
    box->setFocus();
    delete box;
    EXPECT_EQ(calls, 4); // gained and lost
}

TEST_F(ComponentState, ACallbackThatFailsWhileItsComponentDiesIsLogged) {
    auto *leaf = new Leaf("leaf");
    leaf->setTabStop(0);
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback(
        [](UIEventHandler *, const FocusEvent &) -> bool { throw core::IllegalStateException("not now"); });
    delete leaf;
    EXPECT_EQ(log().takeOne(logging::Level::ERROR), "A callback failed while leaf was destroyed: not now");
    EXPECT_EQ(UIManager::getSingleton().getFocus(), nullptr);
}

TEST_F(ComponentState, AComponentThatNobodyCountsIsNotDestroyedByWhatItsCallbacksDo) {
    bool destroyed = false;
    class Noting : public Leaf {
    public:
        explicit Noting(bool &flag) : Leaf("noting"), mFlag(flag) {}
        ~Noting() override { mFlag = true; }

    private:
        bool &mFlag;
    };
    auto *leaf = new Noting(destroyed);
    leaf->setTabStop(0);
    leaf->FocusCallbacks::subscribeCallback([leaf](UIEventHandler *, const FocusEvent &) {
        leaf->setEnabled(false);
        return true;
    });
    leaf->setFocus();
    EXPECT_FALSE(destroyed);
    delete leaf;
}

TEST_F(ComponentState, AComponentMayOutliveManagerAndEngine) {
    auto *leaf = new Leaf("leaf");
    auto *box = new Box("box");
    stopEngine();
    leaf->setPosition(Vector3(1, 2, 3));
    leaf->setVisible(false);
    leaf->setFocus();
    EXPECT_FALSE(leaf->hasFocus());
    leaf->update();
    delete leaf;
    delete box;
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(ComponentState, ACopySharesTheViewButStandsInNoTree) {
    child->setView(new ComponentView("view", child.get(), &skin()));
    child->addClass("a");
    {
        const Leaf copy(*child);
        EXPECT_EQ(copy.getParent(), nullptr);
        EXPECT_EQ(copy.getView(), child->getView());
        EXPECT_EQ(classesOf(copy), "a ");
    }
    EXPECT_EQ(child->getView()->getComponent(), child.get());
    Leaf assigned("assigned");
    assigned = *child;
    EXPECT_STREQ(assigned.getName(), "child");
    EXPECT_EQ(assigned.getParent(), nullptr);
}

} // namespace test
