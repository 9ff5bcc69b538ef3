#include "nengine/geometry/MeshData.h"

namespace nurel::geometry {

constinit const ::core::Type MeshData::TYPE("MeshData", &core::Object::TYPE);

MeshData::MeshData(unsigned int attributeMask, Storage storage)
    : mAttributeMask(attributeMask), mDeviceMask(storage == AS_DEVICE ? attributeMask : 0) {}

MeshData::Storage MeshData::getStorage(Attribute attribute) const {
    return (mDeviceMask & attribute) != 0 ? AS_DEVICE : AS_HOST;
}

void MeshData::setStorage(Attribute attribute, Storage storage) {
    if (storage == AS_DEVICE)
        mDeviceMask |= attribute & mAttributeMask;
    else
        mDeviceMask &= ~static_cast<unsigned int>(attribute);
}

} // namespace nurel::geometry
