// What is shown while template, sheets and images are edited.
#include "ComponentFinder.h"
#include "Screen.h"
#include "TemporaryFolder.h"
#include "TreeDump.h"

#include "nengine/Engine.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/Texture.h"
#include "nengine/texture/TexturePool.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Label.h"
#include "support/LogCapture.h"

#include "foundation/core/Exception.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace viewer {

namespace {

using nurel::math::Vector2;
using nurel::math::Vector4;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::texture::TexturePool;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIManager;
namespace components = nurel::ui::components;

class ScreenTest : public testing::Test {
protected:
    static nurel::EngineConfig makeConfig() {
        nurel::EngineConfig config = nurel::EngineConfig::headless(800, 600);
        config.fontFile = "tests/data/fonts/DejaVuSans.ttf";
        return config;
    }

    ScreenTest() : mEngine(makeConfig()) {
        mFolder.write("screen.ui", SCREEN);
        mFolder.write("style/a.css", "");
    }

    ~ScreenTest() override {
        mScreen.reset();
        UIManager::shutdown();
        nurel::ui::SkinManager::deleteSingleton();
    }

    void open(const std::vector<std::string> &sheets) {
        std::vector<std::string> paths;
        for (const std::string &sheet : sheets)
            paths.push_back(mFolder.getPath(sheet));
        mScreen.reset();
        mScreen = std::make_unique<Screen>(mFolder.getPath("screen.ui"), paths, "");
        runFrames(2);
    }

    void openWith(const std::string &sheet) {
        mFolder.write("style/a.css", sheet);
        open({"style/a.css"});
    }

    /// Saves a sheet and lets the time pass that a reload may take.
    void save(const std::string &name, const std::string &content) {
        mFolder.write(name, content);
        letSecondPass();
    }

    void restyle(const std::string &sheet) { save("style/a.css", sheet); }

    void letSecondPass() {
        for (int i = 0; i < 10; ++i) {
            mNow += std::chrono::milliseconds(100);
            mScreen->reloadChanged(mNow);
            runFrames(1);
        }
    }

    void runFrames(int count) {
        for (int i = 0; i < count; ++i) {
            mEngine.advance(1.0 / 60);
            TexturePool::getSingleton().waitUntilLoaded();
            mEngine.pump();
            UIManager::getSingleton().updateEvents();
            UIManager::getSingleton().update();
            mEngine.renderFrame(*UIManager::getSingleton().getRenderPass());
        }
    }

    template <class T = Component>
    T &find(const char *name) {
        Component *component = findComponent(name);
        if (!component)
            throw std::runtime_error(std::string("no component ") + name);
        return static_cast<T &>(*component);
    }

    BorderedRectangleMesh &box(const char *name) { return static_cast<BorderedRectangleMesh &>(*find(name).getMesh()); }

    static Vector4 colorOf(nurel::scene::Frame &frame) {
        using nurel::scene::properties::MaterialProperty;
        return static_cast<MaterialProperty *>(frame.getProperty(nurel::scene::Property::MATERIAL))->getColor();
    }

    void savePicture(const std::string &name, unsigned int side) {
        const std::vector<std::uint8_t> pixels(std::size_t{4} * side * side, 255);
        const std::string path = mFolder.getPath(name + "~");
        nurel::texture::savePng(path.c_str(), side, side, pixels.data());
        std::filesystem::rename(path, mFolder.getPath(name));
    }

    static constexpr const char *SCREEN = R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
        {"type":"panel","name":"form","size":[400,200],"children":[
            {"type":"label","name":"title","size":[100,40],"text":"Title"},
            {"type":"button","name":"ok","size":[80,30],"position":[-150,60],"text":"OK","tab-stop":0},
            {"type":"checkbox","name":"agree","size":[80,30],"position":[150,60],"text":"Yes"}]},
        {"type":"panel","name":"list","size":[200,100],"position":[0,200],"children":[
            {"type":"panel","name":"long","size":[180,900],"anchor":"top-left"}]}]})";

    const TemporaryFolder mFolder;
    nurel::Engine mEngine;
    std::unique_ptr<Screen> mScreen;
    WatchedFileSystem::Time mNow{};
    test::LogCapture mLog;
};

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

