#include "nui/ui/layouts/FlowLayout.h"

#include "nui/ui/ManagerTest.h"

#include "nmain/core/CloningOptions.h"
#include "nmain/json/JSObject.h"
#include "nui/ui/AnimationContext.h"

using namespace nurel::ui;
using layouts::FlowLayout;
using nurel::json::JSObject;
using nurel::math::Vector2;
using nurel::math::Vector4;

namespace {

class FlowLayoutTest : public test::ManagerTest {
public:
    FlowLayoutTest() : mPanel(new Panel("panel")), mLayout(new FlowLayout) {
        mPanel->setSize({100, 100});
        mPanel->setScrollMask(0);
        mPanel->setLayout(mLayout.get());
        mPanel->update();
    }

    Panel &add(const char *name, float width, float height) {
        Panel *child = new Panel(name);
        child->setSize({width, height});
        mPanel->addChild(child);
        return *child;
    }

    void parameters(const char *text) {
        const std::unique_ptr<JSObject> json(JSObject::parse(text));
        mLayout->setParameters(json.get());
    }

    /// Runs the layout, after the children have their sizes, and tells where it put them.
    std::string flow() {
        mPanel->update();
        mLayout->layout();
        return positions();
    }

    std::string positions() const {
        std::string text;
        for (const Component *component : mLayout->getComponents()) {
            const Vector2 &at = component->getComponentPosition().absolute;
            char line[64];
            std::snprintf(line, sizeof line, "%s(%g,%g) ", component->getName(), static_cast<double>(at.x),
                          static_cast<double>(at.y));
            text += line;
        }
        return text;
    }

    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<FlowLayout> mLayout;
};

void hide(Component &component) {
    component.setVisible(false);
}

} // namespace

TEST_F(FlowLayoutTest, HasItsDefaults) {
    EXPECT_EQ(mLayout->getFlowDirection(), FlowLayout::HORIZONTAL);
    EXPECT_EQ(mLayout->getSizeLimitPolicy(), FlowLayout::RELATIVE);
    EXPECT_EQ(mLayout->getSizeLimit(), 1);
    EXPECT_EQ(mLayout->getStartPosition(), Vector2(0, 0));
    EXPECT_EQ(mLayout->getSpacing(), Vector2(0, 0));
    EXPECT_EQ(mLayout->getAnchor(), 0x09u);
    EXPECT_STREQ(mLayout->getType().getName(), "FlowLayout");
}

TEST_F(FlowLayoutTest, SettersMarkNothingDirty) {
    add("a", 10, 10);
    mPanel->update();
    mPanel->update();
    ASSERT_EQ(mPanel->isDirty(Component::DIRTY_POSITION | Component::DIRTY_CONTENT), 0u);
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    mLayout->setSizeLimitPolicy(FlowLayout::ABSOLUTE);
    mLayout->setSizeLimit(5);
    mLayout->setStartPosition({1, 2});
    mLayout->setSpacing({3, 4});
    mLayout->setAnchor(0x12);
    EXPECT_EQ(mPanel->isDirty(Component::DIRTY_POSITION | Component::DIRTY_CONTENT), 0u);
}

TEST_F(FlowLayoutTest, DoesNothingForAnEmptyList) {
    mLayout->setAnchor(0x12);
    EXPECT_EQ(flow(), "");
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    EXPECT_EQ(flow(), "");
}

TEST_F(FlowLayoutTest, FillsRowsFromTheStartPosition) {
    mLayout->setStartPosition({5, 7});
    mLayout->setSpacing({2, 3});
    add("a", 40, 10);
    add("b", 40, 20);
    add("c", 40, 10);
    // 5+40+2=47, 47+40=87 <= 100; c would reach 129: a new row below the higher of the two
    EXPECT_EQ(flow(), "a(5,7) b(47,7) c(5,30) ");
}

TEST_F(FlowLayoutTest, DoesNotBreakBeforeAComponentThatJustFits) {
    add("a", 60, 10);
    add("b", 40, 10);
    EXPECT_EQ(flow(), "a(0,0) b(60,0) ");
}

TEST_F(FlowLayoutTest, BreaksBeforeEveryComponentAtALimitOf0) {
    for (const auto policy : {FlowLayout::RELATIVE, FlowLayout::ABSOLUTE}) {
        mLayout->clearComponents();
        mPanel->clearChildren();
        mLayout->setSizeLimit(0);
        mLayout->setSizeLimitPolicy(policy);
        mLayout->setSpacing({0, 3});
        add("a", 10, 10).setMargin(Vector4(0, 0, 2, 0));
        add("b", 10, 10);
        // Sizes are less their margins: a is 8 high.
        EXPECT_EQ(flow(), "a(0,5) b(0,16) ") << policy;
    }
}

