#include "nui/ui/css/CSSWidgetView.h"

#include "foundation/core/Type.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nui/ui/Widget.h"

namespace nurel::ui::css {

constinit const core::Type CSSWidgetView::TYPE("CSSWidgetView", &CSSView::TYPE);

namespace {

constexpr unsigned int FIRST_LEVEL = 1;

} // namespace

CSSWidgetView::CSSWidgetView(Widget *widget, CSSSkin *skin) : CSSView("CSSWidgetView", widget, skin) {}

void CSSWidgetView::buildGeometry() {
    CSSView::buildGeometry();
    stamp();
}

void CSSWidgetView::updateView() {
    CSSView::updateView();
    if (getClip())
        stamp();
}

void CSSWidgetView::stamp() {
    using scene::properties::StencilProperty;
    // 1.
    getStencil()->setEnabled(false);
    // 2.
    StencilProperty &clip = *getClipStencil();
    clip.setComparison(StencilProperty::ALWAYS);
    clip.setOperations(StencilProperty::REPLACE, StencilProperty::REPLACE, StencilProperty::REPLACE);
    clip.setReference(FIRST_LEVEL);
    // 3.
    getClipClear()->setHidden(true);
}

// The clipping of other views is passed by: the stamp is always drawn.
bool CSSWidgetView::updateInternal(float time, bool parentChanged) {
    mSTENCIL_REFERENCE = FIRST_LEVEL;
    return ComponentView::updateInternal(time, parentChanged);
}

} // namespace nurel::ui::css
