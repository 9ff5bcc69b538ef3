#include "nui/ui/components/Selector.h"

#include "nui/ui/components/SelectorFixture.h"

#include "nengine/EngineFactory.h"

using namespace nurel::ui;
using components::Label;
using components::Selector;
using test::ComponentsSelectorTest;

TEST_F(ComponentsSelectorTest, HasItsDefaults) {
    const core::SmartPtr<Selector> selector(new Selector);
    EXPECT_STREQ(selector->getName(), "");
    EXPECT_STREQ(Selector::ELEMENT, "selector");
    EXPECT_EQ(selector->getElement(), "selector");
    EXPECT_STREQ(selector->getType().getName(), "Selector");
    EXPECT_TRUE(selector->instanceOf(Container::TYPE));
    EXPECT_EQ(selector->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x81);
    EXPECT_EQ(selector->getScrollMask(), 0u);
    EXPECT_EQ(selector->getItemCount(), 0u);
    EXPECT_EQ(selector->getSelectedIndex(), -1);
    EXPECT_EQ(selector->getSelectedItem(), nullptr);
    EXPECT_STREQ(selector->getNoItemText(), "---");
    EXPECT_FALSE(selector->getCycle());
    EXPECT_EQ(selector->getChildCount(), 3u);
    EXPECT_EQ(shownBy(*selector), "---");
}

TEST_F(ComponentsSelectorTest, HasItsPartsFromTheStart) {
    const core::SmartPtr<Selector> selector(new Selector("name"));
    struct Row {
        Component *part;
        const char *name, *type;
        unsigned int anchor, mask;
    };
    const unsigned int buttonMask = (Component::EVENT_MASK_DEFAULT | 0x80u) & ~1u;
    const Row rows[] = {
        {selector->getItem(), "item", "SelectorItem", 0x12, 0},
        {selector->getLeft(), "left", "SelectorButton", 10, buttonMask},
        {selector->getRight(), "right", "SelectorButton", 0x22, buttonMask},
    };
    for (unsigned int i = 0; i < 3; ++i) {
        SCOPED_TRACE(rows[i].name);
        EXPECT_EQ(selector->getChildAt(i), rows[i].part);
        EXPECT_STREQ(rows[i].part->getName(), rows[i].name);
        EXPECT_STREQ(rows[i].part->getType().getName(), rows[i].type);
        EXPECT_EQ(rows[i].part->getElement(), "selector");
        EXPECT_EQ(rows[i].part->getAnchor(), rows[i].anchor);
        EXPECT_EQ(rows[i].part->getEventMask(), rows[i].mask);
        const core::SmartPtr<nurel::core::Object> copy(rows[i].part->clone());
        EXPECT_EQ(&copy->getType(), &rows[i].part->getType());
        EXPECT_EQ(static_cast<Component &>(*copy).getAnchor(), rows[i].anchor);
    }
    EXPECT_TRUE(selector->getItem()->instanceOf(Label::TYPE));
    EXPECT_TRUE(selector->getLeft()->instanceOf(Panel::TYPE));
}

TEST_F(ComponentsSelectorTest, IsMadeByItsClassName) {
    UIManager::getSingleton();
    const core::SmartPtr<nurel::core::Object> made = nurel::EngineFactory::getSingleton().create("Selector");
    ASSERT_NE(made.get(), nullptr);
    EXPECT_EQ(&made->getType(), &Selector::TYPE);
}

// --- entries ---

TEST_F(ComponentsSelectorTest, AddingSelectsNothing) {
    addThree();
    EXPECT_EQ(mSelector->getItemCount(), 3u);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(mSelector->getSelectedItem(), nullptr);
    EXPECT_EQ(shown(), "---");
    mSelector->setSelectedIndex(1, false);
    mSelector->addItem("four", nullptr);
    EXPECT_EQ(mSelector->getSelectedIndex(), 1);
    EXPECT_EQ(shown(), "two");
    EXPECT_EQ(seen(), Lines{});
    EXPECT_EQ(mSelector->getChildCount(), 3u);
}

TEST_F(ComponentsSelectorTest, TextsAreFoundByTheirIndex) {
    addThree();
    EXPECT_STREQ(mSelector->getItemText(0), "one");
    EXPECT_STREQ(mSelector->getItemText(2), "three");
    for (const int index : {3, 4, -1, -2, LARGEST, SMALLEST})
        EXPECT_EQ(mSelector->getItemText(index), nullptr);
}

TEST_F(ComponentsSelectorTest, ANullTextIsEmpty) {
    mSelector->addItem(nullptr, nullptr);
    EXPECT_STREQ(mSelector->getItemText(0), "");
    mSelector->setSelectedIndex(0, false);
    EXPECT_EQ(shown(), "");
}

TEST_F(ComponentsSelectorTest, ATextMayBeThatOfAnotherEntry) {
    mSelector->addItem("a text that is not a short one", nullptr);
    for (int i = 0; i < 100; ++i)
        mSelector->addItem(mSelector->getItemText(i), nullptr);
    EXPECT_STREQ(mSelector->getItemText(100), "a text that is not a short one");
}

