#include "nengine/Engine.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/support/AllocationCounter.h"
#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"
#include "nui/ui/skins/DefaultSkin.h"

using namespace nurel::ui;

namespace {

constexpr int LABELS = 500;

/// Two screens of 500 texts each that are really drawn.
class NavigationHandlerCostTest : public test::NavigationTest, public testing::WithParamInterface<int> {
public:
    NavigationHandlerCostTest() {
        SkinManager::getSingleton().setDefaultSkin(new skins::DefaultSkin);
        mWidget->removeChild(mHandler->getTarget());
        const core::SmartPtr<Widget> drawn = addWidget("drawn");
        drawn->addChild(mHandler->getTarget());
        fill(*a);
        fill(*b);
        push(a);
        draw(0);
    }

    static void fill(Panel &body) {
        for (int i = 0; i < LABELS; ++i) {
            core::SmartPtr<components::Label> label(new components::Label(""));
            place(*label, static_cast<float>(i % 20 * 40), static_cast<float>(i / 20 * 22), 40, 20);
            label->setText(("t" + std::to_string(i)).c_str());
            body.addChild(label.get());
        }
    }

    void draw(int milliseconds) {
        after(milliseconds);
        mEngine->renderFrame(*manager().getRenderPass());
    }

    void bring() {
        mHandler->pushBody(b.get(), nullptr, nullptr, nullptr, 0.1f, static_cast<Transition::Type>(GetParam()));
        draw(0);
    }

    /// Draws the rest of the transition; how often memory was asked for between its ends.
    std::size_t run() {
        draw(10);
        const std::size_t before = test::getAllocationCount();
        for (int i = 0; i < 8; ++i)
            draw(10);
        const std::size_t asked = test::getAllocationCount() - before;
        draw(10);
        EXPECT_FALSE(mHandler->isAnimating());
        return asked;
    }
};

} // namespace

TEST_P(NavigationHandlerCostTest, ATransitionAsksForNoMemoryAFrame) {
    bring();
    run(); // glyphs and arrays come with the first one
    mHandler->popBody(nullptr);
    draw(0);
    EXPECT_EQ(run(), 0U);
    bring();
    EXPECT_EQ(run(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Transitions, NavigationHandlerCostTest, testing::Range(1, 8));
