#include "nengine/geometry/MeshDataCO.h"

#include "nengine/geometry/MeshData.h"

namespace nurel::geometry {

MeshDataCO::MeshDataCO(unsigned int attributes, bool inherited) : Option(inherited), mAttributes(attributes) {}

const MeshDataCO *MeshDataCO::find(const core::CloningOptions &options) {
    return static_cast<const MeshDataCO *>(options.get(MeshData::TYPE, true));
}

} // namespace nurel::geometry
