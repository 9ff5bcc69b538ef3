#include "nengine/geometry/MeshDataAllocator.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/Texture.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/Component.h"
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/detail/ManagerAccess.h"

namespace nurel::ui {

namespace {

/// The frame's own property of the class, which is made where it is missing.
template <class Property>
Property &obtainProperty(scene::Frame &frame, unsigned int index) {
    scene::Property *property = frame.getPropertySet()[index];
    if (!property || property->isDefault()) {
        property = new Property("");
        frame.setProperty(property);
    }
    return static_cast<Property &>(*property);
}

} // namespace

scene::Mesh *Component::getMesh() {
    if (!mMesh)
        mMesh = createMesh();
    return mMesh.get();
}

scene::Mesh *Component::createMesh() {
    const UIManager *manager = detail::findManager();
    core::SmartPtr<scene::Mesh> mesh(
        new scene::meshes::BorderedRectangleMesh("mMesh", math::Vector2(0, 0), math::Vector4(0, 0, 0, 0), nullptr,
                                                 manager ? manager->getGeometryAllocator() : nullptr));
    mesh->setProperty(new scene::properties::AlphaProperty(""));
    mesh->setProperty(new scene::properties::MaterialProperty(""));
    return mesh.release();
}

scene::properties::MaterialProperty &Component::obtainMaterial() {
    return obtainProperty<scene::properties::MaterialProperty>(*getMesh(), scene::Property::MATERIAL);
}

scene::properties::TextureProperty &Component::obtainTexture() {
    return obtainProperty<scene::properties::TextureProperty>(*getMesh(), scene::Property::TEXTURE);
}

math::Vector3 Component::getMeshColor() {
    const math::Vector4 &color = obtainMaterial().getColor();
    return math::Vector3(color.x, color.y, color.z);
}

void Component::setMeshColor(const math::Vector3 &color) {
    obtainMaterial().setColor(color);
}

void Component::setMeshProperty(scene::Property *property) {
    getMesh()->setProperty(property);
}

texture::Texture *Component::getMeshTexture(unsigned int stage) {
    return obtainTexture().getTexture(stage);
}

void Component::setMeshTexture(texture::Texture *texture, unsigned int stage) {
    if (stage >= scene::properties::TextureProperty::MAX_STAGES)
        return;
    scene::properties::TextureProperty &property = obtainTexture();
    const bool wasEmpty = property.getTexture(stage) == nullptr;
    property.getStage(stage).setTexture(texture);
    if (wasEmpty != (texture == nullptr))
        mMesh->updateProperties();
}

void Component::setMeshTexture(const char *name, unsigned int stage) {
    texture::TexturePool *pool = texture::TexturePool::getSingletonPtr();
    setMeshTexture(pool ? (*pool)[name] : nullptr, stage);
}

void Component::setOpacity(float value, bool recursive) {
    // 1. Something else may have written to the material. One that is yet to be made starts at 1.
    if (value == mOpacity) {
        if ((mMesh || value != 1) && obtainMaterial().getAlpha() != value)
            obtainMaterial().setAlpha(value);
        return;
    }
    // 2.
    if (AnimationContext *open = detail::findOpenAnimation()) {
        open->record<animation::AnimatedOpacity>(this).setOpacity(value, recursive);
        return;
    }
    // 3.
    mOpacity = value;
    applyOpacity(value, recursive);
}

void Component::applyOpacity(float value, bool) {
    obtainMaterial().setAlpha(value);
}

} // namespace nurel::ui
