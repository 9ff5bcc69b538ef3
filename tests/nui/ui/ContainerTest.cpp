#include "nui/ui/Container.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "foundation/core/Exception.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace test {

namespace {

class ContainerChildren : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        box = new Box("box");
    }

    void TearDown() override {
        box = nullptr;
        EngineFixture::TearDown();
    }

    Leaf *add(const char *name, int zIndex = 0) {
        const core::SmartPtr<Leaf> leaf(new Leaf(name));
        leaf->setZIndex(zIndex);
        box->addChild(leaf.get());
        return leaf.get();
    }

    /// Names of all entries, bars included.
    static std::string order(const Container &container) {
        std::string names;
        for (unsigned int i = 0; container.getChildIndex(nullptr) < 0 && i < entries(container); ++i)
            names += std::string(container.getChildAt(i)->getName()) + " ";
        return names;
    }

    static unsigned int entries(const Container &container) {
        unsigned int count = container.getChildCount();
        for (const Component *bar : {container.getScrollInfoH().bar, container.getScrollInfoV().bar})
            count += bar ? 1 : 0;
        return count;
    }

    /// Names of the views' components in the container's content.
    static std::string viewOrder(const Container &container) {
        std::string names;
        for (const auto &frame : container.getView()->getContent()->getChildren())
            names += std::string(static_cast<const ComponentView &>(*frame).getComponent()->getName()) + " ";
        return names;
    }

    void clean() {
        box->clean();
        for (unsigned int i = 0; i < box->getChildCount(); ++i)
            static_cast<Leaf *>(box->getChildAt(i))->clean();
    }

    core::SmartPtr<Box> box;
};

} // namespace

TEST_F(ContainerChildren, StandInTheOrderOfTheirZIndexes) {
    add("5a", 5);
    add("1", 1);
    add("5b", 5);
    add("3", 3);
    EXPECT_EQ(order(*box), "1 3 5a 5b ");
    EXPECT_EQ(box->getZIndexMin(), 0);
    EXPECT_EQ(box->getZIndexMax(), 5);
    add("5c", 5); // equal to the maximum: appended
    EXPECT_EQ(order(*box), "1 3 5a 5b 5c ");
    add("-2", -2);
    EXPECT_EQ(box->getZIndexMin(), -2);
}

TEST_F(ContainerChildren, AreHeldByTheirContainer) {
    Leaf *leaf = add("leaf");
    EXPECT_EQ(leaf->getRefCount(), 1U);
    EXPECT_EQ(leaf->getParent(), box.get());
    EXPECT_TRUE(box->hasChild(leaf));
    EXPECT_EQ(box->getChildIndex(leaf), 0);
    EXPECT_EQ(box->getChildAt(0), leaf);
}

TEST_F(ContainerChildren, AddingMarksTheContainerAndItsChain) {
    Box outer("outer");
    outer.addChild(box.get());
    outer.clean();
    box->clean();
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    leaf->clean();
    box->addChild(leaf.get());
    EXPECT_EQ(box->dirty(), 0x12U);
    EXPECT_EQ(outer.dirty(), 0x20U);
    EXPECT_EQ(leaf->dirty(), 0x7fU);
}

TEST_F(ContainerChildren, AddingItsOwnChildOrNullIsIgnored) {
    Leaf *leaf = add("leaf");
    box->clean();
    box->addChild(leaf);
    box->addChild(nullptr);
    EXPECT_EQ(box->getChildCount(), 1U);
    EXPECT_EQ(box->dirty(), 0U);
}

TEST_F(ContainerChildren, AddingTheChildOfAnotherContainerIsRefused) {
    Leaf *leaf = add("leaf");
    Box other("other");
    try {
        other.addChild(leaf);
        FAIL();
    } catch (const core::IllegalStateException &e) {
        EXPECT_STREQ(e.getMessage(), "Component already has a parent");
    }
    EXPECT_EQ(other.getChildCount(), 0U);
    EXPECT_EQ(leaf->getParent(), box.get());
}

