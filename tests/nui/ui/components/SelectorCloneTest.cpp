// What a selector shares with its parts and its copies, and what survives its callbacks.
#include "nui/ui/components/SelectorFixture.h"

#include "nmain/core/CloningOptions.h"
#include "nui/ui/skins/DefaultSkin.h"
#include "support/MessageOf.h"

using namespace nurel::ui;
using components::Label;
using components::Selector;
using test::ComponentsSelectorTest;
using test::messageOf;

// --- callbacks that take things away ---

TEST_F(ComponentsSelectorTest, ACallbackThatReturnsTrueIsCalledOnce) {
    addThree();
    int calls = 0;
    mSelector->SelectionCallbacks::subscribeCallback([&](Selector *, int) { return ++calls > 0; });
    clickRight();
    clickRight();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(seen().size(), 2u);
}

TEST_F(ComponentsSelectorTest, ACallbackMaySelectAnother) {
    addThree();
    mSelector->SelectionCallbacks::subscribeCallback([](Selector *selector, int) {
        selector->setSelectedIndex(2, false);
        return false;
    });
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), 2);
    EXPECT_EQ(shown(), "three");
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, ACallbackMayClearTheEntries) {
    addThree();
    mSelector->SelectionCallbacks::subscribeCallback([](Selector *selector, int) {
        selector->clearItems(true);
        return true;
    });
    clickRight();
    EXPECT_EQ(mSelector->getItemCount(), 0u);
    EXPECT_EQ(shown(), "---");
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, ACallbackMayEndTheSelector) {
    addThree();
    mSelector->SelectionCallbacks::subscribeCallback([this](Selector *selector, int) {
        selector->getParent()->removeChild(selector);
        mSelector = nullptr;
        return false;
    });
    clickRight();
    EXPECT_EQ(mSelector.get(), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    frame();
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, ACallbackMayEndTheWholeScreen) {
    addThree();
    mSelector->SelectionCallbacks::subscribeCallback([this](Selector *, int) {
        manager().removeWidget(mWidget.get());
        mPanel->clearChildren();
        mSelector = nullptr;
        mPanel = nullptr;
        mWidget = nullptr;
        return false;
    });
    clickLeft();
    EXPECT_EQ(mSelector.get(), nullptr);
    frame();
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, ACallbackMayEndASelectorThatNobodyElseHolds) {
    for (const bool clearing : {false, true}) {
        core::SmartPtr<Selector> selector(new Selector("alone"));
        selector->addItem("a", new CountedData);
        selector->setSelectedIndex(0, false);
        selector->SelectionCallbacks::subscribeCallback([&](Selector *, int) {
            selector = nullptr;
            return false;
        });
        if (clearing)
            selector->clearItems(true);
        else
            selector->setSelectedIndex(-1, true);
        EXPECT_EQ(selector.get(), nullptr);
        EXPECT_EQ(CountedData::sAlive, 0);
    }
}

TEST_F(ComponentsSelectorTest, AButtonOutlivesItsSelector) {
    addThree();
    const core::SmartPtr<Panel> left(mSelector->getLeft());
    const core::SmartPtr<Panel> right(mSelector->getRight());
    mPanel->clearChildren();
    mSelector = nullptr;
    place(*left, 0, 0, 40, 40);
    place(*right, 40, 0, 40, 40);
    mPanel->addChild(left.get());
    mPanel->addChild(right.get());
    frame();
    click(10, 10);
    click(50, 10);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, AButtonThatWasMovedElsewhereStillSteps) {
    addThree();
    const core::SmartPtr<Panel> right(mSelector->getRight());
    mSelector->removeChild(right.get());
    place(*right, 0, 0, 40, 40);
    mPanel->addChild(right.get());
    frame();
    click(10, 10);
    EXPECT_EQ(mSelector->getSelectedIndex(), 0);
    EXPECT_EQ(seen(), (Lines{"selector -1>0"}));
}

TEST_F(ComponentsSelectorTest, DoesWithoutItsPartsInTheTree) {
    addThree();
    mSelector->clearChildren();
    mSelector->setSelectedIndex(1, true);
    EXPECT_EQ(shown(), "two");
    mSelector->addClass("a");
    EXPECT_TRUE(mSelector->getItem()->hasClass("a"));
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, ACopyIsNotStepped) {
    addThree();
    {
        const Selector copy(*mSelector);
        EXPECT_EQ(copy.getItemCount(), 3u);
        clickRight();
        EXPECT_EQ(copy.getSelectedIndex(), -1);
    }
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), 1);
    mSeen.clear();
}

