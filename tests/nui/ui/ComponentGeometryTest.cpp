#include "nui/ui/Component.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nmain/math/Matrix4.h"
#include "nui/ui/Animation.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/UIManager.h"

#include <functional>
#include <ostream>

namespace test {

namespace {

/// A root of 300 x 200 around (400, 300) with one child.
class ComponentGeometry : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        root = new Box("root");
        child = new Leaf("child");
        root->setSize(Vector2(300, 200));
        root->addChild(child.get());
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

    void clean() {
        update();
        root->clean();
        child->clean();
    }

    core::SmartPtr<Box> root;
    core::SmartPtr<Leaf> child;
};

struct AnchorCase {
    const char *name;
    Component::Anchor anchor;
    float x;
    float y;
};

std::ostream &operator<<(std::ostream &out, const AnchorCase &tested) {
    return out << tested.name;
}

class ComponentAnchor : public ComponentGeometry, public testing::WithParamInterface<AnchorCase> {};

struct SetterCase {
    const char *name;
    std::function<void(Component &)> set;
    bool compares; ///< the second call with the same value raises nothing
};

std::ostream &operator<<(std::ostream &out, const SetterCase &tested) {
    return out << tested.name;
}

class ComponentSetter : public ComponentGeometry, public testing::WithParamInterface<SetterCase> {};

} // namespace