TEST_F(ContainerChildren, AContainerCannotBePutIntoItselfOrItsDescendants) {
    const core::SmartPtr<Box> inner(new Box("inner"));
    box->addChild(inner.get());
    for (Box *parent : {box.get(), inner.get()}) {
        try {
            parent->addChild(box.get());
            FAIL();
        } catch (const core::IllegalStateException &e) {
            EXPECT_EQ(e.getMessage(), std::string("Component box cannot be put into itself or its own descendant ") +
                                          parent->getName());
        }
    }
    EXPECT_EQ(box->getChildCount(), 1U);
    EXPECT_EQ(inner->getChildCount(), 0U);
    EXPECT_FALSE(box->hasParent());
}

TEST_F(ContainerChildren, RemovingGivesTheChildBack) {
    const core::SmartPtr<Leaf> leaf(add("leaf"));
    box->visit(&skin());
    ComponentView *view = leaf->getView();
    ASSERT_NE(view, nullptr);
    clean();
    box->removeChild(leaf.get());
    EXPECT_EQ(box->getChildCount(), 0U);
    EXPECT_FALSE(leaf->hasParent());
    EXPECT_EQ(leaf->getView(), view); // it keeps the view, out of the scene
    EXPECT_EQ(view->getParent(), nullptr);
    EXPECT_EQ(box->dirty(), 0x36U); // 0x12, and what the child told its parent for the last time
    box->removeChild(leaf.get());
    box->removeChild(nullptr);
}

TEST_F(ContainerChildren, RemovingAStrangerIsIgnoredButTheLayoutIsTold) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    Box other("other");
    const core::SmartPtr<Leaf> stranger(new Leaf("stranger"));
    other.addChild(stranger.get());
    layout->addComponent(stranger.get());
    box->removeChild(stranger.get());
    EXPECT_FALSE(layout->hasComponent(stranger.get()));
    EXPECT_EQ(stranger->getParent(), &other);
}

TEST_F(ContainerChildren, RemovingByIndexIgnoresAnIndexPastTheEnd) {
    add("a");
    const core::SmartPtr<Leaf> b(add("b"));
    box->removeChildAt(2);
    box->removeChildAt(0xffffffffU);
    EXPECT_EQ(box->getChildCount(), 2U);
    box->removeChildAt(1);
    EXPECT_EQ(order(*box), "a ");
    EXPECT_FALSE(b->hasParent());
}

TEST_F(ContainerChildren, RemovingByIndexTellsTheLayout) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    Leaf *leaf = add("leaf");
    EXPECT_TRUE(layout->hasComponent(leaf));
    box->removeChildAt(0);
    EXPECT_EQ(layout->getComponentCount(), 0U);
}

TEST_F(ContainerChildren, RemovingNarrowsTheRangeOfZIndexes) {
    add("-3", -3);
    add("1", 1);
    add("7", 7);
    box->removeChildAt(0);
    EXPECT_EQ(box->getZIndexMin(), 1);
    box->removeChildAt(1);
    EXPECT_EQ(box->getZIndexMax(), 1);
    box->removeChildAt(0);
    EXPECT_EQ(box->getZIndexMin(), 0);
    EXPECT_EQ(box->getZIndexMax(), 0);
}

TEST_F(ContainerChildren, RemovingSortsFirstWhatIsNotSortedYet) {
    Leaf *a = add("a", 1);
    Leaf *b = add("b", 2);
    add("c", 3);
    a->setZIndex(9);
    EXPECT_EQ(order(*box), "a b c ");
    box->removeChild(b);
    EXPECT_EQ(order(*box), "c a ");
    EXPECT_EQ(box->getZIndexMax(), 9);
}

TEST_F(ContainerChildren, AChildThatIsAddedToAnUnsortedListFindsItsPlaceByWalking) {
    Leaf *a = add("a", 1);
    add("b", 2);
    add("c", 5);
    a->setZIndex(9);
    add("d", 3); // ahead of the first with a greater one, which is a
    EXPECT_EQ(order(*box), "d a b c ");
}