// --- classes ---

TEST_F(ComponentsSelectorTest, ClassesReachTheParts) {
    const auto clean = [&] {
        OpenSelector::clean(*mSelector);
        for (Component *part : parts(*mSelector))
            OpenSelector::clean(*part);
    };
    const auto expectEachHas = [&](const char *name, bool has) {
        EXPECT_EQ(mSelector->hasClass(name), has);
        EXPECT_EQ(mSelector->isDirty(STYLE), STYLE);
        for (Component *part : parts(*mSelector)) {
            EXPECT_EQ(part->hasClass(name), has) << part->getName();
            EXPECT_EQ(part->isDirty(STYLE), STYLE) << part->getName();
        }
    };
    clean();
    mSelector->addClass("a");
    expectEachHas("a", true);
    mSelector->addClass("b");
    clean();
    mSelector->removeClass("a");
    expectEachHas("a", false);
    expectEachHas("b", true);
    clean();
    mSelector->removeClasses();
    expectEachHas("b", false);
    mSelector->addClass(nullptr);
    mSelector->removeClass(nullptr);
}

// --- clones ---

TEST_F(ComponentsSelectorTest, ACloneHasTheEntriesAndSharesTheirData) {
    addThree();
    const core::SmartPtr<CountedData> data(new CountedData);
    mSelector->addItem("four", data.get());
    mSelector->setNoItemText("none");
    mSelector->setCycle(true);
    mSelector->setSelectedIndex(3, false);
    const core::SmartPtr<Selector> copy = cloneOf(*mSelector);
    EXPECT_EQ(&copy->getType(), &Selector::TYPE);
    EXPECT_STREQ(copy->getName(), "selector");
    EXPECT_EQ(copy->getItemCount(), 4u);
    EXPECT_STREQ(copy->getItemText(1), "two");
    EXPECT_EQ(copy->getSelectedIndex(), 3);
    EXPECT_EQ(copy->getSelectedItem()->data.get(), data.get());
    EXPECT_NE(copy->getSelectedItem(), mSelector->getSelectedItem());
    EXPECT_STREQ(copy->getNoItemText(), "none");
    EXPECT_TRUE(copy->getCycle());
    EXPECT_EQ(shownBy(*copy), "four");
    copy->setSelectedIndex(0, true); // subscriptions are not cloned
    copy->addItem("five", nullptr);
    EXPECT_EQ(mSelector->getItemCount(), 4u);
    EXPECT_EQ(shown(), "four");
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, ACloneWithoutASelectionShowsTheNoItemText) {
    addThree();
    mSelector->setNoItemText("none");
    EXPECT_EQ(shownBy(*cloneOf(*mSelector)), "none");
}

TEST_F(ComponentsSelectorTest, ACloneHasPartsOfItsOwn) {
    mSelector->addClass("big");
    mSelector->getItem()->setName("text");
    mSelector->getLeft()->addClass("special");
    mSelector->getRight()->setAnchor(Component::ANCHOR_TOP_LEFT);
    const core::SmartPtr<Selector> copy = cloneOf(*mSelector);
    ASSERT_EQ(copy->getChildCount(), 3u);
    EXPECT_EQ(copy->getChildAt(0), copy->getItem());
    EXPECT_EQ(copy->getChildAt(1), copy->getLeft());
    EXPECT_EQ(copy->getChildAt(2), copy->getRight());
    EXPECT_STREQ(copy->getItem()->getName(), "item");
    EXPECT_EQ(copy->getRight()->getAnchor(), 0x22u);
    for (Component *part : parts(*copy)) {
        EXPECT_TRUE(part->hasClass("big"));
        EXPECT_FALSE(part->hasClass("special"));
        EXPECT_EQ(part->getComponentSize().absolute, Component::DEFAULT_SIZE);
    }
}

