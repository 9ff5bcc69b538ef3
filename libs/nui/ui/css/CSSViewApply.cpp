#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nui/ui/Container.h"
#include "nui/ui/css/Background.h"
#include "nui/ui/css/BorderRadius.h"
#include "nui/ui/css/BoxProperties.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/NAnchor.h"
#include "nui/ui/css/NBackground.h"
#include "nui/ui/css/Opacity.h"
#include "nui/ui/css/Overflow.h"
#include "nui/ui/css/SizeProperties.h"
#include "nui/ui/css/Transform.h"
#include "nui/ui/css/ZIndex.h"

/// From properties to calls on the component and its mesh.
namespace nurel::ui::css {

void CSSView::apply(const Property *property) {
    Component &component = *getComponent();
    switch (property->getName()) {
    case Property::BACKGROUND:
        applyBackground(*property);
        break;
    case Property::WIDTH:
    case Property::HEIGHT:
        applySize(*property, property->getName() == Property::WIDTH);
        break;
    case Property::LEFT:
    case Property::TOP:
        applyPosition(*property, property->getName() == Property::LEFT);
        break;
    case Property::BORDER_RADIUS:
        if (mMesh)
            mMesh->setBorder(static_cast<const BorderRadius *>(property)->getBorder());
        break;
    case Property::NANCHOR:
        component.setAnchor(static_cast<const NAnchor *>(property)->getAnchor());
        break;
    case Property::NBACKGROUND:
        applySkin(*property);
        break;
    case Property::OPACITY:
        component.setOpacity(static_cast<const Opacity *>(property)->getOpacity(), false);
        break;
    case Property::MARGIN:
        component.setMargin(static_cast<const Margin *>(property)->getBox());
        break;
    case Property::BORDER:
        component.setBorder(static_cast<const Border *>(property)->getBox());
        break;
    case Property::PADDING:
        component.setPadding(static_cast<const Padding *>(property)->getBox());
        break;
    case Property::OVERFLOW:
        applyOverflow(*property);
        break;
    case Property::MIN_WIDTH:
    case Property::MAX_WIDTH:
    case Property::MIN_HEIGHT:
    case Property::MAX_HEIGHT:
        applyLimit(static_cast<const SizeBase &>(*property));
        break;
    case Property::TRANSFORM:
        component.setTransform(static_cast<const css::Transform *>(property)->getMatrix());
        break;
    case Property::ZINDEX:
        component.setZIndex(static_cast<const ZIndex *>(property)->getValue());
        break;
    case Property::NONE:
    case Property::FONT:
    case Property::COLOR:
    case Property::TEXT_ALIGN:
    case Property::VERTICAL_ALIGN:
        break;
    }
}

// Position and repetition are not used.
void CSSView::applyBackground(const Property &property) {
    const auto &background = static_cast<const Background &>(property);
    scene::Mesh *mesh = getComponent()->getMesh();
    setColor(mesh, background.getColor());
    mesh->setHidden(background.isNone());
    if (!background.isNone())
        setTexture(this, mesh, background.getImage().c_str());
}

void CSSView::applySize(const Property &property, bool isWidth) {
    const auto &size = static_cast<const SizeBase &>(property);
    Component &component = *getComponent();
    math::Vector2 absolute = component.getComponentSize().absolute;
    math::Vector2 relative = component.getComponentSize().relative;
    (isWidth ? absolute.x : absolute.y) = size.getSizeAbsolute();
    (isWidth ? relative.x : relative.y) = size.getSizeRelative();
    component.setSize(absolute, relative);
    const unsigned int flag = isWidth ? Component::AUTO_SIZE_WIDTH : Component::AUTO_SIZE_HEIGHT;
    const unsigned int others = component.getAutoSizeFlags() & ~flag;
    component.setAutoSize(size.isAuto() ? others | flag : others, component.getAutoSizeOffset());
}

void CSSView::applyPosition(const Property &property, bool isLeft) {
    const auto &size = static_cast<const SizeBase &>(property);
    Component &component = *getComponent();
    math::Vector2 absolute = component.getComponentPosition().absolute;
    math::Vector2 relative = component.getComponentPosition().relative;
    (isLeft ? absolute.x : absolute.y) = size.getSizeAbsolute();
    (isLeft ? relative.x : relative.y) = size.getSizeRelative();
    component.setPosition(absolute, relative);
}

// Relative and automatic limits are ignored. The component's setters do not compare.
void CSSView::applyLimit(const SizeBase &size) {
    Component &component = *getComponent();
    const float limit = size.getSizeAbsolute();
    switch (size.getName()) {
    case Property::MIN_WIDTH:
        if (component.getMinimumWidth() != limit)
            component.setMinimumWidth(limit);
        break;
    case Property::MAX_WIDTH:
        if (component.getMaximumWidth() != limit)
            component.setMaximumWidth(limit);
        break;
    case Property::MIN_HEIGHT:
        if (component.getMinimumHeight() != limit)
            component.setMinimumHeight(limit);
        break;
    default:
        if (component.getMaximumHeight() != limit)
            component.setMaximumHeight(limit);
        break;
    }
}

void CSSView::applySkin(const Property &property) {
    const auto &skin = static_cast<const NBackground &>(property);
    if (!mMesh)
        return;
    const math::Vector2 before = mMesh->getSkinSizePixels();
    if (skin.hasCurrentSkin())
        mMesh->setCurrentSkin(skin.getCurrentSkin());
    if (skin.hasSkinCount())
        mMesh->setSkinCount(skin.getSkinCountU(), skin.getSkinCountV());
    if (skin.hasSkinOffset())
        mMesh->setSkinOffset(skin.getSkinOffset());
    if (skin.hasSkinSize())
        mMesh->setSkinSize(skin.getSkinSize());
    if (skin.hasSkinSpacing())
        mMesh->setSkinSpacing(skin.getSkinSpacing());
    // An image may take its size from the skin.
    if (getComponent()->getAutoSizeFlags() != 0 && mMesh->getSkinSizePixels() != before)
        forceDirty();
}

// Showing what sticks out leaves the scrolling as it was.
void CSSView::applyOverflow(const Property &property) {
    Component &component = *getComponent();
    if (!component.isContainer())
        return;
    const auto &overflow = static_cast<const Overflow &>(property);
    auto &container = static_cast<Container &>(component);
    if (overflow.getX() == Overflow::VISIBLE || overflow.getY() == Overflow::VISIBLE) {
        container.setClipChildren(false);
        return;
    }
    container.setClipChildren(true);
    unsigned int mask = Container::SCROLL_NONE;
    if (overflow.getX() != Overflow::HIDDEN)
        mask |= Container::SCROLL_HORIZONTAL;
    if (overflow.getY() != Overflow::HIDDEN)
        mask |= Container::SCROLL_VERTICAL;
    container.setScrollMask(mask);
    if (mask != Container::SCROLL_NONE)
        container.enableEvents(UIEvent::ET_DRAG_EVENT);
}

} // namespace nurel::ui::css