TEST_F(FlowLayoutTest, PushesDownAFirstComponentThatIsTooWideByItsOwnMargin) {
    mLayout->setSpacing({0, 3});
    add("a", 250, 20).setMargin(Vector4(0, 0, 4, 0));
    add("b", 10, 10);
    EXPECT_EQ(flow(), "a(0,7) b(0,26) ");
}

TEST_F(FlowLayoutTest, TakesTheBottomMarginOfTheComponentThatBeginsTheRow) {
    add("a", 60, 10).setMargin(Vector4(0, 0, 50, 0)); // no height is left, and its margin plays no part at the break
    add("b", 60, 10).setMargin(Vector4(0, 0, 5, 0));
    mPanel->update();
    ASSERT_EQ(mPanel->getChildAt(0)->getSize().y, -40);
    EXPECT_EQ(flow(), "a(0,0) b(0,5) ");
}

TEST_F(FlowLayoutTest, StepsByTheRightMarginAlongARow) {
    add("a", 20, 10).setMargin(Vector4(1, 6, 2, 3));
    add("b", 10, 10);
    // a is 20 - 6 - 3 wide; its left margin plays no part
    EXPECT_EQ(flow(), "a(0,0) b(17,0) ");
}

TEST_F(FlowLayoutTest, MeasuresARelativeLimitInContainerSizes) {
    mPanel->setPadding(Vector4(0, 10, 0, 10));
    mLayout->setSizeLimit(0.5f); // 40 pixels
    add("a", 20, 10);
    add("b", 20, 10);
    add("c", 1, 10);
    EXPECT_EQ(flow(), "a(0,0) b(20,0) c(0,10) ");
}

TEST_F(FlowLayoutTest, TakesAnAbsoluteLimitAsPixels) {
    mLayout->setSizeLimitPolicy(FlowLayout::ABSOLUTE);
    mLayout->setSizeLimit(300);
    add("a", 90, 10);
    add("b", 90, 10);
    EXPECT_EQ(flow(), "a(0,0) b(90,0) ");
}

TEST_F(FlowLayoutTest, OverridesTheComponentsAnchorAndRelativePosition) {
    Panel &a = add("a", 10, 10);
    a.setAnchor(0x12);
    a.setPosition(Vector2(50, 50), Vector2(1, 1));
    flow();
    EXPECT_EQ(a.getAnchor(), 0x09u);
    EXPECT_EQ(a.getComponentPosition().relative, Vector2(0, 0));
}

TEST_F(FlowLayoutTest, LeavesAComponentAloneThatIsNotUnderIt) {
    Panel *free = new Panel("free");
    free->setPosition(Vector2(5, 6), Vector2(0.5f, 0.5f));
    mPanel->addChild(free, false);
    add("a", 10, 10);
    EXPECT_EQ(flow(), "a(0,0) ");
    EXPECT_EQ(free->getAnchor(), 0x12u);
    EXPECT_EQ(free->getComponentPosition().absolute, Vector2(5, 6));
    EXPECT_EQ(free->getComponentPosition().relative, Vector2(0.5f, 0.5f));
}

TEST_F(FlowLayoutTest, SkipsHiddenComponents) {
    add("a", 10, 10);
    Panel &b = add("b", 10, 50);
    add("c", 10, 10);
    flow();
    hide(b);
    b.setPosition(Vector2(77, 78), Vector2(0, 0));
    b.setAnchor(0x12);
    EXPECT_EQ(flow(), "a(0,0) b(77,78) c(10,0) ");
    EXPECT_EQ(b.getAnchor(), 0x12u);
}

TEST_F(FlowLayoutTest, AlignsARowInTheMiddle) {
    mLayout->setAnchor(0x0a);
    add("a", 30, 10);
    add("b", 30, 40);
    add("c", 30, 20);
    EXPECT_EQ(flow(), "a(0,15) b(30,0) c(60,10) ");
}

TEST_F(FlowLayoutTest, AlignsARowAtTheBottomWithMarginsInTheComponentsHeightOnly) {
    mLayout->setAnchor(0x0c);
    add("a", 30, 10).setMargin(Vector4(1, 0, 2, 0)); // 7 high, counts with 10
    add("b", 30, 40);
    EXPECT_EQ(flow(), "a(0,30) b(30,0) ");
}

TEST_F(FlowLayoutTest, AlignsEachRowByItself) {
    mLayout->setAnchor(0x0c);
    add("a", 50, 10);
    add("b", 50, 20);
    add("c", 50, 30);
    add("d", 50, 10);
    EXPECT_EQ(flow(), "a(0,10) b(50,0) c(0,20) d(50,40) ");
}

