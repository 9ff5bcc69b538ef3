// Screens that a sheet styles: clipping, skins, text and states.
#include "GoldenFixture.h"

#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace golden {

using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::SkinManager;
using nurel::ui::UIManager;
using nurel::ui::css::CSSParser;
using nurel::ui::css::CSSSkin;

namespace {

constexpr int CELL = 24;
constexpr int CELLS = 4;

/// Round boxes in a row, one a skin: dark, bright, framed and pale.
std::vector<std::uint8_t> makeSkins() {
    constexpr std::uint8_t FILLS[CELLS][3] = {{70, 90, 140}, {110, 140, 220}, {40, 50, 70}, {150, 150, 150}};
    std::vector<std::uint8_t> rgba(CELL * CELL * CELLS * 4);
    for (int y = 0; y < CELL; ++y) {
        for (int x = 0; x < CELL * CELLS; ++x) {
            const int cell = x / CELL;
            const float dx = std::max(std::fabs(static_cast<float>(x % CELL) - 11.5F) - 3.5F, 0.0F);
            const float dy = std::max(std::fabs(static_cast<float>(y) - 11.5F) - 3.5F, 0.0F);
            const float distance = std::sqrt(dx * dx + dy * dy) - 8;
            const float inside = std::min(std::max(0.5F - distance, 0.0F), 1.0F);
            const bool frame = cell == 2 && distance > -2;
            std::uint8_t *pixel = &rgba[static_cast<std::size_t>((y * CELL * CELLS + x) * 4)];
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = frame ? 230 : FILLS[cell][channel];
            pixel[3] = static_cast<std::uint8_t>(inside * 255);
        }
    }
    return rgba;
}

class StyleGolden : public GoldenFixture {
protected:
    void SetUp() override {
        GoldenFixture::SetUp();
        const std::vector<std::uint8_t> skins = makeSkins();
        nurel::texture::TexturePool::getSingleton().add("skins.png", CELL * CELLS, CELL, skins.data());
        mStyle = new CSSSkin("style");
        SkinManager::getSingleton().setDefaultSkin(mStyle.get());
    }

    void TearDown() override {
        GoldenFixture::TearDown();
        mStyle = nullptr;
    }

    /// The components of a template on the stage, under a sheet.
    core::SmartPtr<Container> show(const char *components, const char *sheet) {
        nurel::stream::MemoryInputStream sheetStream("sheet", sheet);
        mStyle->setStyleSheet(CSSParser().parse(&sheetStream));
        const std::string screen = std::string(R"({"type":"widget","name":"stage","children":[)") + components + "]}";
        nurel::stream::MemoryInputStream stream("screen", screen);
        const core::SmartPtr<Component> widget(nurel::ui::UIComponentParser().parse(&stream));
        GoldenFixture::show(widget);
        return static_cast<Container *>(widget.get());
    }

    static Container &child(Container &parent, unsigned int index) {
        return static_cast<Container &>(*parent.getChildAt(index));
    }

    static void frame() {
        UIManager::getSingleton().updateEvents();
        UIManager::getSingleton().update();
    }

    core::SmartPtr<CSSSkin> mStyle;
};

constexpr const char *CLIPPING = R"(
    {"type":"panel","class":"outer","name":"nested","position":[20,20],"size":[130,130],"anchor":"top-left","children":[
        {"type":"panel","class":"middle","position":[50,30],"size":[120,60],"anchor":"top-left","children":[
            {"type":"panel","class":"inner","position":[-20,20],"size":[60,80],"anchor":"top-left"}]},
        {"type":"panel","class":"middle","position":[-20,100],"size":[60,60],"anchor":"top-left"}]},
    {"type":"panel","class":"outer","name":"turned","position":[190,40],"size":[90,90],"anchor":"top-left","children":[
        {"type":"panel","class":"middle","position":[45,45],"size":[90,30],"anchor":"top-left"}]},
    {"type":"panel","class":["outer","scroll"],"name":"scrolled","position":[330,20],"size":[120,130],"anchor":"top-left","children":[
        {"type":"panel","class":"middle","position":[10,10],"size":[80,60],"anchor":"top-left"},
        {"type":"panel","class":"inner","position":[10,90],"size":[80,60],"anchor":"top-left"},
        {"type":"panel","class":"middle","position":[10,170],"size":[80,60],"anchor":"top-left"}]},
    {"type":"panel","class":["outer","open"],"position":[20,190],"size":[100,60],"anchor":"top-left","children":[
        {"type":"panel","class":"middle","position":[60,40],"size":[80,40],"anchor":"top-left"}]},
    {"type":"panel","class":["outer","padded"],"position":[190,190],"size":[120,90],"anchor":"top-left","children":[
        {"type":"panel","class":"middle","position":[-10,-10],"size":[200,200],"anchor":"top-left"}]})";

