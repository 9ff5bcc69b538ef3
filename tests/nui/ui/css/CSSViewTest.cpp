#include "nui/ui/css/CSSView.h"

#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/css/Background.h"
#include "nui/ui/css/StyleTest.h"
#include "nui/ui/layouts/FlowLayout.h"

using namespace nurel::ui;
using css::Property;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::scene::properties::MaterialProperty;
using test::StyleTest;

namespace {

class CSSViewTest : public StyleTest {
public:
    static BorderedRectangleMesh &mesh(Component &component) {
        return dynamic_cast<BorderedRectangleMesh &>(*component.getMesh());
    }

    static Vector4 color(Component &component) {
        return static_cast<MaterialProperty *>(component.getMesh()->getPropertySet()[1])->getColor();
    }

    /// A state word as the manager would give it.
    static void hover(bool over) {
        point(over ? 20 : 500, over ? 20 : 500);
        frame();
    }
};

} // namespace

TEST_F(CSSViewTest, BuildsItsBoxAtTheFirstUpdateAndHidesItUntilABackgroundComes) {
    setSheet("");
    const auto widget = addStyledWidget();
    const auto panel = addPanel(*widget, "panel", 10, 10, 100, 60);
    EXPECT_EQ(panel->getView()->getChildCount(), 0U);
    frame();
    EXPECT_EQ(panel->getView()->getUnderlay()->getChild(0), panel->getMesh());
    EXPECT_TRUE(panel->getMesh()->isHidden());
    EXPECT_EQ(mesh(*panel).getSize(), Vector2(100, 60));
    EXPECT_FALSE(panel->getMesh()->getPropertySet()[1]->isDefault());
    EXPECT_TRUE(
        static_cast<nurel::scene::properties::AlphaProperty *>(panel->getMesh()->getPropertySet()[0])->isBlending());
}

TEST_F(CSSViewTest, ShowsABoxForABackgroundAndNoneForNone) {
    const auto panel = addStyledPanel("panel { background: red; } .off { background: none; }");
    EXPECT_FALSE(panel->getMesh()->isHidden());
    EXPECT_EQ(color(*panel), Vector4(1, 0, 0, 1));
    panel->addClass("off");
    frame();
    EXPECT_TRUE(panel->getMesh()->isHidden());
}

TEST_F(CSSViewTest, ABackgroundImageInALaterRuleLeavesTheColourAlone) {
    const unsigned char pixel[4] = {255, 255, 255, 255};
    nurel::texture::TexturePool::getSingleton().add("a.png", 1, 1, pixel);
    const auto panel = addStyledPanel("panel { background: red; } .x { background-image: a.png; }");
    panel->addClass("x");
    frame();
    EXPECT_EQ(color(*panel), Vector4(1, 0, 0, 1));
    EXPECT_EQ(panel->getMeshTexture(0), nurel::texture::TexturePool::getSingleton()["a.png"]);
    EXPECT_FALSE(panel->getMesh()->isHidden());
}

TEST_F(CSSViewTest, RestylesWhenTheStateChangesAndKeepsWhatNoRuleSetsBack) {
    const auto panel = addStyledPanel(
        "panel { margin: 1px; } panel:hover { margin: 2px; padding: 4px; } panel:disabled { margin: 3px; }");
    EXPECT_EQ(panel->getMargin(), Vector4(1, 1, 1, 1));
    hover(true);
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(2, 2, 2, 2));
    EXPECT_EQ(panel->getPadding(), Vector4(4, 4, 4, 4));
    hover(false);
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(1, 1, 1, 1));
    EXPECT_EQ(panel->getPadding(), Vector4(4, 4, 4, 4));
    panel->setEnabled(false);
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(3, 3, 3, 3));
}

TEST_F(CSSViewTest, MapsTheStateWordOfTheComponent) {
    struct Row {
        unsigned int state;
        const char *selector;
    };
    const Row rows[] = {{0x02, ":active"},
                        {0x01, ":hover"},
                        {0x40, ":disabled"},
                        {0x20, ":focus"},
                        {0x10, ":checked"},
                        {0x04, ""},
                        {0, ""},
                        {0x73, ":active:hover:disabled:focus:checked"}};
    for (const Row &row : rows) {
        class Stateful : public Panel {
        public:
            using Panel::setState;
        };
        setSheet("");
        const auto widget = addStyledWidget();
        core::SmartPtr<Stateful> panel(new Stateful);
        widget->addChild(panel.get());
        frame();
        panel->setState(row.state);
        frame();
        std::string text;
        EXPECT_STREQ(viewOf(*panel).getStylable().toString(text), (std::string("panel") + row.selector).c_str());
    }
}

