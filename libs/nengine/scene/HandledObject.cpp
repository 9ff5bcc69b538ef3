#include "nengine/scene/HandledObject.h"

#include "nengine/scene/ObjectHandler.h"

#include <algorithm>

namespace nurel::scene {

constinit const ::core::Type HandledObject::TYPE("HandledObject", &core::NamedObject::TYPE);

HandledObject::HandledObject(const char *name) : NamedObject(name) {}

HandledObject::~HandledObject() {
    if (!mHandlers)
        return;
    for (const auto &handler : *mHandlers)
        handler->removeTarget(this);
}

void HandledObject::addHandler(ObjectHandler *handler) {
    if (!handler || handler->isHandling(this))
        return;
    const core::SmartPtr<ObjectHandler> guard(handler);
    if (handler->getTarget())
        handler->getTarget()->removeHandler(handler);
    if (!mHandlers)
        mHandlers = std::make_unique<Handlers>();
    if (std::ranges::find(*mHandlers, guard) == mHandlers->end())
        mHandlers->push_back(guard);
    handler->mTarget = this;
}

void HandledObject::removeHandler(ObjectHandler *handler) {
    if (!handler || !handler->isHandling(this))
        return;
    const core::SmartPtr<ObjectHandler> guard(handler);
    handler->removeTarget(this);
    std::erase(*mHandlers, guard);
}

ObjectHandler *HandledObject::getHandler(const ::core::Type &type) const {
    if (!mHandlers)
        return nullptr;
    const auto found =
        std::ranges::find_if(*mHandlers, [&type](const auto &handler) { return handler->instanceOf(type); });
    return found == mHandlers->end() ? nullptr : found->get();
}

unsigned int HandledObject::getHandlerCount() const {
    return mHandlers ? static_cast<unsigned int>(mHandlers->size()) : 0;
}

void HandledObject::_clone(core::Object *target, core::CloningOptions &options) const {
    NamedObject::_clone(target, options);
    if (target && target != this && target->instanceOf(TYPE))
        static_cast<HandledObject *>(target)->setExtraData(getExtraData());
}

void HandledObject::runHandlers(float time) {
    const std::size_t count = mHandlers->size();
    for (std::size_t i = 0; i < count && i < mHandlers->size(); ++i) {
        const core::SmartPtr<ObjectHandler> handler = (*mHandlers)[i];
        if (handler->isHandling(this))
            handler->handle(time);
    }
}

} // namespace nurel::scene
