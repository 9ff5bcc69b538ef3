#include "nui/ui/css/CSSImageView.h"

#include "foundation/core/Type.h"
#include "nengine/scene/Mesh.h"
#include "nui/ui/components/Image.h"

namespace nurel::ui::css {

constinit const core::Type CSSImageView::TYPE("CSSImageView", &CSSView::TYPE);

CSSImageView::CSSImageView(components::Image *image, CSSSkin *skin) : CSSView("CSSImageView", image, skin) {}

void CSSImageView::buildGeometry() {
    CSSView::buildGeometry();
    getComponent()->getMesh()->setHidden(false);
}

void CSSImageView::apply(const Property *property) {
    Component &image = *getComponent();
    if (property->getName() != Property::BACKGROUND || image.getAutoSizeFlags() == 0) {
        CSSView::apply(property);
        return;
    }
    const texture::Texture *before = image.getMeshTexture(0);
    CSSView::apply(property);
    if (image.getMeshTexture(0) != before) {
        const Component::ComponentSize &size = image.getComponentSize();
        image.setSize(size.absolute + math::Vector2::ONE, math::Vector2(size.relative));
    }
}

} // namespace nurel::ui::css
