#include "foundation/core/SmartPtr.h"
#include "foundation/core/IRefCount.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <vector>

namespace {

class Later;

/// T need not be complete where the member is declared.
class Holder {
public:
    Holder();
    ~Holder();
    Holder(const Holder &);
    Later *get() const { return mLater.get(); }

private:
    core::SmartPtr<Later> mLater;
};

class Counted : public core::IRefCount {
public:
    Counted() { ++mAlive; }
    Counted(const Counted &other) : IRefCount(other) { ++mAlive; }
    Counted &operator=(const Counted &) = default;
    ~Counted() override { --mAlive; }
    static int mAlive;
};

int Counted::mAlive = 0;

class Later : public Counted {};

Holder::Holder() : mLater(new Later) {}
Holder::~Holder() = default;
Holder::Holder(const Holder &) = default;

/// Hands out smart pointers to itself while it dies.
class Clinging : public Counted {
public:
    ~Clinging() override {
        core::SmartPtr<Clinging> first(this);
        const core::SmartPtr<Clinging> second(first);
        first = nullptr;
    }
};

/// Looks at the pointer that held it when it dies.
class Watcher : public Counted {
public:
    explicit Watcher(core::SmartPtr<Watcher> &holder, Watcher *&seen) : mHolder(holder), mSeen(seen) {}
    ~Watcher() override { mSeen = mHolder.get(); }

private:
    core::SmartPtr<Watcher> &mHolder;
    Watcher *&mSeen;
};

} // namespace

TEST(IRefCount, StartsAtZeroAndNeverDeletesByItself) {
    Counted object;
    EXPECT_EQ(object.getRefCount(), 0u);
    object.addRef();
    object.addRef();
    EXPECT_EQ(object.getRefCount(), 2u);
    EXPECT_EQ(object.decRef(), 1u);
    EXPECT_EQ(object.decRef(), 0u);
    EXPECT_EQ(Counted::mAlive, 1);
}

TEST(IRefCount, CopyingLeavesTheCountsAlone) {
    Counted object;
    object.addRef();
    Counted copy(object);
    EXPECT_EQ(copy.getRefCount(), 0u);
    copy.addRef();
    copy.addRef();
    copy = object;
    EXPECT_EQ(copy.getRefCount(), 2u);
    EXPECT_EQ(object.getRefCount(), 1u);
    object.decRef();
    copy.decRef();
    copy.decRef();
}

TEST(IRefCount, CountsTheReferencesOfManyThreads) {
    core::SmartPtr<Counted> object(new Counted);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([object] {
            for (int round = 0; round < 2000; ++round)
                const core::SmartPtr<Counted> copy(object);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(object->getRefCount(), 1u);
}

TEST(SmartPtr, DisposesWithTheLastReference) {
    {
        core::SmartPtr<Counted> first(new Counted);
        core::SmartPtr<Counted> second = first;
        EXPECT_EQ(first->getRefCount(), 2u);
        first = nullptr;
        EXPECT_FALSE(first);
        EXPECT_EQ(Counted::mAlive, 1);
        core::SmartPtr<Counted> third = std::move(second);
        EXPECT_EQ(second.get(), nullptr);
        EXPECT_EQ(third->getRefCount(), 1u);
    }
    EXPECT_EQ(Counted::mAlive, 0);
}

TEST(SmartPtr, OfADerivedClassBecomesOneOfItsBase) {
    core::SmartPtr<Later> derived(new Later);
    core::SmartPtr<Counted> base = derived;
    core::SmartPtr<const Counted> constant = base;
    EXPECT_EQ(derived->getRefCount(), 3u);
    base = core::SmartPtr<Later>(new Later);
    EXPECT_EQ(derived->getRefCount(), 2u);
    constant = std::move(derived);
    EXPECT_EQ(derived.get(), nullptr);
    EXPECT_EQ(constant->getRefCount(), 1u);
}

TEST(SmartPtr, SurvivesAssigningItselfAndItsOwnObject) {
    core::SmartPtr<Counted> pointer(new Counted);
    const core::SmartPtr<Counted> &same = pointer;
    pointer = same;
    pointer = pointer.get();
    EXPECT_EQ(Counted::mAlive, 1);
    EXPECT_EQ(pointer->getRefCount(), 1u);
}

TEST(SmartPtr, TakesTheNewObjectBeforeTheOldOneGoes) {
    core::SmartPtr<Watcher> pointer;
    Watcher *seen = nullptr;
    Watcher *unused = nullptr;
    pointer = new Watcher(pointer, seen);
    Watcher *successor = new Watcher(pointer, unused);
    pointer = successor;
    EXPECT_EQ(seen, successor);
}

TEST(SmartPtr, ReleaseGivesTheObjectToTheCaller) {
    core::SmartPtr<Counted> pointer(new Counted);
    Counted *object = pointer.release();
    EXPECT_FALSE(pointer);
    EXPECT_EQ(pointer.release(), nullptr);
    EXPECT_EQ(Counted::mAlive, 1);
    EXPECT_EQ(object->getRefCount(), 0u);
    pointer = object;
    pointer = nullptr;
    EXPECT_EQ(Counted::mAlive, 0);
}

TEST(SmartPtr, ADestructorMayPinItsObject) {
    core::SmartPtr<Clinging> pointer(new Clinging);
    pointer = nullptr;
    EXPECT_EQ(Counted::mAlive, 0);
}

TEST(SmartPtr, ComparesWithSmartAndPlainPointersAndNull) {
    Counted *object = new Counted;
    const core::SmartPtr<Counted> a(object);
    const core::SmartPtr<const Counted> b(object);
    const core::SmartPtr<Counted> none;
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a == object);
    EXPECT_TRUE(object == a);
    EXPECT_TRUE(a != none);
    EXPECT_TRUE(a != nullptr);
    EXPECT_TRUE(nullptr == none);
    EXPECT_TRUE(a);
}

TEST(SmartPtr, CanBeAKey) {
    Counted objects[2];
    objects[0].addRef();
    objects[1].addRef();
    std::map<core::SmartPtr<Counted>, int> map;
    map[&objects[1]] = 1;
    map[&objects[0]] = 0;
    EXPECT_EQ(map.begin()->second, 0);
    EXPECT_EQ(map[&objects[1]], 1);
    map.clear();
    objects[0].decRef();
    objects[1].decRef();
}

TEST(SmartPtr, MayPointToAnIncompleteClassInAMember) {
    {
        const Holder holder;
        const Holder copy(holder);
        EXPECT_EQ(copy.get(), holder.get());
        EXPECT_EQ(holder.get()->getRefCount(), 2u);
    }
    EXPECT_EQ(Counted::mAlive, 0);
}