TEST_F(ContainerChildren, StandAsAStableSortWouldPutThem) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        box->clearChildren();
        std::vector<std::pair<int, std::string>> expected;
        for (int i = 0; i < 40; ++i) {
            const int zIndex = static_cast<int>(random() % 7) - 3;
            const std::string name = std::to_string(i);
            add(name.c_str(), zIndex);
            expected.emplace_back(zIndex, name);
            if (random() % 5 == 0) {
                const auto index = static_cast<unsigned int>(random() % box->getChildCount());
                std::erase_if(expected, [&](const auto &e) { return e.second == box->getChildAt(index)->getName(); });
                box->removeChildAt(index);
            }
        }
        std::stable_sort(expected.begin(), expected.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        std::string names;
        for (const auto &entry : expected)
            names += entry.second + " ";
        ASSERT_EQ(order(*box), names);
    }
}

TEST_F(ContainerChildren, ClearingTakesEverythingAndScrollsBack) {
    const core::SmartPtr<Leaf> low(add("low", -4));
    const core::SmartPtr<Leaf> high(add("high", 6));
    box->setScrollOffset(Vector2(3, 4));
    box->visit(&skin());
    clean();
    box->clearChildren();
    EXPECT_EQ(box->getChildCount(), 0U);
    EXPECT_FALSE(low->hasParent());
    EXPECT_EQ(low->getView()->getParent(), nullptr);
    EXPECT_EQ(box->getScrollOffset(), Vector2(0, 0));
    EXPECT_EQ(box->isDirty(0x13), 0x13U);
    EXPECT_EQ(box->getZIndexMin(), 0);
    EXPECT_EQ(box->getZIndexMax(), 6); // keeps its value
    add("next", 2);
    add("last", 3);
    EXPECT_EQ(order(*box), "next last ");
    EXPECT_EQ(box->getZIndexMax(), 6);
}

TEST_F(ContainerChildren, ClearingTakesTheScrollBarsToo) {
    box->setSize(Vector2(100, 100));
    add("large")->setSize(Vector2(300, 300));
    for (int i = 0; i < 3; ++i)
        box->update();
    ASSERT_NE(box->getScrollInfoH().bar, nullptr);
    const core::SmartPtr<Component> bar(box->getScrollInfoH().bar);
    box->clearChildren();
    EXPECT_EQ(box->getScrollInfoH().bar, nullptr);
    EXPECT_EQ(box->getScrollInfoV().bar, nullptr);
    EXPECT_FALSE(bar->hasParent());
    EXPECT_EQ(box->getChildIndex(bar.get()), -1);
}

TEST_F(ContainerChildren, ClearingEmptiesTheLayout) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    add("a");
    box->clearChildren();
    EXPECT_EQ(layout->getComponentCount(), 0U);
    EXPECT_EQ(layout->getOwner(), box.get());
}

TEST_F(ContainerChildren, ZIndexesAreAppliedToChildrenAndViews) {
    Leaf *a = add("a", 1);
    Leaf *b = add("b", 2);
    add("c", 2);
    box->visit(&skin());
    EXPECT_EQ(viewOrder(*box), "a b c ");
    clean();
    a->setZIndex(2);
    b->setZIndex(7);
    EXPECT_EQ(box->getZIndexMax(), 7);
    box->applyZIndex();
    EXPECT_EQ(order(*box), "a c b ");
    EXPECT_EQ(viewOrder(*box), "a c b ");
    EXPECT_EQ(box->isDirty(Component::DIRTY_ZORDER), 0U);
}

TEST_F(ContainerChildren, AFrameSortsWhatIsMarked) {
    Leaf *a = add("a", 1);
    add("b", 2);
    box->update();
    a->setZIndex(3);
    box->update();
    EXPECT_EQ(order(*box), "b a ");
    EXPECT_EQ(box->isDirty(Component::DIRTY_ZORDER), 0U);
}

