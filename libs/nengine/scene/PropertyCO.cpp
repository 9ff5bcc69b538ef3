#include "nengine/scene/PropertyCO.h"

#include "nengine/scene/Property.h"

namespace nurel::scene {

PropertyCO::PropertyCO(unsigned int mask, bool inherited) : Option(inherited), mMask(mask) {}

const PropertyCO *PropertyCO::find(const core::CloningOptions &options) {
    return static_cast<const PropertyCO *>(options.get(Property::TYPE, true));
}

} // namespace nurel::scene
