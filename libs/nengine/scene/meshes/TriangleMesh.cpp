#include "nengine/scene/meshes/TriangleMesh.h"

namespace nurel::scene::meshes {

constinit const ::core::Type TriangleMesh::TYPE("TriangleMesh", &Mesh::TYPE);

TriangleMesh::TriangleMesh(const char *name, geometry::MeshDataAllocator *allocator)
    : Mesh(name), mAllocator(allocator) {
    if (mAllocator)
        mAllocator->meshMade();
}

TriangleMesh::~TriangleMesh() {
    if (mAllocator)
        mAllocator->meshGone();
}

} // namespace nurel::scene::meshes
