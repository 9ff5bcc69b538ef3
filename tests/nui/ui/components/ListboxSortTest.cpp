// The order of a list's rows.
#include "nui/ui/components/ListboxFixture.h"

#include "nui/ui/Layout.h"

#include <algorithm>
#include <map>
#include <random>
#include <stdexcept>

using namespace nurel::ui;
using components::Label;
using components::Listbox;

namespace {

class ListboxSortTest : public test::ListboxFixture {
public:
    static bool isAheadByText(const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        return std::string(a.item->getText()) < b.item->getText();
    }
};

} // namespace

TEST_F(ListboxSortTest, SortingPutsRowsAndDataInOrder) {
    std::map<std::string, const Listbox::ItemData *> data;
    for (const char *text : {"pear", "apple", "fig"}) {
        mList->addItem(text, new CountedData);
        data[text] = mList->getItemData(static_cast<int>(mList->getItemCount()) - 1);
    }
    frame();
    mList->setSelectedIndex(0, false);
    frame();
    const Label *selected = row(0);
    mList->sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        return std::string(a.item->getText()) < b.item->getText();
    });
    frame();
    EXPECT_EQ(textsOf(*mList), "apple fig pear");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(mList->getItemData(i), data[mList->getItemText(i)]);
    EXPECT_EQ(mList->getSelectedIndex(), 2);
    EXPECT_EQ(row(2), selected);
    EXPECT_EQ(checked(), "pear");
    EXPECT_EQ(focused(), "pear");
    EXPECT_EQ(seen(), Lines{});
    ASSERT_EQ(mList->getChildCount(), 4u);
    EXPECT_EQ(mList->getChildAt(0), row(0));
    EXPECT_EQ(mList->getChildAt(3), mList->getCheck());
    EXPECT_EQ(mList->getLayout()->getComponentCount(), 3u);
    EXPECT_EQ(row(0)->getMinBound().y, 100);
    EXPECT_EQ(row(2)->getMinBound().y, 138);
    for (unsigned int i = 0; i < 4; ++i)
        EXPECT_EQ(mList->getView()->getContent()->getChild(i), mList->getChildAt(i)->getView());
}

TEST_F(ListboxSortTest, SortingKeepsTheOrderOfEqualRows) {
    std::mt19937 random(7);
    for (int count : {0, 1, 2, 3, 7, 64, 100}) {
        SCOPED_TRACE(count);
        mList->clearItems();
        std::vector<std::pair<int, int>> keys;
        for (int i = 0; i < count; ++i) {
            keys.emplace_back(static_cast<int>(random() % 10), i);
            mList->addItem(std::to_string(keys.back().first * 1000 + i).c_str(), nullptr);
        }
        std::sort(keys.begin(), keys.end());
        mList->sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
            return std::atoi(a.item->getText()) / 1000 < std::atoi(b.item->getText()) / 1000;
        });
        for (int i = 0; i < count; ++i) {
            const auto &key = keys[static_cast<std::size_t>(i)];
            EXPECT_EQ(mList->getItemText(i), std::to_string(key.first * 1000 + key.second));
        }
    }
}

TEST_F(ListboxSortTest, TheFocusGoesWithItsRowWhenTheListIsSorted) {
    add({"c", "b", "a"});
    gainFocus();
    const auto byText = [](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        return *a.item->getText() < *b.item->getText();
    };
    mList->setSelectedIndex(1, false);
    tap(Keyboard::K_UP);
    mList->sort(byText);
    EXPECT_EQ(checked(), "b");
    EXPECT_EQ(focused(), "c");
    tap(Keyboard::K_UP);
    EXPECT_EQ(focused(), "b");
    mList->removeItem(0, false);
    loseFocus();
    mList->sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        return *a.item->getText() > *b.item->getText();
    });
    EXPECT_EQ(textsOf(*mList), "c b");
    EXPECT_EQ(focused(), ""); // the list has it not
    EXPECT_EQ(checked(), "b");
}

TEST_F(ListboxSortTest, AnyAnswersOfAComparisonLeaveEveryRowInTheList) {
    std::mt19937 random(11);
    for (int i = 0; i < 200; ++i)
        mList->addItem(std::to_string(i).c_str(), nullptr);
    for (int round = 0; round < 20; ++round) {
        mList->sort([&random](const Listbox::ItemEntry &, const Listbox::ItemEntry &) { return random() % 2 == 0; });
        std::vector<bool> found(200);
        for (int i = 0; i < 200; ++i)
            found[static_cast<std::size_t>(std::atoi(mList->getItemText(i)))] = true;
        EXPECT_EQ(std::count(found.begin(), found.end(), true), 200);
    }
    mList->sort(nullptr);
    EXPECT_EQ(mList->getItemCount(), 200u);
}

TEST_F(ListboxSortTest, AComparisonThatFailsOrChangesTheListSortsNothing) {
    add({"c", "b", "a"});
    EXPECT_THROW(mList->sort([](const Listbox::ItemEntry &, const Listbox::ItemEntry &) -> bool {
        throw std::runtime_error("no");
    }),
                 std::runtime_error);
    EXPECT_EQ(textsOf(*mList), "c b a");
    mList->sort([this](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        mList->clearItems();
        mList->addItem("new", nullptr);
        return *a.item->getText() < *b.item->getText();
    });
    EXPECT_EQ(textsOf(*mList), "new");
    EXPECT_EQ(mList->getChildCount(), 2u);
    mList->addItem("more", nullptr);
    mList->sort([this](const Listbox::ItemEntry &, const Listbox::ItemEntry &) {
        mWidget->clearChildren();
        mList = nullptr;
        return true;
    });
}

TEST_F(ListboxSortTest, WithoutASelectionTheMarkStaysBehindTheRows) {
    add({"b", "a"});
    mList->sort(isAheadByText);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    ASSERT_EQ(mList->getChildCount(), 3u);
    EXPECT_EQ(mList->getChildAt(2), mList->getCheck());
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
    EXPECT_FALSE(mList->getLayout()->hasComponent(mList->getCheck()));
}

TEST_F(ListboxSortTest, ARowThatMovesAwayForgetsTheCursorAndThePress) {
    add({"c", "b", "a"});
    moveTo(150, yOf(0));
    press();
    EXPECT_TRUE(row(0)->hasState(HOVER));
    mList->sort(isAheadByText);
    EXPECT_EQ(rowsWith(*mList, HOVER), "");
    frame();
    release();
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
    EXPECT_EQ(focused(), "c"); // the press gave it the focus
}

TEST_F(ListboxSortTest, ASortedListIsScrolledBackAndGoesOnAsBefore) {
    for (int i = 0; i < 30; ++i)
        mList->addItem(std::to_string(130 - i).c_str(), nullptr);
    frame();
    frame();
    mList->scrollVerticalAbsolute(100);
    frame();
    mList->sort(isAheadByText);
    frame();
    frame();
    EXPECT_EQ(mList->getScrollOffset(), Vector2(0, 0));
    EXPECT_TRUE(mList->getScrollInfoV().scrollable);
    clickRow(1);
    EXPECT_EQ(seen(), (Lines{"list 1 is 1"}));
    EXPECT_STREQ(mList->getItemText(1), "102");
}
