// The animated properties have one shape, so one file tests them all.
#include "nui/ui/animation/AnimatedOpacity.h"
#include "nui/ui/animation/AnimatedPosition.h"
#include "nui/ui/animation/AnimatedRotation.h"
#include "nui/ui/animation/AnimatedScale.h"
#include "nui/ui/animation/AnimatedSize.h"
#include "nui/ui/animation/AnimatedVisibility.h"

#include "nui/ui/HermiteInterpolator.h"
#include "nui/ui/ManagerTest.h"

using namespace nurel::ui;
using namespace nurel::ui::animation;
using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector3;

namespace {

class AnimatedTest : public test::ManagerTest {
public:
    AnimatedTest() : mPanel(new Panel("p")) {}

    static Animation::TimeInfo at(float progress) {
        Animation::TimeInfo time;
        time.progress = progress;
        return time;
    }

    Vector2 absolute() const { return mPanel->getComponentPosition().absolute; }
    Vector2 relative() const { return mPanel->getComponentPosition().relative; }

    core::SmartPtr<Panel> mPanel;
};

class Line : public Interpolator {
protected:
    float _interpolate(float, float, float) const override { return 77; }
};

using AnimatedOpacityTest = AnimatedTest;
using AnimatedPositionTest = AnimatedTest;
using AnimatedSizeTest = AnimatedTest;
using AnimatedRotationTest = AnimatedTest;
using AnimatedScaleTest = AnimatedTest;
using AnimatedVisibilityTest = AnimatedTest;

void expectNear(const Matrix3 &actual, const Matrix3 &expected) {
    for (unsigned i = 0; i < 9; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-5f) << "element " << i;
}

} // namespace

TEST_F(AnimatedOpacityTest, FollowsTheCurveFromTheOpacityOfItsMaking) {
    mPanel->setOpacity(0, false);
    const core::SmartPtr<AnimatedOpacity> animation(new AnimatedOpacity(mPanel.get()));
    animation->setOpacity(1, false);
    mPanel->setOpacity(0.7f, false); // too late to count
    animation->update(at(0.25f));
    EXPECT_FLOAT_EQ(mPanel->getOpacity(), 0.15625f);
    animation->update(at(1));
    EXPECT_EQ(mPanel->getOpacity(), 1);
}

TEST_F(AnimatedOpacityTest, ChangesNothingWithoutATarget) {
    mPanel->setOpacity(0.5f, false);
    const core::SmartPtr<AnimatedOpacity> animation(new AnimatedOpacity(mPanel.get()));
    animation->update(at(0.5f));
    EXPECT_FLOAT_EQ(mPanel->getOpacity(), 0.5f);
    animation->update(at(1));
    EXPECT_EQ(mPanel->getOpacity(), 0.5f);
}

TEST_F(AnimatedOpacityTest, PassesTheFlagOnAndIsNotRecursiveUntilToldSo) {
    struct Probe : Panel {
        Probe() : Panel("probe") {}
        void applyOpacity(float value, bool recursive) override {
            mFlags.push_back(recursive);
            Panel::applyOpacity(value, recursive);
        }
        std::vector<bool> mFlags;
    };
    const core::SmartPtr<Probe> probe(new Probe);
    probe->setOpacity(0, false);
    probe->mFlags.clear();
    const core::SmartPtr<AnimatedOpacity> animation(new AnimatedOpacity(probe.get()));
    animation->setOpacity(1, true);
    animation->update(at(0.5f));
    animation->setOpacity(0.7f, false);
    animation->update(at(1));
    animation->update(at(1)); // a value that is there already is not applied again
    EXPECT_EQ(probe->mFlags, (std::vector<bool>{true, false}));
}