TEST_F(FlowLayoutTest, MovesHiddenComponentsWithTheirRow) {
    mLayout->setAnchor(0x0c);
    Panel &b = add("b", 10, 20);
    add("c", 10, 40);
    flow();
    hide(b);
    b.setPosition(Vector2(77, 3), Vector2(0.5f, 0));
    EXPECT_EQ(flow(), "b(77,20) c(0,0) ");
    EXPECT_EQ(b.getComponentPosition().relative, Vector2(0.5f, 0)); // the relative part is kept
}

TEST_F(FlowLayoutTest, KeepsTheOldRowsBottomForARowWithoutHeight) {
    mLayout->setAnchor(0x0c);
    add("a", 100, 30);
    add("b", 100, 0);
    // b's row begins at 30, and its bottom is still that of the first row
    EXPECT_EQ(flow(), "a(0,0) b(0,30) ");
    mLayout->setSpacing({0, 8});
    EXPECT_EQ(flow(), "a(0,0) b(0,30) ");
}

TEST_F(FlowLayoutTest, AlignsNothingByTheBitsOfTheOtherAxis) {
    add("a", 10, 10);
    add("b", 10, 40);
    for (const Component::Anchor anchor : {0x08u, 0x10u, 0x20u, 0x21u}) {
        mLayout->setAnchor(anchor);
        EXPECT_EQ(flow(), "a(0,0) b(10,0) ") << anchor;
    }
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    for (const Component::Anchor anchor : {0x01u, 0x02u, 0x04u, 0x0cu}) {
        mLayout->setAnchor(anchor);
        EXPECT_EQ(flow(), "a(0,0) b(0,10) ") << anchor;
    }
}

TEST_F(FlowLayoutTest, FillsColumns) {
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    mLayout->setStartPosition({5, 7});
    mLayout->setSpacing({2, 3});
    add("a", 10, 40);
    add("b", 20, 40);
    add("c", 10, 40);
    EXPECT_EQ(flow(), "a(5,7) b(5,50) c(27,7) ");
}

TEST_F(FlowLayoutTest, StepsByTheLeftMarginDownAColumn) {
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    add("a", 20, 20).setMargin(Vector4(1, 6, 2, 3)); // 17 high
    add("b", 10, 10);
    EXPECT_EQ(flow(), "a(0,0) b(0,20) ");
}

TEST_F(FlowLayoutTest, TakesTheRightMarginOfTheComponentThatBeginsTheColumn) {
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    mLayout->setSpacing({3, 0});
    add("a", 10, 100);
    add("b", 10, 10).setMargin(Vector4(0, 4, 0, 0));
    EXPECT_EQ(flow(), "a(0,0) b(17,0) ");
    mLayout->setSizeLimit(0);
    EXPECT_EQ(flow(), "a(3,0) b(20,0) ");
}

TEST_F(FlowLayoutTest, MeasuresAColumnByTheContainersHeight) {
    mPanel->setSize({1000, 50});
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    add("a", 10, 30);
    add("b", 10, 20);
    add("c", 10, 1);
    EXPECT_EQ(flow(), "a(0,0) b(0,30) c(10,0) ");
}

TEST_F(FlowLayoutTest, AlignsColumnsInTheCentreAndOnTheRight) {
    mLayout->setFlowDirection(FlowLayout::VERTICAL);
    add("a", 10, 30);
    add("b", 40, 30).setMargin(Vector4(0, 2, 0, 4)); // 34 wide, counts with 40; the column is 34 wide
    mLayout->setAnchor(0x11);
    EXPECT_EQ(flow(), "a(12,0) b(-3,30) ");
    mLayout->setAnchor(0x21);
    EXPECT_EQ(flow(), "a(24,0) b(-6,30) ");
}

TEST_F(FlowLayoutTest, ChangesNothingThatIsInPlace) {
    add("a", 10, 10);
    add("b", 10, 20);
    mLayout->setAnchor(0x09);
    flow();
    mPanel->update();
    for (Component *component : mLayout->getComponents())
        ASSERT_EQ(component->isDirty(Component::DIRTY_POSITION), 0u);
    mLayout->layout();
    for (Component *component : mLayout->getComponents())
        EXPECT_EQ(component->isDirty(Component::DIRTY_POSITION), 0u);
}

TEST_F(FlowLayoutTest, AlignsByTheOldPositionWhileAnAnimationIsOpen) {
    mLayout->setAnchor(0x0c);
    add("a", 30, 10);
    add("b", 30, 40);
    flow();
    mLayout->setStartPosition({10, 20});
    AnimationContext *context = manager().beginAnimation();
    mLayout->layout();
    EXPECT_EQ(positions(), "a(0,30) b(30,0) "); // recorded, not done
    manager().commitAnimation(context);
    manager().update();
    advance(1);
    manager().update();
    // The alignment was recorded last, with the new row's y and the x from before the pass.
    EXPECT_EQ(positions(), "a(0,50) b(30,20) ");
}