TEST_F(ComponentGeometry, ANewComponentHasItsDefaults) {
    const Leaf leaf("leaf");
    EXPECT_EQ(Component::DEFAULT_SIZE, Vector2(100, 64));
    EXPECT_EQ(leaf.getComponentSize().absolute, Vector2(100, 64));
    EXPECT_EQ(leaf.getComponentSize().relative, Vector2(0, 0));
    EXPECT_EQ(leaf.getMinimumSize(), Vector2(0, 0));
    EXPECT_EQ(leaf.getMaximumSize(), Vector2(0, 0));
    EXPECT_EQ(leaf.getAutoSizeFlags(), 0U);
    EXPECT_EQ(leaf.getFixedAspectRatio(), 0);
    EXPECT_EQ(leaf.getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(leaf.getComponentPosition().relative, Vector2(0, 0));
    EXPECT_EQ(leaf.getDepth(), 0);
    EXPECT_EQ(leaf.getAnchor(), 0x12U);
    EXPECT_EQ(leaf.getBox(), BoxModel());
    EXPECT_EQ(leaf.getRotation(), Matrix3::IDENTITY);
    EXPECT_EQ(leaf.getScale(), Vector2(1, 1));
    EXPECT_EQ(leaf.getWorldScale(), Vector2(1, 1));
    EXPECT_EQ(leaf.getHierrarchyDepth(), 0U);
    EXPECT_EQ(leaf.getZIndex(), 0);
    EXPECT_EQ(leaf.dirty(), 0x7fU);
}

TEST_F(ComponentGeometry, NothingIsComputedBeforeTheFirstUpdate) {
    Leaf leaf("leaf");
    leaf.setSize(Vector2(10, 10));
    leaf.setPosition(Vector3(5, 5, 0));
    EXPECT_EQ(leaf.getSize(), Vector2(0, 0));
    EXPECT_EQ(leaf.getPosition(), Vector3(0, 0, 0));
    EXPECT_EQ(leaf.getWorldPosition(), Vector3(0, 0, 0));
}

TEST_F(ComponentGeometry, ARootIsPlacedAroundTheCentreOfTheScreen) {
    EXPECT_EQ(root->getParentSize(), Vector2(800, 600));
    EXPECT_EQ(root->getPosition(), Vector3(0, 0, 0));
    EXPECT_EQ(root->getParentRelativePosition(), Vector3(400, 300, 0));
    EXPECT_EQ(root->getWorldPosition(), Vector3(400, 300, 0));
    EXPECT_EQ(root->getMinBound(), Vector2(250, 200));
    EXPECT_EQ(root->getMaxBound(), Vector2(550, 400));
    EXPECT_EQ(root->getContainerSize(), Vector2(300, 200));
}

TEST_P(ComponentAnchor, PlacesTheCentre) {
    child->setSize(Vector2(100, 40));
    child->setAnchor(GetParam().anchor);
    update();
    EXPECT_EQ(child->getPosition(), Vector3(GetParam().x, GetParam().y, 0));
}

INSTANTIATE_TEST_SUITE_P(Component, ComponentAnchor,
                         testing::Values(AnchorCase{"TopLeft", 0x09, -100, -80}, AnchorCase{"TopCenter", 0x11, 0, -80},
                                         AnchorCase{"TopRight", 0x21, 100, -80},
                                         AnchorCase{"CenterLeft", 0x0a, -100, 0}, AnchorCase{"Center", 0x12, 0, 0},
                                         AnchorCase{"CenterRight", 0x22, 100, 0},
                                         AnchorCase{"BottomLeft", 0x0c, -100, 80},
                                         AnchorCase{"BottomCenter", 0x14, 0, 80},
                                         AnchorCase{"BottomRight", 0x24, 100, 80}, AnchorCase{"Left", 0x08, -100, 0},
                                         AnchorCase{"Bottom", 0x04, 0, 80}, AnchorCase{"None", 0, 0, 0}),
                         [](const auto &tested) { return tested.param.name; });

TEST_F(ComponentGeometry, BothSideAnchorsAddTheLeftMargin) {
    child->setMargin(Vector4(3, 20, 9, 8)); // top, right, bottom, left
    child->setAnchor(0x08);
    EXPECT_EQ(child->calculatePosition(), Vector3(8, 0, 0));
    child->setAnchor(0x20);
    EXPECT_EQ(child->calculatePosition(), Vector3(8, 0, 0));
    child->setAnchor(0x10);
    EXPECT_EQ(child->calculatePosition(), Vector3(-6, 0, 0));
    child->setAnchor(0x01);
    EXPECT_EQ(child->calculatePosition(), Vector3(0, 3, 0));
    child->setAnchor(0x04);
    EXPECT_EQ(child->calculatePosition(), Vector3(0, 3, 0));
    child->setAnchor(0x02);
    EXPECT_EQ(child->calculatePosition(), Vector3(0, -3, 0));
    child->setAnchor(0x1b); // two choices in an axis are none
    EXPECT_EQ(child->calculatePosition(), Vector3(0, 0, 0));
}

TEST_F(ComponentGeometry, TheParentsFrameMovesItsInside) {
    root->setPadding(Vector4(10, 2, 4, 6));
    root->setBorder(Vector4(1, 1, 1, 3));
    child->setAnchor(0x12);
    EXPECT_EQ(child->calculatePosition(), Vector3(3, 3, 0)); // ((6+3)-(2+1))/2 and ((10+1)-(4+1))/2
    child->setAnchor(0);
    EXPECT_EQ(child->calculatePosition(), Vector3(0, 0, 0));
    update();
    EXPECT_EQ(root->getContainerSize(), Vector2(288, 184));
}

TEST_F(ComponentGeometry, EdgeAnchorsAddTheMarginAndTheParentsInset) {
    root->setPadding(Vector4(10, 2, 4, 6));
    root->setBorder(Vector4(5, 1, 1, 3));
    child->setSize(Vector2(100, 40));
    child->setMargin(Vector4(3, 20, 9, 8));
    child->setAnchor(Component::ANCHOR_TOP_LEFT);
    EXPECT_EQ(child->calculatePosition(), Vector3(11, 8, 0)); // 8 + 3 and 3 + 5
    update();
    ASSERT_EQ(root->getContainerSize(), Vector2(288, 180));
    ASSERT_EQ(child->getSize(), Vector2(72, 28));
    EXPECT_EQ(child->getPosition(), Vector3(-97, -68, 0));
    child->setAnchor(Component::ANCHOR_BOTTOM_RIGHT);
    EXPECT_EQ(child->calculatePosition(), Vector3(11, 8, 0));
    update();
    EXPECT_EQ(child->getPosition(), Vector3(119, 84, 0));
    child->setAnchor(Component::ANCHOR_CENTER);
    EXPECT_EQ(child->calculatePosition(), Vector3(-3, 2, 0));
}

TEST_F(ComponentGeometry, PositionsAreWholePixelsAndKeepTheirDepth) {
    child->setPosition(Vector2(-1.5f, 2.75f), Vector2(0.1f, 0));
    child->setDepth(7.5f);
    update();
    EXPECT_EQ(child->calculatePosition(), Vector3(28, 2, 7.5f)); // floor(-1.5 + 30)
    child->setPosition(Vector2(-1.5f, -2.25f), Vector2(0, 0));
    EXPECT_EQ(child->calculatePosition(), Vector3(-2, -3, 7.5f));
}

TEST_F(ComponentGeometry, SettingAPositionLeavesTheDepthAlone) {
    child->setDepth(5);
    child->setPosition(Vector2(1, 1), Vector2(0.5f, 0.5f));
    child->setPosition(Vector3(10, 20, 30));
    EXPECT_EQ(child->getDepth(), 5);
    EXPECT_EQ(child->getComponentPosition().absolute, Vector2(10, 20));
    EXPECT_EQ(child->getComponentPosition().relative, Vector2(0, 0));
}

TEST_F(ComponentGeometry, DepthAddsUpAlongTheTree) {
    root->setDepth(100);
    child->setDepth(7);
    update();
    EXPECT_EQ(child->getPosition().z, 7);
    EXPECT_EQ(child->getWorldPosition().z, 107);
}

TEST_F(ComponentGeometry, TheParentsScrollOffsetMovesAChild) {
    root->setScrollOffset(Vector2(20, -30));
    update();
    EXPECT_EQ(child->getPosition(), Vector3(0, 0, 0));
    EXPECT_EQ(child->getParentRelativePosition(), Vector3(20, -30, 0));
    EXPECT_EQ(child->getWorldPosition(), Vector3(420, 270, 0));
}

TEST_F(ComponentGeometry, ARelativeSizeAddsAPartOfTheParent) {
    child->setSize(Vector2(10, 20), Vector2(0.5f, 1));
    update();
    EXPECT_EQ(child->getSize(), Vector2(160, 220));
    EXPECT_EQ(child->getParentSize(), Vector2(300, 200));
}

TEST_F(ComponentGeometry, MarginsAreTakenOffTheSizeAndTheResultIsRounded) {
    child->setSize(Vector2(100.4f, 50.6f));
    child->setMargin(Vector4(1, 2, 3, 4));
    update();
    EXPECT_EQ(child->getNaturalSize(), Vector2(94, 47)); // floor(94.9), floor(47.1)
}

TEST_F(ComponentGeometry, NegativeSizesAreFlooredDownward) {
    child->setSize(Vector2(-10.75f, 0));
    update();
    EXPECT_EQ(child->getNaturalSize(), Vector2(-11, 0));
    EXPECT_EQ(child->getSize(), Vector2(-11, 0));
}

TEST_F(ComponentGeometry, TheHalfPixelIsRoundedBeforeTheScale) {
    child->setSize(Vector2(100, 40));
    child->setScale(Vector2(2, 2));
    update();
    EXPECT_EQ(child->getNaturalSize(), Vector2(100, 40));
    EXPECT_EQ(child->getSize(), Vector2(201, 81));
}

TEST_F(ComponentGeometry, ScalesMultiplyDownTheTree) {
    root->setScale(Vector2(2, 0.5f));
    child->setScale(Vector2(3, 4));
    update();
    EXPECT_EQ(root->getWorldScale(), Vector2(2, 0.5f));
    EXPECT_EQ(child->getWorldScale(), Vector2(6, 2));
}

TEST_F(ComponentGeometry, TheMinimumWinsOverTheMaximum) {
    child->setSize(Vector2(100, 100));
    child->setMaximumSize(Vector2(50, 0));
    child->setMinimumSize(Vector2(80, 120));
    update();
    EXPECT_EQ(child->getSize(), Vector2(80, 120));
}

TEST_F(ComponentGeometry, LimitsApplyToOneAxisEach) {
    child->setSize(Vector2(100, 100));
    child->setMaximumWidth(60);
    child->setMaximumHeight(70);
    update();
    EXPECT_EQ(child->getSize(), Vector2(60, 70));
    child->setMinimumWidth(65);
    child->setMinimumHeight(75);
    update();
    EXPECT_EQ(child->getSize(), Vector2(65, 75));
    EXPECT_EQ(child->getMaximumWidth(), 60);
    EXPECT_EQ(child->getMaximumHeight(), 70);
    EXPECT_EQ(child->getMinimumWidth(), 65);
    EXPECT_EQ(child->getMinimumHeight(), 75);
}

TEST_F(ComponentGeometry, TheAspectRatioOnlyTakesAway) {
    child->setSize(Vector2(200, 50));
    child->setFixedAspectRatio(2);
    update();
    EXPECT_EQ(child->getSize(), Vector2(100, 50));
    child->setSize(Vector2(80, 100));
    update();
    EXPECT_EQ(child->getSize(), Vector2(80, 40));
    child->setSize(Vector2(80, 0));
    update();
    EXPECT_EQ(child->getSize(), Vector2(80, 0));
}

namespace {

class Measured : public Leaf {
public:
    using Leaf::Leaf;
    Vector2 getAutoSize(const Vector2 &current) override {
        asked = current;
        return content;
    }
    Vector2 content = Vector2(33, 44);
    Vector2 asked = Vector2(0, 0);
};

} // namespace

TEST_F(ComponentGeometry, AutoSizeReplacesTheRelativePartInItsAxis) {
    const core::SmartPtr<Measured> measured(new Measured("measured"));
    root->addChild(measured.get());
    measured->setSize(Vector2(10, 20), Vector2(0.5f, 0.5f));
    measured->setAutoSize(Component::AUTO_SIZE_WIDTH, Vector2(5, 6));
    update();
    EXPECT_EQ(measured->asked, Vector2(160, 120));
    EXPECT_EQ(measured->getSize(), Vector2(38, 120));
    measured->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT, Vector2(5, 6));
    measured->setMaximumHeight(30);
    update();
    EXPECT_EQ(measured->getSize(), Vector2(38, 30));
}

