#include "foundation/mpl/Int2Type.h"
#include "foundation/mpl/Linker.h"
#include "foundation/mpl/MEncapsulate.h"

#include <gtest/gtest.h>

#include <concepts>
#include <string>
#include <type_traits>

namespace {

struct Target {
    int add(int a, int b) {
        sum += a + b;
        return sum;
    }
    int subtract(int a, int b) {
        sum -= a + b;
        return sum;
    }
    int get() const { return sum; }
    int sum = 0;
};

int join(int a, int b, int c) {
    return a * 100 + b * 10 + c;
}

int joinOther(int a, int b, int c) {
    return join(c, b, a);
}

} // namespace

TEST(Int2Type, IsATypeForEachNumber) {
    EXPECT_FALSE((std::is_same_v<mpl::Int2Type<0>, mpl::Int2Type<1>>));
    EXPECT_EQ(mpl::Int2Type<7>::value, 7);
}

TEST(MEncapsulate, CallsTheMemberOfItsObject) {
    Target target;
    const mpl::MEncapsulate call(&target, &Target::add);
    EXPECT_EQ(call(1, 2), 3);
    EXPECT_EQ(call(3, 4), 10);
    EXPECT_EQ(call.getObject(), &target);
    const Target &constant = target;
    EXPECT_EQ(mpl::MEncapsulate(&constant, &Target::get)(), 10);
}

TEST(MEncapsulate, IsEqualWhenObjectAndFunctionAre) {
    Target a;
    Target b;
    EXPECT_TRUE(mpl::MEncapsulate(&a, &Target::add) == mpl::MEncapsulate(&a, &Target::add));
    EXPECT_TRUE(mpl::MEncapsulate(&a, &Target::add) != mpl::MEncapsulate(&b, &Target::add));
    EXPECT_TRUE(mpl::MEncapsulate(&a, &Target::add) != mpl::MEncapsulate(&a, &Target::subtract));
}

TEST(Linker, PutsItsBoundValuesLast) {
    mpl::Linker linker(&join, 2, 3);
    EXPECT_EQ(linker(1), 123);
    EXPECT_EQ(linker(4), 423);
    mpl::Linker nothingBound(&join);
    EXPECT_EQ(nothingBound(1, 2, 3), 123);
}

TEST(Linker, PassesArgumentsOnAndKeepsItsCopies) {
    std::string text = "a";
    const std::string added = "x";
    mpl::Linker linker([&](std::string &out, std::string &kept) { out += kept += added; }, std::string("b"));
    linker(text);
    linker(text);
    EXPECT_EQ(text, "abxbxx");
    EXPECT_FALSE(std::equality_comparable<decltype(linker)>);
}

TEST(Linker, IsEqualWhenFunctionAndValuesAre) {
    EXPECT_TRUE(mpl::Linker(&join, 1) == mpl::Linker(&join, 1));
    EXPECT_TRUE(mpl::Linker(&join, 1) != mpl::Linker(&join, 2));
    EXPECT_TRUE(mpl::Linker(&join, 1) != mpl::Linker(&joinOther, 1));
}