TEST_F(CSSViewTest, NeverMatchesEnabled) {
    const auto panel = addStyledPanel("panel:enabled { margin: 5px; }");
    EXPECT_EQ(panel->getMargin(), Vector4(0, 0, 0, 0));
}

TEST_F(CSSViewTest, AHiddenComponentRestylesWhenItIsShown) {
    const auto panel = addStyledPanel("panel { margin: 1px; } panel:disabled { margin: 3px; }");
    panel->setVisible(false);
    panel->setEnabled(false);
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(1, 1, 1, 1));
    panel->setVisible(true);
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(3, 3, 3, 3));
}

TEST_F(CSSViewTest, LeavesPinnedPropertiesAlone) {
    const auto panel = addStyledPanel("panel { margin: 1px; padding: 1px; } .x { margin: 2px; padding: 2px; }");
    CSSView &view = viewOf(*panel);
    view.setOverridden(Property::MARGIN, true);
    EXPECT_TRUE(view.isOverridden(Property::MARGIN));
    panel->setMargin(Vector4(9, 9, 9, 9));
    panel->addClass("x");
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(9, 9, 9, 9));
    EXPECT_EQ(panel->getPadding(), Vector4(2, 2, 2, 2));
    view.clearOverride(Property::MARGIN);
    view.setStyleDirty();
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(2, 2, 2, 2));
}

TEST_F(CSSViewTest, PinsByPropertyToo) {
    const auto panel = addStyledPanel("");
    CSSView &view = viewOf(*panel);
    const css::Background background;
    view.setOverridden(&background, true);
    EXPECT_TRUE(view.isOverridden(Property::BACKGROUND));
    EXPECT_TRUE(view.isOverridden(&background));
    view.setOverridden(&background, false);
    EXPECT_FALSE(view.isOverridden(&background));
    view.setOverridden(&background, true);
    view.clearOverride(&background);
    EXPECT_FALSE(view.isOverridden(&background));
    view.setOverridden(Property::ZINDEX, true);
    view.setOverridden(Property::FONT, true);
    view.clearOverride();
    EXPECT_FALSE(view.isOverridden(Property::ZINDEX));
    EXPECT_FALSE(view.isOverridden(Property::FONT));
    view.setOverridden(static_cast<const Property *>(nullptr), true);
    EXPECT_FALSE(view.isOverridden(static_cast<const Property *>(nullptr)));
}

TEST_F(CSSViewTest, AppliesGeometryToTheComponent) {
    const auto panel = addStyledPanel("panel { width: 50% 10px; height: 20px; left: 7px; top: 10% 3px; min-width: 5px; "
                                      "max-width: 500px; min-height: 6px; max-height: 600px; -n-anchor: bottom-right; "
                                      "border: 1px 2px; padding: 3px; z-index: 4; opacity: 0.5; }");
    const Component::ComponentSize &size = panel->getComponentSize();
    EXPECT_EQ(size.absolute, Vector2(10, 20));
    EXPECT_EQ(size.relative, Vector2(0.5f, 0));
    EXPECT_EQ(panel->getComponentPosition().absolute, Vector2(7, 3));
    EXPECT_EQ(panel->getComponentPosition().relative, Vector2(0, 10 * 0.01f));
    EXPECT_EQ(panel->getMinimumSize(), Vector2(5, 6));
    EXPECT_EQ(panel->getMaximumSize(), Vector2(500, 600));
    EXPECT_EQ(panel->getAnchor(), static_cast<Component::Anchor>(Component::ANCHOR_BOTTOM_RIGHT));
    EXPECT_EQ(panel->getBorder(), Vector4(1, 2, 1, 2));
    EXPECT_EQ(panel->getPadding(), Vector4(3, 3, 3, 3));
    EXPECT_EQ(panel->getZIndex(), 4);
    EXPECT_EQ(panel->getOpacity(), 0.5f);
    EXPECT_EQ(panel->getSize(), Vector2(410, 20));
}

