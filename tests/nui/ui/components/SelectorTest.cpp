#include "nui/ui/components/Selector.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <functional>
#include <limits>

using namespace nurel::ui;
using components::Label;
using components::Selector;

namespace {

constexpr int LARGEST = std::numeric_limits<int>::max();
constexpr int SMALLEST = std::numeric_limits<int>::min();
constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;

class OpenSelector : public Selector {
public:
    using Selector::onLeftClick;
    using Selector::onRightClick;
    using Selector::Selector;
    using Selector::setClean;

    static void clean(Component &component) { (component.*&OpenSelector::setClean)(DIRTY_ALL); }
};

class CountedData : public Selector::ItemData {
public:
    CountedData() { ++sAlive; }
    ~CountedData() override { --sAlive; }

    static int sAlive;
};

int CountedData::sAlive = 0;

class ComponentsSelectorTest : public test::ManagerTest {
public:
    ComponentsSelectorTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mSelector = new OpenSelector("selector");
        for (Component *part : parts(*mSelector))
            part->setSize({40, 40});
        place(*mSelector, 100, 100, 200, 40);
        mPanel->addChild(mSelector.get());
        frame();
        mSelector->SelectionCallbacks::subscribeCallback([this](Selector *selector, int old) {
            mSeen.push_back(std::string(selector->getName()) + " " + std::to_string(old) + ">" +
                            std::to_string(selector->getSelectedIndex()));
            return false;
        });
    }

    static std::vector<Component *> parts(const Selector &selector) {
        return {selector.getItem(), selector.getLeft(), selector.getRight()};
    }

    void addThree() {
        for (const char *text : {"one", "two", "three"})
            mSelector->addItem(text, nullptr);
    }

    Lines seen() { return std::exchange(mSeen, {}); }

    static std::string shownBy(const Selector &selector) { return selector.getItem()->getText(); }
    std::string shown() const { return shownBy(*mSelector); }

    /// The buttons are 40 wide.
    static void clickLeft() { click(110, 120); }
    static void clickRight() { click(290, 120); }

    static core::SmartPtr<Selector> cloneOf(const Selector &selector) {
        return static_cast<Selector *>(selector.clone());
    }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenSelector> mSelector; ///< around (200, 120)
    Lines mSeen;
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
