// Selection and mark of a list, and what the mouse does to them.
#include "nui/ui/components/ListboxFixture.h"

#include "nui/ui/Layout.h"

#include <limits>

using namespace nurel::ui;
using components::Label;
using components::Listbox;
using components::Panel;

namespace {

constexpr int LARGEST = std::numeric_limits<int>::max();
constexpr int SMALLEST = std::numeric_limits<int>::min();

class ListboxSelectionTest : public test::ListboxFixture {
public:
    ListboxSelectionTest() { add({"a", "b", "c", "d"}); }

    Panel &check() const { return *mList->getCheck(); }
};

} // namespace

TEST_F(ListboxSelectionTest, AnEmptyListHasNothingSelectedAndNothingInFocus) {
    const core::SmartPtr<Listbox> list(new Listbox);
    list->setNoItemText("none");
    EXPECT_EQ(list->getSelectedIndex(), -1);
    EXPECT_STREQ(list->getItemText(0), "none");
    list->handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED));
    list->addItem("a", nullptr);
    list->addItem("b", nullptr);
    list->handleEvent(KeyEvent(Keyboard::K_DOWN, false)); // from -1
    EXPECT_EQ(rowsWith(*list, FOCUSED), "a");
}

TEST_F(ListboxSelectionTest, ARowIsSelectedByItsIndex) {
    mList->setSelectedIndex(1, true);
    EXPECT_EQ(mList->getSelectedIndex(), 1);
    EXPECT_EQ(mList->getSelectedItem(), mList->getItemEntry(1));
    EXPECT_EQ(checked(), "b");
    EXPECT_EQ(focused(), "b");
    mList->setSelectedIndex(1, true); // it is
    mList->setSelectedIndex(0, false);
    EXPECT_EQ(checked(), "a");
    EXPECT_EQ(focused(), "a");
    mList->setSelectedIndex(3, true);
    EXPECT_EQ(seen(), (Lines{"list 1 is 1", "list 3 is 3"}));
}

TEST_F(ListboxSelectionTest, TheRowThatIsSelectedNoMoreLosesTheHoverToo) {
    mList->setSelectedIndex(1, false);
    OpenListbox::setChildState(*row(1), row(1)->getState() | HOVER | Component::STATE_RELEASED);
    mList->setSelectedIndex(2, false);
    EXPECT_EQ(row(1)->getState(), 0u + Component::STATE_RELEASED);
    EXPECT_EQ(row(2)->getState(), CHECKED | FOCUSED);
}

TEST_F(ListboxSelectionTest, ANegativeIndexSelectsNoneAndIsToldAsItIs) {
    mList->setSelectedIndex(-1, true); // none is
    EXPECT_EQ(seen(), Lines{});
    mList->setSelectedIndex(2, false);
    frame();
    mList->setSelectedIndex(-1, true);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(mList->getSelectedItem(), nullptr);
    EXPECT_FALSE(check().isSelfVisible());
    EXPECT_EQ(checked(), "");
    EXPECT_EQ(focused(), "");
    mList->setSelectedIndex(SMALLEST, true);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), (Lines{"list -1 is -1", "list " + std::to_string(SMALLEST) + " is -1"}));
}

TEST_F(ListboxSelectionTest, AnIndexPastTheEndTakesTheLookAndKeepsTheSelection) {
    for (const int index : {4, 5, LARGEST}) {
        mList->setSelectedIndex(-1, false);
        mList->setSelectedIndex(1, false);
        mList->setSelectedIndex(index, true);
        EXPECT_EQ(mList->getSelectedIndex(), 1);
        EXPECT_EQ(checked(), "");
        EXPECT_EQ(focused(), "b");
        EXPECT_EQ(seen(), (Lines{"list " + std::to_string(index) + " is 1"}));
    }
    mList->setSelectedIndex(4, false);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ListboxSelectionTest, ChangingTheSelectionAsksForAnUpdate) {
    frame();
    OpenListbox::clean(*mList);
    mList->setSelectedIndex(1, false);
    const unsigned int bits = Component::DIRTY_CONTENT | Component::DIRTY_VIEW;
    EXPECT_EQ(mList->isDirty(bits), bits);
}

// --- the mark ---

TEST_F(ListboxSelectionTest, TheMarkLiesOverTheSelectedRow) {
    check().setSize(Vector2(100, 20));
    mList->setSelectedIndex(2, false);
    frame();
    EXPECT_TRUE(check().isVisible());
    EXPECT_EQ(check().getMinBound(), row(2)->getMinBound());
    EXPECT_EQ(check().getComponentPosition().absolute, Vector2(row(2)->getPosition().x, row(2)->getPosition().y));
    EXPECT_EQ(check().getComponentPosition().relative, Vector2(0, 0));
    mList->setSelectedIndex(0, false);
    frame();
    EXPECT_EQ(check().getMinBound(), row(0)->getMinBound());
    mList->setItemSpacing(10);
    mList->setSelectedIndex(3, false);
    frame();
    frame();
    EXPECT_EQ(check().getMinBound(), row(3)->getMinBound());
    EXPECT_EQ(row(3)->getMinBound().y, 190);
}

