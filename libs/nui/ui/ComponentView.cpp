#include "nui/ui/ComponentView.h"

#include "foundation/core/Type.h"
#include "nengine/scene/Camera.h"
#include "nengine/scene/Culler.h"
#include "nengine/scene/properties/DepthProperty.h"
#include "nui/ui/Container.h"
#include "nui/ui/Skin.h"

#include <algorithm>

namespace nurel::ui {

constinit const core::Type ComponentView::TYPE("ComponentView", &scene::Node::TYPE);

namespace {

/// Tests depth without writing it. One for all views, marked as shared: who wants to change it sets a clone.
scene::Property *getDepthProperty() {
    static const core::SmartPtr<scene::properties::DepthProperty> SHARED = [] {
        core::SmartPtr<scene::properties::DepthProperty> property(
            new scene::properties::DepthProperty("", true, false));
        property->setDefault(true);
        return property;
    }();
    return SHARED.get();
}

/// Frames that are no views of a component count as z-index 0.
int zIndexOf(const scene::Frame &frame) {
    if (!frame.instanceOf(ComponentView::TYPE))
        return 0;
    const Component *component = static_cast<const ComponentView &>(frame).getComponent();
    return component ? component->getZIndex() : 0;
}

} // namespace

ComponentView::ComponentView(const char *name, Component *component, Skin *skin)
    : scene::Node(name), mSkin(skin), mComponent(component) {
    setProperty(getDepthProperty());
}

ComponentView::~ComponentView() = default;

void ComponentView::updateComponent() {
    if (!mComponent || !mComponent->isDirty(Component::DIRTY_POSITION | Component::DIRTY_CONTENT))
        return;
    mComponent->updatePosition();
    mComponent->updateContent();
}

void ComponentView::updateView() {
    updateComponent();
    if (!mComponent)
        return;
    const Component &component = *mComponent;
    setRotation(component.getRotation(), false);
    setScale(component.getScale(), 1);
    setTranslation(component.getParentRelativePosition());
    setHidden(!component.isVisible());
}

void ComponentView::childrenUpdated(bool) {}

bool ComponentView::updateInternal(float time, bool parentChanged) {
    const bool changed = scene::Node::updateInternal(time, parentChanged);
    childrenUpdated(changed);
    return changed;
}

void ComponentView::onVisible(scene::Culler *culler, math::Frustum::EFrustumResult result) {
    const Container *parent = mComponent ? mComponent->getParent() : nullptr;
    if (parent) {
        const math::Vector2 reach = (mComponent->getNaturalSize() + parent->getNaturalSize()) * 0.5f;
        const math::Vector3 &position = mComponent->getParentRelativePosition();
        if (!(position.x > -reach.x && position.x < reach.x && position.y > -reach.y && position.y < reach.y))
            return;
    }
    // What is not turned out of its parent's plane is seen as the parent is.
    const scene::Camera *camera = mComponent && mComponent->getRotation()(2, 2) != 1 ? culler->getCamera() : nullptr;
    if (!camera)
        return scene::Node::onVisible(culler, result);
    const bool isParentsBackSeen = culler->isBackSeen();
    culler->setBackSeen(isTurnedAway(*camera));
    scene::Node::onVisible(culler, result);
    culler->setBackSeen(isParentsBackSeen);
}

/// Whether the camera sees the back of the component, or just its edge.
bool ComponentView::isTurnedAway(const scene::Camera &camera) const {
    const math::Matrix4 &world = getWorldTransform();
    const auto axis = [&world](unsigned int row) { return math::Vector3(world(row, 0), world(row, 1), world(row, 2)); };
    // Upright on the component's plane and away from the viewer: z is as well, unless the scales above have slanted it.
    math::Vector3 away = axis(0).cross(axis(1));
    if (away.dot(axis(2)) < 0) // mirrored by a scale
        away = -away;
    const bool isPerspective = camera.getProjection()[11] != 0;
    if (isPerspective)
        return away.dot(axis(3) - camera.getPosition()) <= 0;
    const math::Matrix4 view = camera.getWorldInverseTransform();
    return away.dot(math::Vector3(view(0, 2), view(1, 2), view(2, 2))) <= 0;
}

scene::Node *ComponentView::getContent() {
    if (!mContent) {
        mContent = new scene::Node("content");
        appendChild(mContent.get());
    }
    return mContent.get();
}

scene::Node *ComponentView::getUnderlay() {
    if (!mUnderlay) {
        getContent();
        mUnderlay = new scene::Node("underlay");
        prependChild(mUnderlay.get());
    }
    return mUnderlay.get();
}

scene::Node *ComponentView::getOverlay() {
    if (!mOverlay) {
        getContent();
        mOverlay = new scene::Node("overlay");
        appendChild(mOverlay.get());
    }
    return mOverlay.get();
}

void ComponentView::insertView(ComponentView *view) {
    if (!view)
        return;
    const core::SmartPtr<ComponentView> kept(view);
    scene::Node *content = getContent();
    content->removeChild(view);
    const Component *component = view->mComponent;
    const int zIndex = component ? component->getZIndex() : 0;
    const Container *parent = component ? component->getParent() : nullptr;
    if (!parent || zIndex < parent->getZIndexMax()) {
        content->insertChild(view, findPlace(zIndex, parent));
    } else {
        content->appendChild(view);
    }
    updateProperties();
}

/// The index in the content of the first child with a higher z-index.
unsigned int ComponentView::findPlace(int zIndex, const Container *parent) const {
    const auto &children = mContent->getChildren();
    const auto isAbove = [zIndex](const auto &child) { return zIndexOf(*child) > zIndex; };
    auto place = children.end();
    if (!parent || zIndex < 0 || !parent->isBelowBarsOnly(zIndex)) {
        place = std::find_if(children.begin(), children.end(), isAbove);
    } else {
        // None but the scroll bars, which stand at the end or near to it
        int bars = 0;
        for (const Component *bar : {parent->getScrollInfoH().bar, parent->getScrollInfoV().bar}) {
            if (bar && bar->hasView() && bar->getView()->getParent() == mContent.get())
                ++bars;
        }
        for (auto child = children.end(); bars > 0 && child != children.begin();) {
            if (isAbove(*--child)) {
                place = child;
                --bars;
            }
        }
    }
    return static_cast<unsigned int>(place - children.begin());
}

void ComponentView::removeView(ComponentView *view) {
    if (mContent)
        mContent->removeChild(view);
}

void ComponentView::componentAdded(Component *component) {
    if (component)
        insertView(component->visit(mSkin.get()));
}

void ComponentView::componentRemoved(Component *component) {
    if (component && component->hasView())
        removeView(component->getView());
}

void ComponentView::applyZIndex() {
    if (!mContent)
        return;
    auto &children = mContent->getChildren();
    std::stable_sort(children.begin(), children.end(),
                     [](const auto &a, const auto &b) { return zIndexOf(*a) < zIndexOf(*b); });
}

void ComponentView::forceDirty() {
    markComponent(Component::DIRTY_POSITION);
}

void ComponentView::markComponent(unsigned int flags) {
    if (mComponent)
        mComponent->setDirty(flags);
}

void ComponentView::dropComponent(const Component *component) {
    if (mComponent == component)
        mComponent = nullptr;
}

void ComponentView::adoptComponent(Component *component) {
    if (!mComponent)
        mComponent = component;
}

} // namespace nurel::ui