TEST_F(ContainerChildren, AChildOfAContainerWithAViewGetsItsViewAtOnceAndInItsPlace) {
    add("a", 1);
    add("d", 4);
    box->visit(&skin());
    Leaf *c = add("c", 3);
    EXPECT_TRUE(c->hasView());
    EXPECT_EQ(c->getView()->getSkin(), &skin());
    add("c2", 3);
    EXPECT_EQ(viewOrder(*box), "a c c2 d ");
}

TEST_F(ContainerChildren, ClearingTheViewClearsTheChildrensToo) {
    Leaf *leaf = add("leaf");
    box->visit(&skin());
    box->clearView();
    EXPECT_FALSE(box->hasView());
    EXPECT_FALSE(leaf->hasView());
}

TEST_F(ContainerChildren, SurviveTheirContainer) {
    const core::SmartPtr<Leaf> leaf(add("leaf"));
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    layout->addComponent(leaf.get());
    box = nullptr;
    EXPECT_FALSE(leaf->hasParent());
    EXPECT_EQ(layout->getOwner(), nullptr);
    layout->layout();
    leaf->setPosition(Vector3(1, 1, 1));
    leaf->update();
}

TEST_F(ContainerChildren, AreTakenOutOfTheFocusWhenTheyLeave) {
    const core::SmartPtr<Leaf> leaf(add("leaf"));
    leaf->setTabStop(0);
    leaf->setFocus();
    ASSERT_TRUE(leaf->hasFocus());
    box->removeChild(leaf.get());
    EXPECT_EQ(UIManager::getSingleton().getFocus(), nullptr);
    box->addChild(leaf.get());
    leaf->setFocus();
    box->removeChildAt(0);
    EXPECT_FALSE(leaf->hasFocus());
    box->addChild(leaf.get());
    leaf->setFocus();
    box->clearChildren();
    EXPECT_FALSE(leaf->hasFocus());
}

TEST_F(ContainerChildren, ACallbackMayChangeTheChildrenWhileOneLeaves) {
    const core::SmartPtr<Leaf> leaf(add("leaf"));
    add("other");
    leaf->setTabStop(0);
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        box->clearChildren(); // takes it out itself
        add("new");
        return true;
    });
    box->removeChild(leaf.get());
    EXPECT_EQ(order(*box), "new ");
    EXPECT_FALSE(leaf->hasParent());

    box->addChild(leaf.get());
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        add("late");
        return true;
    });
    box->clearChildren();
    EXPECT_EQ(order(*box), "late "); // it came after the clearing began
}

TEST_F(ContainerChildren, WhatACallbackPutsUnderTheLayoutWhileChildrenLeaveIsNotLeftInItWhenItDies) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    Leaf *leaf = add("leaf");
    leaf->setTabStop(0);
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        layout->clearIgnores(); // puts the leaving one back
        return true;
    });
    box->removeChild(leaf);
    EXPECT_EQ(layout->getComponentCount(), 0U);
    box->updateContent();
}

TEST_F(ContainerChildren, AListThatLostItsOrderIsSearchedFromTheFront) {
    add("-5", -5);
    box->removeChild(add("0", 0)); // the maximum is -5 from here on
    box->clearChildren();
    for (const int zIndex : {-3, -4, -2}) // none below the maximum: appended
        add(std::to_string(zIndex).c_str(), zIndex);
    ASSERT_EQ(order(*box), "-3 -4 -2 ");
    add("-4b", -4);
    EXPECT_EQ(order(*box), "-4b -3 -4 -2 ");
}

