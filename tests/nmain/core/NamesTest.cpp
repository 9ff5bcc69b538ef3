// Both namespaces `core` give the same classes, with nothing but the forward header.
#include "nmain/core/Fwd.h"

#include "foundation/core/SmartPtr.h"
#include "foundation/core/Type.h"
#include "nmain/core/CloningOptions.h"
#include "nmain/core/NamedObject.h"
#include "nmain/core/ObjectFactory.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace outside {

core::SmartPtr<core::NamedObject> make() {
    return new core::NamedObject("outside");
}

const ::core::Type &getTypeOf(const nurel::core::Object &object) {
    return object.getType();
}

using Factory = core::ObjectFactory<core::Object>;
using Options = core::CloningOptions::Option;

} // namespace outside

namespace nurel::ui {

core::SmartPtr<core::NamedObject> make() {
    return new core::NamedObject("inside");
}

const ::core::Type &getTypeOf(const nurel::core::Object &object) {
    const core::Type &type = object.getType();
    return type;
}

using Factory = core::ObjectFactory<core::Object>;
using Options = core::CloningOptions::Option;

} // namespace nurel::ui

namespace nurel::core {

SmartPtr<NamedObject> makeWithin() {
    return new core::NamedObject("within");
}

} // namespace nurel::core

TEST(Names, AreTheSameInsideAndOutside) {
    EXPECT_TRUE((std::is_same_v<outside::Factory, nurel::ui::Factory>));
    EXPECT_TRUE((std::is_same_v<outside::Options, nurel::ui::Options>));
    EXPECT_TRUE((std::is_same_v<::core::NamedObject, nurel::core::NamedObject>));
    EXPECT_TRUE((std::is_same_v<::core::Serializable, nurel::core::Serializable>));
    EXPECT_TRUE((std::is_same_v<nurel::core::Type, ::core::Type>));
}

TEST(Names, CanBeUsedWhereverAReaderWouldWriteThem) {
    EXPECT_STREQ(outside::make()->getName(), "outside");
    EXPECT_STREQ(nurel::ui::make()->getName(), "inside");
    EXPECT_STREQ(nurel::core::makeWithin()->getName(), "within");
    EXPECT_EQ(&outside::getTypeOf(*outside::make()), &core::NamedObject::TYPE);
    EXPECT_EQ(&nurel::ui::getTypeOf(*nurel::ui::make()), &nurel::core::NamedObject::type());
}