TEST_F(CSSViewTest, LimitsIgnoreRelativeAndAutomaticSizes) {
    const auto panel = addStyledPanel("panel { min-width: 50%; max-height: auto; }");
    EXPECT_EQ(panel->getMinimumSize(), Vector2(0, 0));
    EXPECT_EQ(panel->getMaximumSize(), Vector2(0, 0));
}

TEST_F(CSSViewTest, AutomaticSizesComeAndGoAxisByAxis) {
    const auto panel = addStyledPanel("panel { width: auto; height: auto; } .fixed { width: 30px; }");
    EXPECT_EQ(panel->getAutoSizeFlags(), 3U);
    panel->addClass("fixed");
    frame();
    EXPECT_EQ(panel->getAutoSizeFlags(), 2U);
    EXPECT_EQ(panel->getComponentSize().absolute, Vector2(30, 0));
}

TEST_F(CSSViewTest, ATransformScales) {
    const auto panel = addStyledPanel("panel { transform: scale(2,3); }");
    EXPECT_EQ(panel->getScale(), Vector2(2, 3));
}

TEST_F(CSSViewTest, TheBorderRadiusAndTheSkinGoToTheMesh) {
    const auto panel = addStyledPanel("panel { border-radius: 1px 2px 3px 4px; border: 9px; -n-background-skin: 1 4 2; "
                                      "-n-background-offset: 5px 6px; -n-background-size: 7px 8px 2px; }");
    EXPECT_EQ(mesh(*panel).getBorder(), Vector4(1, 2, 3, 4));
    EXPECT_EQ(mesh(*panel).getCurrentSkin(), 1);
    EXPECT_EQ(mesh(*panel).getSkinCountU(), 4U);
    EXPECT_EQ(mesh(*panel).getSkinCountV(), 2U);
    EXPECT_EQ(mesh(*panel).getSkinOffset(), Vector2(5, 6));
    EXPECT_EQ(mesh(*panel).getSkinSize(), Vector2(7, 8));
    EXPECT_EQ(mesh(*panel).getSkinSpacing(), 2);
}

TEST_F(CSSViewTest, ASkinThatSaysNothingChangesNothing) {
    const auto panel =
        addStyledPanel("panel { -n-background: 1 4 2 5px 6px 7px 8px 2px; } .x { -n-background: none; }");
    panel->addClass("x");
    frame();
    EXPECT_EQ(mesh(*panel).getCurrentSkin(), 1);
    EXPECT_EQ(mesh(*panel).getSkinCountU(), 4U);
    EXPECT_EQ(mesh(*panel).getSkinSpacing(), 2);
}

TEST_F(CSSViewTest, TextPropertiesMeanNothingToABox) {
    const auto panel =
        addStyledPanel("panel { color: red; font-size: 30px; text-align: center; vertical-align: center; }");
    EXPECT_EQ(color(*panel), Vector4(1, 1, 1, 1));
    EXPECT_EQ(panel->getSize(), Vector2(100, 60));
}

TEST_F(CSSViewTest, AColourWithoutAlphaKeepsTheOpacity) {
    const auto panel = addStyledPanel("panel { opacity: 0.25; } .x { background: #0f0; } .y { background: #00f8; }");
    panel->addClass("x");
    frame();
    EXPECT_EQ(color(*panel), Vector4(0, 1, 0, 0.25f));
    panel->addClass("y");
    frame();
    EXPECT_NEAR(color(*panel).w, 0.5333333f, 1e-6f);
}

TEST_F(CSSViewTest, OverflowDecidesClippingAndScrolling) {
    struct Row {
        const char *value;
        bool clip;
        unsigned int mask;
        bool drag;
    };
    const Row rows[] = {{"hidden", true, 0, false},         {"auto", true, 3, true},
                        {"scroll", true, 3, true},          {"hidden scroll", true, 2, true},
                        {"auto hidden", true, 1, true},     {"visible", false, 3, false},
                        {"visible hidden", false, 3, false}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.value);
        const auto panel = addStyledPanel((std::string("panel { overflow: ") + row.value + "; }").c_str());
        EXPECT_EQ(panel->getClipChildren(), row.clip);
        EXPECT_EQ(panel->getScrollMask(), row.mask);
        EXPECT_EQ((panel->getEventMask() & UIEvent::ET_DRAG_EVENT) != 0, row.drag);
    }
}

