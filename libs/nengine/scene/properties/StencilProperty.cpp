#include "nengine/scene/properties/StencilProperty.h"

#include <algorithm>

namespace nurel::scene::properties {

namespace {

constexpr unsigned int MAX_REFERENCE = 255;

std::uint8_t takeOperation(unsigned int wanted, std::uint8_t present) {
    return wanted <= StencilProperty::INCREMENT ? static_cast<std::uint8_t>(wanted) : present;
}

} // namespace

constinit const ::core::Type StencilProperty::TYPE("StencilProperty", &Property::TYPE);

StencilProperty::StencilProperty(const char *name) : Property(STENCIL, name) {}

void StencilProperty::setEnabled(bool enabled) {
    if (mEnabled == enabled)
        return;
    mEnabled = enabled;
    touch();
}

void StencilProperty::setComparison(unsigned int comparison) {
    if (comparison > ALWAYS || mComparison == comparison)
        return;
    mComparison = static_cast<std::uint8_t>(comparison);
    touch();
}

void StencilProperty::setReference(unsigned int reference) {
    const auto cut = static_cast<std::uint8_t>(std::min(reference, MAX_REFERENCE));
    if (mReference == cut)
        return;
    mReference = cut;
    touch();
}

void StencilProperty::setOperations(unsigned int fail, unsigned int depthFail, unsigned int pass) {
    const std::uint8_t newFail = takeOperation(fail, mFail);
    const std::uint8_t newDepthFail = takeOperation(depthFail, mDepthFail);
    const std::uint8_t newPass = takeOperation(pass, mPass);
    if (newFail == mFail && newDepthFail == mDepthFail && newPass == mPass)
        return;
    mFail = newFail;
    mDepthFail = newDepthFail;
    mPass = newPass;
    touch();
}

core::Object *StencilProperty::clone(core::CloningOptions &options) const {
    auto *copy = new StencilProperty(getName());
    _clone(copy, options);
    return copy;
}

void StencilProperty::_clone(core::Object *target, core::CloningOptions &options) const {
    Property::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    auto *stencil = static_cast<StencilProperty *>(target);
    stencil->setEnabled(mEnabled);
    stencil->setComparison(mComparison);
    stencil->setReference(mReference);
    stencil->setOperations(mFail, mDepthFail, mPass);
}

} // namespace nurel::scene::properties
