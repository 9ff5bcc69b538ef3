#pragma once

#include "nengine/scene/meshes/TriangleMesh.h"

namespace nurel::scene::meshes {

/// A rectangle around its origin, with y downward. It shows the whole texture of its texture property; without one it
/// is flat, in the colour of its material. Nothing is drawn while a side is not above 0.
class SizeableRectangleMesh : public TriangleMesh {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    SizeableRectangleMesh(const char *name, const math::Vector2 &size,
                          geometry::MeshDataAllocator *allocator = nullptr);

    using TriangleMesh::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    const math::Vector2 &getSize() const { return mSize; }
    void setSize(const math::Vector2 &size);

protected:
    bool buildGeometry(geometry::LocalGeometry &out) override;

private:
    math::Vector2 mSize;
};

} // namespace nurel::scene::meshes
