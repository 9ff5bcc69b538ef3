#include "ScreenFixture.h"
#include "TreeDump.h"

#include "nengine/renderer/RecordingBackend.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/texture/Texture.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Label.h"

namespace viewer {

namespace {

using nurel::math::Vector2;
using nurel::math::Vector4;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIManager;
namespace components = nurel::ui::components;

template <class Vector>
std::string write(const char *what, const Vector &v) {
    std::string text = std::string(" ") + what;
    for (unsigned int i = 0; i < sizeof(Vector) / sizeof(float); ++i)
        text += (i ? "," : " ") + std::to_string(v[i]);
    return text;
}

/// A line for each component with all that a sheet can set of its geometry, and what came of it.
void describe(const Component &component, const std::string &path, std::vector<std::string> &lines) {
    const Component::ComponentSize &size = component.getComponentSize();
    std::string line = path + component.getName() + ":";
    line += write("at", component.getWorldPosition()) + write("size", component.getSize());
    line += write("absolute", component.getComponentPosition().absolute) + write("absolute", size.absolute);
    line += write("relative", component.getComponentPosition().relative) + write("relative", size.relative);
    line += write("minimum", size.minimum) + write("maximum", size.maximum);
    line += write("margin", component.getMargin()) + write("border", component.getBorder());
    line += write("padding", component.getPadding()) + write("scale", component.getScale());
    line += " opacity " + std::to_string(component.Component::getOpacity());
    line += " anchor " + std::to_string(component.getAnchor()) + " auto " + std::to_string(size.autoSize);
    line += " z " + std::to_string(component.getZIndex()) + " events " + std::to_string(component.getEventMask());
    if (component.isContainer()) {
        const auto &container = static_cast<const Container &>(component);
        line += write("scrolled", container.getScrollOffset());
        line += " scrolls " + std::to_string(container.getScrollMask());
        line += container.getClipChildren() ? " clips" : "";
        for (const Component *bar : {container.getScrollInfoH().bar, container.getScrollInfoV().bar})
            line += bar && bar->isVisible() ? write(bar->getName(), bar->getSize()) : "";
    }
    lines.push_back(line);
    if (!component.isContainer())
        return;
    const auto &container = static_cast<const Container &>(component);
    for (unsigned int i = 0; i < container.getChildCount(); ++i)
        describe(*container.getChildAt(i), path + component.getName() + "/", lines);
}

std::vector<std::string> describeScreen(const Screen &screen) {
    std::vector<std::string> lines;
    describe(*screen.getWidget(), "", lines);
    return lines;
}

std::string readFile(const std::string &path) {
    nurel::stream::FileInputStream stream(path.c_str());
    return nurel::stream::readAll(stream);
}

/// Where everything is drawn and in which colours; where its pictures lie in the atlas depends on what was there
/// before.
std::vector<std::string> describeDrawing(nurel::Engine &engine) {
    std::vector<std::string> lines;
    const nurel::renderer::RecordingBackend &backend = *engine.getRecordingBackend();
    for (const nurel::renderer::DrawCommand &command : backend.getCommands()) {
        for (const nurel::renderer::DrawVertex &vertex : backend.getVertices(command)) {
            std::string line;
            for (const float value : {vertex.x, vertex.y, vertex.z})
                line += std::to_string(value) + " ";
            lines.push_back(line + std::to_string(vertex.rgba));
        }
    }
    return lines;
}

class ScreenStyle : public ScreenFixture {};

} // namespace

TEST_F(ScreenStyle, AfterAChangeOfTheWholeLookTheScreenIsThatOfAFreshStart) {
    const std::string light = readFile("assets/style/light.css");
    const std::string dark = readFile("assets/style/dark.css");
    std::filesystem::copy("assets/style", mFolder.getPath("style"),
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    mFolder.write("screen.ui", readFile("assets/screens/controls.ui"));
    openWith(light);
    const std::vector<std::string> fresh = describeDrawing(mEngine);
    EXPECT_GT(fresh.size(), 1000U);
    openWith(dark);
    EXPECT_NE(describeDrawing(mEngine), fresh);
    restyle("");
    restyle(light);
    EXPECT_TRUE(describeDrawing(mEngine) == fresh);
    restyle(dark);
    restyle(light);
    EXPECT_TRUE(describeDrawing(mEngine) == fresh);
}

TEST_F(ScreenStyle, AChangedSheetIsSeenOnTheSameComponents) {
    openWith("panel { background: #ff0000; width: 300px; }");
    const Component *form = &find("form");
    const nurel::ui::ComponentView *view = form->getView();
    EXPECT_EQ(colorOf(box("form")), Vector4(1, 0, 0, 1));
    restyle("panel { background: #0000ff; width: 350px; }");
    EXPECT_EQ(colorOf(box("form")), Vector4(0, 0, 1, 1));
    EXPECT_FLOAT_EQ(form->getSize().x, 350);
    EXPECT_EQ(&find("form"), form);
    EXPECT_EQ(form->getView(), view);
    EXPECT_EQ(mScreen->getMessage(), "");
}

TEST_F(ScreenStyle, WhatASheetNoLongerSaysIsNoLongerSeen) {
    openWith("");
    const std::vector<std::string> plain = describeScreen(*mScreen);
    const char *const declarations[] = {
        "margin: 1px 2px 3px 4px;",
        "border: 1px 2px 3px 4px;",
        "padding: 1px 2px 3px 4px;",
        "width: 321px;",
        "width: auto;",
        "height: 50%;",
        "top: 7px;",
        "left: 10%;",
        "min-width: 500px;",
        "max-width: 20px;",
        "min-height: 500px;",
        "max-height: 20px;",
        "opacity: 0.5;",
        "overflow: hidden scroll;",
        "overflow: visible;",
        "transform: rotate(30);",
        "z-index: 5;",
        "-n-anchor: top-left;",
        "width: 5px; height: 6px; left: 7px; top: 8px; margin: 9px; opacity: 0.25;",
    };
    for (const char *declaration : declarations) {
        for (const char *selector : {"panel", "label", "*", "#ok", "checkbox:hover", "widget"}) {
            restyle(std::string(selector) + " { " + declaration + " }");
            restyle("");
            mLog.take(logging::Level::ERROR); // of scroll bars inside of paddings
            ASSERT_EQ(describeScreen(*mScreen), plain) << selector << " { " << declaration << " }";
        }
    }
}

TEST_F(ScreenStyle, ABackgroundThatGoesLeavesNoBox) {
    savePicture("style/a.png", 12);
    openWith("");
    const bool hidden = box("form").isHidden();
    const Vector4 color = colorOf(box("form"));
    restyle("panel { background: #ff000080; background-image: a.png; border-radius: 4px; }");
    EXPECT_FALSE(box("form").isHidden());
    EXPECT_NE(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(box("form").getBorder(), Vector4(4, 4, 4, 4));
    restyle("");
    EXPECT_EQ(box("form").isHidden(), hidden);
    EXPECT_EQ(colorOf(box("form")), color);
    EXPECT_EQ(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(box("form").getBorder(), Vector4(0, 0, 0, 0));
}

TEST_F(ScreenStyle, TextPropertiesThatGoAreUndone) {
    openWith("");
    nurel::scene::meshes::TextMesh &text = *find<components::Label>("title").getTextMesh();
    const Vector4 color = colorOf(text);
    const float scale = text.getScale();
    const unsigned int horizontal = text.getHorizontalAlignment();
    const unsigned int vertical = text.getVerticalAlignment();
    restyle("label { color: #00ff0080; font-size: 200%; text-align: right; vertical-align: bottom; }");
    EXPECT_NE(colorOf(text), color);
    EXPECT_FLOAT_EQ(text.getScale(), 2);
    EXPECT_EQ(text.getHorizontalAlignment(), 2U);
    EXPECT_EQ(text.getVerticalAlignment(), 2U);
    restyle("");
    EXPECT_EQ(colorOf(text), color);
    EXPECT_FLOAT_EQ(text.getScale(), scale);
    EXPECT_EQ(text.getHorizontalAlignment(), horizontal);
    EXPECT_EQ(text.getVerticalAlignment(), vertical);
}

TEST_F(ScreenStyle, WhatTheUserDidStays) {
    openWith("panel { overflow: hidden; } #form { overflow: visible; }");
    auto &list = find<Container>("list");
    list.setScrollOffset(Vector2(0, -120));
    find("ok").setFocus();
    find<components::Checkbox>("agree").setChecked(true);
    find<components::Button>("ok").setChecked(true);
    find<components::Label>("title").setText("typed");
    runFrames(2);
    const Vector2 offset = list.getScrollOffset();
    EXPECT_NE(offset.y, 0);
    // A container that for a moment has its own size again, in which nothing is to scroll.
    restyle("panel { overflow: hidden; } #form { overflow: visible; } #list { height: 80px; } #long { width: 170px; }");
    restyle("panel { overflow: hidden; } #form { overflow: visible; } #list { height: 90px; } #long { width: 160px; }");
    EXPECT_EQ(list.getScrollOffset(), offset);
    EXPECT_TRUE(find("ok").hasFocus());
    EXPECT_TRUE(find<components::Checkbox>("agree").isChecked());
    EXPECT_TRUE(find<components::Button>("ok").isChecked());
    EXPECT_STREQ(find<components::Label>("title").getText(), "typed");
}

TEST_F(ScreenStyle, TheLaterSheetCountsAlsoWhenTheEarlierOneIsSavedLast) {
    mFolder.write("style/a.css", "panel { width: 300px; }");
    mFolder.write("style/b.css", "panel { width: 200px; }");
    open({"style/a.css", "style/b.css"});
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
    save("style/a.css", "panel { width: 100px; height: 50px; }");
    EXPECT_EQ(find("form").getSize(), Vector2(200, 50));
}

TEST_F(ScreenStyle, ImagesAreFoundBesideTheScreenAndThenBesideTheSheets) {
    savePicture("style/a.png", 10);
    savePicture("style/b.png", 10);
    savePicture("b.png", 20);
    openWith("#form { background-image: a.png; } #list { background-image: b.png; }");
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 10U);
    EXPECT_EQ(find("list").getMeshTexture(0)->getWidth(), 20U);
}

TEST_F(ScreenStyle, TheDumpTellsTheMatchingRulesInTheirOrder) {
    openWith(
        "#ok { width: 90px; }\nlabel, button { width: 80px; }\nbutton:hover { width: 70px; }\n.no { width: 1px; }");
    const std::string file = mFolder.getPath("style/a.css");
    const auto rule = [&file](const char *selector, int line) {
        return R"({"selector":")" + std::string(selector) + R"(","file":")" + file + R"(","line":)" +
               std::to_string(line) + "}";
    };
    std::string dump = dumpTree(0);
    EXPECT_NE(dump.find(R"("rules":[)" + rule("button", 2) + "," + rule("#ok", 1) + "]"), std::string::npos) << dump;
    EXPECT_NE(dump.find(R"("rules":[])"), std::string::npos);
    const Vector2 center = getScreenCenter(find("ok"));
    UIManager::getSingleton().setMousePos({static_cast<int>(center.x), static_cast<int>(center.y)});
    runFrames(2);
    dump = dumpTree(0);
    EXPECT_NE(dump.find(rule("button", 2) + "," + rule("button:hover", 3) + "," + rule("#ok", 1)), std::string::npos);
}

TEST_F(ScreenStyle, WithoutSheetsTheStyleFreeSkinShowsAndNoRulesAreTold) {
    open({});
    EXPECT_STREQ(nurel::ui::SkinManager::getSingleton().getDefaultSkin()->getName(), "default");
    EXPECT_EQ(dumpTree(0).find("\"rules\""), std::string::npos);
}

} // namespace viewer