TEST_F(ListboxSelectionTest, TheMarkIsDrawnOverTheRowsThatCameAfterIt) {
    EXPECT_EQ(mList->getChildAt(0), &check()); // nothing is selected
    mList->setSelectedIndex(0, false);
    frame();
    EXPECT_EQ(mList->getChildAt(4), &check());
    EXPECT_FALSE(mList->getLayout()->hasComponent(&check()));
    add({"e"});
    EXPECT_EQ(mList->getChildAt(5), &check());
    EXPECT_EQ(mList->getView()->getContent()->getChild(5), check().getView());
}

TEST_F(ListboxSelectionTest, TheMarkIsNotAddedAnewInEveryFrame) {
    // Neither because of a scroll bar nor of a child with a higher z-index, which both stand behind it.
    const core::SmartPtr<Panel> above(new Panel("above"));
    above->setZIndex(3);
    mList->addChild(above.get(), false);
    for (int i = 0; i < 20; ++i)
        mList->addItem("more", nullptr);
    mList->setSelectedIndex(0, false);
    frame();
    frame();
    ASSERT_TRUE(mList->getScrollInfoV().scrollable);
    check().setTabStop(0); // it would lose the focus
    check().enableEvents(UIEvent::ET_FOCUS_EVENT);
    check().setFocus();
    for (int i = 0; i < 3; ++i) {
        mList->updateContent();
        frame();
    }
    EXPECT_EQ(manager().getFocus(), &check());
    EXPECT_EQ(mWidget->isDirty(Component::DIRTY_ALL), 0u);
    EXPECT_EQ(mList->getChildIndex(&check()) + 1, mList->getChildIndex(above.get()));
}

