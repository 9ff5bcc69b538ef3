#include "nui/core/Singleton.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Policy = core::Singleton_Singlethread_Policy;

class Counter : public core::Singleton<Counter, 0, 0, Policy> {
public:
    int value = 0;
    static int sMade;
    static Counter *sSeenAtEnd;

private:
    friend class core::Singleton<Counter, 0, 0, Policy>;
    friend class core::Singleton_Middle<Counter, Policy, 0, 0>;
    Counter() { ++sMade; }
    ~Counter() { sSeenAtEnd = getSingletonPtr(); }
};

int Counter::sMade = 0;
Counter *Counter::sSeenAtEnd = nullptr;

class Failing : public core::Singleton<Failing, 0, 0, Policy> {
public:
    Failing() {
        setObject(this); // its work comes back here
        if (&getSingleton() == this)
            throw std::runtime_error("no");
    }
};

} // namespace

TEST(Singleton, IsMadeByItsFirstUse) {
    EXPECT_FALSE(Counter::isSingletonCreated());
    const int before = Counter::sMade;
    Counter::getSingleton().value = 3;
    EXPECT_TRUE(Counter::isSingletonCreated());
    EXPECT_EQ(Counter::getSingletonPtr()->value, 3);
    EXPECT_EQ(Counter::sMade, before + 1);
    Counter::deleteSingleton();
}

TEST(Singleton, ANewOneComesAfterItsEnd) {
    Counter::getSingleton().value = 3;
    Counter::deleteSingleton();
    EXPECT_FALSE(Counter::isSingletonCreated());
    EXPECT_EQ(Counter::getSingleton().value, 0);
    Counter::deleteSingleton();
    Counter::deleteSingleton();
}

TEST(Singleton, AnswersUntilItsDestructorHasRun) {
    Counter *object = Counter::getSingletonPtr();
    Counter::deleteSingleton();
    EXPECT_EQ(Counter::sSeenAtEnd, object);
}

TEST(Singleton, IsNotThereWhenItsConstructorFails) {
    EXPECT_THROW(Failing::getSingleton(), std::runtime_error);
    EXPECT_FALSE(Failing::isSingletonCreated());
}
