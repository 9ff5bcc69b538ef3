#pragma once

#include "nmain/core/Object.h"

namespace nurel::scene {

class HandledObject;

/// Base of the objects that change a `HandledObject` as time goes by. The target holds the handler; the handler only
/// looks at the target. A frame runs its handlers in each update, before its own transform is brought up to date.
class ObjectHandler : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    ObjectHandler();
    ~ObjectHandler() override;

    HandledObject *getTarget() const { return mTarget; }
    bool isHandling(const HandledObject *object) const { return object && mTarget == object; }

    /// Moves from one target to another; ignored when it does not handle the first. A null second only lets go.
    void reassign(HandledObject *from, HandledObject *to);

    /// Forgets the target if it is this one. The target's own list is not touched: `HandledObject::removeHandler` does
    /// both.
    void removeTarget(HandledObject *object);

    /// Called once an update of the target with the time of the frame clock in seconds.
    virtual void handle(float time) = 0;

private:
    friend class HandledObject;
    HandledObject *mTarget = nullptr;
};

} // namespace nurel::scene