/// Where everything is drawn and in which colours; where its pictures lie in the atlas depends on what was there before.
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

} // namespace

TEST_F(ScreenTest, AfterAChangeOfTheWholeLookTheScreenIsThatOfAFreshStart) {
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

TEST_F(ScreenTest, AChangedSheetIsSeenOnTheSameComponents) {
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

TEST_F(ScreenTest, WhatASheetNoLongerSaysIsNoLongerSeen) {
    openWith("");
    const std::vector<std::string> plain = describeScreen(*mScreen);
    const char *const declarations[] = {
        "margin: 1px 2px 3px 4px;", "border: 1px 2px 3px 4px;", "padding: 1px 2px 3px 4px;",
        "width: 321px;", "width: auto;", "height: 50%;", "top: 7px;", "left: 10%;",
        "min-width: 500px;", "max-width: 20px;", "min-height: 500px;", "max-height: 20px;",
        "opacity: 0.5;", "overflow: hidden scroll;", "overflow: visible;",
        "transform: rotate(30);", "z-index: 5;", "-n-anchor: top-left;",
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

TEST_F(ScreenTest, ABackgroundThatGoesLeavesNoBox) {
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

TEST_F(ScreenTest, TextPropertiesThatGoAreUndone) {
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

TEST_F(ScreenTest, WhatTheUserDidStays) {
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

TEST_F(ScreenTest, AFaultySheetLeavesTheLastGoodOneAndIsToldUntilItIsMended) {
    openWith("panel { background: #ff0000; width: 300px; }");
    restyle("panel { background: #0000ff }");
    const std::string fault = mFolder.getPath("style/a.css") + ":1:29: Syntax error: unexpected '}'.";
    EXPECT_EQ(mScreen->getMessage(), fault);
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Cannot reload " + fault);
    EXPECT_EQ(colorOf(box("form")), Vector4(1, 0, 0, 1));
    EXPECT_FLOAT_EQ(find("form").getSize().x, 300);
    restyle("panel { background: #0000ff; }");
    EXPECT_EQ(mScreen->getMessage(), "");
    EXPECT_EQ(findComponent("message"), nullptr);
    EXPECT_EQ(colorOf(box("form")), Vector4(0, 0, 1, 1));
    EXPECT_FLOAT_EQ(find("form").getSize().x, 400);
}

TEST_F(ScreenTest, TheMessageCanBeReadWhateverTheSheetSays) {
    openWith("* { color: #00000000; opacity: 0; background: none; font-size: 1px; width: 1px; height: 1px; }");
    restyle("!");
    mLog.takeOne(logging::Level::ERROR);
    auto &text = find<components::Label>("message/text");
    EXPECT_EQ(text.getText(), mScreen->getMessage());
    EXPECT_FLOAT_EQ(text.Component::getOpacity(), 1);
    EXPECT_EQ(colorOf(*text.getTextMesh()), Vector4(1, 1, 1, 1));
    EXPECT_GT(text.getSize().x, 700);
    EXPECT_GT(text.getTextMesh()->getExtents().y, 10);
    EXPECT_LE(text.getTextMesh()->getExtents().y, text.getSize().y);
    EXPECT_FALSE(box("message").isHidden());
    EXPECT_FLOAT_EQ(find("message").getSize().x, 800);
}

TEST_F(ScreenTest, TheMessageTakesNeitherFocusNorInput) {
    mFolder.write("screen.ui", R"({"type":"widget","name":"stage","size":[0,0,1,1],"children":[
        {"type":"button","name":"all","size":[0,0,1,1],"tab-stop":0}]})");
    openWith("");
    UIManager::getSingleton().setMousePos({400, 595});
    runFrames(2);
    find("all").setFocus();
    restyle("!");
    mLog.takeOne(logging::Level::ERROR);
    runFrames(2);
    EXPECT_TRUE(find("all").hasFocus());
    EXPECT_EQ(UIManager::getSingleton().getComponentAtCursor(), &find("all"));
}

TEST_F(ScreenTest, OneFaultySheetOfSeveralKeepsAllOfTheLastGoodOnes) {
    mFolder.write("style/a.css", "panel { width: 300px; }");
    mFolder.write("style/b.css", "panel { height: 90px; }");
    open({"style/a.css", "style/b.css"});
    save("style/b.css", "panel { height: 70px }");
    EXPECT_NE(mLog.takeOne(logging::Level::ERROR).find("b.css:1:22: "), std::string::npos);
    save("style/a.css", "panel { width: 200px; }");
    EXPECT_EQ(find("form").getSize(), Vector2(300, 90));
    EXPECT_NE(mScreen->getMessage().find("b.css:1:22: "), std::string::npos);
    save("style/b.css", "panel { height: 70px; }");
    EXPECT_EQ(find("form").getSize(), Vector2(200, 70));
    EXPECT_EQ(mScreen->getMessage(), "");
}

TEST_F(ScreenTest, TheLaterSheetCountsAlsoWhenTheEarlierOneIsSavedLast) {
    mFolder.write("style/a.css", "panel { width: 300px; }");
    mFolder.write("style/b.css", "panel { width: 200px; }");
    open({"style/a.css", "style/b.css"});
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
    save("style/a.css", "panel { width: 100px; height: 50px; }");
    EXPECT_EQ(find("form").getSize(), Vector2(200, 50));
}

TEST_F(ScreenTest, ADeletedSheetLeavesTheLastGoodOne) {
    openWith("panel { width: 300px; }");
    mFolder.remove("style/a.css");
    letSecondPass();
    const std::string fault = "Cannot open file " + mFolder.getPath("style/a.css");
    EXPECT_EQ(mScreen->getMessage(), fault);
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Cannot reload " + fault);
    EXPECT_FLOAT_EQ(find("form").getSize().x, 300);
    restyle("panel { width: 200px; }");
    EXPECT_EQ(mScreen->getMessage(), "");
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
}

TEST_F(ScreenTest, ASheetRenamedIntoPlaceIsSeen) {
    openWith("panel { width: 300px; }");
    mFolder.writeByRenaming("style/a.css", "panel { width: 200px; }");
    letSecondPass();
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
}

TEST_F(ScreenTest, AFaultySheetAtTheStartIsRefused) {
    mFolder.write("style/a.css", "panel { } }");
    try {
        open({"style/a.css"});
        FAIL();
    } catch (const core::Exception &e) {
        EXPECT_EQ(std::string(e.getMessage()).rfind(mFolder.getPath("style/a.css") + ":1:11: ", 0), 0U)
            << e.getMessage();
    }
    mLog.take(logging::Level::ERROR);
}

TEST_F(ScreenTest, AChangedTemplateIsRebuilt) {
    openWith("panel { width: 300px; }");
    save("screen.ui", R"({"type":"panel","name":"other"})");
    EXPECT_EQ(findComponent("form"), nullptr);
    EXPECT_FLOAT_EQ(find("other").getSize().x, 300);
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), 1U);
}

TEST_F(ScreenTest, AFaultyTemplateLeavesTheLastGoodScreenWhichASheetStillStyles) {
    openWith("panel { width: 300px; }");
    const Component *form = &find("form");
    save("screen.ui", "{\n  \"type\": \"panel\",\n  oops\n}");
    const std::string place = mFolder.getPath("screen.ui") + ":3:3: ";
    EXPECT_EQ(mScreen->getMessage().rfind(place, 0), 0U) << mScreen->getMessage();
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR).rfind("Cannot reload " + place, 0), 0U);
    restyle("panel { width: 200px; }");
    EXPECT_EQ(&find("form"), form);
    EXPECT_FLOAT_EQ(form->getSize().x, 200);
    EXPECT_NE(mScreen->getMessage(), "");
    save("screen.ui", SCREEN);
    EXPECT_EQ(mScreen->getMessage(), "");
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
}

TEST_F(ScreenTest, ATemplateOfAnUnknownTypeIsToldWithItsFile) {
    openWith("");
    save("screen.ui", R"({"type":"nothing"})");
    EXPECT_EQ(mScreen->getMessage(), "screen.ui: Cannot open file " + mFolder.getPath("nothing.ui"));
    mLog.take(logging::Level::ERROR);
    EXPECT_NE(findComponent("form"), nullptr);
}

TEST_F(ScreenTest, AFaultInAnIncludedTemplateLeavesTheLastGoodScreen) {
    mFolder.write("part.ui", R"({"type":"panel","name":"part","size":[50,50]})");
    mFolder.write("screen.ui", R"({"type":"widget","name":"stage","children":[
        {"type":"part","name":"first"}]})");
    openWith("");
    const Component *first = &find("first");
    save("part.ui", "{");
    EXPECT_NE(mScreen->getMessage().find("part.ui:1:"), std::string::npos) << mScreen->getMessage();
    mLog.take(logging::Level::ERROR);
    EXPECT_EQ(&find("first"), first);
    save("part.ui", R"({"type":"panel","name":"part","size":[70,70]})");
    EXPECT_EQ(mScreen->getMessage(), "");
    EXPECT_EQ(find("first").getSize(), Vector2(70, 70));
}

