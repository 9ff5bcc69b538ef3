#include "nengine/scene/properties/DepthProperty.h"

namespace nurel::scene::properties {

constinit const ::core::Type DepthProperty::TYPE("DepthProperty", &Property::TYPE);

DepthProperty::DepthProperty(const char *name, bool test, bool write)
    : Property(DEPTH, name), mTest(test), mWrite(write) {}

void DepthProperty::setTesting(bool test) {
    if (mTest == test)
        return;
    mTest = test;
    touch();
}

void DepthProperty::setWriting(bool write) {
    if (mWrite == write)
        return;
    mWrite = write;
    touch();
}

core::Object *DepthProperty::clone(core::CloningOptions &options) const {
    auto *copy = new DepthProperty(getName());
    _clone(copy, options);
    return copy;
}

void DepthProperty::_clone(core::Object *target, core::CloningOptions &options) const {
    Property::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    auto *depth = static_cast<DepthProperty *>(target);
    depth->setTesting(mTest);
    depth->setWriting(mWrite);
}

} // namespace nurel::scene::properties
