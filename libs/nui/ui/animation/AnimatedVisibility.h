#pragma once

#include "nui/ui/Animation.h"

namespace nurel::ui::animation {

/// Shows or hides a component when the progress is 1: at the end of a run, or at the start of a reversed one, and never
/// in between. Set to nothing, it keeps what the component was when the animation was made.
class AnimatedVisibility : public Animation {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    explicit AnimatedVisibility(Component *target);

    void setVisibility(bool visible) { mVisibility = visible; }
    bool getVisibility() const { return mVisibility; }

    void update(const TimeInfo &time) override;

private:
    bool mVisibility = true;
};

} // namespace nurel::ui::animation
