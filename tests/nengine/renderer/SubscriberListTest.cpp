#include "nengine/renderer/SubscriberList.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using List = nurel::renderer::SubscriberList<int>;

class Subscribers : public testing::Test {
public:
    List::Callback note(char name, bool ends = false) {
        return [this, name, ends](int) {
            seen += name;
            return ends;
        };
    }
    std::string run() {
        seen.clear();
        list.notify(0);
        return seen;
    }
    List list;
    std::string seen;
};

TEST_F(Subscribers, AreCalledInOrderOfSubscription) {
    const unsigned int a = list.subscribe(note('a'));
    const unsigned int b = list.subscribe(note('b'));
    EXPECT_NE(a, 0u);
    EXPECT_NE(a, b);
    EXPECT_EQ(run(), "ab");
    EXPECT_TRUE(list.unsubscribe(a));
    EXPECT_FALSE(list.unsubscribe(a));
    EXPECT_FALSE(list.unsubscribe(0));
    EXPECT_EQ(run(), "b");
    EXPECT_NE(list.subscribe(note('c')), a) << "ids are not used twice";
}

TEST_F(Subscribers, EndWhenTheyReturnTrue) {
    list.subscribe(note('a'));
    list.subscribe(note('b', true));
    list.subscribe(note('c'));
    EXPECT_EQ(run(), "abc");
    EXPECT_EQ(run(), "ac");
    EXPECT_EQ(list.getCount(), 2u);
}

TEST_F(Subscribers, MayUnsubscribeAnyoneFromInside) {
    unsigned int self = 0, later = 0;
    const unsigned int earlier = list.subscribe(note('a'));
    self = list.subscribe([&](int) {
        seen += 'b';
        list.unsubscribe(earlier);
        list.unsubscribe(self);
        list.unsubscribe(later);
        return false;
    });
    later = list.subscribe(note('c'));
    list.subscribe(note('d'));
    EXPECT_EQ(run(), "abd");
    EXPECT_EQ(run(), "d");
}

TEST_F(Subscribers, MaySubscribeFromInside) {
    list.subscribe([&](int) {
        seen += 'a';
        list.subscribe(note('n'));
        return true;
    });
    EXPECT_EQ(run(), "a") << "a new one is called from the next time on";
    EXPECT_EQ(run(), "n");
}

TEST_F(Subscribers, MayNotifyFromInside) {
    list.subscribe([&](int) {
        seen += 'a';
        if (seen.size() < 3)
            list.notify(0);
        return true;
    });
    list.subscribe(note('b'));
    EXPECT_EQ(run(), "aaabbb");
    EXPECT_EQ(run(), "b");
}

TEST_F(Subscribers, StayInOrderWhenOneThrows) {
    list.subscribe([](int) -> bool { throw std::runtime_error("no"); });
    const unsigned int b = list.subscribe(note('b'));
    EXPECT_THROW(list.notify(0), std::runtime_error);
    EXPECT_TRUE(list.unsubscribe(b));
    EXPECT_EQ(list.getCount(), 1u);
}

TEST_F(Subscribers, AnEmptyCallbackIsNeverCalled) {
    list.subscribe(nullptr);
    EXPECT_EQ(run(), "");
}

} // namespace
