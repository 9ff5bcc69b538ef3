#include "nengine/scene/HandledObject.h"

#include "nengine/scene/Frame.h"
#include "nengine/scene/ObjectHandler.h"
#include "nengine/scene/handlers/BlinkHandler.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using scene::Frame;
using scene::ObjectHandler;

class Counter : public ObjectHandler {
public:
    void handle(float time) override {
        ++calls;
        lastTime = time;
        if (leaves)
            getTarget()->removeHandler(this);
    }
    int calls = 0;
    float lastTime = 0;
    bool leaves = false;
};

TEST(HandledObject, HoldsItsHandlersAndFindsThemByType) {
    const core::SmartPtr<Frame> frame(new Frame());
    EXPECT_EQ(frame->getHandler(ObjectHandler::TYPE), nullptr);
    const core::SmartPtr<Counter> counter(new Counter());
    auto *blink = new scene::handlers::BlinkHandler();
    frame->addHandler(counter.get());
    frame->addHandler(blink);
    frame->addHandler(nullptr);
    frame->addHandler(counter.get());
    EXPECT_EQ(frame->getHandlerCount(), 2u);
    EXPECT_EQ(counter->getRefCount(), 2u);
    EXPECT_EQ(frame->getHandler(ObjectHandler::TYPE), counter.get());
    EXPECT_EQ(frame->getHandler(scene::handlers::BlinkHandler::TYPE), blink);
    EXPECT_TRUE(counter->isHandling(frame.get()));
    EXPECT_FALSE(counter->isHandling(nullptr));
}

TEST(HandledObject, RunsItsHandlersInEachUpdate) {
    const core::SmartPtr<Frame> frame(new Frame());
    const core::SmartPtr<Counter> counter(new Counter());
    frame->addHandler(counter.get());
    frame->update(1.5f, true);
    frame->update(2.5f, false);
    EXPECT_EQ(counter->calls, 2);
    EXPECT_EQ(counter->lastTime, 2.5f);
}

TEST(HandledObject, AHandlerMayLeaveFromInside) {
    const core::SmartPtr<Frame> frame(new Frame());
    const core::SmartPtr<Counter> leaver(new Counter());
    const core::SmartPtr<Counter> stayer(new Counter());
    leaver->leaves = true;
    frame->addHandler(leaver.get());
    frame->addHandler(stayer.get());
    frame->update(0, true);
    frame->update(0, true);
    EXPECT_EQ(leaver->calls, 1);
    EXPECT_EQ(leaver->getTarget(), nullptr);
    EXPECT_GE(stayer->calls, 1);
}

TEST(HandledObject, AHandlerHasOneTarget) {
    const core::SmartPtr<Frame> first(new Frame());
    const core::SmartPtr<Frame> second(new Frame());
    const core::SmartPtr<Counter> counter(new Counter());
    first->addHandler(counter.get());
    second->addHandler(counter.get());
    EXPECT_EQ(first->getHandlerCount(), 0u);
    EXPECT_TRUE(counter->isHandling(second.get()));

    counter->reassign(first.get(), nullptr);
    EXPECT_TRUE(counter->isHandling(second.get())) << "it does not handle the first";
    counter->reassign(second.get(), first.get());
    EXPECT_TRUE(counter->isHandling(first.get()));
    EXPECT_EQ(second->getHandlerCount(), 0u);
    counter->reassign(first.get(), nullptr);
    EXPECT_EQ(counter->getTarget(), nullptr);
    EXPECT_EQ(first->getHandlerCount(), 0u);
}

TEST(HandledObject, AHandlerThatForgotItsTargetIsNotRun) {
    const core::SmartPtr<Frame> frame(new Frame());
    const core::SmartPtr<Counter> counter(new Counter());
    frame->addHandler(counter.get());
    counter->removeTarget(frame.get());
    frame->update(0, true);
    EXPECT_EQ(counter->calls, 0);
    frame->addHandler(counter.get());
    EXPECT_EQ(frame->getHandlerCount(), 1u);
    frame->update(0, true);
    EXPECT_EQ(counter->calls, 1);
}

TEST(HandledObject, AHandlerOutlivesItsTarget) {
    const core::SmartPtr<Counter> counter(new Counter());
    {
        const core::SmartPtr<Frame> frame(new Frame());
        frame->addHandler(counter.get());
    }
    EXPECT_EQ(counter->getTarget(), nullptr);
    EXPECT_EQ(counter->getRefCount(), 1u);
}

TEST(HandledObject, CarriesExtraDataAndGivesItToItsClone) {
    const core::SmartPtr<Frame> frame(new Frame());
    EXPECT_EQ(frame->getExtraData(), nullptr);
    const core::SmartPtr<Frame> data(new Frame("data"));
    frame->setExtraData(data.get());
    EXPECT_EQ(frame->getExtraData(), data.get());
    const core::SmartPtr<Frame> copy(static_cast<Frame *>(frame->core::Object::clone()));
    EXPECT_EQ(copy->getExtraData(), data.get());
    EXPECT_EQ(data->getRefCount(), 3u);
}

} // namespace
} // namespace nurel
