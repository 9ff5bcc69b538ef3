#include "nui/ui/css/CSSLabelView.h"

#include "foundation/core/Type.h"
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/css/Color.h"
#include "nui/ui/css/Font.h"
#include "nui/ui/css/Opacity.h"
#include "nui/ui/css/TextAlign.h"
#include "nui/ui/css/VerticalAlign.h"
#include "nui/ui/detail/InnerOffset.h"

#include <cmath>

namespace nurel::ui::css {

constinit const core::Type CSSLabelView::TYPE("CSSLabelView", &CSSView::TYPE);

namespace {

bool isWhole(float value) {
    return value == std::floor(value);
}

} // namespace

CSSLabelView::CSSLabelView(components::Label *label, CSSSkin *skin) : CSSView("CSSLabelView", label, skin) {}

CSSLabelView::~CSSLabelView() = default;

void CSSLabelView::buildGeometry() {
    CSSView::buildGeometry();
    mTextMesh = static_cast<components::Label *>(getComponent())->getTextMesh();
    appendChild(mTextMesh.get());
    updateProperties();
}

void CSSLabelView::apply(const Property *property) {
    CSSView::apply(property);
    if (!mTextMesh)
        return;
    switch (property->getName()) {
    case Property::FONT:
        applyFont(*static_cast<const Font *>(property));
        break;
    case Property::COLOR:
        setColor(mTextMesh.get(), static_cast<const Color *>(property)->getColor());
        break;
    case Property::OPACITY:
        getComponent()->setOpacity(static_cast<const Opacity *>(property)->getOpacity(), false);
        break;
    case Property::TEXT_ALIGN:
        mTextMesh->setHorizontalAlignment(static_cast<const TextAlign *>(property)->getAlign());
        break;
    case Property::VERTICAL_ALIGN:
        mTextMesh->setVerticalAlignment(static_cast<const VerticalAlign *>(property)->getAlign());
        break;
    default: // the others are the box's
        break;
    }
}

void CSSLabelView::applyFont(const Font &property) {
    auto &label = static_cast<components::Label &>(*getComponent());
    // 1. A family that nobody has is passed over.
    font::FontManager *manager = font::FontManager::getSingletonPtr();
    if (font::Font *font = property.hasFamily() && manager ? (*manager)[property.getFamily().c_str()] : nullptr) {
        label.setFont(font);
        ensureTexture(font->getTexture());
    }
    // 2. A size in pixels needs the size of the font that the label has now.
    float scale = property.getSize().value;
    if (property.getSize().measurement == Size::PIXELS) {
        const font::Font *font = label.getFont();
        if (!font || !(font->getSize() > 0))
            return;
        scale /= font->getSize();
    }
    // 3.
    const float before = mTextMesh->getScale();
    mTextMesh->setScale(scale);
    if (mTextMesh->getScale() != before) // the mesh takes what is no scale for 0
        forceDirty();                    // the label may take its size from the text
}

void CSSLabelView::updateView() {
    CSSView::updateView();
    const Component *label = getComponent();
    if (!label || !mTextMesh)
        return;
    // 1.
    math::Vector2 offset = detail::getInnerOffset(*label);
    // 2. Half a pixel off where the label's centre is, so that the text stands on whole ones
    const math::Vector3 &world = label->getWorldPosition();
    if (!isWhole(world.x))
        offset.x += 0.5f;
    if (!isWhole(world.y))
        offset.y += 0.5f;
    // 3.
    mTextMesh->setTranslation(math::Vector3(offset.x, offset.y, 0));
}

} // namespace nurel::ui::css
