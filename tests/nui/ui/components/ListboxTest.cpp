#include "nui/ui/components/Listbox.h"

#include "nui/ui/components/ListboxFixture.h"

#include "nengine/EngineFactory.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/layouts/FormLayout.h"

#include <limits>

using namespace nurel::ui;
using components::Label;
using components::Listbox;
using components::Panel;
using layouts::FlowLayout;

namespace {

constexpr int LARGEST = std::numeric_limits<int>::max();
constexpr int SMALLEST = std::numeric_limits<int>::min();
constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;

class ComponentsListboxTest : public test::ListboxFixture {};

} // namespace

TEST_F(ComponentsListboxTest, HasItsDefaults) {
    const core::SmartPtr<Listbox> list(new Listbox);
    EXPECT_STREQ(list->getName(), "");
    EXPECT_STREQ(Listbox::ELEMENT, "listbox");
    EXPECT_EQ(list->getElement(), "listbox");
    EXPECT_STREQ(list->getType().getName(), "Listbox");
    EXPECT_TRUE(list->instanceOf(Container::TYPE));
    EXPECT_EQ(list->getEventMask(), Component::EVENT_MASK_DEFAULT | 0xe0);
    EXPECT_EQ(list->getScrollMask(), 2u);
    EXPECT_EQ(list->getItemCount(), 0u);
    EXPECT_EQ(list->getSelectedIndex(), -1);
    EXPECT_EQ(list->getSelectedItem(), nullptr);
    EXPECT_STREQ(list->getNoItemText(), "");
    EXPECT_EQ(list->getItemHeight(), 20);
    EXPECT_EQ(list->getItemSpacing(), -1);
}

TEST_F(ComponentsListboxTest, FlowsDownwardInOneColumn) {
    const core::SmartPtr<Listbox> list(new Listbox);
    ASSERT_TRUE(list->hasLayout());
    ASSERT_TRUE(list->getLayout()->instanceOf(FlowLayout::TYPE));
    const auto &layout = static_cast<const FlowLayout &>(*list->getLayout());
    EXPECT_EQ(layout.getOwner(), list.get());
    EXPECT_EQ(layout.getFlowDirection(), FlowLayout::VERTICAL);
    EXPECT_EQ(layout.getAnchor(), 9u);
    EXPECT_EQ(layout.getSpacing(), Vector2(0, -1));
    EXPECT_EQ(layout.getStartPosition(), Vector2(0, 0));
    EXPECT_EQ(layout.getSizeLimitPolicy(), FlowLayout::ABSOLUTE);
    EXPECT_GT(layout.getSizeLimit(), 1e30f);
    EXPECT_EQ(layout.getComponentCount(), 0u);
}

TEST_F(ComponentsListboxTest, HasAHiddenMarkFromTheStart) {
    const core::SmartPtr<Listbox> list(new Listbox("name"));
    ASSERT_EQ(list->getChildCount(), 1u);
    Panel *check = list->getCheck();
    EXPECT_EQ(list->getChildAt(0), check);
    EXPECT_STREQ(check->getName(), "check");
    EXPECT_STREQ(check->getType().getName(), "ListboxCheck");
    EXPECT_EQ(check->getElement(), "listbox");
    EXPECT_EQ(check->getEventMask(), 0x202u);
    EXPECT_FALSE(check->isSelfVisible());
    EXPECT_FALSE(list->getLayout()->hasComponent(check));
}

TEST_F(ComponentsListboxTest, TheMarkIsHiddenAtOnceAlsoWhileAnAnimationIsOpen) {
    manager().beginAnimation();
    const core::SmartPtr<Listbox> list(new Listbox);
    list->addItem("one", nullptr);
    EXPECT_FALSE(list->getCheck()->isSelfVisible());
    EXPECT_EQ(list->getItemEntry(0)->item->getComponentSize().absolute, Vector2(100, 20));
    manager().cancelAnimation();
}

