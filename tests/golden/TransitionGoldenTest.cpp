// Each transition at its start, its quarters and its end, from left to right.
#include "GoldenFixture.h"

#include "nmain/stream/InputStream.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/Transition.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <string>
#include <vector>

namespace golden {

using nurel::ui::AnimationContext;
using nurel::ui::Container;
using nurel::ui::SkinManager;
using nurel::ui::Transition;
using nurel::ui::UIManager;
using nurel::ui::css::CSSParser;
using nurel::ui::css::CSSSkin;

namespace {

constexpr int QUARTERS = 4;

// No side of a screen is like the other, so that a picture tells which face of it is seen, and which way up.
constexpr const char *BODIES = R"({"type":"widget","name":"stage","children":[
    {"type":"panel","class":"frame","size":[360,240],"scroll-mask":"none","children":[
        {"type":"panel","class":"start","size":[0,0,1,1],"scroll-mask":"none","children":[
            {"type":"label","class":"heading","text":"Start","position":[20,12],"size":[200,36],"anchor":"top-left"},
            {"type":"panel","class":"sand","position":[20,64],"size":[200,28],"anchor":"top-left","children":[
                {"type":"label","text":"Carry on","position":[10,0],"size":[160,28],"anchor":"top-left"}]},
            {"type":"panel","class":"sand","position":[20,100],"size":[200,28],"anchor":"top-left","children":[
                {"type":"label","text":"Leave","position":[10,0],"size":[160,28],"anchor":"top-left"}]},
            {"type":"panel","class":"coral","position":[-20,-20],"size":[60,60],"anchor":"bottom-right"}]},
        {"type":"panel","class":"options","size":[0,0,1,1],"scroll-mask":"none","children":[
            {"type":"panel","class":"amber","position":[20,20],"size":[80,200],"anchor":"top-left"},
            {"type":"label","class":["heading","white"],"text":"Options","position":[120,12],"size":[200,36],
             "anchor":"top-left"},
            {"type":"label","class":"white","text":"Loudness","position":[120,70],"size":[160,28],"anchor":"top-left"},
            {"type":"panel","class":"night","position":[120,104],"size":[220,16],"anchor":"top-left"},
            {"type":"panel","class":"amber","position":[120,104],"size":[90,16],"anchor":"top-left"}]}]}]})";

constexpr const char *SHEET = R"(
    widget { background: #12161d; }
    panel.frame { background: #000000; }
    panel.start { background: #f4ecd8; }
    panel.options { background: #21497e; }
    panel.sand { background: #e0cfa4; }
    panel.coral { background: #c2452d; }
    panel.night { background: #17335a; }
    panel.amber { background: #f2b84b; }
    label { color: #2b2113; background: none; font-size: 15px; vertical-align: center; }
    label.heading { font-size: 26px; }
    label.white { color: white; })";

class TransitionGolden : public GoldenFixture {
protected:
    void SetUp() override {
        GoldenFixture::SetUp();
        mStyle = new CSSSkin("style");
        SkinManager::getSingleton().setDefaultSkin(mStyle.get());
        nurel::stream::MemoryInputStream sheet("sheet", SHEET);
        mStyle->setStyleSheet(CSSParser().parse(&sheet));
        nurel::stream::MemoryInputStream stream("bodies", BODIES);
        show(nurel::ui::UIComponentParser().parse(&stream));
        draw();
    }

    void TearDown() override {
        GoldenFixture::TearDown();
        mStyle = nullptr;
    }

    /// From the one screen to the other, which is drawn on top of it, within a second.
    void expectTransition(Transition::Type type, const std::string &name) {
        UIManager &manager = UIManager::getSingleton();
        Container &frame = static_cast<Container &>(*manager.getWidgetAt(0)->getChildAt(0));
        const core::SmartPtr<AnimationContext> change(
            Transition::build(type, frame.getChildAt(0), frame.getChildAt(1), 1, nullptr));
        manager.commitAnimation(change.get());
        std::vector<std::vector<std::uint8_t>> stages{draw()};
        for (int quarter = 1; quarter <= QUARTERS; ++quarter) {
            engine().advance(1.0 / QUARTERS);
            stages.push_back(draw());
        }
        EXPECT_EQ(change->getStatus(), AnimationContext::FINISHED);
        expectPictures(name, stages);
    }

private:
    core::SmartPtr<CSSSkin> mStyle;
};

} // namespace

TEST_F(TransitionGolden, SlideFromRightToLeft) {
    expectTransition(Transition::T_SLIDEIN_HORIZONTAL_RIGHT_TO_LEFT, "transition-slide-right-to-left");
}

TEST_F(TransitionGolden, SlideFromLeftToRight) {
    expectTransition(Transition::T_SLIDEIN_HORIZONTAL_LEFT_TO_RIGHT, "transition-slide-left-to-right");
}

TEST_F(TransitionGolden, SlideFromBottomToTop) {
    expectTransition(Transition::T_SLIDEIN_VERTICAL_BOTTOM_TO_TOP, "transition-slide-bottom-to-top");
}

TEST_F(TransitionGolden, SlideFromTopToBottom) {
    expectTransition(Transition::T_SLIDEIN_VERTICAL_TOP_TO_BOTTOM, "transition-slide-top-to-bottom");
}

TEST_F(TransitionGolden, FlipAroundTheVerticalAxis) {
    expectTransition(Transition::T_FLIP_HORIZONTAL, "transition-flip-horizontal");
}

TEST_F(TransitionGolden, FlipAroundTheHorizontalAxis) {
    expectTransition(Transition::T_FLIP_VERTICAL, "transition-flip-vertical");
}

// What stands in the screen that comes in is opaque at the start: until the first step only the screen itself is not.
TEST_F(TransitionGolden, CrossFade) {
    expectTransition(Transition::T_CROSS_FADE, "transition-cross-fade");
}

} // namespace golden
