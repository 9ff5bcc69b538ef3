#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

template <class E>
void expectToBeRaisedAsItself() {
    const E original("%s number %d", "value", 7);
    const std::unique_ptr<core::Exception> copy(original.clone());
    try {
        copy->raise();
        FAIL() << "raise() came back";
    } catch (const E &raised) {
        EXPECT_STREQ(raised.what(), "value number 7");
        EXPECT_STREQ(raised.getMessage(), "value number 7");
        EXPECT_NE(&raised, copy.get());
    } catch (...) {
        FAIL() << "the class was lost";
    }
}

} // namespace

TEST(Exception, FormatsItsText) {
    const core::Exception exception("%s(%s) has %u, %.2f", "form", "Panel", 3u, 0.5);
    EXPECT_STREQ(exception.what(), "form(Panel) has 3, 0.50");
}

TEST(Exception, KeepsALongText) {
    const std::string name(5000, 'x');
    EXPECT_EQ(core::Exception("[%s]", name.c_str()).what(), "[" + name + "]");
}

TEST(Exception, CopiesKeepTheirClass) {
    expectToBeRaisedAsItself<core::Exception>();
    expectToBeRaisedAsItself<core::IllegalArgumentException>();
    expectToBeRaisedAsItself<core::IllegalStateException>();
    expectToBeRaisedAsItself<core::IOException>();
}

TEST(Exception, EveryKindIsCaughtAsTheBase) {
    EXPECT_THROW(throw core::IllegalArgumentException("a"), core::Exception);
    EXPECT_THROW(throw core::IllegalStateException("a"), core::Exception);
    EXPECT_THROW(throw core::IOException("a"), core::Exception);
    EXPECT_THROW(throw core::Exception("a"), std::exception);
}
