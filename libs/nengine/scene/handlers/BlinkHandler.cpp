#include "nengine/scene/handlers/BlinkHandler.h"

#include "nengine/scene/Frame.h"

namespace nurel::scene::handlers {

constinit const ::core::Type BlinkHandler::TYPE("BlinkHandler", &TimeBasedHandler::TYPE);

BlinkHandler::BlinkHandler(float duration) : TimeBasedHandler(duration) {}

void BlinkHandler::setEnabled(bool enabled) {
    if (enabled && !mEnabled)
        resetTimeRange();
    mEnabled = enabled;
}

core::Object *BlinkHandler::clone(core::CloningOptions &options) const {
    auto *copy = new BlinkHandler(getDuration());
    _clone(copy, options);
    return copy;
}

void BlinkHandler::_clone(core::Object *target, core::CloningOptions &options) const {
    TimeBasedHandler::_clone(target, options);
    if (target && target->instanceOf(TYPE))
        static_cast<BlinkHandler *>(target)->mEnabled = mEnabled;
}

void BlinkHandler::handle(float time) {
    if (mEnabled)
        TimeBasedHandler::handle(time);
}

void BlinkHandler::handleRange(float position) {
    if (getTarget() && getTarget()->instanceOf(Frame::TYPE))
        static_cast<Frame *>(getTarget())->setHidden(position >= 0.5f);
}

} // namespace nurel::scene::handlers