TEST_F(ContainerChildren, AnOwnerThatDiesIsForgottenByALayoutThatItDoesNotHold) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    box->setLayout(layout.get());
    core::SmartPtr<NotingLayout> copy;
    {
        const core::SmartPtr<Box> other(new Box("other"));
        nurel::core::CloningOptions options;
        options.setCloned(box.get(), other.get());
        copy = static_cast<NotingLayout *>(layout->clone(options));
        ASSERT_EQ(copy->getOwner(), other.get());
    }
    EXPECT_EQ(copy->getOwner(), nullptr);
    copy->layout();
    EXPECT_EQ(copy->getIgnoreCount(), 0U);
}

TEST_F(ContainerChildren, ACallbackMayDropTheContainerWhileAChildLeaves) {
    const core::SmartPtr<Leaf> leaf(add("leaf"));
    leaf->setTabStop(0);
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        box = nullptr;
        return true;
    });
    box->removeChild(leaf.get());
    EXPECT_EQ(box.get(), nullptr);
    EXPECT_FALSE(leaf->hasParent());
}

namespace {

/// Looks at a container when its component dies.
class Witness : public Component::UserData {
public:
    Witness(const Container &container, unsigned int &seen) : mContainer(container), mSeen(seen) {}
    ~Witness() override { mSeen = mContainer.getChildCount(); }

private:
    const Container &mContainer;
    unsigned int &mSeen;
};

} // namespace

TEST_F(ContainerChildren, DieWhenTheirContainerHasNoneLeft) {
    unsigned int seen = 99;
    add("leaf")->setUserData(new Witness(*box, seen));
    add("other");
    box = nullptr;
    EXPECT_EQ(seen, 0U);
}

TEST_F(ContainerChildren, LoseTheFocusWhileTheirContainerStillHasThem) {
    Leaf *leaf = add("leaf");
    const Box *going = box.get();
    unsigned int seen = 99;
    leaf->setTabStop(0);
    leaf->setFocus();
    leaf->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        seen = going->getChildCount();
        return true;
    });
    box = nullptr;
    EXPECT_EQ(seen, 1U);
}

TEST_F(ContainerChildren, EnablingIsPassedDown) {
    const core::SmartPtr<Box> inner(new Box("inner"));
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    inner->addChild(leaf.get());
    box->addChild(inner.get());
    box->setEnabled(false);
    EXPECT_FALSE(leaf->isEnabled());
    EXPECT_EQ(leaf->getState(), 0x40U);
    inner->setEnabled(false);
    box->setEnabled(true);
    EXPECT_FALSE(leaf->isEnabled());
    EXPECT_EQ(leaf->getState(), 0x40U);
    inner->setEnabled(true);
    EXPECT_TRUE(leaf->isEnabled());
    EXPECT_EQ(leaf->getState(), 0U);
}

TEST_F(ContainerChildren, APushedEnabledFlagIsPassedOnWhetherOrNotItChanged) {
    Leaf *leaf = add("leaf");
    leaf->setParentEnabled(false);
    ASSERT_EQ(leaf->getState(), 0x40U);
    box->setParentEnabled(true); // nothing new for the container itself
    EXPECT_EQ(leaf->getState(), 0U);
}

TEST_F(ContainerChildren, VisibilityIsPassedDown) {
    const core::SmartPtr<Box> inner(new Box("inner"));
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    inner->addChild(leaf.get());
    box->addChild(inner.get());
    box->setVisible(false);
    EXPECT_FALSE(leaf->isVisible());
    inner->setVisible(false);
    box->setVisible(true);
    EXPECT_TRUE(inner->isSelfVisible() == false && !leaf->isVisible());
    inner->setVisible(true);
    EXPECT_TRUE(leaf->isVisible());
}

TEST_F(ContainerChildren, HideAtOnceWhenAnAnimationHidesTheirContainer) {
    Leaf *leaf = add("leaf");
    UIManager::getSingleton().beginAnimation();
    box->setVisible(false);
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(leaf->isVisible());
    UIManager::getSingleton().cancelAnimation();
}

