// How views cut off what sticks out of a container: stencil levels, and what is drawn for it.
#include "nengine/renderer/FrameStatistics.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nui/ui/css/StyleTest.h"

using namespace nurel::ui;
using nurel::scene::Node;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::scene::properties::MaterialProperty;
using nurel::scene::properties::StencilProperty;

namespace {

constexpr const char *SHEET = "panel { background: red; overflow: hidden; }";

class CSSViewClipTest : public test::StyleTest {
public:
    CSSViewClipTest() : StyleTest(SHEET) { mWidget = addStyledWidget(); }

    static const StencilProperty &stencil(const nurel::scene::Frame &frame) {
        return static_cast<const StencilProperty &>(*frame.getPropertySet()[6]);
    }

    static BorderedRectangleMesh &clip(const Component &component) {
        return dynamic_cast<BorderedRectangleMesh &>(*component.getView()->getUnderlay()->getChild(1));
    }

    static BorderedRectangleMesh &clear(const Component &component) {
        return dynamic_cast<BorderedRectangleMesh &>(*component.getView()->getOverlay()->getChild(0));
    }

    /// What was drawn last, as "function reference>operation mask" for each command.
    std::vector<std::string> commands() {
        render();
        std::vector<std::string> result;
        const auto &backend =
            static_cast<nurel::renderer::RecordingBackend &>(nurel::renderer::Renderer::getSingleton().getBackend());
        for (const auto &command : backend.getCommands()) {
            if (!command.stencilTest) {
                result.emplace_back("-");
                continue;
            }
            result.push_back(std::to_string(static_cast<int>(command.stencilFunction)) + " " +
                             std::to_string(command.stencilReference) + ">" +
                             std::to_string(static_cast<int>(command.opPass)) + " " +
                             std::to_string(command.colorMask));
        }
        return result;
    }
};

} // namespace

TEST_F(CSSViewClipTest, AViewDrawsWhereTheStencilHasItsLevel) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    frame();
    const StencilProperty &own = stencil(*panel->getView());
    EXPECT_TRUE(own.isEnabled());
    EXPECT_EQ(own.getComparison(), 2U);
    EXPECT_EQ(own.getFailOperation(), 0U);
    EXPECT_EQ(own.getDepthFailOperation(), 0U);
    EXPECT_EQ(own.getPassOperation(), 0U);
    EXPECT_EQ(own.getReference(), 1U);
}

TEST_F(CSSViewClipTest, AContainerHasAMeshThatRaisesTheLevelAndOneThatPutsItBack) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    frame();
    EXPECT_STREQ(clip(*panel).getName(), "CSSView.mClip");
    EXPECT_STREQ(clear(*panel).getName(), "CSSView.mClipClear");
    EXPECT_EQ(stencil(clip(*panel)).getComparison(), 2U);
    EXPECT_EQ(stencil(clip(*panel)).getPassOperation(), 3U);
    EXPECT_EQ(stencil(clip(*panel)).getFailOperation(), 0U);
    EXPECT_TRUE(stencil(clip(*panel)).isEnabled());
    EXPECT_EQ(stencil(clear(*panel)).getComparison(), 3U);
    EXPECT_EQ(stencil(clear(*panel)).getPassOperation(), 2U);
    EXPECT_EQ(stencil(clear(*panel)).getFailOperation(), 0U);
    EXPECT_TRUE(stencil(clear(*panel)).isEnabled());
    const auto *material = static_cast<const MaterialProperty *>(clip(*panel).getPropertySet()[1]);
    EXPECT_EQ(material->getFlags() & 3U, 0U);
    EXPECT_FALSE(material->isDefault());
    EXPECT_EQ(clear(*panel).getPropertySet()[1], material);
}

TEST_F(CSSViewClipTest, TheMeshesCoverTheInsideOfTheBox) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 80);
    panel->setPadding(Vector4(1, 2, 3, 10));
    panel->setBorder(Vector4(5, 1, 0, 4));
    frame();
    // (10 + 4 - 1 - 2) / 2 is 5.5 and (1 + 5 - 0 - 3) / 2 is 1.5
    for (BorderedRectangleMesh *mesh : {&clip(*panel), &clear(*panel)}) {
        EXPECT_EQ(mesh->getTranslation(), Vector3(4.5f, 0.5f, 0));
        EXPECT_EQ(mesh->getSize(), panel->getContainerSize() + Vector2(1, 1));
    }
    EXPECT_EQ(panel->getContainerSize(), Vector2(83, 71));
}

TEST_F(CSSViewClipTest, ContentThatLiesInsideCostsNothing) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    addPanel(*panel, "inner", 10, 10, 50, 50);
    frame();
    frame();
    EXPECT_TRUE(clip(*panel).isHidden());
    EXPECT_TRUE(clear(*panel).isHidden());
    // The widget's stamp, and both boxes in one command
    EXPECT_EQ(commands(), (std::vector<std::string>{"7 1>2 0", "2 1>0 3"}));
}

TEST_F(CSSViewClipTest, ContentThatSticksOutIsDrawnOneLevelUp) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    const auto inner = addPanel(*panel, "inner", 50, 50, 100, 100);
    const auto sibling = addPanel(*mWidget, "sibling", 200, 0, 100, 100);
    frame();
    frame();
    EXPECT_FALSE(clip(*panel).isHidden());
    EXPECT_FALSE(clear(*panel).isHidden());
    EXPECT_EQ(stencil(*panel->getView()).getReference(), 1U);
    EXPECT_EQ(stencil(*inner->getView()).getReference(), 2U);
    EXPECT_EQ(stencil(*sibling->getView()).getReference(), 1U);
    EXPECT_EQ(commands(), (std::vector<std::string>{"7 1>2 0", "2 1>0 3", "2 1>3 0", "2 2>0 3", "3 1>2 0", "2 1>0 3"}));
}