TEST_F(ComponentGeometry, ASizeIsRelativeThenInRatioThenAutomaticThenLimitedThenWithoutItsMargins) {
    const core::SmartPtr<Measured> measured(new Measured("measured"));
    root->addChild(measured.get());
    measured->setSize(Vector2(10, 20), Vector2(0.5f, 0.5f)); // 160 x 120
    measured->setFixedAspectRatio(1);
    update();
    EXPECT_EQ(measured->getSize(), Vector2(120, 120));
    measured->setAutoSize(Component::AUTO_SIZE_WIDTH, Vector2(5, 6));
    update();
    EXPECT_EQ(measured->asked, Vector2(120, 120));
    EXPECT_EQ(measured->getSize(), Vector2(38, 120)); // no longer in the ratio
    measured->setMaximumSize(Vector2(30, 0));
    measured->setMinimumSize(Vector2(0, 150));
    update();
    EXPECT_EQ(measured->asked, Vector2(120, 120));
    EXPECT_EQ(measured->getSize(), Vector2(30, 150));
    measured->setMargin(Vector4(1, 2, 3, 4));
    update();
    EXPECT_EQ(measured->asked, Vector2(120, 120));
    EXPECT_EQ(measured->getSize(), Vector2(24, 146)); // beyond the minimum
}