TEST_F(ListboxSelectionTest, AMarkThatIsMovedForgetsTheCursor) {
    check().setSize(Vector2(100, 20));
    clickRow(0);
    frame();
    moveTo(150, yOf(0) + 1);
    EXPECT_TRUE(check().hasState(HOVER));
    mList->addItem("e", nullptr);
    mList->updateContent();
    EXPECT_FALSE(check().hasState(HOVER));
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(ListboxSelectionTest, AMarkThatWasTakenOutComesBackUnlessItIsElsewhere) {
    mList->removeChild(&check());
    mList->setSelectedIndex(0, false);
    frame();
    EXPECT_EQ(check().getParent(), mList.get());
    const core::SmartPtr<Panel> thief(new Panel("thief"));
    mList->removeChild(&check());
    thief->addChild(&check());
    mList->setSelectedIndex(1, false);
    frame();
    EXPECT_EQ(check().getParent(), thief.get());
    mList->clearItems();
    EXPECT_EQ(check().getParent(), thief.get());
    EXPECT_EQ(mList->getChildCount(), 0u);
}

TEST_F(ListboxSelectionTest, TheMarkTakesTheCursorButLeavesThePressToTheList) {
    check().setSize(Vector2(100, 20));
    clickRow(1);
    frame();
    frame();
    click(150, yOf(1) + 2);
    EXPECT_EQ(manager().getComponentAtCursor(), &check());
    EXPECT_EQ(mList->getSelectedIndex(), 1);
    EXPECT_EQ(seen(), (Lines{"list 1 is 1"})); // it was selected already
}

// --- clicks ---

TEST_F(ListboxSelectionTest, AClickSelectsARowAndTellsOfIt) {
    clickRow(2);
    EXPECT_EQ(mList->getSelectedIndex(), 2);
    EXPECT_EQ(focused(), "c");
    clickRow(0);
    EXPECT_EQ(seen(), (Lines{"list 2 is 2", "list 0 is 0"}));
}

TEST_F(ListboxSelectionTest, TheListTellsOfAClickFirstThenOfTheSelectionAndTheFocusComesLast) {
    mList->setSelectedIndex(3, false);
    Lines told;
    const auto note = [this, &told](const char *what) {
        told.push_back(std::string(what) + ": " + std::to_string(mList->getSelectedIndex()) + ", checked " + checked() +
                       ", focus " + focused());
        return false;
    };
    mList->ClickCallbacks::subscribeCallback([&](UIEventHandler *, const ClickEvent &) { return note("click"); });
    mList->SelectionCallbacks::subscribeCallback([&](Listbox *, int) { return note("selection"); });
    clickRow(1);
    EXPECT_EQ(told, (Lines{"click: 3, checked d, focus b", "selection: 1, checked b, focus b"}));
    told.clear();
    mList->setSelectedIndex(0, true);
    EXPECT_EQ(told, (Lines{"selection: 0, checked a, focus b"}));
    EXPECT_EQ(focused(), "a");
}

TEST_F(ListboxSelectionTest, APressMovesTheFocusAndTheSelectionWaits) {
    moveTo(150, yOf(1));
    press();
    EXPECT_EQ(focused(), "b");
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    release();
    EXPECT_EQ(mList->getSelectedIndex(), 1);
}

TEST_F(ListboxSelectionTest, PressAndReleaseHaveToBeOnTheSameRow) {
    manager().setMinDragDistance(1000);
    moveTo(150, yOf(1));
    press();
    point(150, yOf(2));
    release();
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(focused(), "b");
    EXPECT_EQ(seen(), Lines{});
    manager().setMinDragDistance(4);
}

TEST_F(ListboxSelectionTest, AClickThatMovedTooFarSelectsNothing) {
    moveTo(120, yOf(1));
    press();
    point(124, yOf(1)); // 4 is the distance of a drag
    release();
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    moveTo(120, yOf(1));
    press();
    point(123, yOf(1) + 2);
    release();
    EXPECT_EQ(mList->getSelectedIndex(), 1);
}

TEST_F(ListboxSelectionTest, PositionsAtTheEndsOfTheirRangeDoNotOverflow) {
    const Ray ray;
    const CursorPosition low{SMALLEST, SMALLEST};
    const CursorPosition high{LARGEST, LARGEST};
    mList->handleEvent(ClickEvent(ray, high, low));
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(focused(), "a");
}

TEST_F(ListboxSelectionTest, ADragScrollsAndSelectsNothing) {
    for (int i = 0; i < 20; ++i)
        mList->addItem("more", nullptr);
    frame();
    frame();
    moveTo(150, yOf(3));
    press();
    moveTo(150, yOf(3) - 10);
    moveTo(150, yOf(3) - 38);
    release();
    EXPECT_EQ(mList->getScrollOffset().y, -38);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
    click(150, yOf(1)); // two rows have gone off at the top
    EXPECT_STREQ(mList->getItemText(mList->getSelectedIndex()), "d");
}

TEST_F(ListboxSelectionTest, AClickBesideTheRowsGivesTheFirstOneTheFocusIfNoneHasIt) {
    click(250, 190);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(focused(), "a");
    gainFocus();
    tap(Keyboard::K_DOWN);
    click(250, 190);
    EXPECT_EQ(focused(), "b");
    mList->clearItems();
    mList->setSelectedIndex(5, false);
    mList->setSelectedIndex(-2, false); // and the focus index is -1
    click(250, 190);
    add({"x"});
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(focused(), "x");
}

TEST_F(ListboxSelectionTest, BorderAndPaddingAreNoHit) {
    mList->setBorder({1, 2, 3, 4});
    mList->setPadding({5, 6, 7, 8});
    row(0)->setSize(Vector2(300, 200)); // reaches everywhere
    frame();
    frame();
    const auto hitAt = [this](int x, int y) {
        const Ray ray{{static_cast<float>(x), static_cast<float>(y), -10}, {0, 0, 1, 0}};
        const CursorPosition cursor{x, y};
        return mList->getHitChildIndex(MouseEvent(ray, cursor, MouseEvent::MOUSE_PRESS, 0, 1));
    };
    EXPECT_EQ(hitAt(99, 150), -1);
    EXPECT_EQ(hitAt(111, 150), -1);
    EXPECT_EQ(hitAt(112, 150), 0);
    EXPECT_EQ(hitAt(292, 150), 0);
    EXPECT_EQ(hitAt(293, 150), -1);
    EXPECT_EQ(hitAt(150, 105), -1);
    EXPECT_EQ(hitAt(150, 106), 0);
    EXPECT_EQ(hitAt(150, 190), 0);
    EXPECT_EQ(hitAt(150, 191), -1);
    mList->setEnabled(false);
    EXPECT_EQ(hitAt(150, 150), -1);
}

TEST_F(ListboxSelectionTest, BorderAndPaddingScaleWithTheList) {
    mList->setScale(Vector2(2, 2));
    mList->setPadding({20, 20, 20, 20});
    row(0)->setSize(Vector2(300, 200));
    frame();
    frame();
    EXPECT_EQ(mList->getMaxBound(), Vector2(501, 301));
    click(470, 200);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    click(450, 200);
    EXPECT_EQ(mList->getSelectedIndex(), 0);
}

TEST_F(ListboxSelectionTest, APressServesOneClickOnly) {
    const auto clickAgain = [this](int y) {
        const Ray ray{{150, static_cast<float>(y), -10}, {0, 0, 1, 0}};
        const CursorPosition cursor{150, y};
        mList->handleEvent(ClickEvent(ray, cursor, cursor));
    };
    clickRow(1);
    mList->setSelectedIndex(0, false);
    clickAgain(yOf(1));
    EXPECT_EQ(mList->getSelectedIndex(), 0);
    moveTo(150, yOf(2));
    press();
    point(155, yOf(2)); // too far
    release();
    clickAgain(yOf(2));
    EXPECT_EQ(mList->getSelectedIndex(), 0);
}

TEST_F(ListboxSelectionTest, WhereRowsOverlapTheFirstIsHit) {
    click(150, 119);
    EXPECT_EQ(mList->getSelectedIndex(), 0);
    click(150, 120);
    EXPECT_EQ(mList->getSelectedIndex(), 1);
}

TEST_F(ListboxSelectionTest, ADisabledRowOrListIsNotSelected) {
    row(1)->setEnabled(false);
    clickRow(1);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    mList->setEnabled(false);
    clickRow(2);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
}

// --- callbacks that change everything ---

TEST_F(ListboxSelectionTest, ACallbackMayRemoveRows) {
    mList->SelectionCallbacks::subscribeCallback([](Listbox *list, int index) {
        list->removeItem(static_cast<unsigned int>(index), false);
        return false;
    });
    clickRow(3);
    EXPECT_EQ(textsOf(*mList), "a b c");
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(focused(), "");
}

TEST_F(ListboxSelectionTest, ACallbackMayClearOrSelectAgain) {
    mList->SelectionCallbacks::subscribeCallback([](Listbox *list, int index) {
        if (index == 1)
            list->setSelectedIndex(2, true);
        else if (index == 2)
            list->clearItems();
        return false;
    });
    clickRow(1);
    EXPECT_EQ(mList->getItemCount(), 0u);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), (Lines{"list 1 is 1", "list 2 is 2"}));
}

