#include "nui/ui/components/Image.h"

#include "foundation/core/Type.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"

namespace nurel::ui::components {

constinit const core::Type Image::TYPE("Image", &Component::TYPE);

const char *const Image::ELEMENT = "image";

Image::Image(const char *name) : Component(name, ELEMENT) {}

Image::Image(const char *name, const char *element) : Component(name, element) {}

ComponentView *Image::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

math::Vector2 Image::getAutoSize(const math::Vector2 &current) {
    if (!hasMesh() || !getMesh()->instanceOf(scene::meshes::BorderedRectangleMesh::TYPE))
        return current;
    return static_cast<scene::meshes::BorderedRectangleMesh *>(getMesh())->getSkinSizePixels();
}

core::Object *Image::clone(core::CloningOptions &options) const {
    core::SmartPtr<Image> copy(new Image(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

} // namespace nurel::ui::components