constexpr const char *CLIPPING_SHEET =
    ".outer { background: #30456a; overflow: hidden; } .open { overflow: visible; } .scroll { overflow: hidden auto; }"
    ".padded { padding: 10px 20px 5px; } .middle { background: #5b8def; } .inner { background: #f2a33a; }";

} // namespace

TEST_F(StyleGolden, ContainersClipNestedTurnedScrolledAndPadded) {
    const auto stage = show(CLIPPING, CLIPPING_SHEET);
    child(*stage, 1).setRotation(Matrix3(0.4F, Vector3::AXIS_Z));
    frame();
    child(*stage, 2).scrollVerticalPercent(0.5F);
    expectPicture("style-clipping");
}

TEST_F(StyleGolden, SkinsAreCutFromOneImageAndStretched) {
    show(R"(
        {"type":"panel","class":["skin","a"],"position":[20,20],"size":[24,24],"anchor":"top-left"},
        {"type":"panel","class":["skin","b"],"position":[60,20],"size":[120,24],"anchor":"top-left"},
        {"type":"panel","class":["skin","c"],"position":[200,20],"size":[120,90],"anchor":"top-left"},
        {"type":"panel","class":["skin","d"],"position":[340,20],"size":[60,130],"anchor":"top-left"},
        {"type":"panel","class":"flat","position":[20,140],"size":[120,60],"anchor":"top-left"},
        {"type":"panel","class":["skin","b","tint"],"position":[160,140],"size":[120,60],"anchor":"top-left"},
        {"type":"panel","class":["skin","b","pale"],"position":[20,230],"size":[120,60],"anchor":"top-left"},
        {"type":"image","class":"picture","position":[160,230],"anchor":"top-left"},
        {"type":"panel","class":["skin","whole"],"position":[340,230],"size":[96,24],"anchor":"top-left"})",
         "@define { cells: 4 1; }"
         ".skin { background-image: skins.png; border-radius: 10px; -n-background: 0 4 1; }"
         ".b { -n-background: 1 4 1; } .c { -n-background: 2 4 1; } .d { -n-background: 3 4 1; }"
         ".flat { background: #2f9e6e; } panel.tint { background: #ff8080 left top no-repeat skins.png; }"
         ".pale { opacity: 0.4; } image { width: auto; height: auto; background-image: skins.png; }"
         ".whole { border-radius: 0px; -n-background: 0 1 1; }");
    expectPicture("style-skins");
}

