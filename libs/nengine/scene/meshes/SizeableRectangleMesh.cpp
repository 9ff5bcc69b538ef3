#include "nengine/scene/meshes/SizeableRectangleMesh.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/texture/Texture.h"

namespace nurel::scene::meshes {

constinit const ::core::Type SizeableRectangleMesh::TYPE("SizeableRectangleMesh", &TriangleMesh::TYPE);

SizeableRectangleMesh::SizeableRectangleMesh(const char *name, const math::Vector2 &size,
                                             geometry::MeshDataAllocator *allocator)
    : TriangleMesh(name, allocator), mSize(size) {}

core::Object *SizeableRectangleMesh::clone(core::CloningOptions &options) const {
    auto *copy = new SizeableRectangleMesh(getName(), mSize, getAllocator());
    _clone(copy, options);
    return copy;
}

void SizeableRectangleMesh::_clone(core::Object *target, core::CloningOptions &options) const {
    if (target && target->instanceOf(TYPE))
        static_cast<SizeableRectangleMesh *>(target)->setSize(mSize);
    TriangleMesh::_clone(target, options);
}

void SizeableRectangleMesh::setSize(const math::Vector2 &size) {
    if (mSize == size)
        return;
    mSize = size;
    setChanged(true);
}

bool SizeableRectangleMesh::buildGeometry(geometry::LocalGeometry &out) {
    if (!(mSize.x > 0.0f && mSize.y > 0.0f))
        return false;
    texture::Texture::Rectangle region;
    texture::RenderData *page = nullptr;
    if (const texture::Texture *const texture = getTexture()) {
        page = texture->getRenderData();
        region = texture->getRegion();
        if (!page)
            return false; // not loaded yet
    }
    const math::Vector2 half = mSize * 0.5f;
    out.beginRun(page);
    out.addQuad(-half.x, -half.y, half.x, half.y, region.u0, region.v0, region.u1, region.v1);
    return true;
}

} // namespace nurel::scene::meshes
