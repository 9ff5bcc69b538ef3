#include "nui/ui/css/CSSView.h"

#include "foundation/core/Type.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/detail/InnerOffset.h"

namespace nurel::ui::css {

constinit const core::Type CSSView::TYPE("CSSView", &ComponentView::TYPE);

constinit unsigned int CSSView::mSTENCIL_REFERENCE = 0;

namespace {

using scene::meshes::BorderedRectangleMesh;
using scene::properties::StencilProperty;

struct StateBits {
    unsigned int component;
    unsigned int selector;
};

// No component state makes ":enabled", so that it never matches.
constexpr StateBits STATES[] = {
    {Component::STATE_ACTIVE, SELECTOR_STATE_ACTIVE},     {Component::STATE_HOVER, SELECTOR_STATE_HOVER},
    {Component::STATE_DISABLED, SELECTOR_STATE_DISABLED}, {Component::STATE_FOCUSED, SELECTOR_STATE_FOCUS},
    {Component::STATE_CHECKED, SELECTOR_STATE_CHECKED},
};

StencilProperty *makeStencil(unsigned int comparison, unsigned int passOperation) {
    auto *stencil = new StencilProperty("");
    stencil->setEnabled(true);
    stencil->setComparison(comparison);
    stencil->setOperations(StencilProperty::KEEP, StencilProperty::KEEP, passOperation);
    return stencil;
}

/// What a container's content and its scroll bars depend on, and a sheet may set.
struct ContentFrame {
    Component::ComponentSize size;
    BoxModel box;
    unsigned int scrollMask = Container::SCROLL_NONE;

    explicit ContentFrame(const Component &component) : size(component.getComponentSize()), box(component.getBox()) {
        if (component.isContainer())
            scrollMask = static_cast<const Container &>(component).getScrollMask();
    }