TEST_F(ComponentsListboxTest, IsMadeByItsClassName) {
    const core::SmartPtr<nurel::core::Object> made = nurel::EngineFactory::getSingleton().create("Listbox");
    ASSERT_NE(made.get(), nullptr);
    EXPECT_EQ(&made->getType(), &Listbox::TYPE);
}

// --- rows ---

TEST_F(ComponentsListboxTest, AnItemIsARowOfItsOwn) {
    mList->addClass("dark");
    Listbox::ItemEntry *entry = mList->addItem("one", nullptr);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry, mList->getItemEntry(0));
    Label *item = entry->item.get();
    EXPECT_STREQ(item->getText(), "one");
    EXPECT_STREQ(item->getName(), "item");
    EXPECT_EQ(item->getElement(), "listbox");
    EXPECT_STREQ(item->getType().getName(), "ListboxItem");
    EXPECT_TRUE(item->instanceOf(Label::TYPE));
    EXPECT_EQ(item->getEventMask(), 0x242u);
    EXPECT_TRUE(item->hasClass("dark"));
    EXPECT_EQ(item->getParent(), mList.get());
    EXPECT_TRUE(mList->getLayout()->hasComponent(item));
    EXPECT_EQ(item->getComponentSize().absolute, Vector2(100, 20));
    EXPECT_EQ(item->getComponentSize().relative, Vector2(0, 0));
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(mList->getItemCount(), 1u);
    EXPECT_EQ(mList->getChildCount(), 2u);
}

TEST_F(ComponentsListboxTest, RowsStandBelowEachOtherAndOverlapByTheirBorders) {
    add({"a", "b", "c"});
    EXPECT_EQ(row(0)->getMinBound(), Vector2(100, 100));
    EXPECT_EQ(row(1)->getMinBound(), Vector2(100, 119));
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 138));
    EXPECT_EQ(row(2)->getMaxBound(), Vector2(200, 158));
}

TEST_F(ComponentsListboxTest, ALongListIsOneColumnThatScrolls) {
    for (int i = 0; i < 500; ++i)
        mList->addItem("row", nullptr);
    frame();
    frame();
    EXPECT_EQ(row(499)->getMinBound(), Vector2(100, 100 + 499 * 19));
    EXPECT_TRUE(mList->getScrollInfoV().scrollable);
    EXPECT_FALSE(mList->getScrollInfoH().scrollable);
}

TEST_F(ComponentsListboxTest, ANullTextIsEmptyAndATextMayBeThatOfAnotherRow) {
    mList->addItem(nullptr, nullptr);
    EXPECT_STREQ(mList->getItemText(0), "");
    mList->addItem("a text that is not a short one", nullptr);
    for (int i = 1; i < 50; ++i)
        mList->addItem(mList->getItemText(i), nullptr);
    EXPECT_STREQ(mList->getItemText(50), "a text that is not a short one");
}

TEST_F(ComponentsListboxTest, EntriesStayWhereTheyAreWhileRowsAreAdded) {
    const Listbox::ItemEntry *entry = mList->addItem("first", new CountedData);
    for (int i = 0; i < 1000; ++i)
        mList->addItem("more", nullptr);
    EXPECT_EQ(mList->getItemEntry(0), entry);
    EXPECT_EQ(mList->getItemData(0), entry->data.get());
    EXPECT_EQ(mList->getItemData(1), nullptr);
}

