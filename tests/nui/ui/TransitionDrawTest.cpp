#include "nengine/renderer/RenderPass.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/Scenario.h"
#include "nui/ui/Transition.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/SheetText.h"

#include <tuple>

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

/// Two screens of boxes with texts that are really drawn.
class TransitionDrawTest : public test::ScenarioTest,
                           public testing::WithParamInterface<std::tuple<Transition::Type, float>> {
public:
    static Transition::Type type() { return std::get<0>(GetParam()); }

    /// How many units a pixel has: when it is not one, a component that moves by units stands between pixels.
    static float scale() { return std::get<1>(GetParam()); }

    TransitionDrawTest() {
        manager().setScale(Vector2(scale(), scale()));
        const core::SmartPtr<css::CSSSkin> skin(new css::CSSSkin("style"));
        skin->setStyleSheet(test::parseSheetText("label { color: #fff; } panel.box { background: #f00; }").release());
        SkinManager::getSingleton().setDefaultSkin(skin.get());
        const core::SmartPtr<Widget> widget = addWidget("drawn");
        for (const core::SmartPtr<Panel> &screen : {mFrom, mTo}) {
            screen->setSize(Vector2(0, 0), Vector2(1, 1));
            screen->setScrollMask(0);
            for (int i = 0; i < 20; ++i)
                addBox(*screen, i);
            widget->addChild(screen.get());
        }
        for (int i = 0; i < 5; ++i)
            draw(10);
    }

    void addBox(Panel &screen, int index) {
        const core::SmartPtr<Panel> box = addPanel(screen, "box", 10 + static_cast<float>(index % 5) * 120,
                                                   10 + static_cast<float>(index / 5) * 110, 100, 80);
        box->addClass("box");
        const core::SmartPtr<components::Label> label(new components::Label("label"));
        label->setSize(Vector2(100, 20));
        label->setText("Text");
        box->addChild(label.get());
    }

    void draw(int milliseconds) {
        after(milliseconds);
        mEngine->renderFrame(*manager().getRenderPass());
    }

    static const nurel::renderer::FrameStatistics &statistics() { return manager().getRenderPass()->getStatistics(); }

    const core::SmartPtr<Panel> mFrom{new Panel("from")};
    const core::SmartPtr<Panel> mTo{new Panel("to")};
};

} // namespace

TEST_P(TransitionDrawTest, DrawsBothFromTheGeometryThatTheyHave) {
    const core::SmartPtr<AnimationContext> change(Transition::build(type(), mFrom.get(), mTo.get(), 1, nullptr));
    manager().commitAnimation(change.get());
    for (int i = 0; i < 8; ++i) // texts are placed on pixels with the first step between them
        draw(7);
    const std::uint64_t built = statistics().meshesBuilt;
    const std::uint64_t computed = statistics().verticesRebuilt;
    const std::uint64_t lists = statistics().listsRebuilt;
    for (int i = 0; i < 50; ++i)
        draw(7);
    EXPECT_EQ(change->getStatus(), AnimationContext::RUNNING);
    EXPECT_EQ(statistics().meshesBuilt, built);
    EXPECT_EQ(statistics().listsRebuilt, lists);
    // Each box and each letter, as they move or fade
    EXPECT_EQ(statistics().verticesRebuilt - computed, 50U * 2 * 20 * (4 + 4 * 4));
}

INSTANTIATE_TEST_SUITE_P(Transitions, TransitionDrawTest,
                         testing::Combine(testing::Values(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT,
                                                          Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT,
                                                          Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP,
                                                          Transition::T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM,
                                                          Transition::T_CROSS_FADE),
                                          testing::Values(1.0f, 0.8f)),
                         [](const auto &parameters) {
                             const std::string word = Transition::unparse(std::get<0>(parameters.param));
                             return std::get<1>(parameters.param) == 1 ? word : word + "_SCALED";
                         });
