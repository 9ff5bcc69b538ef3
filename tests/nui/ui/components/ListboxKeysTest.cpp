// What keys and the focus do to a list.
#include "nui/ui/components/ListboxFixture.h"

using namespace nurel::ui;
using components::Listbox;

namespace {

class ListboxKeysTest : public test::ListboxFixture {
public:
    ListboxKeysTest() { add({"a", "b", "c", "d"}); }
};

} // namespace

TEST_F(ListboxKeysTest, KeysActWhenTheyAreReleased) {
    gainFocus();
    EXPECT_EQ(mList->handleEvent(KeyEvent(Keyboard::K_DOWN, true)), mList.get());
    EXPECT_EQ(focused(), "a");
    EXPECT_EQ(mList->handleEvent(KeyEvent(Keyboard::K_DOWN, false)), mList.get());
    EXPECT_EQ(focused(), "b");
    EXPECT_EQ(mList->handleEvent(KeyEvent(Keyboard::K_SPACE, false)), mList.get()); // every key is taken
    EXPECT_EQ(focused(), "b");
    EXPECT_EQ(mList->getSelectedIndex(), -1);
}

TEST_F(ListboxKeysTest, SubscribersOfAKeySeeWhatItDid) {
    gainFocus();
    Lines told;
    mList->KeyCallbacks::subscribeCallback([&](UIEventHandler *, const KeyEvent &event) {
        told.push_back((event.isPressed() ? "down " : "up ") + focused());
        return false;
    });
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(told, (Lines{"down a", "up b"}));
}

TEST_F(ListboxKeysTest, TheKeysAreThoseOfTheirScanCodes) {
    EXPECT_EQ(Keyboard::K_UP, 0xC8);
    EXPECT_EQ(Keyboard::K_DOWN, 0xD0);
    EXPECT_EQ(Keyboard::K_RETURN, 0x1C);
}

TEST_F(ListboxKeysTest, TheFocusStopsAtTheEnds) {
    gainFocus();
    tap(Keyboard::K_UP);
    EXPECT_EQ(focused(), "a");
    tap(Keyboard::K_DOWN, 7);
    EXPECT_EQ(focused(), "d");
    tap(Keyboard::K_UP);
    EXPECT_EQ(focused(), "c");
}

TEST_F(ListboxKeysTest, ReturnSelectsWhatHasTheFocusAndTellsNobody) {
    gainFocus();
    tap(Keyboard::K_DOWN, 2);
    tap(Keyboard::K_RETURN);
    EXPECT_EQ(mList->getSelectedIndex(), 2);
    EXPECT_EQ(checked(), "c");
    EXPECT_EQ(focused(), "c");
    EXPECT_EQ(seen(), Lines{});
    tap(Keyboard::K_DOWN);
    EXPECT_EQ(checked(), "c");
    EXPECT_EQ(focused(), "d");
}

TEST_F(ListboxKeysTest, LosingAndRegainingTheFocusKeepsTheRow) {
    mList->setTabStop(0);
    mList->setFocus();
    EXPECT_EQ(manager().getFocus(), mList.get());
    EXPECT_EQ(focused(), "a");
    key(Keyboard::K_DOWN);
    key(Keyboard::K_DOWN, false);
    frame();
    EXPECT_EQ(focused(), "b");
    manager().setFocus(nullptr);
    EXPECT_EQ(focused(), "");
    mList->setFocus();
    EXPECT_EQ(focused(), "b");
}

TEST_F(ListboxKeysTest, WithoutATabStopTheListTakesNoFocus) {
    mList->setFocus();
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(ListboxKeysTest, ARowInFocusIsNotScrolledIntoView) {
    for (int i = 0; i < 20; ++i)
        mList->addItem("more", nullptr);
    frame();
    gainFocus();
    tap(Keyboard::K_DOWN, 15);
    frame();
    EXPECT_EQ(mList->getScrollOffset(), Vector2(0, 0));
}