TEST_F(ComponentGeometry, TheBaseGivesTheDeclaredSizeAsItsAutoSize) {
    EXPECT_EQ(child->getAutoSize(Vector2(12, 34)), Vector2(12, 34));
}

TEST_F(ComponentGeometry, AnAutoSizedParentGivesItsMaximumToRelativeChildren) {
    root->setAutoSize(Component::AUTO_SIZE_WIDTH);
    child->setSize(Vector2(30, 30), Vector2(0.5f, 0.5f));
    EXPECT_EQ(child->calculateParentSize(), Vector2(0, 200));
    root->setMaximumWidth(120);
    EXPECT_EQ(child->calculateParentSize(), Vector2(120, 200));
    root->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    root->setMaximumHeight(90);
    EXPECT_EQ(child->calculateParentSize(), Vector2(120, 90));
    child->setSize(Vector2(30, 30), Vector2(0, 0));
    EXPECT_EQ(child->calculateParentSize(), root->getContainerSize());
}

TEST_F(ComponentGeometry, AnAutoSizedParentWithoutAMaximumLeavesNothingOfARelativeWidth) {
    root->setAutoSize(Component::AUTO_SIZE_WIDTH);
    child->setSize(Vector2(30, 30), Vector2(0.5f, 0));
    update();
    EXPECT_EQ(child->getSize().x, 30);
}