TEST_F(ScreenTest, ImagesAreFoundBesideTheScreenAndThenBesideTheSheets) {
    savePicture("style/a.png", 10);
    savePicture("style/b.png", 10);
    savePicture("b.png", 20);
    openWith("#form { background-image: a.png; } #list { background-image: b.png; }");
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 10U);
    EXPECT_EQ(find("list").getMeshTexture(0)->getWidth(), 20U);
}

TEST_F(ScreenTest, AChangedImageIsSeen) {
    savePicture("style/a.png", 10);
    openWith("panel { background-image: a.png; }");
    const Component *form = &find("form");
    savePicture("style/a.png", 30);
    letSecondPass();
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 30U);
    EXPECT_EQ(&find("form"), form);
}

TEST_F(ScreenTest, AnImageThatComesLaterIsSeen) {
    openWith("#form { background-image: a.png; }");
    EXPECT_EQ(mLog.takeOne(logging::Level::WARN), "Cannot find image a.png");
    savePicture("style/a.png", 10);
    letSecondPass();
    ASSERT_NE(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 10U);
}

TEST_F(ScreenTest, AFaultyImageLeavesTheLastGoodOneAndIsToldUntilItIsMended) {
    savePicture("style/a.png", 10);
    openWith("#form { background-image: a.png; }");
    save("style/a.png", "no picture");
    EXPECT_EQ(mScreen->getMessage().rfind("a.png: ", 0), 0U) << mScreen->getMessage();
    EXPECT_EQ(mLog.takeOne(logging::Level::ERROR), "Cannot reload " + mScreen->getMessage());
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 10U);
    savePicture("style/a.png", 30);
    letSecondPass();
    EXPECT_EQ(mScreen->getMessage(), "");
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 30U);
}

