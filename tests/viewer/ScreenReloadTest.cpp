#include "ScreenFixture.h"

#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/texture/Texture.h"
#include "nui/ui/components/Label.h"

#include "foundation/core/Exception.h"

#include <algorithm>

namespace viewer {

namespace {

using nurel::math::Vector2;
using nurel::math::Vector4;
using nurel::ui::Component;
using nurel::ui::UIManager;
namespace components = nurel::ui::components;

class ScreenReload : public ScreenFixture {};

} // namespace

TEST_F(ScreenReload, AFaultySheetLeavesTheLastGoodOneAndIsToldUntilItIsMended) {
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

TEST_F(ScreenReload, TheMessageCanBeReadWhateverTheSheetSays) {
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

TEST_F(ScreenReload, TheMessageTakesNeitherFocusNorInput) {
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

TEST_F(ScreenReload, OneFaultySheetOfSeveralKeepsAllOfTheLastGoodOnes) {
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

TEST_F(ScreenReload, ADeletedSheetLeavesTheLastGoodOne) {
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

TEST_F(ScreenReload, ASheetRenamedIntoPlaceIsSeen) {
    openWith("panel { width: 300px; }");
    mFolder.writeByRenaming("style/a.css", "panel { width: 200px; }");
    letSecondPass();
    EXPECT_FLOAT_EQ(find("form").getSize().x, 200);
}

TEST_F(ScreenReload, AFaultySheetAtTheStartIsRefused) {
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

TEST_F(ScreenReload, AChangedTemplateIsRebuilt) {
    openWith("panel { width: 300px; }");
    save("screen.ui", R"({"type":"panel","name":"other"})");
    EXPECT_EQ(findComponent("form"), nullptr);
    EXPECT_FLOAT_EQ(find("other").getSize().x, 300);
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), 1U);
}

TEST_F(ScreenReload, AFaultyTemplateLeavesTheLastGoodScreenWhichASheetStillStyles) {
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

TEST_F(ScreenReload, ATemplateOfAnUnknownTypeIsToldWithItsFile) {
    openWith("");
    save("screen.ui", R"({"type":"nothing"})");
    EXPECT_EQ(mScreen->getMessage(), "screen.ui: Cannot open file " + mFolder.getPath("nothing.ui"));
    mLog.take(logging::Level::ERROR);
    EXPECT_NE(findComponent("form"), nullptr);
}

TEST_F(ScreenReload, AFaultInAnIncludedTemplateLeavesTheLastGoodScreen) {
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

TEST_F(ScreenReload, AChangedImageIsSeen) {
    savePicture("style/a.png", 10);
    openWith("panel { background-image: a.png; }");
    const Component *form = &find("form");
    savePicture("style/a.png", 30);
    letSecondPass();
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 30U);
    EXPECT_EQ(&find("form"), form);
}

TEST_F(ScreenReload, AnImageThatComesLaterIsSeen) {
    openWith("#form { background-image: a.png; }");
    EXPECT_EQ(mLog.takeOne(logging::Level::WARN), "Cannot find image a.png");
    savePicture("style/a.png", 10);
    letSecondPass();
    ASSERT_NE(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 10U);
}

TEST_F(ScreenReload, AFaultyImageLeavesTheLastGoodOneAndIsToldUntilItIsMended) {
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

TEST_F(ScreenReload, AnImageThatWasFaultyAtTheStartIsSeenWhenItIsMended) {
    mFolder.write("style/a.png", "no picture");
    openWith("#form { background-image: a.png; }");
    EXPECT_NE(mLog.takeOne(logging::Level::ERROR).find("a.png"), std::string::npos);
    savePicture("style/a.png", 30);
    letSecondPass();
    ASSERT_NE(find("form").getMeshTexture(0), nullptr);
    EXPECT_EQ(find("form").getMeshTexture(0)->getWidth(), 30U);
}

TEST_F(ScreenReload, SeveralFaultsAreToldALineEach) {
    openWith("panel { width: 300px; }");
    save("screen.ui", "{");
    restyle("!");
    EXPECT_EQ(std::count(mScreen->getMessage().begin(), mScreen->getMessage().end(), '\n'), 1) << mScreen->getMessage();
    mLog.take(logging::Level::ERROR);
    restyle("");
    save("screen.ui", SCREEN);
    EXPECT_EQ(mScreen->getMessage(), "");
}

} // namespace viewer
