#include "nengine/scene/properties/MaterialProperty.h"

namespace nurel::scene::properties {

constinit const ::core::Type MaterialProperty::TYPE("MaterialProperty", &Property::TYPE);

MaterialProperty::MaterialProperty(const char *name)
    : Property(MATERIAL, name), mColor(1.0f, 1.0f, 1.0f, 1.0f), mSecondColor(math::Vector3::WHITE) {}

void MaterialProperty::setColor(const math::Vector4 &color) {
    if (mColor == color)
        return;
    mColor = color;
    touch();
}

void MaterialProperty::setColor(const math::Vector3 &color) {
    setColor(math::Vector4(color, mColor.w));
}

void MaterialProperty::setAlpha(float alpha) {
    setColor(math::Vector4(mColor.x, mColor.y, mColor.z, alpha));
}

void MaterialProperty::setSecondColor(const math::Vector3 &color) {
    if (mSecondColor == color)
        return;
    mSecondColor = color;
    touch();
}

void MaterialProperty::setFlags(unsigned int flags) {
    if (mFlags == flags)
        return;
    mFlags = flags;
    touch();
}

core::Object *MaterialProperty::clone(core::CloningOptions &options) const {
    auto *copy = new MaterialProperty(getName());
    _clone(copy, options);
    return copy;
}

void MaterialProperty::_clone(core::Object *target, core::CloningOptions &options) const {
    Property::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    auto *material = static_cast<MaterialProperty *>(target);
    material->setColor(mColor);
    material->setSecondColor(mSecondColor);
    material->setFlags(mFlags);
}

} // namespace nurel::scene::properties
