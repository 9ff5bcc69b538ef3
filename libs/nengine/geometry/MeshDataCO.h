#pragma once

#include "nmain/core/CloningOptions.h"

namespace nurel::geometry {

/// Which attributes of a mesh's data its clone takes over as they were built (see `MeshData::Attribute`). What is left
/// out the clone builds itself before it is first drawn; so it does with everything when the option is not given. The
/// attributes are built together: taking over the positions takes over all. Put it under `MeshData::TYPE`.
class MeshDataCO : public core::CloningOptions::Option {
public:
    MeshDataCO(unsigned int attributes, bool inherited);

    unsigned int getAttributes() const { return mAttributes; }

    /// The option of this operation; null when there is none.
    static const MeshDataCO *find(const core::CloningOptions &options);

private:
    const unsigned int mAttributes;
};

} // namespace nurel::geometry