TEST_F(ComponentsListboxTest, AnIndexOutOfRangeFindsNothingAndChangesNothing) {
    mList->setNoItemText("none");
    EXPECT_STREQ(mList->getItemText(0), "none"); // there are no rows
    add({"a", "b"});
    for (const int index : {2, 3, -1, -2, LARGEST, SMALLEST}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(mList->getItemEntry(index), nullptr);
        EXPECT_EQ(mList->getItemData(index), nullptr);
        EXPECT_STREQ(mList->getItemText(index), "none");
        EXPECT_FALSE(mList->isItemVisible(index));
        mList->setItemText(index, "x");
        mList->setItemVisible(index, false);
        mList->removeItem(static_cast<unsigned int>(index), true);
    }
    EXPECT_EQ(textsOf(*mList), "a b");
    EXPECT_TRUE(mList->isItemVisible(0));
    EXPECT_TRUE(mList->isItemVisible(1));
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsListboxTest, ARowsTextCanBeSet) {
    add({"a", "b"});
    mList->setItemText(1, "c");
    EXPECT_EQ(textsOf(*mList), "a c");
    EXPECT_STREQ(row(1)->getText(), "c");
    mList->setItemText(1, nullptr);
    EXPECT_STREQ(mList->getItemText(1), "");
}

TEST_F(ComponentsListboxTest, TheNoItemTextMayBeAPartOfItself) {
    mList->setNoItemText("nothing");
    mList->setNoItemText(mList->getItemText(-1) + 2);
    EXPECT_STREQ(mList->getNoItemText(), "thing");
    mList->setNoItemText(nullptr);
    EXPECT_STREQ(mList->getNoItemText(), "");
}

TEST_F(ComponentsListboxTest, DataLivesAsLongAsItsRow) {
    mList->addItem("a", new CountedData);
    mList->addItem("b", new CountedData);
    mList->addItem("c", new CountedData);
    EXPECT_EQ(CountedData::sAlive, 3);
    mList->removeItem(1, false);
    EXPECT_EQ(CountedData::sAlive, 2);
    mList->clearItems();
    EXPECT_EQ(CountedData::sAlive, 0);
    mList->addItem("d", new CountedData);
    mWidget->removeChild(mList.get());
    mList = nullptr;
    EXPECT_EQ(CountedData::sAlive, 0);
}

TEST_F(ComponentsListboxTest, DataMayLookAtTheListAsItGoes) {
    class LookingData : public Listbox::ItemData {
    public:
        LookingData(Listbox &list, unsigned int count) : mList(list), mCount(count) {}
        ~LookingData() override {
            EXPECT_EQ(mList.getItemCount(), mCount);
            EXPECT_EQ(mList.getSelectedItem(), nullptr);
        }
        Listbox &mList;
        const unsigned int mCount;
    };
    mList->addItem("a", new LookingData(*mList, 1));
    mList->addItem("b", new LookingData(*mList, 0));
    mList->setSelectedIndex(0, false);
    mList->removeItem(0, false);
    mList->setSelectedIndex(0, false);
    mList->clearItems();
}

