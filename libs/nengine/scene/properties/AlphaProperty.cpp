#include "nengine/scene/properties/AlphaProperty.h"

namespace nurel::scene::properties {

constinit const ::core::Type AlphaProperty::TYPE("AlphaProperty", &Property::TYPE);

AlphaProperty::AlphaProperty(const char *name) : Property(ALPHA, name) {}

void AlphaProperty::setBlending(bool blending) {
    if (mBlending == blending)
        return;
    mBlending = blending;
    touch();
}

core::Object *AlphaProperty::clone(core::CloningOptions &options) const {
    auto *copy = new AlphaProperty(getName());
    _clone(copy, options);
    return copy;
}

void AlphaProperty::_clone(core::Object *target, core::CloningOptions &options) const {
    Property::_clone(target, options);
    if (target && target->instanceOf(TYPE))
        static_cast<AlphaProperty *>(target)->setBlending(mBlending);
}

} // namespace nurel::scene::properties