TEST_F(ListboxSelectionTest, ACallbackMayDropTheListOrTheWholeScreen) {
    mList->SelectionCallbacks::subscribeCallback([this](Listbox *, int) {
        mWidget->removeChild(mList.get());
        mList = nullptr;
        return false;
    });
    clickRow(1);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    mList = new OpenListbox("list");
    place(*mList, 100, 100, 200, 100);
    mWidget->addChild(mList.get());
    add({"a", "b"});
    mList->SelectionCallbacks::subscribeCallback([this](Listbox *, int) {
        manager().clearWidgets();
        mWidget = nullptr;
        mList = nullptr;
        return false;
    });
    clickRow(1);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(ListboxSelectionTest, ACallbackMayDropAListThatIsToldToSelect) {
    mList->SelectionCallbacks::subscribeCallback([this](Listbox *, int) {
        mWidget->clearChildren();
        mList = nullptr;
        return false;
    });
    Listbox *list = mList.get();
    list->setSelectedIndex(1, true);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    EXPECT_EQ(seen(), (Lines{"list 1 is 1"}));
}

TEST_F(ListboxSelectionTest, ACallbackMayEndTheManager) {
    mList->SelectionCallbacks::subscribeCallback([](Listbox *, int) {
        UIManager::shutdown();
        return false;
    });
    moveTo(150, yOf(1));
    press();
    manager().setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::RELEASE);
    manager().updateEvents();
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(mList->getSelectedIndex(), 1);
}

TEST_F(ListboxSelectionTest, WhatLosesTheFocusWhileRowsLeaveMayAddAndRemoveRows) {
    const core::SmartPtr<Panel> child(new Panel("child"));
    child->setTabStop(0);
    mList->addChild(child.get(), false);
    frame();
    const auto loseFocusTo = [this, &child](auto act) {
        child->setFocus();
        ASSERT_EQ(manager().getFocus(), child.get());
        child->FocusCallbacks::subscribeCallback([act](UIEventHandler *, const FocusEvent &event) {
            if (event.getAction() == FocusEvent::FOCUS_LOST)
                act();
            return true;
        });
    };
    loseFocusTo([this] {
        mList->clearItems();
        mList->addItem("late", nullptr);
    });
    mList->clearItems();
    EXPECT_EQ(textsOf(*mList), "late");
    EXPECT_EQ(row(0)->getParent(), mList.get());
    EXPECT_EQ(check().getParent(), mList.get());
    frame();
    EXPECT_EQ(row(0)->getMinBound(), Vector2(100, 100));
}