TEST_F(ComponentsListboxTest, RemovingTheSelectedRowEndsTheSelection) {
    add({"a", "b", "c"});
    mList->setSelectedIndex(1, false);
    const core::SmartPtr<Label> removed(row(1));
    mList->removeItem(1, true);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), (Lines{"list -1 is -1"}));
    EXPECT_EQ(removed->getParent(), nullptr);
    EXPECT_FALSE(mList->getLayout()->hasComponent(removed.get()));
    EXPECT_EQ(textsOf(*mList), "a c");
    EXPECT_EQ(checked(), "");
    EXPECT_EQ(focused(), "");
    EXPECT_EQ(mList->getChildCount(), 3u);
    mList->setSelectedIndex(1, false);
    mList->removeItem(1, false);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsListboxTest, RemovingARowAboveKeepsTheSameRowSelected) {
    add({"a", "b", "c"});
    mList->setSelectedIndex(2, false);
    mList->removeItem(0, true);
    EXPECT_EQ(mList->getSelectedIndex(), 1);
    EXPECT_STREQ(mList->getItemText(mList->getSelectedIndex()), "c");
    EXPECT_EQ(checked(), "c");
    EXPECT_EQ(focused(), "c");
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsListboxTest, RemovingARowBelowLeavesTheSelectionAlone) {
    add({"a", "b", "c"});
    mList->setSelectedIndex(0, false);
    mList->removeItem(2, true);
    EXPECT_EQ(mList->getSelectedIndex(), 0);
    EXPECT_EQ(checked(), "a");
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ComponentsListboxTest, ARowThatMovedUpGivesTheFocusAwayWithTheNextStep) {
    add({"a", "b", "c", "d", "e"});
    gainFocus();
    tap(Keyboard::K_DOWN, 2);
    EXPECT_EQ(focused(), "c");
    mList->removeItem(0, false); // the index stays at 2
    EXPECT_EQ(focused(), "c");
    tap(Keyboard::K_UP);
    EXPECT_EQ(focused(), "c");
    tap(Keyboard::K_UP);
    EXPECT_EQ(focused(), "b");
    const core::SmartPtr<Label> removed(row(0));
    mList->removeItem(0, false); // the row with the focus itself
    EXPECT_EQ(focused(), "");
    EXPECT_FALSE(removed->hasState(FOCUSED));
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(focused(), "d");
    mList->removeItem(0, false); // the index stays at 1, and "d" is at 0
    OpenListbox::setChildState(*row(1), FOCUSED);
    EXPECT_EQ(focused(), "d e");
    tap(Keyboard::K_UP); // from 1
    EXPECT_EQ(focused(), "d");
}

TEST_F(ComponentsListboxTest, ClearingTakesTheRowsAndTheSelectionSilently) {
    add({"a", "b"});
    mList->setSelectedIndex(1, false);
    frame();
    EXPECT_TRUE(mList->getCheck()->isSelfVisible());
    mList->clearItems();
    EXPECT_EQ(mList->getItemCount(), 0u);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(mList->getChildCount(), 1u);
    EXPECT_EQ(mList->getChildAt(0), mList->getCheck());
    EXPECT_EQ(mList->getLayout()->getComponentCount(), 0u);
    EXPECT_EQ(seen(), Lines{});
    frame();
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    add({"c"});
    EXPECT_EQ(mList->getChildCount(), 2u);
}

TEST_F(ComponentsListboxTest, AStaleFocusIndexIsKeptAndTouchesNothing) {
    add({"a", "b", "c"});
    gainFocus();
    tap(Keyboard::K_DOWN, 2);
    mList->clearItems();
    tap(Keyboard::K_UP); // 1 is out of range
    add({"d"});
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(focused(), "");
    gainFocus(); // still at 2
    EXPECT_EQ(focused(), "");
    loseFocus();
    add({"e", "f"});
    gainFocus();
    EXPECT_EQ(focused(), "f");
}

TEST_F(ComponentsListboxTest, RowsCanBeHidden) {
    add({"a", "b", "c"});
    mList->setSelectedIndex(1, false);
    frame();
    mList->setItemVisible(1, false);
    EXPECT_FALSE(mList->isItemVisible(1));
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    frame();
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 119)); // it has closed up
    mList->setItemVisible(1, true);
    mList->setItemVisible(0, false);
    EXPECT_TRUE(mList->isItemVisible(1));
    EXPECT_TRUE(mList->getCheck()->isSelfVisible());
    mList->setAllItemsVisible(false);
    EXPECT_FALSE(mList->isItemVisible(0) || mList->isItemVisible(1) || mList->isItemVisible(2));
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    mList->setAllItemsVisible(true);
    EXPECT_TRUE(mList->isItemVisible(0) && mList->isItemVisible(1) && mList->isItemVisible(2));
    EXPECT_TRUE(mList->getCheck()->isSelfVisible());
    mWidget->setVisible(false);
    EXPECT_FALSE(mList->isItemVisible(0));
}

TEST_F(ComponentsListboxTest, WithoutASelectionTheMarkStaysHidden) {
    add({"a"});
    mList->setAllItemsVisible(false);
    mList->setAllItemsVisible(true);
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    mList->setItemVisible(0, false);
    mList->setItemVisible(0, true);
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    frame();
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
}

