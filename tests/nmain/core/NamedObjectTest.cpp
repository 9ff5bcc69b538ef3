#include "nmain/core/NamedObject.h"

#include <gtest/gtest.h>

#include <string>

using nurel::core::NamedObject;

TEST(NamedObject, HasAnEmptyNameUnlessItIsGivenOne) {
    EXPECT_STREQ(NamedObject().getName(), "");
    EXPECT_STREQ(NamedObject(nullptr).getName(), "");
    EXPECT_STREQ(NamedObject("form").getName(), "form");
}

TEST(NamedObject, TakesAnotherName) {
    NamedObject object("form");
    object.setName("a name that is longer than what stands inside the object");
    EXPECT_STREQ(object.getName(), "a name that is longer than what stands inside the object");
    object.setName(nullptr);
    EXPECT_STREQ(object.getName(), "");
}

TEST(NamedObject, MayBeGivenAPartOfItsOwnName) {
    NamedObject object("window/form/ok");
    object.setName(object.getName() + 7);
    EXPECT_STREQ(object.getName(), "form/ok");
    object.setName(object.getName());
    EXPECT_STREQ(object.getName(), "form/ok");
    const std::string longName(100, 'x');
    object.setName(longName.c_str());
    object.setName(object.getName() + 60);
    EXPECT_EQ(object.getName(), longName.substr(60));
}

TEST(NamedObject, CopiesItsNameAndNotItsCount) {
    NamedObject object("form");
    object.addRef();
    const NamedObject copy(object);
    EXPECT_STREQ(copy.getName(), "form");
    EXPECT_EQ(copy.getRefCount(), 0u);
    object.decRef();
}

TEST(NamedObject, IsShownByNameAndType) {
    EXPECT_EQ(NamedObject("form").toString(), "form(NamedObject)");
    EXPECT_EQ(NamedObject().toString(), "(NamedObject)");
}