TEST_F(FlowLayoutTest, ReadsItsParameters) {
    parameters(R"({"direction":"vertical","limit-policy":"absolute","limit":320,"position":[1,2],"spacing":[3,4.5],
                   "anchor":"bottom-right"})");
    EXPECT_EQ(mLayout->getFlowDirection(), FlowLayout::VERTICAL);
    EXPECT_EQ(mLayout->getSizeLimitPolicy(), FlowLayout::ABSOLUTE);
    EXPECT_EQ(mLayout->getSizeLimit(), 320);
    EXPECT_EQ(mLayout->getStartPosition(), Vector2(1, 2));
    EXPECT_EQ(mLayout->getSpacing(), Vector2(3, 4.5f));
    EXPECT_EQ(mLayout->getAnchor(), 0x24u);
    parameters(R"({"direction":"horizontal","limit-policy":"relative"})");
    EXPECT_EQ(mLayout->getFlowDirection(), FlowLayout::HORIZONTAL);
    EXPECT_EQ(mLayout->getSizeLimitPolicy(), FlowLayout::RELATIVE);
    EXPECT_EQ(mLayout->getSizeLimit(), 320);
}

TEST_F(FlowLayoutTest, KeepsWhatUnusableParametersDoNotTell) {
    parameters(R"({"direction":"vertical","limit-policy":"absolute","limit":7,"position":[1,2],"spacing":[3,4],
                   "anchor":"top-right"})");
    const char *const unusable[] = {
        "{}",
        R"({"Direction":"horizontal","LIMIT":1})",
        R"({"direction":"Horizontal","limit-policy":"Relative"})",
        R"({"direction":0,"limit-policy":0,"limit":"9","position":5,"spacing":{"0":1},"anchor":9})",
        R"({"direction":null,"limit-policy":[],"limit":[],"position":null,"spacing":"x","anchor":null})",
    };
    for (const char *text : unusable) {
        parameters(text);
        EXPECT_EQ(mLayout->getFlowDirection(), FlowLayout::VERTICAL) << text;
        EXPECT_EQ(mLayout->getSizeLimitPolicy(), FlowLayout::ABSOLUTE) << text;
        EXPECT_EQ(mLayout->getSizeLimit(), 7) << text;
        EXPECT_EQ(mLayout->getStartPosition(), Vector2(1, 2)) << text;
        EXPECT_EQ(mLayout->getSpacing(), Vector2(3, 4)) << text;
        EXPECT_EQ(mLayout->getAnchor(), 0x21u) << text;
    }
}

TEST_F(FlowLayoutTest, CountsMissingElementsOfAnArrayAs0) {
    mLayout->setStartPosition({1, 2});
    mLayout->setSpacing({3, 4});
    parameters(R"({"position":[],"spacing":[8]})");
    EXPECT_EQ(mLayout->getStartPosition(), Vector2(0, 0));
    EXPECT_EQ(mLayout->getSpacing(), Vector2(8, 0));
    parameters(R"({"position":["x",5]})");
    EXPECT_EQ(mLayout->getStartPosition(), Vector2(0, 5));
}

TEST_F(FlowLayoutTest, TakesAnUnknownAnchorForTheCentre) {
    parameters(R"({"anchor":"somewhere"})");
    EXPECT_EQ(mLayout->getAnchor(), 0x12u);
}

TEST_F(FlowLayoutTest, ClonesItsFieldsAndNotItsComponents) {
    parameters(R"({"direction":"vertical","limit-policy":"absolute","limit":7,"position":[1,2],"spacing":[3,4],
                   "anchor":"top-right"})");
    add("a", 10, 10);
    const core::SmartPtr<nurel::core::Object> copy(mLayout->clone());
    const FlowLayout &flow = dynamic_cast<FlowLayout &>(*copy);
    EXPECT_EQ(flow.getFlowDirection(), FlowLayout::VERTICAL);
    EXPECT_EQ(flow.getSizeLimitPolicy(), FlowLayout::ABSOLUTE);
    EXPECT_EQ(flow.getSizeLimit(), 7);
    EXPECT_EQ(flow.getStartPosition(), Vector2(1, 2));
    EXPECT_EQ(flow.getSpacing(), Vector2(3, 4));
    EXPECT_EQ(flow.getAnchor(), 0x21u);
    EXPECT_EQ(flow.getComponentCount(), 0u);
    EXPECT_EQ(flow.getOwner(), nullptr);
}

TEST_F(FlowLayoutTest, ClonesIntoNothingElse) {
    nurel::core::CloningOptions options;
    mLayout->_clone(nullptr, options);
    const core::SmartPtr<Panel> panel(new Panel("p"));
    mLayout->_clone(panel.get(), options);
    EXPECT_EQ(panel->getAnchor(), 0x12u);
}
