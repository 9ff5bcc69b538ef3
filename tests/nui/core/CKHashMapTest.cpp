#include "nui/core/CKHashMap.h"

#include "foundation/core/IRefCount.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class Counted : public core::IRefCount {
public:
    Counted() { ++sAlive; }
    ~Counted() override { --sAlive; }
    static int sAlive;
};

int Counted::sAlive = 0;

/// Notes what it loses and finds what it has not.
class NotingMap : public core::CKHashMapBase<int> {
public:
    explicit NotingMap(bool owning) : CKHashMapBase(owning, -1) {}

    int resolve(const char *key) const override { return key && *key == 'r' ? 42 : CKHashMapBase::resolve(key); }

    std::vector<int> lost;

protected:
    void handleLost(int &value) override { lost.push_back(value); }
};

} // namespace

TEST(CKHashMap, GetAndResolveOfAnAbsentKeyGiveTheDefault) {
    core::CKHashMapValue<int> map(false, 7);
    EXPECT_EQ(map.get("absent"), 7);
    EXPECT_EQ(map["absent"], 7);
    EXPECT_EQ(map.resolve("absent"), 7);
    EXPECT_EQ(map.getDefault(), 7);
    EXPECT_TRUE(map.empty());
}

TEST(CKHashMap, PutSaysWhetherTheKeyWasThere) {
    core::CKHashMapValue<int> map(false, 0);
    EXPECT_FALSE(map.put("a", 1));
    EXPECT_TRUE(map.put(std::string("a"), 2));
    EXPECT_EQ(map.get("a"), 2);
}

TEST(CKHashMap, PutOfAPresentKeyKeepsOneKeyCopy) {
    core::CKHashMapValue<int> map(false, 0);
    map.put("a", 1);
    const char *key = map.begin()->first;
    map.put("a", 2);
    EXPECT_EQ(map.size(), 1U);
    EXPECT_EQ(map.begin()->first, key);
}

TEST(CKHashMap, OwnsACopyOfEachKey) {
    core::CKHashMapValue<int> map(false, 0);
    std::string key = "key";
    map.put(key.c_str(), 1);
    key = "gone";
    EXPECT_TRUE(map.containsKey("key"));
    EXPECT_FALSE(map.containsKey("gone"));
}

TEST(CKHashMap, WalksItsKeysInByteOrder) {
    core::CKHashMapValue<int> map(false, 0);
    for (const char *key : {"b", "a", "\xc3\xa4", "B", ""})
        map.put(key, 1);
    std::string order;
    for (const auto &entry : map)
        order += std::string(entry.first) + ",";
    EXPECT_EQ(order, ",B,a,b,\xc3\xa4,");
}

TEST(CKHashMap, RemoveSaysWhetherTheKeyWasThere) {
    core::CKHashMapValue<int> map(false, 0);
    map.put("a", 1);
    EXPECT_TRUE(map.remove("a"));
    EXPECT_FALSE(map.remove("a"));
    EXPECT_EQ(map.get("a"), 0);
}

TEST(CKHashMap, ANullKeyIsNeverInIt) {
    core::CKHashMapValue<int> map(false, 3);
    EXPECT_FALSE(map.put(nullptr, 1));
    EXPECT_FALSE(map.remove(nullptr));
    EXPECT_FALSE(map.containsKey(nullptr));
    EXPECT_EQ(map.get(nullptr), 3);
    EXPECT_TRUE(map.empty());
}

TEST(CKHashMap, AnOwningMapTellsWhatItLoses) {
    NotingMap map(true);
    map.put("a", 1);
    map.put("a", 2);
    map.put("b", 3);
    map.put("c", 4);
    EXPECT_EQ(map.lost, (std::vector<int>{1}));
    map.remove("b");
    map.remove("b");
    EXPECT_EQ(map.lost, (std::vector<int>{1, 3}));
    map.clear();
    EXPECT_EQ(map.lost, (std::vector<int>{1, 3, 2, 4}));
}

TEST(CKHashMap, AMapThatOwnsNothingTellsNothing) {
    NotingMap map(false);
    map.put("a", 1);
    map.put("a", 2);
    map.remove("a");
    EXPECT_TRUE(map.lost.empty());
    EXPECT_FALSE(map.isOwning());
}

TEST(CKHashMap, ADerivedMapMayFindValuesElsewhere) {
    NotingMap map(false);
    EXPECT_EQ(map.get("r"), 42);
    EXPECT_EQ(map.get("x"), -1);
}

TEST(CKHashMap, ReleasesValuesOfACountedType) {
    {
        core::CKHashMapValue<core::SmartPtr<Counted>> map(true, nullptr);
        map.put("a", new Counted);
        map.put("a", new Counted);
        map.put("b", new Counted);
        EXPECT_EQ(Counted::sAlive, 2);
        map.remove("b");
        EXPECT_EQ(Counted::sAlive, 1);
    }
    EXPECT_EQ(Counted::sAlive, 0);
}

TEST(CKHashMap, DisposesOfPlainPointersToCountedObjectsThatNobodyHolds) {
    const core::SmartPtr<Counted> held(new Counted);
    {
        core::CKHashMapValue<Counted *> map(true, nullptr);
        map.put("a", new Counted);
        map.put("b", held.get());
        map.put("c", nullptr);
    }
    EXPECT_EQ(Counted::sAlive, 1);
}

TEST(CKHashMap, ACopyHasKeysOfItsOwn) {
    core::CKHashMapValue<int> copy(false, 0);
    {
        core::CKHashMapValue<int> map(false, 5);
        map.put("a", 1);
        map.put("b", 2);
        copy.put("old", 3);
        copy = map;
        const core::CKHashMapValue<int> &itself = copy;
        copy = itself;
        core::CKHashMapValue<int> third(map);
        EXPECT_NE(third.begin()->first, map.begin()->first);
    }
    EXPECT_EQ(copy.size(), 2U);
    EXPECT_EQ(copy.get("a"), 1);
    EXPECT_EQ(copy.get("old"), 5);
}