TEST_F(ScreenTest, AnImageThatWasFaultyAtTheStartIsSeenWhenItIsMended) {
    mFolder.write("style/a.png", "no picture");
    openWith("#form { background-image: a.png; }");
    EXPECT_NE(mLog.takeOne(logging::Level::ERROR).find("a.png"), std::string::npos);
    savePicture("style/a.png", 30);
    letSecondPass();
    ASSERT_NE(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 30U);
}

TEST_F(ScreenTest, SeveralFaultsAreToldALineEach) {
    openWith("panel { width: 300px; }");
    save("screen.ui", "{");
    restyle("!");
    EXPECT_EQ(std::count(mScreen->getMessage().begin(), mScreen->getMessage().end(), '\n'), 1) << mScreen->getMessage();
    mLog.take(logging::Level::ERROR);
    restyle("");
    save("screen.ui", SCREEN);
    EXPECT_EQ(mScreen->getMessage(), "");
}

TEST_F(ScreenTest, TheDumpTellsTheMatchingRulesInTheirOrder) {
    openWith("#ok { width: 90px; }\nlabel, button { width: 80px; }\nbutton:hover { width: 70px; }\n.no { width: 1px; }");
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

TEST_F(ScreenTest, WithoutSheetsTheStyleFreeSkinShowsAndNoRulesAreTold) {
    open({});
    EXPECT_STREQ(nurel::ui::SkinManager::getSingleton().getDefaultSkin()->getName(), "default");
    EXPECT_EQ(dumpTree(0).find("\"rules\""), std::string::npos);
}

} // namespace viewer
