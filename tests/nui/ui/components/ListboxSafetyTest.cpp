// What a list has to bear: callbacks that take it apart, rows that were taken away, and any number and text.
#include "nui/ui/components/ListboxFixture.h"

#include "nui/ui/layouts/FlowLayout.h"

#include <limits>

using namespace nurel::ui;
using components::Label;
using components::Listbox;
using components::Panel;

namespace {

class ListboxSafetyTest : public test::ListboxFixture {
public:
    void dropList() {
        mWidget->clearChildren();
        mList = nullptr;
    }
};

} // namespace

TEST_F(ListboxSafetyTest, ARowMayClearTheListAsTheCursorComes) {
    add({"a", "b", "c"});
    row(1)->HoverCallbacks::subscribeCallback([this](UIEventHandler *, const HoverEvent &) {
        mList->clearItems();
        return true;
    });
    moveTo(150, yOf(1));
    EXPECT_EQ(mList->getItemCount(), 0u);
    EXPECT_EQ(mList->getChildCount(), 1u);
}

TEST_F(ListboxSafetyTest, AListMayGoInTheMiddleOfAPress) {
    add({"a", "b"});
    mList->MouseCallbacks::subscribeCallback([this](UIEventHandler *, const MouseEvent &) {
        dropList();
        return true;
    });
    clickRow(1);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(ListboxSafetyTest, AListMayGoInTheMiddleOfAKeyOrOfAChangeOfFocus) {
    add({"a", "b"});
    mList->KeyCallbacks::subscribeCallback([this](UIEventHandler *, const KeyEvent &) {
        dropList();
        return true;
    });
    Listbox *list = mList.get();
    EXPECT_EQ(list->handleEvent(KeyEvent(Keyboard::K_DOWN, false)), nullptr);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    mList = new OpenListbox("list");
    mList->addItem("a", nullptr);
    mList->setTabStop(0);
    mWidget->addChild(mList.get());
    mList->FocusCallbacks::subscribeCallback([this](UIEventHandler *, const FocusEvent &) {
        dropList();
        return true;
    });
    mList->setFocus();
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
}

TEST_F(ListboxSafetyTest, TheMarkMayClearTheListAsItIsRaised) {
    add({"a", "b"});
    mList->setSelectedIndex(0, false);
    frame();
    Panel &check = *mList->getCheck();
    check.setTabStop(0);
    check.enableEvents(UIEvent::ET_FOCUS_EVENT);
    check.FocusCallbacks::subscribeCallback([this](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_LOST)
            mList->clearItems();
        return false;
    });
    check.setFocus();
    ASSERT_EQ(manager().getFocus(), &check);
    mList->addItem("c", nullptr); // the mark is raised over it, and loses the focus by that
    frame();
    EXPECT_EQ(mList->getItemCount(), 0u);
    frame();
    EXPECT_EQ(mList->getCheck()->getParent(), mList.get());
    EXPECT_FALSE(mList->getCheck()->isSelfVisible());
}

TEST_F(ListboxSafetyTest, ARowThatIsHiddenMayTakeTheRowsWithIt) {
    add({"a", "b", "c"});
    row(1)->setTabStop(0);
    row(1)->enableEvents(UIEvent::ET_FOCUS_EVENT);
    row(1)->setFocus();
    ASSERT_EQ(manager().getFocus(), row(1));
    mList->setTabStop(1);
    mList->FocusCallbacks::subscribeCallback([this](UIEventHandler *, const FocusEvent &event) {
        if (event.getAction() == FocusEvent::FOCUS_LOST)
            mList->clearItems();
        return false;
    });
    mList->setAllItemsVisible(false);
    EXPECT_EQ(mList->getItemCount(), 0u);
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(ListboxSafetyTest, DisablingOrClearingDuringADragSelectsNothing) {
    for (int i = 0; i < 40; ++i)
        mList->addItem("row", nullptr);
    frame();
    frame();
    const auto drag = [this](auto act) {
        moveTo(150, 180);
        press();
        moveTo(150, 170);
        moveTo(150, 150);
        act();
        moveTo(150, 180);
        release();
        frame();
        EXPECT_EQ(mList->getSelectedIndex(), -1);
        EXPECT_EQ(seen(), Lines{});
    };
    drag([this] { mList->setEnabled(false); });
    mList->setEnabled(true);
    drag([this] { mList->setVisible(false); });
    mList->setVisible(true);
    drag([this] { mList->clearItems(); });
    add({"a"});
    mList->setScrollOffset(Vector2(0, 0));
    frame();
    clickRow(0);
    EXPECT_EQ(mList->getSelectedIndex(), 0);
}

TEST_F(ListboxSafetyTest, RowsThatWereTakenAwayStayItemsAndHarmNothing) {
    add({"a", "b", "c"});
    mList->setSelectedIndex(1, false);
    const core::SmartPtr<Label> taken(row(1));
    const core::SmartPtr<Panel> thief(new Panel("thief"));
    mList->removeChild(taken.get());
    thief->addChild(taken.get());
    frame();
    mList->setItemHeight(33);
    mList->addClass("big");
    EXPECT_TRUE(taken->hasClass("big"));
    EXPECT_EQ(textsOf(*mList), "a b c");
    mList->removeItem(1, true);
    EXPECT_EQ(seen(), (Lines{"list -1 is -1"}));
    EXPECT_EQ(taken->getParent(), thief.get());
    EXPECT_EQ(textsOf(*mList), "a c");
}

TEST_F(ListboxSafetyTest, AnEntryWithoutARowIsPassedOver) {
    add({"a", "b", "c"});
    mList->setNoItemText("none");
    mList->getItemEntry(0)->item = nullptr;
    EXPECT_STREQ(mList->getItemText(0), "none");
    EXPECT_FALSE(mList->isItemVisible(0));
    mList->setSelectedIndex(0, true);
    EXPECT_EQ(seen(), (Lines{"list 0 is -1"}));
    gainFocus();
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(mList->getItemEntry(1)->item->getState(), FOCUSED);
    mList->addClass("big");
    mList->removeClass("big");
    mList->removeClasses();
    mList->setItemHeight(10);
    mList->setAllItemsVisible(true);
    clickRow(0);
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(textsOf(*copy), "none b c");
    mList->sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) { return a.item && !b.item; });
    EXPECT_EQ(textsOf(*mList), "b c none");
    mList->removeItem(2, false);
    EXPECT_EQ(textsOf(*mList), "b c");
}