TEST_F(CSSViewClipTest, NestedContainersCount) {
    const auto outer = addPanel(*mWidget, "outer", 0, 0, 100, 100);
    const auto middle = addPanel(*outer, "middle", 50, 50, 100, 100);
    const auto inner = addPanel(*middle, "inner", 50, 50, 100, 100);
    frame();
    frame();
    EXPECT_EQ(stencil(*outer->getView()).getReference(), 1U);
    EXPECT_EQ(stencil(*middle->getView()).getReference(), 2U);
    EXPECT_EQ(stencil(clip(*middle)).getReference(), 2U);
    EXPECT_EQ(stencil(clear(*middle)).getReference(), 2U);
    EXPECT_EQ(stencil(*inner->getView()).getReference(), 3U);
    EXPECT_EQ(CSSView::mSTENCIL_REFERENCE, 1U);
}

TEST_F(CSSViewClipTest, NothingIsClippedWhereOverflowIsVisible) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    const auto inner = addPanel(*panel, "inner", 50, 50, 100, 100);
    setSheet("panel { background: red; overflow: visible; }");
    panel->addClass("x");
    frame();
    frame();
    EXPECT_TRUE(clip(*panel).isHidden());
    EXPECT_EQ(stencil(*inner->getView()).getReference(), 1U);
}

TEST_F(CSSViewClipTest, AWidgetStampsItsAreaWhateverItsContent) {
    EXPECT_FALSE(stencil(*mWidget->getView()).isEnabled());
    const StencilProperty &stamp = stencil(clip(*mWidget));
    EXPECT_TRUE(stamp.isEnabled());
    EXPECT_EQ(stamp.getComparison(), 7U);
    EXPECT_EQ(stamp.getFailOperation(), 2U);
    EXPECT_EQ(stamp.getDepthFailOperation(), 2U);
    EXPECT_EQ(stamp.getPassOperation(), 2U);
    EXPECT_EQ(stamp.getReference(), 1U);
    EXPECT_FALSE(clip(*mWidget).isHidden());
    EXPECT_TRUE(clear(*mWidget).isHidden());
}

TEST_F(CSSViewClipTest, EveryWidgetStartsFromACleanLevel) {
    CSSView::mSTENCIL_REFERENCE = 17;
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    frame();
    EXPECT_EQ(stencil(*panel->getView()).getReference(), 1U);
}

TEST_F(CSSViewClipTest, ContainersNestedDeeperThanTheStencilAreDrawnAllTheSame) {
    core::SmartPtr<Container> parent(mWidget.get());
    for (int depth = 0; depth < 300; ++depth)
        parent = addPanel(*parent, "panel", 1, 1, 100, 100).get();
    frame();
    frame();
    EXPECT_EQ(stencil(*parent->getView()).getReference(), 255U);
    EXPECT_EQ(CSSView::mSTENCIL_REFERENCE, 1U);
    EXPECT_FALSE(commands().empty());
}

TEST_F(CSSViewClipTest, AnIdleFrameSubmitsTheSameListAgain) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    addPanel(*panel, "inner", 50, 50, 100, 100);
    frame();
    render();
    frame();
    render();
    const auto &backend =
        static_cast<nurel::renderer::RecordingBackend &>(nurel::renderer::Renderer::getSingleton().getBackend());
    const unsigned int same = backend.getSameRevisionCount();
    frame();
    render();
    EXPECT_EQ(backend.getSameRevisionCount(), same + 1);
}

TEST_F(CSSViewClipTest, ANewColourIsDrawnAtOnce) {
    setSheet("panel { background: red; } panel.x { background: blue; }");
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    frame();
    render();
    frame();
    render();
    const auto &backend =
        static_cast<nurel::renderer::RecordingBackend &>(nurel::renderer::Renderer::getSingleton().getBackend());
    EXPECT_EQ(backend.getVertices(backend.getCommands().back()).front().rgba, 0xff0000ffU);
    panel->addClass("x");
    frame();
    render();
    EXPECT_EQ(backend.getVertices(backend.getCommands().back()).front().rgba, 0xffff0000U);
    panel->addClass("y");
    setSheet("panel.y { background: #00ff00; border-radius: 4px; }");
    manager().refresh();
    frame();
    render();
    EXPECT_EQ(backend.getVertices(backend.getCommands().back()).front().rgba, 0xff00ff00U);
}

TEST_F(CSSViewClipTest, ClippingThatWasTakenOutOfTheSceneIsJustNotDrawn) {
    const auto panel = addPanel(*mWidget, "panel", 0, 0, 100, 100);
    const auto inner = addPanel(*panel, "inner", 50, 50, 100, 100);
    frame();
    ComponentView &view = *panel->getView();
    view.getUnderlay()->removeChild(&clip(*panel));
    view.getOverlay()->removeChild(&clear(*panel));
    view.setProperty(new StencilProperty);
    panel->addClass("x");
    frame();
    frame();
    EXPECT_EQ(stencil(*inner->getView()).getReference(), 2U);
    EXPECT_FALSE(stencil(view).isEnabled());
    EXPECT_FALSE(commands().empty());
}