TEST_F(ComponentsSelectorTest, TheSelectedEntryHasItsTextAndData) {
    const core::SmartPtr<CountedData> data(new CountedData);
    mSelector->addItem("plain", nullptr);
    mSelector->addItem("with data", data.get());
    mSelector->setSelectedIndex(1, false);
    const Selector::ItemEntry *entry = mSelector->getSelectedItem();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text, "with data");
    EXPECT_EQ(entry->data.get(), data.get());
    for (int i = 0; i < 100; ++i)
        mSelector->addItem("more", nullptr);
    EXPECT_EQ(mSelector->getSelectedItem(), entry);
    mSelector->setSelectedIndex(0, false);
    EXPECT_EQ(mSelector->getSelectedItem()->data.get(), nullptr);
}

TEST_F(ComponentsSelectorTest, DataLivesAsLongAsItsEntry) {
    mSelector->addItem("a", new CountedData);
    mSelector->addItem("b", new CountedData);
    EXPECT_EQ(CountedData::sAlive, 2);
    mSelector->clearItems(false);
    EXPECT_EQ(CountedData::sAlive, 0);
    mSelector->addItem("c", new CountedData);
    mPanel->removeChild(mSelector.get());
    mSelector = nullptr;
    EXPECT_EQ(CountedData::sAlive, 0);
}

TEST_F(ComponentsSelectorTest, ClearingEndsTheSelection) {
    addThree();
    mSelector->setSelectedIndex(2, false);
    mSelector->clearItems(true);
    EXPECT_EQ(mSelector->getItemCount(), 0u);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(shown(), "---");
    EXPECT_EQ(seen(), (Lines{"selector 2>-1"}));
    mSelector->clearItems(true); // nothing was selected
    addThree();
    mSelector->clearItems(true);
    EXPECT_EQ(mSelector->getItemCount(), 0u);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, ClearingMayBeSilent) {
    addThree();
    mSelector->setSelectedIndex(0, false);
    mSelector->clearItems(false);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(shown(), "---");
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, DataMayLookAtTheSelectorAsItGoes) {
    class LookingData : public Selector::ItemData {
    public:
        explicit LookingData(Selector &selector) : mSelector(selector) {}
        ~LookingData() override {
            EXPECT_EQ(mSelector.getItemCount(), 0u);
            EXPECT_EQ(mSelector.getSelectedItem(), nullptr);
        }
        Selector &mSelector;
    };
    mSelector->addItem("a", new LookingData(*mSelector));
    mSelector->setSelectedIndex(0, false);
    mSelector->clearItems(false);
}

// --- selection ---

TEST_F(ComponentsSelectorTest, AnEntryIsSelectedByItsIndex) {
    addThree();
    mSelector->setSelectedIndex(1, true);
    EXPECT_EQ(mSelector->getSelectedIndex(), 1);
    EXPECT_EQ(shown(), "two");
    mSelector->setSelectedIndex(1, true); // it is
    mSelector->setSelectedIndex(0, false);
    EXPECT_EQ(shown(), "one");
    mSelector->setSelectedIndex(2, true);
    EXPECT_EQ(seen(), (Lines{"selector -1>1", "selector 0>2"}));
}

TEST_F(ComponentsSelectorTest, ANegativeIndexSelectsNone) {
    addThree();
    mSelector->setSelectedIndex(-1, true); // none is
    EXPECT_EQ(seen(), Lines{});
    mSelector->setSelectedIndex(2, false);
    mSelector->setSelectedIndex(-1, true);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(mSelector->getSelectedItem(), nullptr);
    EXPECT_EQ(shown(), "---");
    EXPECT_EQ(seen(), (Lines{"selector 2>-1"}));
    mSelector->setSelectedIndex(1, false);
    mSelector->setSelectedIndex(SMALLEST, true);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    mSelector->setSelectedIndex(-7, true); // another number than the one there is
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), (Lines{"selector 1>-1", "selector -1>-1"}));
}

TEST_F(ComponentsSelectorTest, AnIndexPastTheEndChangesNothingAndIsToldAllTheSame) {
    addThree();
    mSelector->setSelectedIndex(1, false);
    mSelector->getItem()->setText("mine");
    for (const int index : {3, 4, LARGEST}) {
        mSelector->setSelectedIndex(index, true);
        EXPECT_EQ(mSelector->getSelectedIndex(), 1);
        EXPECT_EQ(shown(), "mine");
        EXPECT_EQ(seen(), (Lines{"selector 1>1"}));
    }
    mSelector->setSelectedIndex(3, false);
    mSelector->clearItems(false);
    mSelector->setSelectedIndex(0, true);
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), (Lines{"selector -1>-1"}));
}

