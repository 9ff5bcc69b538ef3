#include "nui/ui/ComponentHandler.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nui/ui/UIEvent.h"

#include <vector>

namespace test {

namespace {

class ComponentHandlerTest : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        parent = new Box("parent");
        child = new Leaf("child");
        parent->addChild(child.get());
    }

    void TearDown() override {
        child = nullptr;
        parent = nullptr;
        EngineFixture::TearDown();
    }

    core::SmartPtr<Box> parent;
    core::SmartPtr<Leaf> child;
};

} // namespace

TEST_F(ComponentHandlerTest, StandsBetweenItsTargetAndTheTargetsParent) {
    PlainHandler handler("handler", child.get());
    EXPECT_STREQ(handler.getName(), "handler");
    EXPECT_EQ(handler.getTarget(), child.get());
    EXPECT_EQ(static_cast<const PlainHandler &>(handler).getTarget(), child.get());
    EXPECT_EQ(child->getHandler(), &handler);
    EXPECT_EQ(child->nextHandler(), &handler);
    EXPECT_EQ(handler.nextHandler(), parent.get());
}

TEST_F(ComponentHandlerTest, HoldsItsTarget) {
    PlainHandler handler("handler", child.get());
    EXPECT_EQ(child->getRefCount(), 3U);
    handler.setTarget(nullptr);
    EXPECT_EQ(child->getRefCount(), 2U);
}

TEST_F(ComponentHandlerTest, WithoutATargetThereIsNoNextHandler) {
    PlainHandler handler("handler", nullptr);
    EXPECT_EQ(handler.getTarget(), nullptr);
    EXPECT_EQ(handler.nextHandler(), nullptr);
}

TEST_F(ComponentHandlerTest, ANullTargetDetaches) {
    PlainHandler handler("handler", child.get());
    handler.setTarget(nullptr);
    EXPECT_EQ(child->getHandler(), nullptr);
    EXPECT_EQ(child->nextHandler(), parent.get());
}

TEST_F(ComponentHandlerTest, MovesToAnotherTarget) {
    PlainHandler handler("handler", child.get());
    handler.setTarget(parent.get());
    EXPECT_EQ(child->getHandler(), nullptr);
    EXPECT_EQ(parent->getHandler(), &handler);
    handler.setTarget(parent.get());
    EXPECT_EQ(parent->getHandler(), &handler);
}

TEST_F(ComponentHandlerTest, TakesThePlaceOfAnotherHandlerWhichStillBelievesInItsTarget) {
    PlainHandler first("first", child.get());
    PlainHandler second("second", child.get());
    EXPECT_EQ(child->getHandler(), &second);
    EXPECT_EQ(first.getTarget(), child.get());
    first.setTarget(nullptr);
    EXPECT_EQ(child->getHandler(), nullptr); // also though the second had the place
    EXPECT_EQ(second.getTarget(), child.get());
}

TEST_F(ComponentHandlerTest, LeavesItsTargetWhenItGoes) {
    core::SmartPtr<PlainHandler> handler(new PlainHandler("handler", child.get()));
    handler = nullptr;
    EXPECT_EQ(child->getHandler(), nullptr);
    handler = new PlainHandler("handler", new Leaf("alone"));
    handler = nullptr; // and its target with it
}

TEST_F(ComponentHandlerTest, IsSeenAsAHandlerAndNotAsAComponent) {
    PlainHandler handler("handler", nullptr);
    EXPECT_TRUE(handler.instanceOf(UIEventHandler::TYPE));
    EXPECT_FALSE(handler.instanceOf(Component::TYPE));
    EXPECT_EQ(handler.getEventMask(), 0x20bU);
}

namespace {

/// Notes the events that reach it, and passes them on.
class NotingHandler : public PlainHandler {
public:
    using PlainHandler::PlainHandler;

    UIEventHandler *handleEvent(const UIEvent &event) override {
        events.push_back(event.getType());
        return PlainHandler::handleEvent(event);
    }

    std::vector<int> events;
};

} // namespace

TEST_F(ComponentHandlerTest, GetsWhatItsTargetsMaskDoesNotAdmit) {
    NotingHandler handler("handler", child.get());
    int taken = 0;
    child->WheelCallbacks::subscribeCallback([&](UIEventHandler *, const WheelEvent &) {
        ++taken;
        return false;
    });
    parent->enableEvents(UIEvent::ET_WHEEL_EVENT);
    child->disableEvents(UIEvent::ET_WHEEL_EVENT);
    const WheelEvent wheel(Ray(), CursorPosition(), 1);
    EXPECT_EQ(child->handleEvent(wheel), parent.get());
    EXPECT_EQ(handler.events, std::vector<int>{UIEvent::ET_WHEEL_EVENT});
    EXPECT_EQ(taken, 0);
    child->enableEvents(UIEvent::ET_WHEEL_EVENT);
    EXPECT_EQ(child->handleEvent(wheel), child.get());
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(handler.events.size(), 1U); // what the target takes ends there
}

TEST_F(ComponentHandlerTest, GetsWhatComesForADisabledTarget) {
    NotingHandler handler("handler", child.get());
    const MouseEvent press(Ray(), CursorPosition(), MouseEvent::MOUSE_PRESS, 0, 1);
    EXPECT_EQ(child->handleEvent(press), child.get());
    EXPECT_TRUE(handler.events.empty());
    child->setEnabled(false);
    EXPECT_EQ(child->handleEvent(press), parent.get());
    EXPECT_EQ(handler.events, std::vector<int>{UIEvent::ET_MOUSE_EVENT});
}

} // namespace test