TEST_F(ContainerChildren, AHiddenContainerUpdatesNothing) {
    Leaf *leaf = add("leaf");
    box->setVisible(false);
    leaf->forceDirty(0x7f);
    box->forceDirty(0x7f);
    box->updateContent();
    EXPECT_EQ(leaf->dirty(), 0x7fU);
    EXPECT_EQ(box->isDirty(Component::DIRTY_CONTENT), Component::DIRTY_CONTENT);
}

TEST_F(ContainerChildren, AreAllUpdatedWhateverTheirFlags) {
    Leaf *leaf = add("leaf");
    box->update();
    box->clean();
    leaf->clean();
    leaf->forceDirty(Component::DIRTY_POSITION);
    box->update();
    EXPECT_EQ(leaf->isDirty(Component::DIRTY_POSITION), 0U);
}

TEST_F(ContainerChildren, ALayoutIsOwnedAndRunsAtOnce) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    Leaf *leaf = add("leaf");
    const unsigned int before = box->dirty();
    box->setLayout(layout.get());
    EXPECT_EQ(box->getLayout(), layout.get());
    EXPECT_EQ(layout->getOwner(), box.get());
    EXPECT_EQ(layout->getComponentCount(), 0U); // who is there already does not come under it
    EXPECT_EQ(layout->passes, 1);
    EXPECT_EQ(box->dirty() & ~before, 0U);
    layout->clearIgnores();
    EXPECT_TRUE(layout->hasComponent(leaf));
    Leaf *managed = add("managed");
    EXPECT_TRUE(layout->hasComponent(managed));
    const core::SmartPtr<Leaf> loose(new Leaf("loose"));
    box->addChild(loose.get(), false);
    EXPECT_FALSE(layout->hasComponent(loose.get()));
}

TEST_F(ContainerChildren, ANewLayoutTakesTheOwnerFromTheOldOne) {
    const core::SmartPtr<NotingLayout> first(new NotingLayout);
    const core::SmartPtr<NotingLayout> second(new NotingLayout);
    box->setLayout(first.get());
    box->setLayout(second.get());
    EXPECT_EQ(first->getOwner(), nullptr);
    EXPECT_EQ(second->getOwner(), box.get());
    box->setLayout(nullptr);
    EXPECT_FALSE(box->hasLayout());
    EXPECT_EQ(second->getOwner(), nullptr);
}

TEST_F(ContainerChildren, TheLayoutsPlacesAreTakenBeforeTheContentIsMeasured) {
    const core::SmartPtr<NotingLayout> layout(new NotingLayout);
    Leaf *leaf = add("leaf");
    leaf->setSize(Vector2(10, 10));
    for (int i = 0; i < 3; ++i)
        box->update();
    box->setLayout(layout.get());
    layout->addComponent(leaf);
    box->clean();
    box->forceDirty(Component::DIRTY_CONTENT);
    layout->passes = 49;
    box->updateContent();
    EXPECT_EQ(leaf->getPosition().x, 50);
    EXPECT_EQ(box->getContentExtentMax().x, 55);
}

#ifndef NDEBUG
TEST_F(ContainerChildren, AnIndexPastTheEndIsAssertedInDebugBuilds) {
    add("a");
    EXPECT_DEATH(box->getChildAt(1), "");
}
#endif

TEST_F(ContainerChildren, RemovingMarksTheContainerAlsoWhenItSortsOnTheWay) {
    for (const bool byIndex : {false, true}) {
        box->clearChildren();
        Leaf *a = add("a", 1);
        add("b", 2);
        Leaf *c = add("c", 3);
        clean();
        a->setZIndex(9);
        ASSERT_NE(box->isDirty(Component::DIRTY_ZORDER), 0U);
        if (byIndex)
            box->removeChildAt(2);
        else
            box->removeChild(c);
        EXPECT_EQ(order(*box), "b a ");
        EXPECT_EQ(box->isDirty(0x12), 0x12U);
        EXPECT_EQ(box->isDirty(Component::DIRTY_ZORDER), 0U);
    }
}

} // namespace test
