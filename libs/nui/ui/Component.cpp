#include "nui/ui/Component.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "foundation/logging/Logger.h"
#include "nengine/scene/Mesh.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/detail/ManagerAccess.h"

namespace nurel::ui {

constinit const core::Type Component::TYPE("Component", &UIEventHandler::TYPE);

constinit const math::Vector2 Component::DEFAULT_SIZE(100, 64);

Component::Component(const char *name, const char *element)
    : UIEventHandler(name), mElement(element ? element : ""), mClasses(false, false) {}

Component::Component(const Component &) = default;
Component &Component::operator=(const Component &) = default;

Component::~Component() {
    // What the removal sets off may hold the component for a while; giving it back must not delete it again.
    addRef();
    mClasses.clear();
    leaveManager();
    Layout::componentDestroyed(this);
    if (mView)
        mView->dropComponent(this);
}

void Component::leaveManager() noexcept {
    try {
        if (UIManager *manager = detail::findManager())
            manager->checkComponentRemoval(this);
    } catch (const std::exception &exception) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while %s was destroyed", exception, getName());
    } catch (...) {
        logging::Logger::mROOT_LOGGER.error("A callback failed while %s was destroyed", getName());
    }
}

void Component::setParent(Container *parent) {
    if (parent && mParent)
        throw core::IllegalStateException("A parent is already set on component %s", getName());
    if (parent && parent->isDescendantOf(this))
        throw core::IllegalStateException("Component %s cannot be put into itself or its own descendant %s", getName(),
                                          parent->getName());
    if (parent != mParent)
        setDirty(DIRTY_ALL);
    mParent = parent;
    updateHDepth();
    setParentVisible(!parent || parent->isVisible());
    setParentEnabled(!parent || parent->isEnabled());
}

bool Component::isDescendantOf(const Component *component) const {
    for (const Component *ancestor = this; ancestor; ancestor = ancestor->mParent) {
        if (ancestor == component)
            return true;
    }
    return false;
}

void Component::updateHDepth() {
    mHierarchyDepth = mParent ? mParent->mHierarchyDepth + 1 : 0;
    if (!mIsContainer)
        return;
    for (const auto &child : static_cast<Container *>(this)->mChildren)
        child->updateHDepth();
}

void Component::setZIndex(int zIndex) {
    mZIndex = zIndex;
    if (!mParent)
        return;
    mParent->updateZIndexRangeAfterInsertion(zIndex);
    mParent->setDirty__(DIRTY_ZORDER, DIRTY_SELF);
    mParent->setDirty__(DIRTY_CHILD_VIEW, DIRTY_UP);
}

void Component::setUserData(UserData *data) {
    mUserData = data;
}

void Component::clearUserData() {
    mUserData = nullptr;
}

} // namespace nurel::ui
