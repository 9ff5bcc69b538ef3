#pragma once

#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/scene/Mesh.h"

namespace nurel::scene::meshes {

/// A mesh of triangles, counted by the allocator that it was made with.
class TriangleMesh : public Mesh {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// The allocator may be null; the mesh holds a reference to it.
    explicit TriangleMesh(const char *name = "", geometry::MeshDataAllocator *allocator = nullptr);
    ~TriangleMesh() override;

    geometry::MeshDataAllocator *getAllocator() const { return mAllocator.get(); }

private:
    const core::SmartPtr<geometry::MeshDataAllocator> mAllocator;
};

} // namespace nurel::scene::meshes