TEST_F(AnimatedPositionTest, RunsStraightInBothPartsWhateverTheInterpolator) {
    mPanel->setPosition(Vector2(10, 20), Vector2(0.5f, 0));
    const core::SmartPtr<AnimatedPosition> animation(new AnimatedPosition(mPanel.get()));
    animation->setInterpolator(new Line);
    animation->setPosition(Vector2(30, 0), Vector2(1, 1));
    animation->update(at(0.25f));
    EXPECT_EQ(absolute(), Vector2(15, 15));
    EXPECT_EQ(relative(), Vector2(0.625f, 0.25f));
    animation->update(at(1));
    EXPECT_EQ(absolute(), Vector2(30, 0));
    EXPECT_EQ(relative(), Vector2(1, 1));
}

TEST_F(AnimatedPositionTest, StaysWhereItIsWithoutATarget) {
    mPanel->setPosition(Vector2(10, 20), Vector2(0.5f, 0));
    const core::SmartPtr<AnimatedPosition> animation(new AnimatedPosition(mPanel.get()));
    animation->update(at(0.5f));
    EXPECT_EQ(absolute(), Vector2(10, 20));
    EXPECT_EQ(relative(), Vector2(0.5f, 0));
}

TEST_F(AnimatedPositionTest, SetSourcePositionSetsTheSourcesPixelsAndTheTargetsFactor) {
    mPanel->setPosition(Vector2(10, 20), Vector2(0.5f, 0.5f));
    const core::SmartPtr<AnimatedPosition> animation(new AnimatedPosition(mPanel.get()));
    animation->setSourcePosition(Vector2(0, 0), Vector2(1, 2));
    animation->update(at(0));
    EXPECT_EQ(absolute(), Vector2(0, 0));
    EXPECT_EQ(relative(), Vector2(0.5f, 0.5f)); // the source's factor is what it was
    animation->update(at(1));
    EXPECT_EQ(absolute(), Vector2(10, 20));
    EXPECT_EQ(relative(), Vector2(1, 2));
}

TEST_F(AnimatedPositionTest, SyncSourcePositionTakesThePositionOfNow) {
    const core::SmartPtr<AnimatedPosition> animation(new AnimatedPosition(mPanel.get()));
    animation->setPosition(Vector2(8, 8), Vector2(0, 0));
    mPanel->setPosition(Vector2(4, 0), Vector2(1, 0));
    animation->syncSourcePosition();
    animation->update(at(0.5f));
    EXPECT_EQ(absolute(), Vector2(6, 4));
    EXPECT_EQ(relative(), Vector2(0.5f, 0));
}

TEST_F(AnimatedSizeTest, RunsStraightInBothPartsWhateverTheInterpolator) {
    mPanel->setSize(Vector2(10, 20), Vector2(0.5f, 0));
    const core::SmartPtr<AnimatedSize> animation(new AnimatedSize(mPanel.get()));
    animation->setInterpolator(new Line);
    animation->setSize(Vector2(30, 0), Vector2(1, 1));
    animation->update(at(0.25f));
    EXPECT_EQ(mPanel->getComponentSize().absolute, Vector2(15, 15));
    EXPECT_EQ(mPanel->getComponentSize().relative, Vector2(0.625f, 0.25f));
    animation->update(at(1));
    EXPECT_EQ(mPanel->getComponentSize().absolute, Vector2(30, 0));
    EXPECT_EQ(mPanel->getComponentSize().relative, Vector2(1, 1));
}

TEST_F(AnimatedRotationTest, TurnsEvenlyToTheTarget) {
    const core::SmartPtr<AnimatedRotation> animation(new AnimatedRotation(mPanel.get()));
    animation->setRotation(Matrix3(1, Vector3::AXIS_Z));
    animation->update(at(0.25f));
    expectNear(mPanel->getRotation(), Matrix3(0.25f, Vector3::AXIS_Z));
    animation->update(at(1));
    expectNear(mPanel->getRotation(), Matrix3(1, Vector3::AXIS_Z));
}