TEST_F(CSSViewTest, OverflowMeansNothingToALabel) {
    setSheet("label { overflow: hidden; }");
    const auto widget = addStyledWidget();
    const core::SmartPtr<Label> label(new Label("label"));
    widget->addChild(label.get());
    frame();
    EXPECT_FALSE(label->isContainer());
}

TEST_F(CSSViewTest, TheSameStyleAgainDirtiesNothing) {
    const auto panel =
        addStyledPanel("panel { width: 120px; height: 30px; margin: 1px; min-width: 10px; max-height: 90px; "
                       "padding: 2px; -n-anchor: center; overflow: auto; opacity: 0.5; z-index: 2; "
                       "background: red; border-radius: 4px; }");
    frame();
    EXPECT_EQ(panel->isDirty(Component::DIRTY_ALL), 0U);
    panel->addClass("x");
    EXPECT_FALSE(panel->isDirty(Component::DIRTY_POSITION));
    panel->getView()->updateView();
    EXPECT_FALSE(panel->isDirty(Component::DIRTY_POSITION | Component::DIRTY_CONTENT));
    EXPECT_FALSE(mWidget->isDirty(Component::DIRTY_CONTENT));
}

TEST_F(CSSViewTest, AWidthFromASheetBreaksTheRowsOfAFlowOnTheFirstFrame) {
    setSheet("panel.flow { width: 250px; height: 300px; } panel.flow.narrow { width: 120px; }");
    mWidget = addStyledWidget();
    const auto flow = addPanel(*mWidget, "flow", 0, 0, 700, 300);
    flow->addClass("flow");
    flow->setLayout(new layouts::FlowLayout);
    std::vector<core::SmartPtr<Panel>> boxes;
    for (int i = 0; i < 3; ++i)
        boxes.push_back(addPanel(*flow, "box", 0, 0, 100, 50));
    frame();
    const auto rowOf = [&](int index) { return boxes[static_cast<std::size_t>(index)]->getWorldPosition().y; };
    EXPECT_EQ(rowOf(0), rowOf(1));
    EXPECT_GT(rowOf(2), rowOf(1));
    flow->addClass("narrow");
    frame();
    EXPECT_GT(rowOf(1), rowOf(0));
    EXPECT_GT(rowOf(2), rowOf(1));
}

TEST_F(CSSViewTest, PropertiesOfMatchingRulesComeInTheOrderOfTheRules) {
    const auto panel = addStyledPanel("#panel { margin: 1px; } .x { margin: 2px; } panel { margin: 3px; }");
    EXPECT_EQ(panel->getMargin(), Vector4(1, 1, 1, 1));
}

TEST_F(CSSViewTest, OneSideAloneReplacesAllFour) {
    const auto panel = addStyledPanel("panel { margin: 9px; } .x { margin-left: 5px; }");
    panel->addClass("x");
    frame();
    EXPECT_EQ(panel->getMargin(), Vector4(0, 0, 0, 5));
}

TEST_F(CSSViewTest, ScrollBarsGoAndComeWithTheOverflowOfASheet) {
    setSheet("#frame { overflow: hidden; } #frame.x { overflow: auto; }");
    mWidget = addStyledWidget();
    const auto panel = addPanel(*mWidget, "frame", 0, 0, 100, 60);
    addPanel(*panel, "inner", 0, 0, 300, 200);
    frame();
    EXPECT_FALSE(panel->getScrollInfoH().scrollable);
    EXPECT_FALSE(panel->getScrollInfoV().scrollable);
    panel->addClass("x");
    frame();
    EXPECT_TRUE(panel->getScrollInfoH().scrollable);
    EXPECT_TRUE(panel->getScrollInfoV().scrollable);
    panel->removeClass("x");
    frame();
    EXPECT_FALSE(panel->getScrollInfoH().scrollable);
}

