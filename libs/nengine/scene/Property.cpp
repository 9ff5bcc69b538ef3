#include "nengine/scene/Property.h"

#include "nengine/geometry/detail/Revision.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/DepthProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nengine/scene/properties/TextureProperty.h"

#include "foundation/core/Exception.h"

#include <array>

namespace nurel::scene {

namespace {

unsigned int checkIndex(unsigned int index) {
    if (index >= Property::INDEX_COUNT)
        throw core::IllegalArgumentException("Property index %u is out of range", index);
    return index;
}

using Defaults = std::array<core::SmartPtr<Property>, Property::INDEX_COUNT>;

Defaults makeDefaults() {
    Defaults defaults;
    defaults[Property::ALPHA] = new properties::AlphaProperty();
    defaults[Property::MATERIAL] = new properties::MaterialProperty();
    defaults[Property::DEPTH] = new properties::DepthProperty();
    defaults[Property::TEXTURE] = new properties::TextureProperty();
    defaults[Property::STENCIL] = new properties::StencilProperty();
    for (const auto &property : defaults) {
        if (property)
            property->setDefault(true);
    }
    return defaults;
}

} // namespace

constinit const ::core::Type Property::TYPE("Property", &HandledObject::TYPE);

Property::Property(unsigned int index, const char *name)
    : HandledObject(name), mRevision(geometry::nextRevision()), mIndex(static_cast<std::uint8_t>(checkIndex(index))) {}

Property *Property::getDefault(unsigned int index) {
    // Never destroyed: frames that live to the end of the process may still ask.
    static const Defaults &defaults = *new Defaults(makeDefaults());
    return index < INDEX_COUNT ? defaults[index].get() : nullptr;
}

void Property::_clone(core::Object *target, core::CloningOptions &options) const {
    HandledObject::_clone(target, options);
    if (target && target != this && target->instanceOf(TYPE))
        static_cast<Property *>(target)->touch();
}

void Property::touch() {
    mRevision = geometry::nextRevision();
    geometry::noteLookChange();
}

} // namespace nurel::scene
