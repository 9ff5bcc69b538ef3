#include "nengine/Engine.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/ShapingStatistics.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/support/AllocationCounter.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/SheetText.h"
#include "nui/ui/handlers/NavigationFixture.h"
#include "nui/ui/handlers/NavigationHandler.h"

using namespace nurel::ui;

namespace {

/// Screens of texts that are really drawn.
class NavigationHandlerDrawTest : public test::NavigationTest {
public:
    NavigationHandlerDrawTest() {
        const core::SmartPtr<css::CSSSkin> skin(new css::CSSSkin("style"));
        skin->setStyleSheet(test::parseSheetText("label { color: #ffffff; }").release());
        SkinManager::getSingleton().setDefaultSkin(skin.get());
        mHandler = new Handler(50, 30);
        const core::SmartPtr<Widget> drawn = addWidget("drawn");
        drawn->addChild(mHandler->getTarget());
        // Only what the bodies show is counted
        bar().setVisible(false);
        mHandler->getBodyContainer()->setClipChildren(false);
        draw(0);
        mRest = quads();
    }

    static void write(Panel &body, const std::string &text, float x, float y) {
        core::SmartPtr<components::Label> label(new components::Label(""));
        place(*label, x, y, 40, 20);
        label->setText(text.c_str());
        body.addChild(label.get());
    }

    void draw(int milliseconds) {
        after(milliseconds);
        mEngine->renderFrame(*manager().getRenderPass());
    }

    void bring(const core::SmartPtr<Panel> &body, Transition::Type type) {
        mHandler->pushBody(body.get(), "", nullptr, nullptr, 0.1f, type);
        draw(0);
    }

    /// How many letters are drawn.
    unsigned int letters() const { return quads() - mRest; }

private:
    static unsigned int quads() { return manager().getRenderPass()->getStatistics().vertices / 4; }

    unsigned int mRest = 0;
};

/// Two screens of 500 texts each.
class NavigationHandlerCostTest : public NavigationHandlerDrawTest, public testing::WithParamInterface<int> {
public:
    NavigationHandlerCostTest() {
        for (Panel *body : {a.get(), b.get()}) {
            for (int i = 0; i < 500; ++i)
                write(*body, "t" + std::to_string(i), static_cast<float>(i % 20 * 40), static_cast<float>(i / 20 * 22));
        }
        mHandler->getBodyContainer()->setClipChildren(true);
        push(a);
        draw(0);
    }

    /// Draws the rest of the transition; how often memory was asked for between its ends.
    std::size_t run() {
        draw(10);
        const std::size_t before = test::getAllocationCount();
        const std::uint64_t shapedBefore = shaped();
        for (int i = 0; i < 8; ++i)
            draw(10);
        const std::size_t asked = test::getAllocationCount() - before;
        EXPECT_EQ(shaped(), shapedBefore);
        draw(10);
        EXPECT_FALSE(mHandler->isAnimating());
        return asked;
    }

    static std::uint64_t shaped() { return nurel::font::FontManager::getSingleton().getStatistics().shapedParagraphs; }
};

} // namespace

TEST_P(NavigationHandlerCostTest, ATransitionShapesNoTextAndAsksForNoMemoryAFrame) {
    const auto type = static_cast<Transition::Type>(GetParam());
    for (int round = 0; round < 3; ++round) {
        bring(b, type);
        const std::size_t forPush = run();
        mHandler->popBody(nullptr);
        draw(0);
        const std::size_t forPop = run();
        if (round == 0) // glyphs and arrays come with the first ones
            continue;
        EXPECT_EQ(forPush, 0U) << round;
        EXPECT_EQ(forPop, 0U) << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Transitions, NavigationHandlerCostTest, testing::Range(1, 8));

TEST_F(NavigationHandlerDrawTest, ASlideShowsBoth) {
    write(*a, "1", 0, 0);
    write(*b, "22", 0, 0);
    mHandler->pushBody(a.get(), "", nullptr, nullptr, nullptr);
    draw(0);
    EXPECT_EQ(letters(), 1U);
    bring(b, SLIDE);
    draw(25);
    EXPECT_EQ(letters(), 3U);
}

TEST_F(NavigationHandlerDrawTest, AFlipShowsTheFaceThatIsTurnedToTheViewer) {
    for (const Transition::Type type : {Transition::T_FLIP_HORIZONTAL, Transition::T_FLIP_VERTICAL}) {
        const core::SmartPtr<Panel> front = newBody("front");
        const core::SmartPtr<Panel> back = newBody("back");
        write(*front, "1", 0, 0);
        write(*back, "22", 0, 0);
        mHandler->setBody(front.get(), "", nullptr, nullptr, nullptr);
        bring(back, type);
        EXPECT_EQ(letters(), 1U);
        draw(49);
        EXPECT_EQ(letters(), 1U);
        draw(2);
        EXPECT_EQ(letters(), 2U);
        draw(49);
        EXPECT_EQ(letters(), 2U);
        // And back
        mHandler->popBody(nullptr);
        draw(0);
        draw(49);
        EXPECT_EQ(letters(), 2U);
        draw(2);
        EXPECT_EQ(letters(), 1U);
        draw(49);
        EXPECT_EQ(letters(), 1U);
    }
}