TEST_F(CSSViewTest, PaddingFromASheetMovesTheContentOnTheFirstFrame) {
    setSheet("panel.flow { width: 300px; height: 300px; padding: 20px; } panel.flow.wide { padding: 40px; }");
    mWidget = addStyledWidget();
    const auto flow = addPanel(*mWidget, "flow", 0, 0, 300, 300);
    flow->addClass("flow");
    flow->setLayout(new layouts::FlowLayout);
    const auto box = addPanel(*flow, "box", 0, 0, 50, 50);
    frame();
    const Vector3 first = box->getWorldPosition();
    EXPECT_EQ(first.x, flow->getMinBound().x + 20 + 25);
    flow->addClass("wide");
    frame();
    EXPECT_EQ(box->getWorldPosition().x, first.x + 20);
    EXPECT_EQ(flow->getContainerSize(), Vector2(220, 220));
}

TEST_F(CSSViewTest, WhatNarrowsAFlowBreaksItsRowsOnTheFirstFrame) {
    for (const char *narrow : {"width: 120px;", "max-width: 120px;", "padding: 0 130px 0 0;", "border: 0 0 0 130px;"}) {
        SCOPED_TRACE(narrow);
        setSheet(std::string("#flow { width: 250px; height: 300px; } #flow.narrow { ") + narrow + " }");
        mWidget = addStyledWidget();
        const auto flow = addPanel(*mWidget, "flow", 0, 0, 700, 300);
        flow->setLayout(new layouts::FlowLayout);
        const auto first = addPanel(*flow, "box", 0, 0, 100, 50);
        const auto second = addPanel(*flow, "box", 0, 0, 100, 50);
        frame();
        EXPECT_EQ(second->getWorldPosition().y, first->getWorldPosition().y);
        flow->addClass("narrow");
        frame();
        EXPECT_GT(second->getWorldPosition().y, first->getWorldPosition().y);
    }
}

TEST_F(CSSViewTest, AComponentMayDropItsViewWhileItIsStyled) {
    class Dropping : public Panel {
    public:
        using Panel::setAutoSize;
        void setAutoSize(unsigned int flags, const Vector2 &offset) override {
            Panel::setAutoSize(flags, offset);
            clearView();
        }
    };
    setSheet("panel { background: red; width: 40px; height: 50px; z-index: 3; }");
    mWidget = addStyledWidget();
    const core::SmartPtr<Dropping> panel(new Dropping);
    mWidget->addChild(panel.get());
    frame();
    EXPECT_FALSE(panel->hasView());
    EXPECT_EQ(panel->getComponentSize().absolute.x, 40);
    EXPECT_EQ(panel->getZIndex(), 0) << "nobody is left to style it";
}

TEST_F(CSSViewTest, AViewWithoutASkinDrawsItsBox) {
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    const core::SmartPtr<CSSView> view(new CSSView("view", panel.get(), nullptr));
    view->updateView();
    view->updateInternal(0, false);
    EXPECT_EQ(panel->getMesh()->getParent(), view->getUnderlay());
}

TEST_F(CSSViewTest, AViewThatIsGivenToAnotherComponentSurvives) {
    const auto panel = addStyledPanel("panel { background: red; }");
    const core::SmartPtr<ComponentView> view(panel->getView());
    panel->clearView();
    core::SmartPtr<Label> label(new Label("label"));
    mWidget->addChild(label.get());
    class Adopter : public Label {
    public:
        using Label::setView;
    };
    const core::SmartPtr<Adopter> adopter(new Adopter);
    adopter->setView(view.get());
    EXPECT_EQ(view->getComponent(), adopter.get());
    view->updateView();
    view->updateInternal(0, true);
    frame();
    adopter->clearView();
}

TEST_F(CSSViewTest, OutlivesItsComponent) {
    auto panel = addStyledPanel("panel { background: red; }");
    const core::SmartPtr<ComponentView> view(panel->getView());
    mWidget->removeChild(panel.get());
    panel = nullptr;
    viewOf(*mWidget).updateView();
    EXPECT_EQ(view->getComponent(), nullptr);
    const Vector3 before = view->getTranslation();
    view->updateView();
    view->updateInternal(0, true);
    EXPECT_EQ(view->getTranslation(), before);
    EXPECT_TRUE(static_cast<const CSSView &>(*view).getStylable().getProperties().empty());
}
