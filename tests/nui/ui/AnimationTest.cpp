#include "nui/ui/Animation.h"

#include "nui/ui/HermiteInterpolator.h"
#include "nui/ui/ManagerTest.h"

using namespace nurel::ui;
using nurel::math::Vector2;
using nurel::math::Vector3;

namespace {

using AnimationTest = test::ManagerTest;

class Probe : public Animation {
public:
    explicit Probe(Component *target) : Animation(target) {}
    void update(const TimeInfo &) override {}
    using Animation::interpolate;
};

class Line : public Interpolator {
protected:
    float _interpolate(float t, float a, float b) const override { return (b - a) * t + a; }
};

} // namespace

TEST_F(AnimationTest, HasAnEaseFromTheStart) {
    const core::SmartPtr<Probe> animation(new Probe(nullptr));
    const auto *curve = dynamic_cast<HermiteInterpolator *>(animation->getInterpolator());
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->getTangentOut(), 0);
    EXPECT_EQ(curve->getTangentIn(), 0);
}

TEST_F(AnimationTest, KeepsItsTargetAlive) {
    core::SmartPtr<Panel> panel(new Panel("p"));
    {
        const core::SmartPtr<Probe> animation(new Probe(panel.get()));
        EXPECT_EQ(animation->getTarget(), panel.get());
        EXPECT_EQ(panel->getRefCount(), 2u);
    }
    EXPECT_EQ(panel->getRefCount(), 1u);
}

TEST_F(AnimationTest, TakesTheSameTargetAndInterpolatorAgain) {
    const core::SmartPtr<Probe> animation(new Probe(new Panel("p")));
    animation->setTarget(animation->getTarget());
    EXPECT_STREQ(animation->getTarget()->getName(), "p");
    EXPECT_EQ(animation->getTarget()->getRefCount(), 1u);
    animation->setInterpolator(animation->getInterpolator());
    EXPECT_EQ(animation->getInterpolator()->getRefCount(), 1u);
    EXPECT_EQ(animation->interpolate(0.5f, 0, 1), 0.5f);
}

TEST_F(AnimationTest, ForwardsAllFormsToItsInterpolator) {
    const core::SmartPtr<Probe> animation(new Probe(nullptr));
    animation->setInterpolator(new Line);
    EXPECT_EQ(animation->interpolate(0.25f, 0, 4), 1);
    EXPECT_EQ(animation->interpolate(0.25f, Vector2(0, 4), Vector2(4, 8)), Vector2(1, 5));
    Vector2 two;
    animation->interpolate(0.25f, Vector2(0, 4), Vector2(4, 8), two);
    EXPECT_EQ(two, Vector2(1, 5));
    EXPECT_EQ(animation->interpolate(0.25f, Vector3(0, 4, 8), Vector3(4, 8, 12)), Vector3(1, 5, 9));
    Vector3 three;
    animation->interpolate(0.25f, Vector3(0, 4, 8), Vector3(4, 8, 12), three);
    EXPECT_EQ(three, Vector3(1, 5, 9));
}

TEST_F(AnimationTest, RunsStraightWithoutAnInterpolator) {
    const core::SmartPtr<Probe> animation(new Probe(nullptr));
    animation->setInterpolator(nullptr);
    EXPECT_EQ(animation->interpolate(0.25f, 0, 4), 1);
    EXPECT_EQ(animation->interpolate(0.25f, Vector2(0, 4), Vector2(4, 8)), Vector2(1, 5));
    EXPECT_EQ(animation->interpolate(0.25f, Vector3(0, 4, 8), Vector3(4, 8, 12)), Vector3(1, 5, 9));
}

TEST_F(AnimationTest, IsAnObjectOfItsOwnType) {
    EXPECT_STREQ(Animation::TYPE.getName(), "Animation");
    EXPECT_EQ(Animation::TYPE.getParent(), &nurel::core::Object::TYPE);
}
