#include "nui/ui/ComponentHandler.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

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

} // namespace test