TEST_F(ComponentGeometry, APixelCorrectionPutsOddSizesOnHalfPixels) {
    root->setSize(Vector2(101, 200));
    child->setSize(Vector2(100, 40));
    update();
    EXPECT_EQ(root->getWorldPosition(), Vector3(400.5f, 300, 0));
    EXPECT_EQ(root->getParentRelativePosition(), Vector3(400.5f, 300, 0));
    EXPECT_EQ(root->getPosition(), Vector3(0, 0, 0));
    EXPECT_EQ(root->getMinBound(), Vector2(349.5f, 200)); // without the correction
    EXPECT_EQ(root->getMaxBound(), Vector2(450.5f, 400));
    // 400.5 is no place for an even width; the sign has turned
    EXPECT_EQ(child->getWorldPosition(), Vector3(400, 300, 0));
    EXPECT_EQ(child->getParentRelativePosition(), Vector3(-0.5f, 0, 0));
}

TEST_F(ComponentGeometry, AnEvenWidthAtAWholePositionIsNotMoved) {
    root->setSize(Vector2(100, 200));
    update();
    EXPECT_EQ(root->getWorldPosition(), Vector3(400, 300, 0));
}

TEST_F(ComponentGeometry, BothAxesAreCorrectedWithOneTurnOfTheSign) {
    root->setSize(Vector2(101, 101));
    child->setSize(Vector2(100, 40));
    update();
    EXPECT_EQ(root->getWorldPosition(),
              Vector3(400.5f, 299.5f, 0)); // y takes the turned sign, and does not turn it back
    EXPECT_EQ(child->getWorldPosition(), Vector3(400, 300, 0));
    EXPECT_EQ(child->getParentRelativePosition(), Vector3(-0.5f, 0.5f, 0));
}

TEST_F(ComponentGeometry, OneCorrectedAxisTurnsTheSignForTheChildren) {
    root->setSize(Vector2(100, 101));
    child->setSize(Vector2(100, 40));
    update();
    EXPECT_EQ(root->getWorldPosition(), Vector3(400, 300.5f, 0));
    EXPECT_EQ(child->getWorldPosition(), Vector3(400, 300, 0));
}

TEST_F(ComponentGeometry, TheBoundsContainTheirEdges) {
    EXPECT_TRUE(root->hasCursor(Vector2(250, 200)));
    EXPECT_TRUE(root->hasCursor(Vector2(550, 400)));
    EXPECT_FALSE(root->hasCursor(Vector2(249.5f, 300)));
    EXPECT_FALSE(root->hasCursor(Vector2(400, 400.5f)));
}

