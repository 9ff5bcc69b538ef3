#include "nui/ui/ComponentHandler.h"

#include "foundation/core/Type.h"
#include "nui/ui/Component.h"
#include "nui/ui/Container.h"

namespace nurel::ui {

constinit const core::Type ComponentHandler::TYPE("ComponentHandler", &UIEventHandler::TYPE);

ComponentHandler::ComponentHandler(const char *name, Component *target) : UIEventHandler(name) {
    setTarget(target);
}

ComponentHandler::~ComponentHandler() {
    addRef(); // the target's end may set off anything
    setTarget(nullptr);
}

void ComponentHandler::setTarget(Component *target) {
    const core::SmartPtr<Component> old = mTarget;
    // Also when another handler has taken this one's place there.
    if (old)
        old->setHandler(nullptr);
    mTarget = target;
    if (target)
        target->setHandler(this);
}

UIEventHandler *ComponentHandler::nextHandler() {
    return mTarget ? mTarget->getParent() : nullptr;
}

} // namespace nurel::ui