TEST_F(StyleGolden, TextIsAlignedColouredAndScaled) {
    const char *const HORIZONTAL[] = {"left", "center", "right"};
    const char *const VERTICAL[] = {"top", "center", "bottom"};
    std::string screen;
    for (int i = 0; i < 9; ++i) {
        const std::string column = std::to_string(i % 3);
        const std::string row = std::to_string(i / 3);
        screen += R"({"type":"label","class":["h)" + column + R"(","v)" + row + R"("],"text":")" + HORIZONTAL[i % 3] +
                  " " + VERTICAL[i / 3] + R"(","position":[)" + std::to_string(15 + 152 * (i % 3)) + "," +
                  std::to_string(10 + 62 * (i / 3)) + R"(],"size":[146,56],"anchor":"top-left"},)";
    }
    screen +=
        R"({"type":"label","class":"large","text":"Thirty pixels","position":[15,200],"size":[250,50],"anchor":"top-left"},
        {"type":"label","class":"small","text":"eleven pixels","position":[15,260],"size":[120,40],"anchor":"top-left"},
        {"type":"label","class":"double","text":"200%","position":[280,200],"size":[130,50],"anchor":"top-left"},
        {"type":"label","class":"wrapped","text":"a text that is wrapped in its padding","position":[150,255],"size":[150,60],"anchor":"top-left"},
        {"type":"label","class":"pale","text":"half opaque","position":[320,260],"size":[140,40],"anchor":"top-left"})";
    show(screen.c_str(),
         "label { background: #243048; color: #e6ecf5; font-size: 16px; padding: 6px; vertical-align: center; } .v0 { "
         "vertical-align: top; }"
         ".h1 { text-align: center; } .h2 { text-align: right; }"
         ".v1 { vertical-align: center; } .v2 { vertical-align: bottom; }"
         ".large { font-size: 30px; color: #f2a33a; } .small { font-size: 11px; color: #8fd3b6; }"
         ".double { font-size: 200%; } .wrapped { padding: 4px 30px 4px 8px; } .pale { opacity: 0.5; }");
    expectPicture("style-text");
}

TEST_F(StyleGolden, ControlsLookAsTheirStateIs) {
    std::string screen;
    const char *const NAMES[] = {"plain", "hover", "pressed", "disabled", "checked"};
    for (int i = 0; i < 5; ++i) {
        screen += (i ? "," : "") + std::string(R"({"type":"button","name":")") + NAMES[i] + R"(","text":")" + NAMES[i] +
                  R"(","position":[20,)" + std::to_string(20 + i * 56) + R"(],"size":[160,40],"anchor":"top-left"})";
    }
    screen +=
        R"(,{"type":"checkbox","name":"off","text":"unchecked","position":[240,20],"size":[200,30],"anchor":"top-left"},
        {"type":"checkbox","name":"on","text":"checked","checked":true,"position":[240,70],"size":[200,30],"anchor":"top-left"},
        {"type":"radio","name":"first","text":"first","position":[240,130],"size":[200,30],"anchor":"top-left"},
        {"type":"radio","name":"second","text":"second","checked":true,"position":[240,180],"size":[200,30],"anchor":"top-left"},
        {"type":"button","name":"focus","text":"focused","position":[240,244],"size":[160,40],"anchor":"top-left","tab-stop":1})";
    const auto stage = show(
        screen.c_str(),
        "button { background: #ffffff left top no-repeat skins.png; border-radius: 10px; -n-background: 0 4 1; }"
        "button:hover { -n-background: 1 4 1; } button:active { -n-background: 2 4 1; }"
        "button:disabled { -n-background: 3 4 1; } button:checked { background: #ffd080 left top no-repeat skins.png; }"
        "button:focus { border-radius: 6px; background: #80ffb0 left top no-repeat skins.png; }"
        "#label { background: none; -n-anchor: center; width: 100%; height: 100%; color: white; font-size: 15px; "
        "text-align: center; "
        "vertical-align: center; left: 0px; top: 0px; } button#label:disabled { color: #303030; }"
        "checkbox#label, radio#label { text-align: left; width: 100% -40px; left: 20px; }"
        "#check { -n-anchor: center-left; left: 0px; top: 0px; width: 24px; height: 24px; background: #ffffff left top "
        "no-repeat skins.png; border-radius: 0px; -n-background: 0 4 1; } #check:checked { -n-background: 2 4 1; }");
    UIManager &manager = UIManager::getSingleton();
    stage->getChildAt(3)->setEnabled(false);
    static_cast<nurel::ui::components::Button &>(*stage->getChildAt(2)).setPressed(true);
    static_cast<nurel::ui::components::Button &>(*stage->getChildAt(4)).setChecked(true);
    frame();
    stage->getChildAt(9)->setFocus();
    manager.setMousePos({60, 90});
    expectPicture("style-states");
}

} // namespace golden