TEST_F(ComponentGeometry, ANewParentSizeMarksTheContentOfWhatDependsOnIt) {
    child->setSize(Vector2(0, 0), Vector2(0.5f, 0.5f));
    clean();
    root->setSize(Vector2(310, 200));
    root->updatePosition();
    child->updatePosition();
    EXPECT_NE(child->isDirty(Component::DIRTY_CONTENT), 0U);
    EXPECT_EQ(child->isDirty(Component::DIRTY_POSITION), 0U);

    child->setSize(Vector2(10, 10), Vector2(0, 0));
    clean();
    root->setSize(Vector2(320, 200));
    root->updatePosition();
    child->updatePosition();
    EXPECT_EQ(child->isDirty(Component::DIRTY_CONTENT), 0U);
    EXPECT_EQ(child->getParentSize(), Vector2(320, 200));
}

TEST_F(ComponentGeometry, SetBoxSetsAllThree) {
    BoxModel box;
    box.margin = Vector4(1, 2, 3, 4);
    box.border = Vector4(5, 6, 7, 8);
    box.padding = Vector4(9, 10, 11, 12);
    child->setBox(box);
    EXPECT_EQ(child->getMargin(), box.margin);
    EXPECT_EQ(child->getBorder(), box.border);
    EXPECT_EQ(child->getPadding(), box.padding);
}

TEST_F(ComponentGeometry, WidthAndHeightKeepEachOther) {
    child->setSize(Vector2(10, 20), Vector2(0.25f, 0.5f));
    child->setWidth(30, 1);
    EXPECT_EQ(child->getComponentSize().absolute, Vector2(30, 20));
    EXPECT_EQ(child->getComponentSize().relative, Vector2(1, 0.5f));
    child->setHeight(40, 0);
    EXPECT_EQ(child->getComponentSize().absolute, Vector2(30, 40));
    EXPECT_EQ(child->getComponentSize().relative, Vector2(1, 0));
    child->setSize(Vector2(1, 2));
    EXPECT_EQ(child->getComponentSize().relative, Vector2(0, 0));
}

TEST_F(ComponentGeometry, ATransformGivesScaleRotationAndPlace) {
    child->setPosition(Vector2(0, 0), Vector2(0.5f, 0.25f));
    child->setDepth(9);
    Matrix4 transform = Matrix4::IDENTITY;
    transform.setScale(Vector3(2, 3, 1));
    transform.setTranslation(Vector3(11, 12, 13));
    child->setTransform(transform);
    EXPECT_EQ(child->getScale(), Vector2(2, 3));
    EXPECT_EQ(child->getRotation(), Matrix3::IDENTITY);
    EXPECT_EQ(child->getComponentPosition().absolute, Vector2(11, 12));
    EXPECT_EQ(child->getComponentPosition().relative, Vector2(0.5f, 0.25f));
    EXPECT_EQ(child->getDepth(), 9);
}

namespace {

void expectRotation(const Component &component, const Matrix3 &rotation) {
    for (unsigned int i = 0; i < 9; ++i)
        EXPECT_NEAR(component.getRotation()[i], rotation[i], 1e-5f) << i;
}

} // namespace

TEST_F(ComponentGeometry, ATransformTurnsTheComponentAtOnceOrWithTheOpenAnimation) {
    const Matrix3 eighth(0.75f, Vector3(0, 0, 1));
    child->setTransform(Matrix4(Vector3(2, 3, 1), eighth, Vector3(11, 12, 13)));
    expectRotation(*child, eighth);
    EXPECT_NEAR(child->getScale().x, 2, 1e-5f);
    EXPECT_NEAR(child->getScale().y, 3, 1e-5f);

    const Matrix3 back(-0.5f, Vector3(0, 0, 1));
    child->setPosition(Vector2(11, 12), Vector2(0.5f, 0.25f));
    const core::SmartPtr<AnimationContext> open(UIManager::getSingleton().beginAnimation());
    child->setTransform(Matrix4(Vector3(4, 5, 1), back, Vector3(21, 22, 23)));
    UIManager::getSingleton().cancelAnimation();
    expectRotation(*child, eighth);
    ASSERT_EQ(open->getAnimations().size(), 3U);
    Animation::TimeInfo end;
    end.progress = 1;
    for (const auto &animation : open->getAnimations())
        animation->update(end);
    expectRotation(*child, back);
    EXPECT_NEAR(child->getScale().x, 4, 1e-5f);
    EXPECT_NEAR(child->getScale().y, 5, 1e-5f);
    EXPECT_EQ(child->getComponentPosition().absolute, Vector2(21, 22));
    EXPECT_EQ(child->getComponentPosition().relative, Vector2(0.5f, 0.25f));
}

