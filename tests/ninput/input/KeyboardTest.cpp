#include "ninput/input/Keyboard.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

using nurel::input::Keyboard;
using Info = Keyboard::KeyboardCallBackInfo;

namespace {

/// A subscriber that writes its letter down.
Keyboard::Callback note(std::string &heard, char letter) {
    return [&heard, letter](Info &) { heard += letter; };
}

} // namespace

TEST(Keyboard, HandsKeysToItsSubscribersInTheirOrder) {
    Keyboard keyboard;
    std::string heard;
    keyboard.subscribe(
        [&heard](Info &info) { heard += "1:" + std::to_string(info.key) + (info.pressed ? "down " : "up "); });
    keyboard.subscribe(
        [&heard](Info &info) { heard += "2:" + std::to_string(info.key) + (info.pressed ? "down " : "up "); });
    keyboard.inject(Keyboard::K_TAB, true);
    keyboard.inject(Keyboard::K_TAB, false);
    EXPECT_EQ(heard, "1:15down 2:15down 1:15up 2:15up ");
}

TEST(Keyboard, GivesEachSubscriberItsOwnCopy) {
    Keyboard keyboard;
    int heard = 0;
    keyboard.subscribe([](Info &info) { info.key = 99; });
    keyboard.subscribe([&heard](Info &info) { heard = info.key; });
    keyboard.inject(1, true);
    EXPECT_EQ(heard, 1);
}

TEST(Keyboard, EndsASubscriptionByItsId) {
    Keyboard keyboard;
    std::string heard;
    const unsigned a = keyboard.subscribe(note(heard, 'a'));
    const unsigned b = keyboard.subscribe(note(heard, 'b'));
    EXPECT_NE(a, 0u);
    EXPECT_NE(a, b);
    EXPECT_TRUE(keyboard.unsubscribe(a));
    EXPECT_FALSE(keyboard.unsubscribe(a));
    EXPECT_FALSE(keyboard.unsubscribe(0));
    EXPECT_FALSE(keyboard.unsubscribe(b + 1));
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "b");
}

TEST(Keyboard, TakesNoEmptySubscriber) {
    Keyboard keyboard;
    EXPECT_EQ(keyboard.subscribe(nullptr), 0u);
    keyboard.inject(1, true);
}

TEST(Keyboard, LetsASubscriberEndItselfWhileItIsCalled) {
    Keyboard keyboard;
    std::string heard;
    const auto held = std::make_shared<std::string>("a"); // must live as long as the callback runs
    unsigned id = 0;
    id = keyboard.subscribe([&, held](Info &) {
        EXPECT_TRUE(keyboard.unsubscribe(id));
        EXPECT_FALSE(keyboard.unsubscribe(id));
        heard += *held;
    });
    keyboard.subscribe(note(heard, 'b'));
    keyboard.inject(1, true);
    keyboard.inject(1, false);
    EXPECT_EQ(heard, "abb");
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Keyboard, CallsNoSubscriberThatAnotherHasEnded) {
    Keyboard keyboard;
    std::string heard;
    unsigned before = 0, after = 0;
    before = keyboard.subscribe(note(heard, 'a'));
    keyboard.subscribe([&](Info &) {
        keyboard.unsubscribe(before);
        keyboard.unsubscribe(after);
        heard += 'b';
    });
    after = keyboard.subscribe(note(heard, 'c'));
    keyboard.subscribe(note(heard, 'd'));
    keyboard.inject(1, true);
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "abdbd");
}

TEST(Keyboard, LetsANewSubscriberHearTheNextKeyFirst) {
    Keyboard keyboard;
    std::string heard;
    keyboard.subscribe([&](Info &info) {
        heard += 'a';
        for (int i = 0; info.key == 1 && i < 100; ++i) // enough for the list to move
            keyboard.subscribe([&heard](Info &) { heard += 'n'; });
        heard += 'A';
    });
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "aA");
    heard.clear();
    keyboard.inject(2, true);
    EXPECT_EQ(heard, "aA" + std::string(100, 'n'));
}

TEST(Keyboard, HandsOutKeysThatASubscriberInjects) {
    Keyboard keyboard;
    std::string heard;
    unsigned second = 0;
    keyboard.subscribe([&](Info &info) {
        heard += std::to_string(info.key);
        if (info.key == 1) {
            keyboard.inject(2, true);
            keyboard.unsubscribe(second);
        }
    });
    second = keyboard.subscribe(note(heard, 'b'));
    keyboard.subscribe(note(heard, 'c'));
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "12bcc");
    EXPECT_FALSE(keyboard.unsubscribe(second));
}

TEST(Keyboard, StaysWholeWhenASubscriberThrows) {
    Keyboard keyboard;
    std::string heard;
    unsigned id = 0;
    id = keyboard.subscribe([&](Info &) {
        keyboard.unsubscribe(id);
        throw std::runtime_error("subscriber");
    });
    keyboard.subscribe(note(heard, 'b'));
    EXPECT_THROW(keyboard.inject(1, true), std::runtime_error);
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "b");
}

TEST(Keyboard, MayBeToldToEndASubscriptionByAnEndingOne) {
    Keyboard keyboard;
    std::string heard;
    const unsigned other = keyboard.subscribe(note(heard, 'o'));
    auto held = std::shared_ptr<int>(new int(0), [&](int *number) {
        delete number;
        EXPECT_TRUE(keyboard.unsubscribe(other));
    });
    const unsigned id = keyboard.subscribe([held](Info &) {});
    held.reset();
    EXPECT_TRUE(keyboard.unsubscribe(id));
    keyboard.inject(1, true);
    EXPECT_EQ(heard, "");
}

TEST(Keyboard, UsesTheScanCodesOfThePlatform) {
    EXPECT_EQ(Keyboard::K_ESCAPE, 0x01);
    EXPECT_EQ(Keyboard::K_BACKSPACE, 0x0E);
    EXPECT_EQ(Keyboard::K_TAB, 0x0F);
    EXPECT_EQ(Keyboard::K_RETURN, 0x1C);
    EXPECT_EQ(Keyboard::K_HOME, 0xC7);
    EXPECT_EQ(Keyboard::K_UP, 0xC8);
    EXPECT_EQ(Keyboard::K_LEFT, 0xCB);
    EXPECT_EQ(Keyboard::K_RIGHT, 0xCD);
    EXPECT_EQ(Keyboard::K_END, 0xCF);
    EXPECT_EQ(Keyboard::K_DOWN, 0xD0);
    EXPECT_EQ(Keyboard::K_DELETE, 0xD3);
}