TEST_F(ComponentsSelectorTest, TheButtonsOfACloneStepTheClone) {
    addThree();
    const core::SmartPtr<Selector> copy = cloneOf(*mSelector);
    mPanel->removeChild(mSelector.get());
    for (Component *part : parts(*copy))
        part->setSize({40, 40});
    mPanel->addChild(copy.get());
    frame();
    clickRight();
    clickRight();
    clickLeft();
    EXPECT_EQ(shownBy(*copy), "one");
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, AClonesPartsAreInTheOldOnesPlacesAmongTheChildren) {
    const core::SmartPtr<Panel> left(mSelector->getLeft());
    mSelector->removeChild(left.get());
    mSelector->addChild(new Label("item")); // not the one
    const core::SmartPtr<Panel> wrapper(new Panel("wrapper"));
    wrapper->addChild(new Panel("inner"));
    mSelector->addChild(wrapper.get());
    mSelector->addChild(left.get());
    const core::SmartPtr<Selector> copy = cloneOf(*mSelector);
    ASSERT_EQ(copy->getChildCount(), 5u);
    EXPECT_EQ(copy->getChildAt(0), copy->getItem());
    EXPECT_EQ(copy->getChildAt(1), copy->getRight());
    EXPECT_STREQ(copy->getChildAt(2)->getName(), "item");
    EXPECT_STREQ(copy->getChildAt(3)->getName(), "wrapper");
    EXPECT_EQ(static_cast<Panel *>(copy->getChildAt(3))->getChildCount(), 1u);
    EXPECT_EQ(copy->getChildAt(4), copy->getLeft());
}

TEST_F(ComponentsSelectorTest, ACloneFindsThePartsAtAnyDepth) {
    const core::SmartPtr<Panel> left(mSelector->getLeft());
    mSelector->removeChild(left.get());
    const core::SmartPtr<Panel> wrapper(new Panel("wrapper"));
    wrapper->addChild(left.get());
    mSelector->addChild(wrapper.get());
    const core::SmartPtr<Selector> copy = cloneOf(*mSelector);
    ASSERT_EQ(copy->getChildCount(), 4u);
    EXPECT_STREQ(copy->getChildAt(2)->getName(), "wrapper");
    EXPECT_EQ(static_cast<Panel *>(copy->getChildAt(2))->getChildCount(), 0u);
    EXPECT_EQ(copy->getChildAt(3), copy->getLeft());
}

TEST_F(ComponentsSelectorTest, AClonesTargetLosesWhatItHad) {
    const core::SmartPtr<Selector> target(new Selector("target"));
    target->addItem("old 0", new CountedData);
    target->addItem("old 1", nullptr);
    target->setSelectedIndex(1, false);
    target->addClass("old");
    Label *item = target->getItem();
    addThree();
    mSelector->setSelectedIndex(1, false);
    nurel::core::CloningOptions options;
    mSelector->_clone(target.get(), options);
    EXPECT_EQ(CountedData::sAlive, 0);
    EXPECT_EQ(target->getChildCount(), 3u);
    EXPECT_EQ(target->getItem(), item);
    EXPECT_FALSE(item->hasClass("old"));
    EXPECT_EQ(target->getSelectedIndex(), 1);
    EXPECT_EQ(shownBy(*target), "two"); // the same index, and another text
    mSelector->_clone(mSelector.get(), options);
    EXPECT_EQ(mSelector->getItemCount(), 3u);
    EXPECT_EQ(mSelector->getChildCount(), 3u);
}

TEST_F(ComponentsSelectorTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mSelector->_clone(mPanel.get(), options); }), "Selector cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mSelector->_clone(nullptr, options); }), "Selector cannot be cloned into nothing");
}

// --- views ---

TEST_F(ComponentsSelectorTest, IsSkinnedWithItsParts) {
    ASSERT_NE(mSelector->getView(), nullptr);
    for (Component *part : parts(*mSelector)) {
        ASSERT_NE(part->getView(), nullptr);
        EXPECT_EQ(part->getView()->getParent(), mSelector->getView()->getContent());
    }
}

TEST_F(ComponentsSelectorTest, TheStyleFreeSkinShowsNothingAndNothingCanBeHit) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Selector> selector(new Selector("s"));
    place(*selector, 0, 0, 200, 40);
    selector->addItem("a", nullptr);
    widget->addChild(selector.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_FALSE(selector->hasView());
    EXPECT_FALSE(selector->getItem()->hasView());
    click(190, 20);
    EXPECT_EQ(selector->getSelectedIndex(), -1);
    selector->setSelectedIndex(0, true);
    EXPECT_EQ(shownBy(*selector), "a");
}
