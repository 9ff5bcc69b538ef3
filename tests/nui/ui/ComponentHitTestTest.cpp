#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "nui/ui/UIManager.h"
#include "support/EngineFixture.h"

#include "nui/ui/skins/DefaultSkin.h"

#include <limits>

namespace test {

namespace {

/// A root of 300 x 200 around (400, 300) with a child of 100 x 40 at its centre; rays come straight from the front.
class ComponentHitTest : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        root = new Box("root");
        child = new Leaf("child");
        root->setSize(Vector2(300, 200));
        child->setSize(Vector2(100, 40));
        root->addChild(child.get());
        root->visit(&skin());
        update();
    }

    void TearDown() override {
        child = nullptr;
        root = nullptr;
        EngineFixture::TearDown();
    }

    void update() {
        for (int i = 0; i < 3; ++i)
            root->update();
    }

    static Ray rayAt(float x, float y) { return Ray{Vector3(x, y, -1000), Vector4(0, 0, 1, 0)}; }

    const char *hitAt(float x, float y) {
        Component *hit = root->hitTest(rayAt(x, y), point);
        return hit ? hit->getName() : "";
    }

    Vector3 point = Vector3(0, 0, 0);
    core::SmartPtr<Box> root;
    core::SmartPtr<Leaf> child;
};

} // namespace

TEST_F(ComponentHitTest, GivesThePointRelativeToWhatWasHit) {
    EXPECT_EQ(child->hitTest(rayAt(410, 305), point), child.get());
    EXPECT_EQ(point, Vector3(10, 5, 0));
}

TEST_F(ComponentHitTest, TheLeftAndTopEdgesCountAndTheRightAndBottomOnesDoNot) {
    EXPECT_EQ(child->hitTest(rayAt(350, 300), point), child.get());
    EXPECT_EQ(child->hitTest(rayAt(349, 300), point), nullptr);
    EXPECT_EQ(child->hitTest(rayAt(449, 300), point), child.get());
    EXPECT_EQ(child->hitTest(rayAt(450, 300), point), nullptr);
    EXPECT_EQ(point, Vector3(50, 0, 0)); // written all the same
    EXPECT_EQ(child->hitTest(rayAt(400, 280), point), child.get());
    EXPECT_EQ(child->hitTest(rayAt(400, 320), point), nullptr);
}

TEST_F(ComponentHitTest, ARayAlongThePlaneOrFromBehindMisses) {
    point = Vector3(1, 2, 3);
    EXPECT_EQ(child->hitTest(Ray{Vector3(400, 300, -10), Vector4(1, 0, 0, 0)}, point), nullptr);
    EXPECT_EQ(child->hitTest(Ray{Vector3(400, 300, 10), Vector4(0, 0, -1, 0)}, point), nullptr);
    EXPECT_EQ(child->hitTest(Ray{Vector3(400, 300, 10), Vector4(0, 0, 1, 0)}, point), nullptr); // it lies behind
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(child->hitTest(Ray{Vector3(400, 300, -10), Vector4(0, 0, nan, 0)}, point), nullptr);
    EXPECT_EQ(point, Vector3(1, 2, 3));
}

TEST_F(ComponentHitTest, AComponentWithoutAnAreaIsHitNowhere) {
    child->setScale(Vector2(0, 0));
    child->update();
    EXPECT_EQ(child->hitTest(rayAt(400, 300), point), nullptr);
    EXPECT_EQ(child->hitTest(rayAt(20, 10), point), nullptr);
}

TEST_F(ComponentHitTest, ASlantedRayHitsWhereItMeetsThePlane) {
    EXPECT_EQ(child->hitTest(Ray{Vector3(400, 300, -100), Vector4(0.25f, 0.125f, 1, 0)}, point), child.get());
    EXPECT_EQ(point, Vector3(25, 12.5f, 0));
}

TEST_F(ComponentHitTest, WithoutAViewOrWhileNotEnabledThereIsNoHit) {
    child->setEnabled(false);
    EXPECT_EQ(child->hitTest(rayAt(400, 300), point), nullptr);
    child->setEnabled(true);
    child->setVisible(false);
    EXPECT_EQ(child->hitTest(rayAt(400, 300), point), nullptr);
    child->setVisible(true);
    EXPECT_EQ(child->hitTest(rayAt(400, 300), point), child.get());
    child->clearView();
    EXPECT_EQ(child->hitTest(rayAt(400, 300), point), nullptr);
}

TEST_F(ComponentHitTest, ARotatedComponentIsHitWhereItIsDrawn) {
    child->setRotation(Matrix3(3.14159265f / 2, Vector3(0, 0, 1)));
    update();
    EXPECT_EQ(child->hitTest(rayAt(400, 340), point), child.get()); // 100 high now
    EXPECT_EQ(child->hitTest(rayAt(440, 300), point), nullptr);     // and 40 wide
}

TEST_F(ComponentHitTest, AScaledComponentIsHitInItsNaturalSize) {
    child->setScale(Vector2(2, 2));
    update();
    EXPECT_EQ(child->hitTest(rayAt(490, 300), point), child.get());
    EXPECT_NEAR(point.x, 45, 0.5f);
    EXPECT_EQ(child->hitTest(rayAt(505, 300), point), nullptr);
}

TEST_F(ComponentHitTest, AContainerGivesTheChildAndItsPoint) {
    EXPECT_STREQ(hitAt(410, 305), "child");
    EXPECT_EQ(point, Vector3(10, 5, 0));
    EXPECT_STREQ(hitAt(300, 300), "root");
    EXPECT_EQ(point, Vector3(-100, 0, 0)); // the child's answer was written over
    EXPECT_STREQ(hitAt(200, 300), "");
}

TEST_F(ComponentHitTest, TheLastChildIsHitFirst) {
    const core::SmartPtr<Leaf> above(new Leaf("above"));
    above->setSize(Vector2(20, 20));
    root->addChild(above.get());
    update();
    EXPECT_STREQ(hitAt(400, 300), "above");
    EXPECT_STREQ(hitAt(420, 300), "child");
    child->setZIndex(1);
    update();
    EXPECT_STREQ(hitAt(400, 300), "child");
}

TEST_F(ComponentHitTest, AChildThatSticksOutIsNotHitOutsideItsParent) {
    child->setPosition(Vector3(150, 0, 0));
    update();
    EXPECT_STREQ(hitAt(540, 300), "child");
    EXPECT_STREQ(hitAt(560, 300), "");
    root->setClipChildren(false);
    update();
    EXPECT_STREQ(hitAt(560, 300), "");
}

TEST_F(ComponentHitTest, AChildThatIsNotHittableLetsTheCursorThrough) {
    const core::SmartPtr<Leaf> above(new Leaf("above"));
    above->setEventMask(0);
    root->addChild(above.get());
    update();
    EXPECT_STREQ(hitAt(400, 300), "child");
    child->disableEvents(Component::EVENT_MASK_HITTABLE);
    EXPECT_STREQ(hitAt(400, 300), "root");
    root->disableEvents(Component::EVENT_MASK_HITTABLE);
    EXPECT_STREQ(hitAt(400, 300), "");
}

TEST_F(ComponentHitTest, AContainerWithoutAViewIsNotHitAndNorIsWhatLiesInIt) {
    root->Component::clearView();
    EXPECT_TRUE(child->hasView());
    EXPECT_STREQ(hitAt(400, 300), "");
}

} // namespace test
