#include "nengine/scene/Mesh.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/geometry/MeshData.h"
#include "nengine/geometry/MeshDataCO.h"
#include "nengine/geometry/detail/MeshGeometry.h"
#include "nengine/renderer/FrameStatistics.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/Culler.h"
#include "nengine/scene/DrawContext.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"

#include <utility>

namespace nurel::scene {

namespace {

const properties::MaterialProperty &getMaterial(const PropertySet &set) {
    return static_cast<const properties::MaterialProperty &>(*set.getEffective(Property::MATERIAL));
}

bool isBlending(const PropertySet &set) {
    return static_cast<const properties::AlphaProperty *>(set.getEffective(Property::ALPHA))->isBlending();
}

} // namespace

constinit const ::core::Type Mesh::TYPE("Mesh", &Frame::TYPE);

Mesh::Mesh(const char *name) : Frame(name) {}

Mesh::~Mesh() = default;

void Mesh::_clone(core::Object *target, core::CloningOptions &options) const {
    Frame::_clone(target, options);
    if (!target || target == this || !target->instanceOf(TYPE))
        return;
    auto &mesh = *static_cast<Mesh *>(target);
    mesh.setChanged(true);
    const auto *option = geometry::MeshDataCO::find(options);
    const bool takesGeometry = option && (option->getAttributes() & geometry::MeshData::AM_ALL) != 0;
    if (!takesGeometry || !mGeometry || isChanged())
        return;
    mesh.needGeometry().setLocal(*mGeometry);
    mesh.needGeometry().textureRevision = mGeometry->textureRevision;
    mesh.setChanged(false);
}

geometry::MeshGeometry &Mesh::needGeometry() {
    if (!mGeometry)
        mGeometry = std::make_unique<geometry::MeshGeometry>();
    return *mGeometry;
}

void Mesh::computeBound() {
    const auto *renderer = renderer::Renderer::getSingletonPtr();
    noticeTexture();
    if (!isChanged() && mGeometry)
        return;
    buildLocal(needGeometry(), renderer ? renderer->getAtlasPtr() : nullptr);
    setChanged(false);
    setFlag(WORLD_CHANGED, true); // its vertices in the world are out of date now
    updateBoundUpward();
}

math::Vector2 Mesh::getMinBound() const {
    math::Vector2 minimum, maximum;
    if (mGeometry)
        mGeometry->getBound(minimum, maximum);
    return minimum;
}

math::Vector2 Mesh::getMaxBound() const {
    math::Vector2 minimum, maximum;
    if (mGeometry)
        mGeometry->getBound(minimum, maximum);
    return maximum;
}

texture::Texture *Mesh::getTexture() const {
    return static_cast<const properties::TextureProperty *>(getPropertySet().getEffective(Property::TEXTURE))
        ->getTexture(0);
}

void Mesh::onVisible(Culler *culler, math::Frustum::EFrustumResult) {
    culler->insert(this);
}

const geometry::MeshGeometry &Mesh::prepareGeometry(const DrawContext &context, renderer::FrameStatistics &statistics) {
    geometry::MeshGeometry &geometry = needGeometry();
    if (hasFlag(WORLD_CHANGED) || geometry.contextRevision != context.revision)
        noticeView(context);
    noticeTexture();
    bool current = !hasFlag(WORLD_CHANGED);
    if (isChanged()) {
        buildLocal(geometry, context.atlas);
        setChanged(false);
        ++statistics.meshesBuilt;
        current = false;
    }
    current = current && geometry.getRevision() != 0 &&
              geometry.materialRevision == getMaterial(getPropertySet()).getRevision() &&
              geometry.blending == isBlending(getPropertySet());
    if (!current) {
        buildWorld(geometry);
        setFlag(WORLD_CHANGED, false);
        mDrawStamp = static_cast<std::uint32_t>(geometry.getRevision());
        statistics.verticesRebuilt += geometry.getVertexCount();
    }
    return geometry;
}

void Mesh::rebuildGeometry(const DrawContext &context, geometry::MeshGeometry &out) {
    buildLocal(out, context.atlas);
    buildWorld(out);
}

bool Mesh::buildGeometry(geometry::LocalGeometry &) {
    return false;
}

void Mesh::viewChanged(const DrawContext &) {}

void Mesh::noticeView(const DrawContext &context) {
    if (!mGeometry->isWhiteFrom(context.atlas))
        setChanged(true);
    mGeometry->contextRevision = context.revision;
    viewChanged(context);
}

void Mesh::noticeTexture() {
    const texture::Texture *const texture = getTexture();
    const std::uint64_t revision = texture ? texture->getRevision() : 0;
    if (mGeometry && mGeometry->textureRevision != revision)
        setChanged(true);
}

void Mesh::buildLocal(geometry::MeshGeometry &out, const texture::Atlas *atlas) {
    // One for all meshes: its arrays grow to the largest of them and stay. Moved out while it is in use, in case that
    // building one mesh asks for another.
    static geometry::LocalGeometry spare;
    geometry::LocalGeometry scratch = std::move(spare);
    scratch.clear();
    if (!buildGeometry(scratch))
        scratch.clear();
    const texture::Texture *const texture = getTexture();
    out.textureRevision = texture ? texture->getRevision() : 0;
    out.setLocal(scratch, atlas);
    spare = std::move(scratch);
}

void Mesh::buildWorld(geometry::MeshGeometry &out) const {
    const properties::MaterialProperty &material = getMaterial(getPropertySet());
    out.materialRevision = material.getRevision();
    out.blending = isBlending(getPropertySet());
    const math::Vector4 &color = material.getColor();
    const math::Vector3 &second = material.getSecondColor();
    out.setWorld(getWorldTransform(),
                 {{color.x * second.x, color.y * second.y, color.z * second.z, color.w}, out.blending});
}

} // namespace nurel::scene