TEST_F(ListboxSafetyTest, AnyNumberDoesForHeightAndSpacing) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    add({"a", "b", "c"});
    mList->setSelectedIndex(1, false);
    for (const float number :
         {0.f, -5.f, 1e30f, -1e30f, INFINITE, -INFINITE, std::numeric_limits<float>::quiet_NaN()}) {
        SCOPED_TRACE(number);
        mList->setItemHeight(number);
        frame();
        clickRow(1);
        mList->setItemSpacing(number);
        mList->scrollVerticalPercent(0.5f);
        frame();
        clickRow(1);
        EXPECT_EQ(mList->getItemCount(), 3u);
    }
    mList->setItemHeight(20);
    mList->setItemSpacing(-1);
    mList->setScrollOffset(Vector2(0, 0));
    frame();
    frame();
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 138));
}

TEST_F(ListboxSafetyTest, AnyTextDoes) {
    const std::string large(1 << 20, 'x');
    mList->addItem(large.c_str(), nullptr);
    mList->addItem("\xff\xc0\x80 a\xe2\x82", nullptr);
    frame();
    EXPECT_EQ(mList->getItemText(0), large);
    EXPECT_STREQ(mList->getItemText(1), "\xff\xc0\x80 a\xe2\x82");
    mList->setItemText(0, mList->getItemText(0) + (1 << 20) - 3); // a part of itself
    EXPECT_STREQ(mList->getItemText(0), "xxx");
}

TEST_F(ListboxSafetyTest, DataMayLookAtTheListThatDies) {
    class LookingData : public Listbox::ItemData {
    public:
        explicit LookingData(Listbox &list) : mList(list) {}
        ~LookingData() override {
            EXPECT_EQ(mList.getItemCount(), 0u);
            EXPECT_EQ(mList.getItemData(0), nullptr);
        }
        Listbox &mList;
    };
    core::SmartPtr<Listbox> list(new Listbox);
    list->addItem("a", new LookingData(*list));
    list->addItem("b", new LookingData(*list));
    list = nullptr;
}

TEST_F(ListboxSafetyTest, AListMayStandOnTheStack) {
    Listbox list("stack");
    list.addItem("a", nullptr);
    list.setSelectedIndex(0, true);
    list.handleEvent(KeyEvent(Keyboard::K_RETURN, false));
    list.update();
    EXPECT_EQ(rowsWith(list, CHECKED), "a");
    list.clearItems();
    EXPECT_EQ(list.getChildCount(), 1u);
}

TEST(ListboxWithoutEngine, WorksAllTheSame) {
    const core::SmartPtr<Listbox> list(new Listbox("l"));
    for (const char *text : {"b", "a"})
        list->addItem(text, nullptr);
    list->setSelectedIndex(0, true);
    list->sort([](const Listbox::ItemEntry &a, const Listbox::ItemEntry &b) {
        return *a.item->getText() < *b.item->getText();
    });
    list->update();
    EXPECT_EQ(test::ListboxFixture::textsOf(*list), "a b");
    EXPECT_EQ(list->getSelectedIndex(), 1);
    list->setItemVisible(0, false);
    list->handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED));
    const Ray ray;
    const CursorPosition cursor;
    list->handleEvent(ClickEvent(ray, cursor, cursor)); // without a view nothing is hit
    EXPECT_EQ(list->getSelectedIndex(), 1);
    list->clearItems();
    EXPECT_EQ(list->getItemCount(), 0u);
    EXPECT_FALSE(UIManager::isSingletonCreated());
}