TEST_F(ComponentsListboxTest, AListWithoutARowInSightDoesNotScroll) {
    for (int i = 0; i < 30; ++i)
        mList->addItem("row", nullptr);
    frame();
    frame();
    ASSERT_TRUE(mList->getScrollInfoV().scrollable);
    mList->setAllItemsVisible(false);
    frame();
    EXPECT_FALSE(mList->getScrollInfoV().scrollable);
    mList->setAllItemsVisible(true);
    frame();
    EXPECT_TRUE(mList->getScrollInfoV().scrollable);
}

TEST_F(ComponentsListboxTest, TheItemHeightIsThatOfAllRows) {
    add({"a"});
    row(0)->setSize(Vector2(50, 5), Vector2(0.5f, 0.25f));
    mList->setItemHeight(30);
    EXPECT_EQ(mList->getItemHeight(), 30);
    add({"b"});
    EXPECT_EQ(row(0)->getComponentSize().absolute, Vector2(50, 30));
    EXPECT_EQ(row(0)->getComponentSize().relative, Vector2(0.5f, 0));
    EXPECT_EQ(row(1)->getComponentSize().absolute, Vector2(100, 30));
    EXPECT_EQ(row(1)->getMinBound(), Vector2(100, 129));
}

TEST_F(ComponentsListboxTest, TheItemSpacingIsTheLayoutsAndShowsWithTheNextFrame) {
    add({"a", "b"});
    frame();
    OpenListbox::clean(*mList);
    static_cast<FlowLayout *>(mList->getLayout())->setSpacing(Vector2(3, -1));
    mList->setItemSpacing(5);
    EXPECT_EQ(mList->isDirty(Component::DIRTY_ALL), 0u + Component::DIRTY_CONTENT);
    EXPECT_EQ(static_cast<FlowLayout *>(mList->getLayout())->getSpacing(), Vector2(3, 5));
    EXPECT_EQ(mList->getItemSpacing(), 5);
    frame();
    EXPECT_EQ(row(1)->getMinBound(), Vector2(100, 125));
}

TEST_F(ComponentsListboxTest, WithAnotherLayoutThereIsNoItemSpacing) {
    mList->setLayout(new layouts::FormLayout);
    mList->setItemSpacing(5);
    EXPECT_EQ(mList->getItemSpacing(), 0);
    mList->setLayout(nullptr);
    mList->setItemSpacing(5);
    EXPECT_EQ(mList->getItemSpacing(), 0);
    add({"a"});
    EXPECT_EQ(mList->getItemCount(), 1u);
}

TEST_F(ComponentsListboxTest, ClassesAreThoseOfMarkAndRowsToo) {
    add({"a", "b"});
    Component *parts[] = {mList.get(), mList->getCheck(), row(0), row(1)};
    const auto clean = [&parts] {
        for (Component *part : parts)
            OpenListbox::clean(*part);
    };
    clean();
    mList->addClass("x");
    for (Component *part : parts) {
        EXPECT_TRUE(part->hasClass("x"));
        EXPECT_EQ(part->isDirty(STYLE), STYLE);
    }
    mList->addClass("y");
    clean();
    mList->removeClass(mList->getClasses().begin()->first); // a key of the set itself
    for (Component *part : parts) {
        EXPECT_FALSE(part->hasClass("x"));
        EXPECT_TRUE(part->hasClass("y"));
        EXPECT_EQ(part->isDirty(STYLE), STYLE);
    }
    mList->addClass(nullptr);
    mList->removeClass(nullptr);
    clean();
    mList->removeClasses();
    for (Component *part : parts) {
        EXPECT_FALSE(part->hasClass("y"));
        EXPECT_EQ(part->isDirty(STYLE), STYLE);
    }
}