    bool operator==(const ContentFrame &other) const {
        return size.absolute == other.size.absolute && size.relative == other.size.relative &&
               size.minimum == other.size.minimum && size.maximum == other.size.maximum &&
               size.autoSize == other.size.autoSize && box.border == other.box.border &&
               box.padding == other.box.padding && scrollMask == other.scrollMask;
    }
};

} // namespace

CSSView::CSSView(const char *name, Component *component, CSSSkin *skin)
    : ComponentView(name, component, skin), mStylable(component) {}

CSSView::~CSSView() {
    cancelEnsureTexture();
}

void CSSView::setOverridden(Property::Name name, bool overridden) {
    if (overridden)
        mOverridden |= bitOf(name);
    else
        mOverridden &= ~bitOf(name);
}

void CSSView::setOverridden(const Property *property, bool overridden) {
    if (property)
        setOverridden(property->getName(), overridden);
}

bool CSSView::isOverridden(const Property *property) const {
    return property && isOverridden(property->getName());
}

void CSSView::setStyleDirty() {
    mStyleDirty = true;
    forceDirty();
}

void CSSView::buildGeometry() {
    Component &component = *getComponent();
    // 1. The mesh's material and alpha become its own. No box is drawn until a background arrives.
    scene::Mesh *mesh = component.getMesh();
    getColor(mesh);
    if (auto *alpha = static_cast<scene::properties::AlphaProperty *>(mesh->getPropertySet()[scene::Property::ALPHA]))
        alpha->setBlending(true);
    mesh->setHidden(true);
    if (mesh->instanceOf(BorderedRectangleMesh::TYPE))
        mMesh = static_cast<BorderedRectangleMesh *>(mesh);
    // 2.
    getUnderlay()->appendChild(mesh);
    // 3.
    mStencil = makeStencil(StencilProperty::EQUAL, StencilProperty::KEEP);
    setProperty(mStencil.get());
    // 4.
    if (component.isContainer())
        buildClip();
    // 5.
    updateProperties();
}

void CSSView::buildClip() {
    const math::Vector2 &size = getComponent()->getNaturalSize();
    const math::Vector4 noBorder(0, 0, 0, 0);
    geometry::MeshDataAllocator *allocator =
        UIManager::isSingletonCreated() ? UIManager::getSingleton().getGeometryAllocator() : nullptr;
    mClip = new BorderedRectangleMesh("CSSView.mClip", size, noBorder, nullptr, allocator);
    mClipClear = new BorderedRectangleMesh("CSSView.mClipClear", size, noBorder, nullptr, allocator);
    const core::SmartPtr<scene::properties::MaterialProperty> invisible(new scene::properties::MaterialProperty(""));
    invisible->setFlags(invisible->getFlags() & ~(scene::properties::MaterialProperty::WRITE_COLOR |
                                                  scene::properties::MaterialProperty::WRITE_ALPHA));
    mClip->setProperty(invisible.get());
    mClipClear->setProperty(invisible.get());
    mClipStencil = makeStencil(StencilProperty::EQUAL, StencilProperty::INCREMENT);
    mClip->setProperty(mClipStencil.get());
    getUnderlay()->appendChild(mClip.get());
    mClearStencil = makeStencil(StencilProperty::LESS_EQUAL, StencilProperty::REPLACE);
    mClipClear->setProperty(mClearStencil.get());
    getOverlay()->appendChild(mClipClear.get());
}

void CSSView::updateView() {
    const Component *component = getComponent();
    if (!component || mStylable.getComponent() != component)
        return;
    // 1.
    if (!mGeometryBuilt) {
        buildGeometry();
        mGeometryBuilt = true;
    }
    // 2.
    noticeState();
    // 3.
    if (mStyleDirty || component->isDirty(Component::DIRTY_STYLE))
        restyle();
    // 4.
    ComponentView::updateView();
    // 5.
    if (mMesh && getComponent())
        mMesh->setSize(component->getNaturalSize());
    // 6.
    if (mClip && getComponent())
        placeClip();
}

// A hidden component keeps the difference, and so restyles when it is shown.
void CSSView::noticeState() {
    const Component &component = *getComponent();
    if (component.getState() == mLastState || !component.isVisible())
        return;
    mLastState = component.getState();
    mStylable.clearState();
    for (const StateBits &bits : STATES) {
        if (component.hasState(bits.component))
            mStylable.enableState(bits.selector);
    }
    mStyleDirty = true;
}

void CSSView::restyle() {
    Component &component = *getComponent();
    const ContentFrame before(component);
    if (const auto *skin = static_cast<const CSSSkin *>(getSkin())) {
        // Of the sheet, in case that a property which is applied takes it from the skin
        const std::shared_ptr<const CSS> sheet = skin->shareStyleSheet();
        skin->style(&mStylable);
        applyProperties();
    }
    mStyleDirty = false;
    // The setters mark the parent; the content of a container depends on its own size too.
    if (!(ContentFrame(component) == before) && component.isContainer())
        component.forceDirty(Component::DIRTY_CONTENT);
}

void CSSView::applyProperties() {
    for (const Property *property : mStylable.getProperties()) {
        if (!getComponent()) // an override of one of its setters may have dropped the view
            break;
        apply(property);
    }
    mStylable.clearProperties();
}

void CSSView::placeClip() {
    const auto &container = static_cast<const Container &>(*getComponent());
    const math::Vector2 offset = detail::getInnerOffset(container) - math::Vector2(0.5f, 0.5f);
    const math::Vector2 size = container.getContainerSize() + math::Vector2(1, 1);
    for (BorderedRectangleMesh *mesh : {mClip.get(), mClipClear.get()}) {
        mesh->setSize(size);
        mesh->setTranslation(math::Vector3(offset.x, offset.y, 0));
    }
}

bool CSSView::updateInternal(float time, bool parentChanged) {
    // 1.
    bool isClipping = false;
    const bool isContainer = mClip && getComponent() && getComponent()->isContainer();
    if (mGeometryBuilt) {
        if (isContainer) {
            const auto &container = static_cast<const Container &>(*getComponent());
            isClipping = container.getClipChildren() && container.isContentOutside();
        }
        mStencil->setReference(mSTENCIL_REFERENCE);
    }
    bool changed = false;
    if (isClipping) {
        // 2.
        mClipStencil->setReference(mSTENCIL_REFERENCE);
        mClearStencil->setReference(mSTENCIL_REFERENCE);
        mClip->setHidden(false);
        mClipClear->setHidden(false);
        ++mSTENCIL_REFERENCE;
        changed = ComponentView::updateInternal(time, parentChanged);
        --mSTENCIL_REFERENCE;
        return changed;
    }
    // 3.
    if (mClip) {
        mClip->setHidden(true);
        mClipClear->setHidden(true);
    }
    // 4.
    return ComponentView::updateInternal(time, parentChanged);
}

} // namespace nurel::ui::css
