#pragma once

#include "nengine/scene/handlers/TimeBasedHandler.h"

namespace nurel::scene::handlers {

/// Shows its frame in the first half of each range and hides it in the second. While it is disabled it leaves the
/// hidden flag alone. Attached to anything but a frame it does nothing.
class BlinkHandler : public TimeBasedHandler {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// Seconds from one appearance to the next.
    static constexpr float DEFAULT_DURATION = 1.0f;

    explicit BlinkHandler(float duration = DEFAULT_DURATION);

    bool isEnabled() const { return mEnabled; }

    /// Switching it on starts with the shown half.
    void setEnabled(bool enabled);

    using ObjectHandler::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    void handle(float time) override;

protected:
    void handleRange(float position) override;

private:
    bool mEnabled = true;
};

} // namespace nurel::scene::handlers
