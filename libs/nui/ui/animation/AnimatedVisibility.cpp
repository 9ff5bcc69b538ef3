#include "nui/ui/animation/AnimatedVisibility.h"

#include "nui/ui/Component.h"

namespace nurel::ui::animation {

constinit const core::Type AnimatedVisibility::TYPE("AnimatedVisibility", &Animation::TYPE);

AnimatedVisibility::AnimatedVisibility(Component *target) : Animation(target) {
    if (target)
        mVisibility = target->isVisible();
}

void AnimatedVisibility::update(const TimeInfo &time) {
    Component *component = getTarget();
    if (component && time.progress >= 1)
        component->setVisible(mVisibility);
}

} // namespace nurel::ui::animation
