#include "nmain/core/ObjectFactory.h"
#include "foundation/core/Exception.h"
#include "nmain/core/NamedObject.h"

#include <gtest/gtest.h>

#include <memory>

using nurel::core::NamedObject;
using nurel::core::Object;
using Factory = nurel::core::ObjectFactory<Object>;

namespace {

constinit const core::Type BASE("Base");
constinit const core::Type DERIVED("Derived", &BASE);
constinit const core::Type NAMESAKE("Derived");

template <int NUMBER>
Object *make() {
    return new NamedObject(std::to_string(NUMBER).c_str());
}

std::string getMade(Object *object) {
    if (!object)
        return "null";
    const core::SmartPtr<Object> holder(object);
    return static_cast<NamedObject *>(object)->getName();
}

} // namespace

TEST(ObjectFactory, MakesAnObjectByTypeAndByName) {
    Factory factory;
    factory.registerCreator(BASE, &make<1>);
    factory.registerCreator(DERIVED, &make<2>);
    EXPECT_EQ(getMade(factory.create(BASE)), "1");
    EXPECT_EQ(getMade(factory.create("Base")), "1");
    EXPECT_EQ(getMade(factory.create(DERIVED)), "2");
    EXPECT_EQ(getMade(factory.create("Derived")), "2");
}

TEST(ObjectFactory, GivesNullForWhatItDoesNotKnow) {
    Factory factory;
    factory.registerCreator(BASE, &make<1>);
    EXPECT_EQ(factory.create(DERIVED), nullptr);
    EXPECT_EQ(factory.create("Derived"), nullptr);
    EXPECT_EQ(factory.create(""), nullptr);
    const char *none = nullptr;
    EXPECT_EQ(factory.create(none), nullptr);
    EXPECT_TRUE(factory.isRegistered(BASE));
    EXPECT_FALSE(factory.isRegistered(DERIVED));
}

TEST(ObjectFactory, GivesObjectsToTheCaller) {
    Factory factory;
    factory.registerCreator(BASE, &make<1>);
    const std::unique_ptr<Object> object(factory.create(BASE));
    EXPECT_EQ(object->getRefCount(), 0u);
}

TEST(ObjectFactory, TheLastRegistrationCounts) {
    Factory factory;
    factory.registerCreator(DERIVED, &make<1>);
    factory.registerCreator(DERIVED, &make<2>);
    EXPECT_EQ(getMade(factory.create("Derived")), "2");
    factory.registerCreator(NAMESAKE, &make<3>);
    EXPECT_EQ(getMade(factory.create("Derived")), "3");
    EXPECT_EQ(getMade(factory.create(DERIVED)), "2");
    EXPECT_EQ(getMade(factory.create(NAMESAKE)), "3");
}

TEST(ObjectFactory, ForgetsAType) {
    Factory factory;
    factory.registerCreator(BASE, &make<1>);
    factory.registerCreator(DERIVED, &make<2>);
    EXPECT_TRUE(factory.unregister(BASE, false));
    EXPECT_FALSE(factory.unregister(BASE, false));
    EXPECT_EQ(factory.create(BASE), nullptr);
    EXPECT_EQ(factory.create("Base"), nullptr);
    EXPECT_EQ(getMade(factory.create("Derived")), "2");
}

TEST(ObjectFactory, ForgetsATypeWithItsSubtypes) {
    Factory factory;
    factory.registerCreator(DERIVED, &make<2>);
    factory.registerCreator(NAMESAKE, &make<3>);
    EXPECT_TRUE(factory.unregister(BASE, true));
    EXPECT_EQ(factory.create(DERIVED), nullptr);
    EXPECT_EQ(getMade(factory.create("Derived")), "3");
}

TEST(ObjectFactory, ANameFallsBackToTheTypeThatIsLeft) {
    Factory factory;
    factory.registerCreator(DERIVED, &make<2>);
    factory.registerCreator(NAMESAKE, &make<3>);
    EXPECT_TRUE(factory.unregister(NAMESAKE, false));
    EXPECT_EQ(getMade(factory.create("Derived")), "2");
}

TEST(ObjectFactory, TakesNoNullCreator) {
    Factory factory;
    try {
        factory.registerCreator(BASE, nullptr);
        FAIL() << "taken";
    } catch (const core::IllegalArgumentException &exception) {
        EXPECT_STREQ(exception.what(), "No creator given for type Base");
    }
    EXPECT_EQ(factory.create(BASE), nullptr);
}