TEST_P(ComponentSetter, InvalidatesTheGeometryAndComparesAsItIsTold) {
    const core::SmartPtr<Box> panel(new Box("panel"));
    const core::SmartPtr<Leaf> inner(new Leaf("inner"));
    panel->addChild(inner.get());
    root->addChild(panel.get());
    update();
    root->clean();
    panel->clean();
    inner->clean();
    GetParam().set(*panel);
    EXPECT_EQ(panel->dirty(), 0x11U);
    EXPECT_EQ(root->dirty(), 0x26U);
    EXPECT_EQ(inner->dirty(), 0x11U);
    root->clean();
    panel->clean();
    GetParam().set(*panel);
    EXPECT_EQ(panel->dirty(), GetParam().compares ? 0U : 0x11U);
    EXPECT_EQ(root->dirty(), GetParam().compares ? 0U : 0x26U);
}

INSTANTIATE_TEST_SUITE_P(
    Component, ComponentSetter,
    testing::Values(SetterCase{"Position", [](Component &c) { c.setPosition(Vector2(1, 2), Vector2(0, 0)); }, true},
                    SetterCase{"PositionOfThree", [](Component &c) { c.setPosition(Vector3(1, 2, 3)); }, true},
                    SetterCase{"Depth", [](Component &c) { c.setDepth(0); }, false},
                    SetterCase{"Size", [](Component &c) { c.setSize(Vector2(1, 2)); }, true},
                    SetterCase{"Width", [](Component &c) { c.setWidth(1, 0); }, true},
                    SetterCase{"Height", [](Component &c) { c.setHeight(1, 0); }, true},
                    SetterCase{"PositionData",
                               [](Component &c) {
                                   c.setPositionData(Vector2(0, 0), Vector2(0, 0), Vector2(100, 64), Vector2(0, 0),
                                                     0x12);
                               },
                               false},
                    SetterCase{"MinimumSize", [](Component &c) { c.setMinimumSize(Vector2(0, 0)); }, false},
                    SetterCase{"MinimumWidth", [](Component &c) { c.setMinimumWidth(0); }, false},
                    SetterCase{"MinimumHeight", [](Component &c) { c.setMinimumHeight(0); }, false},
                    SetterCase{"MaximumSize", [](Component &c) { c.setMaximumSize(Vector2(0, 0)); }, false},
                    SetterCase{"MaximumWidth", [](Component &c) { c.setMaximumWidth(0); }, false},
                    SetterCase{"MaximumHeight", [](Component &c) { c.setMaximumHeight(0); }, false},
                    SetterCase{"FixedAspectRatio", [](Component &c) { c.setFixedAspectRatio(0); }, false},
                    SetterCase{"AutoSize", [](Component &c) { c.setAutoSize(1, Vector2(0, 0)); }, true},
                    SetterCase{"AutoSizeOffset", [](Component &c) { c.setAutoSize(0, Vector2(1, 0)); }, true},
                    SetterCase{"Anchor", [](Component &c) { c.setAnchor(9); }, true},
                    SetterCase{"Margin", [](Component &c) { c.setMargin(Vector4(1, 0, 0, 0)); }, true},
                    SetterCase{"Border", [](Component &c) { c.setBorder(Vector4(1, 0, 0, 0)); }, true},
                    SetterCase{"Padding", [](Component &c) { c.setPadding(Vector4(1, 0, 0, 0)); }, true},
                    SetterCase{"Rotation", [](Component &c) { c.setRotation(Matrix3::IDENTITY); }, false},
                    SetterCase{"Scale", [](Component &c) { c.setScale(Vector2(1, 1)); }, false},
                    SetterCase{"Transform", [](Component &c) { c.setTransform(Matrix4::IDENTITY); }, false}),
    [](const auto &tested) { return tested.param.name; });

