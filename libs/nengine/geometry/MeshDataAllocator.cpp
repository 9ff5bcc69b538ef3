#include "nengine/geometry/MeshDataAllocator.h"

#include "foundation/logging/Logger.h"

namespace nurel::geometry {

constinit const ::core::Type MeshDataAllocator::TYPE("MeshDataAllocator", &core::Object::TYPE);

MeshDataAllocator::MeshDataAllocator(MeshData *data) : mMeshData(data ? data : new MeshData()) {}

MeshDataAllocator::~MeshDataAllocator() = default;

void MeshDataAllocator::dumpLog() const {
    logging::Logger::mROOT_LOGGER.debug("MeshDataAllocator: %u meshes, %u made in all", getMeshCount(),
                                        getTotalMeshCount());
}

void MeshDataAllocator::meshMade() {
    ++mAlive;
    ++mMade;
}

void MeshDataAllocator::meshGone() {
    --mAlive;
}

} // namespace nurel::geometry
