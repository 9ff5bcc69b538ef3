#pragma once

#include "foundation/core/SmartPtr.h"
#include "nui/ui/UIEventHandler.h"

namespace nurel::ui {

class Component;

/// A behaviour that stands in the event chain between a component, its target, and the target's parent. It sees what
/// the target passes on, and takes part in the filter pass of all that comes from the target and from below it.
///
/// The handler holds a reference on its target, which only points back: the handler belongs to whoever made it, and the
/// target does not die while it is attached.
class ComponentHandler : public UIEventHandler {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    ComponentHandler(const ComponentHandler &) = delete;
    ComponentHandler &operator=(const ComponentHandler &) = delete;
    ~ComponentHandler() override;

    /// Null detaches. A handler that the new target had before is no longer in its chain, but still has it as its
    /// target; when it lets go of it, the target is left without any handler.
    void setTarget(Component *target);
    Component *getTarget() { return mTarget.get(); }
    const Component *getTarget() const { return mTarget.get(); }

    /// The target's parent; null without a target.
    UIEventHandler *nextHandler() override;

protected:
    ComponentHandler(const char *name, Component *target);

private:
    core::SmartPtr<Component> mTarget;
};

} // namespace nurel::ui
