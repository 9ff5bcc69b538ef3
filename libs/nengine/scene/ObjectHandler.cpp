#include "nengine/scene/ObjectHandler.h"

#include "nengine/scene/HandledObject.h"

namespace nurel::scene {

constinit const ::core::Type ObjectHandler::TYPE("ObjectHandler", &core::Object::TYPE);

ObjectHandler::ObjectHandler() = default;
ObjectHandler::~ObjectHandler() = default;

void ObjectHandler::reassign(HandledObject *from, HandledObject *to) {
    if (!isHandling(from) || from == to)
        return;
    const core::SmartPtr<ObjectHandler> guard(this);
    from->removeHandler(this);
    if (to)
        to->addHandler(this);
}

void ObjectHandler::removeTarget(HandledObject *object) {
    if (isHandling(object))
        mTarget = nullptr;
}

} // namespace nurel::scene