TEST_F(ComponentGeometry, WhileAnAnimationIsOpenSettersOnlyRecord) {
    clean();
    AnimationContext *open = UIManager::getSingleton().beginAnimation();
    child->setPosition(Vector2(1, 2), Vector2(0, 0));
    child->setSize(Vector2(3, 4));
    child->setScale(Vector2(2, 2));
    child->setRotation(Matrix3(1, Vector3(0, 0, 1)));
    EXPECT_EQ(child->getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(child->getComponentSize().absolute, Vector2(100, 64));
    EXPECT_EQ(child->getScale(), Vector2(1, 1));
    EXPECT_EQ(child->getRotation(), Matrix3::IDENTITY);
    EXPECT_EQ(child->dirty(), 0U);
    EXPECT_EQ(open->getAnimations().size(), 4U);
    child->setPosition(Vector2(5, 6), Vector2(0, 0)); // the same animation gets another target
    Matrix4 transform = Matrix4::IDENTITY;
    child->setTransform(transform);
    child->setPositionData(Vector2(9, 9), Vector2(0, 0), Vector2(9, 9), Vector2(0, 0), 0x09);
    EXPECT_EQ(open->getAnimations().size(), 4U);
    EXPECT_EQ(child->getAnchor(), 0x12U); // dropped
    UIManager::getSingleton().cancelAnimation();
    EXPECT_EQ(child->dirty(), 0U);
}

TEST_F(ComponentGeometry, WhileAnAnimationIsOpenTheSizeInForceRecordsNothing) {
    AnimationContext *open = UIManager::getSingleton().beginAnimation();
    child->setSize(Vector2(100, 64));
    EXPECT_TRUE(open->getAnimations().empty());
    child->setPosition(Vector2(0, 0), Vector2(0, 0));
    EXPECT_EQ(open->getAnimations().size(), 1U);
    UIManager::getSingleton().cancelAnimation();
}

TEST_F(ComponentGeometry, DepthMarginsAndLimitsAreNeverAnimated) {
    AnimationContext *open = UIManager::getSingleton().beginAnimation();
    child->setDepth(3);
    child->setMargin(Vector4(1, 1, 1, 1));
    child->setMinimumSize(Vector2(1, 1));
    child->setAnchor(0x09);
    EXPECT_TRUE(open->getAnimations().empty());
    EXPECT_EQ(child->getDepth(), 3);
    EXPECT_EQ(child->getAnchor(), 9U);
    UIManager::getSingleton().cancelAnimation();
}

namespace {

class Asked : public Box {
public:
    using Box::Box;
    void ensureChildVisibility(Component *child, const Vector3 &minimum, const Vector3 &maximum) override {
        who = child;
        low = minimum;
        high = maximum;
        Box::ensureChildVisibility(child, minimum, maximum);
    }
    Component *who = nullptr;
    Vector3 low = Vector3(0, 0, 0);
    Vector3 high = Vector3(0, 0, 0);
};

} // namespace

TEST_F(ComponentGeometry, TheWishToBeSeenClimbsWithTheBoundsAroundTheCentre) {
    const core::SmartPtr<Asked> outer(new Asked("outer"));
    const core::SmartPtr<Asked> inner(new Asked("inner"));
    const core::SmartPtr<Leaf> leaf(new Leaf("leaf"));
    outer->addChild(inner.get());
    inner->addChild(leaf.get());
    leaf->setSize(Vector2(10, 20));
    inner->setSize(Vector2(30, 40));
    for (int i = 0; i < 3; ++i)
        outer->update();
    leaf->ensureVisibility();
    EXPECT_EQ(inner->who, leaf.get());
    EXPECT_EQ(inner->low, Vector3(-5, -10, 0));
    EXPECT_EQ(inner->high, Vector3(5, 10, 0));
    EXPECT_EQ(outer->who, inner.get());
    EXPECT_EQ(outer->high, Vector3(15, 20, 0));
}

} // namespace test
