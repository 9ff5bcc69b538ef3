#include "nui/ui/views/DefaultWidgetView.h"

#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"

namespace nurel::ui::views {

constinit const core::Type DefaultWidgetView::TYPE("DefaultWidgetView", &WidgetView::TYPE);

namespace {

constexpr math::Vector3 COLOR(0.8f, 0, 0);

} // namespace

DefaultWidgetView::DefaultWidgetView(const char *name, Widget *widget, Skin *skin)
    : WidgetView(name, widget, skin), mMesh(new scene::meshes::SizeableRectangleMesh(
                                          "", widget->getSize(), UIManager::getSingleton().getGeometryAllocator())) {
    auto *material = new scene::properties::MaterialProperty("");
    material->setSecondColor(COLOR);
    mMesh->setProperty(material);
    appendChild(mMesh);
}

void DefaultWidgetView::updateView() {
    const Widget *widget = getWidget();
    if (!widget)
        return;
    if (widget->getSize() != mMesh->getSize())
        mMesh->setSize(widget->getSize());
    updateComponent();
    setRotation(widget->getRotation(), false);
    setScale(widget->getWorldScale(), 1);
    setTranslation(widget->getParentRelativePosition());
    setHidden(!widget->isVisible());
}

} // namespace nurel::ui::views