TEST_F(AnimatedRotationTest, StartsFromTheRotationOfItsMaking) {
    mPanel->setRotation(Matrix3(0.5f, Vector3::AXIS_Y));
    const core::SmartPtr<AnimatedRotation> animation(new AnimatedRotation(mPanel.get()));
    animation->setRotation(Matrix3(1.5f, Vector3::AXIS_Y));
    animation->update(at(0.5f));
    expectNear(mPanel->getRotation(), Matrix3(1, Vector3::AXIS_Y));
}

TEST_F(AnimatedScaleTest, FollowsTheCurveOnEachAxis) {
    const core::SmartPtr<AnimatedScale> animation(new AnimatedScale(mPanel.get()));
    animation->setScale(Vector2(2, 5));
    animation->update(at(0.25f));
    EXPECT_FLOAT_EQ(mPanel->getScale().x, 1.15625f);
    EXPECT_FLOAT_EQ(mPanel->getScale().y, 1.625f);
    animation->update(at(1));
    EXPECT_EQ(mPanel->getScale(), Vector2(2, 5));
}

TEST_F(AnimatedScaleTest, AsksTheInterpolatorForYFirst) {
    class Noting : public Interpolator {
    public:
        mutable std::vector<float> mAsked;

    protected:
        float _interpolate(float, float, float b) const override {
            mAsked.push_back(b);
            return b;
        }
    };
    const core::SmartPtr<Noting> curve(new Noting);
    const core::SmartPtr<AnimatedScale> animation(new AnimatedScale(mPanel.get()));
    animation->setInterpolator(curve.get());
    animation->setScale(Vector2(2, 3));
    animation->update(at(0.5f));
    EXPECT_EQ(curve->mAsked, (std::vector<float>{3, 2}));
}

TEST_F(AnimatedVisibilityTest, ActsAtTheEndAlone) {
    const core::SmartPtr<AnimatedVisibility> animation(new AnimatedVisibility(mPanel.get()));
    animation->setVisibility(false);
    animation->update(at(0));
    animation->update(at(0.999f));
    EXPECT_TRUE(mPanel->isSelfVisible());
    animation->update(at(1));
    EXPECT_FALSE(mPanel->isSelfVisible());
}

TEST_F(AnimatedVisibilityTest, KeepsWhatTheComponentWasUntilItIsTold) {
    mPanel->setVisible(false);
    const core::SmartPtr<AnimatedVisibility> animation(new AnimatedVisibility(mPanel.get()));
    EXPECT_FALSE(animation->getVisibility());
    mPanel->setVisible(true);
    animation->update(at(1));
    EXPECT_FALSE(mPanel->isSelfVisible());
}

TEST_F(AnimatedTest, DoNothingWithoutAComponent) {
    const core::SmartPtr<Animation> animations[] = {
        new AnimatedOpacity(nullptr),  new AnimatedPosition(nullptr), new AnimatedSize(nullptr),
        new AnimatedRotation(nullptr), new AnimatedScale(nullptr),    new AnimatedVisibility(nullptr),
    };
    for (const auto &animation : animations) {
        animation->update(at(0.5f));
        animation->update(at(1));
        EXPECT_EQ(animation->getTarget(), nullptr);
    }
}

TEST_F(AnimatedTest, HaveTypesOfTheirOwn) {
    const core::SmartPtr<Animation> animations[] = {
        new AnimatedOpacity(nullptr),  new AnimatedPosition(nullptr), new AnimatedSize(nullptr),
        new AnimatedRotation(nullptr), new AnimatedScale(nullptr),    new AnimatedVisibility(nullptr),
    };
    const char *const names[] = {"AnimatedOpacity",  "AnimatedPosition", "AnimatedSize",
                                 "AnimatedRotation", "AnimatedScale",    "AnimatedVisibility"};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_STREQ(animations[i]->getType().getName(), names[i]);
        EXPECT_TRUE(animations[i]->instanceOf(Animation::TYPE));
    }
}
