#include "nengine/scene/handlers/BlinkHandler.h"

#include "nengine/scene/Frame.h"
#include "nengine/scene/properties/AlphaProperty.h"

#include <gtest/gtest.h>

#include <string>

namespace nurel {
namespace {

using scene::Frame;
using scene::handlers::BlinkHandler;

class Blinking : public testing::Test {
public:
    Blinking() : frame(new Frame()), blink(new BlinkHandler(1.0f)) { frame->addHandler(blink.get()); }

    /// One letter a step: s shown, h hidden.
    std::string run(float from, float step, int count) {
        std::string seen;
        for (int i = 0; i < count; ++i) {
            frame->update(from + step * static_cast<float>(i), true);
            seen += frame->isHidden() ? 'h' : 's';
        }
        return seen;
    }

    core::SmartPtr<Frame> frame;
    core::SmartPtr<BlinkHandler> blink;
};

TEST_F(Blinking, ShowsTheFirstHalfOfARangeAndHidesTheSecond) {
    EXPECT_EQ(run(10.0f, 0.25f, 10), "sshhsshhss");
}

TEST_F(Blinking, DisabledLeavesTheHiddenFlagAlone) {
    blink->setEnabled(false);
    EXPECT_EQ(run(0, 0.25f, 4), "ssss");
    frame->setHidden(true);
    EXPECT_EQ(run(1, 0.25f, 4), "hhhh");
}

TEST_F(Blinking, StartsShownWhenItIsEnabled) {
    EXPECT_EQ(run(0, 0.25f, 3), "ssh");
    blink->setEnabled(false);
    blink->setEnabled(true);
    EXPECT_EQ(run(0.75f, 0.25f, 4), "sshh");
    blink->setEnabled(true);
    EXPECT_EQ(run(1.75f, 0.25f, 4), "sshh") << "enabling an enabled one starts nothing anew";
}

TEST_F(Blinking, ResettingTheRangeStartsItAnew) {
    EXPECT_EQ(run(0, 0.25f, 3), "ssh");
    blink->resetTimeRange();
    EXPECT_EQ(run(0.75f, 0.25f, 4), "sshh");
}

TEST_F(Blinking, AClockThatGoesBackStartsItAnew) {
    EXPECT_EQ(run(100, 0.25f, 3), "ssh");
    EXPECT_EQ(run(0, 0.25f, 4), "sshh");
}

TEST_F(Blinking, AnImpossibleDurationIsCut) {
    blink->setDuration(-1);
    EXPECT_GT(blink->getDuration(), 0);
    frame->update(0, true);
    frame->update(1, true);
}

TEST(BlinkHandler, DoesNothingToWhatIsNoFrame) {
    class Exposed : public scene::properties::AlphaProperty {
    public:
        void run(float time) { runHandlers(time); }
    };
    const core::SmartPtr<Exposed> property(new Exposed());
    property->addHandler(new BlinkHandler());
    property->run(0.75f);
}

TEST(BlinkHandler, ACloneHasItsSettingsAndNoTarget) {
    const core::SmartPtr<Frame> frame(new Frame());
    const core::SmartPtr<BlinkHandler> blink(new BlinkHandler(3));
    blink->setEnabled(false);
    frame->addHandler(blink.get());
    const core::SmartPtr<BlinkHandler> copy(static_cast<BlinkHandler *>(blink->core::Object::clone()));
    EXPECT_EQ(copy->getDuration(), 3);
    EXPECT_FALSE(copy->isEnabled());
    EXPECT_EQ(copy->getTarget(), nullptr);
}

} // namespace
} // namespace nurel
