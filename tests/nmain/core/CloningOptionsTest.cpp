#include "nmain/core/CloningOptions.h"
#include "nmain/core/NamedObject.h"

#include <gtest/gtest.h>

using nurel::core::CloningOptions;
using nurel::core::NamedObject;
using nurel::core::Object;

namespace {

constinit const core::Type BASE("Base");
constinit const core::Type MIDDLE("Middle", &BASE);
constinit const core::Type LEAF("Leaf", &MIDDLE);

class CountedOption : public CloningOptions::Option {
public:
    explicit CountedOption(bool inherited) : Option(inherited) { ++mAlive; }
    ~CountedOption() override { --mAlive; }
    static int mAlive;
};

int CountedOption::mAlive = 0;

} // namespace

TEST(CloningOptions, GivesTheOptionOfTheTypeItself) {
    CloningOptions options;
    auto *option = new CountedOption(false);
    options.put(MIDDLE, option);
    EXPECT_EQ(options.get(MIDDLE, false), option);
    EXPECT_EQ(options.get(MIDDLE, true), option);
    EXPECT_EQ(options.get(BASE, true), nullptr);
}

TEST(CloningOptions, GivesAnInheritedOptionToSubtypesThatAskForIt) {
    CloningOptions options;
    auto *option = new CountedOption(true);
    options.put(BASE, option);
    EXPECT_EQ(options.get(LEAF, true), option);
    EXPECT_EQ(options.get(LEAF, false), nullptr);
}

TEST(CloningOptions, PassesOverAnOptionThatHoldsForItsOwnTypeOnly) {
    CloningOptions options;
    auto *inherited = new CountedOption(true);
    options.put(MIDDLE, new CountedOption(false));
    EXPECT_EQ(options.get(LEAF, true), nullptr);
    options.put(BASE, inherited);
    EXPECT_EQ(options.get(LEAF, true), inherited);
}

TEST(CloningOptions, TakesTheNearestAncestorsOption) {
    CloningOptions options;
    auto *near = new CountedOption(true);
    options.put(BASE, new CountedOption(true));
    options.put(MIDDLE, near);
    EXPECT_EQ(options.get(LEAF, true), near);
}

TEST(CloningOptions, OwnsItsOptions) {
    {
        CloningOptions options;
        auto *option = new CountedOption(false);
        options.put(BASE, option);
        options.put(BASE, option);
        EXPECT_EQ(CountedOption::mAlive, 1);
        options.put(BASE, new CountedOption(true));
        EXPECT_EQ(CountedOption::mAlive, 1);
        options.put(LEAF, new CountedOption(true));
        options.put(BASE, nullptr);
        EXPECT_EQ(options.get(BASE, false), nullptr);
        EXPECT_EQ(CountedOption::mAlive, 1);
    }
    EXPECT_EQ(CountedOption::mAlive, 0);
}

TEST(CloningOptions, RemovesOneTypeOrItsSubtypesToo) {
    CloningOptions options;
    for (const core::Type *type : {&BASE, &MIDDLE, &LEAF})
        options.put(*type, new CountedOption(false));
    EXPECT_TRUE(options.remove(BASE, false));
    EXPECT_FALSE(options.remove(BASE, false));
    EXPECT_NE(options.get(MIDDLE, false), nullptr);
    EXPECT_TRUE(options.remove(BASE, true));
    EXPECT_EQ(options.get(MIDDLE, false), nullptr);
    EXPECT_EQ(options.get(LEAF, false), nullptr);
    EXPECT_FALSE(options.remove(BASE, true));
}

TEST(CloningOptions, KnowsTheCopyOfASource) {
    CloningOptions options;
    const NamedObject source;
    NamedObject first;
    NamedObject second;
    EXPECT_EQ(options.getCloned(&source), nullptr);
    options.setCloned(&source, &first);
    EXPECT_EQ(options.getCloned(&source), &first);
    EXPECT_EQ(options.getCloned(&first), nullptr);
    options.setCloned(&source, &second);
    EXPECT_EQ(options.getCloned(&source), &second);
}

TEST(CloningOptions, NullHasNoCopy) {
    CloningOptions options;
    NamedObject copy;
    options.setCloned(nullptr, &copy);
    EXPECT_EQ(options.getCloned(nullptr), nullptr);
}
