#include "foundation/core/Type.h"
#include "foundation/core/less_str.h"

#include <gtest/gtest.h>

#include <map>

namespace {

extern const core::Type LEAF;
extern const core::Type ROOT;

// The derived record stands first on purpose: only addresses are kept.
constinit const core::Type LEAF("Leaf", &ROOT);
constinit const core::Type ROOT("Root");
constinit const core::Type OTHER("Root");

} // namespace

TEST(Type, KnowsItsNameAndParent) {
    EXPECT_STREQ(LEAF.getName(), "Leaf");
    EXPECT_EQ(LEAF.getParent(), &ROOT);
    EXPECT_EQ(ROOT.getParent(), nullptr);
}

TEST(Type, IsAnInstanceOfItselfAndOfItsAncestors) {
    EXPECT_TRUE(LEAF.instanceOf(LEAF));
    EXPECT_TRUE(LEAF.instanceOf(ROOT));
    EXPECT_FALSE(ROOT.instanceOf(LEAF));
}

TEST(Type, IsComparedByItsAddressAndNotByItsName) {
    EXPECT_FALSE(LEAF.instanceOf(OTHER));
    EXPECT_TRUE(ROOT == ROOT);
    EXPECT_TRUE(ROOT != OTHER);
}

TEST(less_str, OrdersByBytesAndPutsNullFirst) {
    const core::less_str less;
    EXPECT_TRUE(less("a", "b"));
    EXPECT_FALSE(less("b", "a"));
    EXPECT_FALSE(less("a", "a"));
    EXPECT_TRUE(less("B", "a"));
    EXPECT_TRUE(less("z", "\xc3\xa4"));
    EXPECT_TRUE(less(nullptr, ""));
    EXPECT_FALSE(less("", nullptr));
    EXPECT_FALSE(less(nullptr, nullptr));
}

TEST(less_str, FindsAKeyByItsTextAndNotByItsAddress) {
    std::map<const char *, int, core::less_str> map{{"one", 1}, {nullptr, 0}};
    const char key[] = {'o', 'n', 'e', 0};
    EXPECT_EQ(map[key], 1);
    EXPECT_EQ(map[nullptr], 0);
    EXPECT_EQ(map.count("two"), 0u);
}