TEST_F(ComponentsSelectorTest, ANewNoItemTextIsShownWhileNothingIsSelected) {
    mSelector->setNoItemText("none");
    EXPECT_STREQ(mSelector->getNoItemText(), "none");
    EXPECT_EQ(shown(), "none");
    addThree();
    mSelector->setSelectedIndex(0, false);
    mSelector->setNoItemText("nothing");
    EXPECT_EQ(shown(), "one");
    mSelector->setSelectedIndex(-1, false);
    EXPECT_EQ(shown(), "nothing");
    mSelector->setNoItemText(mSelector->getNoItemText() + 2);
    EXPECT_EQ(shown(), "thing");
    mSelector->setNoItemText(mSelector->getItem()->getText());
    EXPECT_EQ(shown(), "thing");
    mSelector->setNoItemText(nullptr);
    EXPECT_STREQ(mSelector->getNoItemText(), "");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(seen(), Lines{});
}

// --- the buttons ---

TEST_F(ComponentsSelectorTest, TheButtonsStepThroughTheEntries) {
    addThree();
    clickRight(); // from none to the first
    EXPECT_EQ(shown(), "one");
    clickRight();
    EXPECT_EQ(shown(), "two");
    clickRight();
    EXPECT_EQ(shown(), "three");
    clickLeft();
    EXPECT_EQ(shown(), "two");
    EXPECT_EQ(mSelector->getSelectedIndex(), 1);
    EXPECT_EQ(seen(), (Lines{"selector -1>0", "selector 0>1", "selector 1>2", "selector 2>1"}));
}

TEST_F(ComponentsSelectorTest, WithoutCycleTheButtonsStopAtTheEnds) {
    addThree();
    mSelector->setSelectedIndex(2, false);
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), 2);
    mSelector->setSelectedIndex(0, false);
    clickLeft();
    EXPECT_EQ(mSelector->getSelectedIndex(), 0);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, WithCycleTheButtonsGoOnAtTheOtherEnd) {
    addThree();
    mSelector->setCycle(true);
    EXPECT_TRUE(mSelector->getCycle());
    mSelector->setSelectedIndex(2, false);
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), 0);
    EXPECT_EQ(shown(), "one");
    clickLeft();
    EXPECT_EQ(mSelector->getSelectedIndex(), 2);
    EXPECT_EQ(shown(), "three");
    EXPECT_EQ(seen(), (Lines{"selector 2>0", "selector 0>2"}));
}

TEST_F(ComponentsSelectorTest, FromNoSelectionTheButtonsTakeAnEnd) {
    addThree();
    clickLeft();
    EXPECT_EQ(mSelector->getSelectedIndex(), 0);
    mSelector->setSelectedIndex(-1, false);
    mSelector->setCycle(true);
    clickLeft();
    EXPECT_EQ(mSelector->getSelectedIndex(), 2);
    mSelector->setSelectedIndex(-1, false);
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), 0);
    EXPECT_EQ(seen(), (Lines{"selector -1>0", "selector -1>2", "selector -1>0"}));
}

TEST_F(ComponentsSelectorTest, WithoutEntriesTheButtonsDoNothing) {
    for (const bool cycle : {false, true}) {
        mSelector->setCycle(cycle);
        clickLeft();
        clickRight();
        EXPECT_EQ(mSelector->getSelectedIndex(), -1);
        EXPECT_EQ(shown(), "---");
    }
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, ASingleEntryIsWhereItStays) {
    mSelector->addItem("only", nullptr);
    mSelector->setCycle(true);
    clickRight();
    clickRight();
    clickLeft();
    EXPECT_EQ(shown(), "only");
    EXPECT_EQ(seen(), (Lines{"selector -1>0"}));
}

TEST_F(ComponentsSelectorTest, TheButtonsKeepTheirSubscription) {
    addThree();
    const Ray ray;
    const CursorPosition cursor;
    const ClickEvent event(ray, cursor, cursor);
    EXPECT_FALSE(mSelector->onLeftClick(nullptr, event));
    EXPECT_FALSE(mSelector->onRightClick(nullptr, event));
    mSelector->clearItems(false);
    EXPECT_FALSE(mSelector->onLeftClick(nullptr, event));
    EXPECT_FALSE(mSelector->onRightClick(nullptr, event));
    mSeen.clear();
}

TEST_F(ComponentsSelectorTest, TheButtonsTakeNoFocusAndTheItemTakesNoEvents) {
    mSelector->setTabStop(0);
    clickLeft();
    EXPECT_EQ(manager().getFocus(), nullptr);
    moveTo(200, 120);
    EXPECT_EQ(manager().getComponentAtCursor(), mSelector.get());
    press();
    EXPECT_TRUE(mSelector->hasFocus());
    release();
}

TEST_F(ComponentsSelectorTest, KeysAndTheWheelDoNothing) {
    addThree();
    mSelector->setTabStop(0);
    mSelector->setFocus();
    key(0xcb); // left
    key(0xcd); // right
    moveTo(200, 120);
    manager().setMouseWheel(4);
    frame();
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsSelectorTest, ADisabledOneDoesNotStep) {
    addThree();
    mSelector->setEnabled(false);
    clickRight();
    EXPECT_EQ(mSelector->getSelectedIndex(), -1);
}
