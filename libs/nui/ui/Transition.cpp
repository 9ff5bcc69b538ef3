#include "nui/ui/Transition.h"

#include "foundation/core/SmartPtr.h"
#include "foundation/logging/Logger.h"
#include "nmain/math/Matrix3.h"
#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Component.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"

namespace nurel::ui {

namespace {

using animation::AnimatedOpacity;
using animation::AnimatedPosition;
using animation::AnimatedRotation;

/// Half a turn, a little short of it: so it is clear which way round the shorter way is.
constexpr float HALF_TURN = 3.14159f;

/// A new animation of the component in the context. It starts where the component is now.
template <class Animated>
Animated &add(AnimationContext &context, Component *component) {
    core::SmartPtr<Animated> animated(new Animated(component));
    context.addAnimation(animated.get());
    return *animated;
}

/// `from` goes to the exit while `to` follows it from the entrance; both are in parent sizes.
void slide(AnimationContext &context, Component *from, Component *to, const math::Vector2 &entrance,
           const math::Vector2 &exit) {
    if (from)
        add<AnimatedPosition>(context, from).setPosition(math::Vector2::ZERO, exit);
    if (to) {
        to->setPosition(math::Vector2::ZERO, entrance);
        add<AnimatedPosition>(context, to).setPosition(math::Vector2::ZERO, math::Vector2::ZERO);
    }
}

/// Both turn the same way: the back of `to` is seen from where the front of `from` was.
void flip(AnimationContext &context, Component *from, Component *to, const math::Vector3 &axis) {
    if (from)
        add<AnimatedRotation>(context, from).setRotation(math::Matrix3(-HALF_TURN, axis));
    if (to) {
        to->setRotation(math::Matrix3(HALF_TURN, axis));
        add<AnimatedRotation>(context, to).setRotation(math::Matrix3(0, axis));
    }
}

void crossFade(AnimationContext &context, Component *from, Component *to) {
    if (from)
        add<AnimatedOpacity>(context, from).setOpacity(0, true);
    if (to) {
        to->setOpacity(0, false); // what is inside follows with the first step: a frame at progress 0 shows it opaque
        add<AnimatedOpacity>(context, to).setOpacity(1, true);
    }
}

void fill(AnimationContext &context, Transition::Type type, Component *from, Component *to) {
    switch (type) {
    case Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT:
        return slide(context, from, to, math::Vector2(1, 0), math::Vector2(-1, 0));
    case Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT:
        return slide(context, from, to, math::Vector2(-1, 0), math::Vector2(1, 0));
    case Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP:
        return slide(context, from, to, math::Vector2(0, 1), math::Vector2(0, -1));
    case Transition::T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM:
        return slide(context, from, to, math::Vector2(0, -1), math::Vector2(0, 1));
    case Transition::T_FLIP_HORIZONTAL:
        return flip(context, from, to, math::Vector3::AXIS_Y);
    case Transition::T_FLIP_VERTICAL:
        return flip(context, from, to, math::Vector3::AXIS_X);
    case Transition::T_CROSS_FADE:
        return crossFade(context, from, to);
    case Transition::T_NONE:
        break;
    }
    logging::Logger::mROOT_LOGGER.error("Unknown transition type: %s (%d)", Transition::unparse(type),
                                        static_cast<int>(type));
}

} // namespace

const char *Transition::unparse(Type type) {
    switch (type) {
    case T_NONE:
        return "T_NONE";
    case T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT:
        return "T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT";
    case T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT:
        return "T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT";
    case T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP:
        return "T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP";
    case T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM:
        return "T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM";
    case T_FLIP_HORIZONTAL:
        return "T_FLIP_HORIZONTAL";
    case T_FLIP_VERTICAL:
        return "T_FLIP_VERTICAL";
    case T_CROSS_FADE:
        return "T_CROSS_FADE";
    }
    return "UNKNOWN";
}

AnimationContext *Transition::build(Type type, Component *from, Component *to, float duration,
                                    AnimationContext *context) {
    // 1.
    if (type == T_NONE)
        return context;
    // 2. to 5.
    const bool isOwn = context == nullptr;
    core::SmartPtr<AnimationContext> filled(isOwn ? UIManager::getSingleton().newAnimation() : context);
    fill(*filled, type, from, to);
    if (isOwn)
        filled->setDuration(duration);
    return filled.release();
}

} // namespace nurel::ui
