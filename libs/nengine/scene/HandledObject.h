#pragma once

#include "nmain/core/ExtraDatable.h"
#include "nmain/core/NamedObject.h"

#include <memory>
#include <vector>

namespace nurel::scene {

class ObjectHandler;

/// A named object that handlers can be attached to: objects that change it as time goes by. What no handler was added
/// to pays one pointer. Used on the render thread.
class HandledObject : public core::NamedObject, public core::ExtraDatable {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit HandledObject(const char *name = "");
    ~HandledObject() override;

    /// Holds the handler by a counted reference and makes this its target. Null, and a handler that is there already,
    /// are ignored; a handler of another object leaves that one first.
    void addHandler(ObjectHandler *handler);

    /// Releases the handler; a stranger is ignored.
    void removeHandler(ObjectHandler *handler);

    /// The first handler of the type or of one derived from it; null when there is none.
    ObjectHandler *getHandler(const ::core::Type &type) const;

    unsigned int getHandlerCount() const;

    /// Name and extra data; handlers stay with their target.
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    bool hasHandlers() const { return mHandlers != nullptr; }

    /// Lets each handler act. One that is added meanwhile acts from the next time on.
    void runHandlers(float time);

private:
    using Handlers = std::vector<core::SmartPtr<ObjectHandler>>;
    std::unique_ptr<Handlers> mHandlers;
};

} // namespace nurel::scene
