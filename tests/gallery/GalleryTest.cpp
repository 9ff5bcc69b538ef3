#include "GalleryFixture.h"

#include "ComponentFinder.h"

#include "ninput/input/Mouse.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/components/Label.h"

namespace {

using nurel::input::Mouse;
using nurel::renderer::RecordingBackend;
using nurel::ui::Component;
using nurel::ui::UIManager;

using GalleryTest = test::GalleryFixture;

/// The colour of the first vertex that is drawn: the ground of the whole.
std::uint32_t getGround(const RecordingBackend &backend) {
    return backend.getVertices().at(0).rgba;
}

} // namespace

TEST_F(GalleryTest, EveryPageIsBuiltStyledAndDrawnInBothLooks) {
    for (const bool dark : {false, true}) {
        shown->setDark(dark);
        for (const gallery::Page &page : gallery::getPages()) {
            SCOPED_TRACE(page.name);
            showPage(page.name);
            draw();
            EXPECT_STREQ(find("main/stage/" + std::string(page.name)).getName(), page.name);
            EXPECT_EQ(textOf("main/title"), page.title);
            EXPECT_EQ(textOf("source/path"), "assets/gallery/" + std::string(page.name) + ".ui");
            EXPECT_TRUE(isChecked("pages/" + std::string(page.name)));
            EXPECT_GT(backend->getVertices().size(), 500U);
        }
    }
}

TEST_F(GalleryTest, NothingOfAPageSticksOutOfItSideways) {
    for (const gallery::Page &page : gallery::getPages()) {
        showPage(page.name);
        const auto &root = static_cast<nurel::ui::Container &>(find("main/stage/" + std::string(page.name)));
        EXPECT_GE(root.getScrollMin().x, 0) << page.name;
        EXPECT_GE(root.getScrollMax().x, 0) << page.name;
    }
}

TEST_F(GalleryTest, TheLookChangesWhileItIsShown) {
    draw();
    const std::uint32_t light = getGround(*backend);
    click("navigation/dark");
    draw();
    EXPECT_TRUE(shown->isDark());
    EXPECT_TRUE(isChecked("navigation/dark"));
    EXPECT_NE(getGround(*backend), light);
    click("navigation/dark");
    draw();
    EXPECT_FALSE(shown->isDark());
    EXPECT_FALSE(isChecked("navigation/dark"));
    EXPECT_EQ(getGround(*backend), light);
}

TEST_F(GalleryTest, ReturnSwitchesTheLookAsWellAsAClick) {
    find("navigation/dark").setFocus();
    runFrames(2);
    tap(RETURN_KEY);
    EXPECT_TRUE(shown->isDark());
    EXPECT_TRUE(isChecked("navigation/dark"));
    tap(RETURN_KEY);
    EXPECT_FALSE(shown->isDark());
    EXPECT_FALSE(isChecked("navigation/dark"));
}

TEST_F(GalleryTest, AReleaseBesideTheSwitchCountsToo) {
    moveTo("navigation/dark");
    UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::PRESS);
    runFrames(1);
    UIManager::getSingleton().setMousePos({600, 300});
    runFrames(1);
    UIManager::getSingleton().setMouseButton(Mouse::LEFT, Mouse::RELEASE);
    runFrames(2);
    EXPECT_EQ(shown->isDark(), isChecked("navigation/dark"));
}

TEST_F(GalleryTest, AClickOnAPageButtonShowsThatPage) {
    click("pages/form");
    EXPECT_EQ(textOf("main/title"), "Form");
    EXPECT_FALSE(isChecked("pages/welcome"));
    EXPECT_EQ(viewer::findComponent("stage/welcome"), nullptr);
}

TEST_F(GalleryTest, TheSheetOfAPageIsReadableOrElseTheStarterSheet) {
    showPage("boxes");
    click("tabs/sheet");
    EXPECT_EQ(textOf("source/path"), "assets/gallery/boxes.css");
    EXPECT_NE(textOf("source/code").find("panel.swatch"), std::string::npos);
    showPage("states");
    EXPECT_EQ(textOf("source/path"), "assets/style/light.css");
    shown->setDark(true);
    runFrames(2);
    EXPECT_EQ(textOf("source/path"), "assets/style/dark.css");
    click("tabs/template");
    EXPECT_NE(textOf("source/code").find("\"name\": \"states\""), std::string::npos);
}

TEST_F(GalleryTest, AnUnknownPageIsTheFirst) {
    showPage("form");
    shown->showPage(1000);
    runFrames(2);
    EXPECT_EQ(textOf("main/title"), "Welcome");
}

TEST_F(GalleryTest, WelcomeLeadsOnAndSwitchesTheLook) {
    click("start/theme");
    EXPECT_TRUE(shown->isDark());
    click("start/tour");
    EXPECT_EQ(textOf("main/title"), gallery::getPages()[1].title);
}

TEST_F(GalleryTest, ButtonsCountAndTellWhatIsOn) {
    showPage("states");
    click("counter/count");
    EXPECT_EQ(textOf("counter/result"), "Clicked once");
    click("counter/count");
    EXPECT_EQ(textOf("counter/result"), "Clicked 2 times");
    EXPECT_EQ(textOf("toggles/styles"), "Bold");
    click("toggles/under");
    EXPECT_EQ(textOf("toggles/styles"), "Bold, Underline");
    click("toggles/bold");
    click("toggles/under");
    EXPECT_EQ(textOf("toggles/styles"), "Nothing is on");
    click("toggles/lock");
    EXPECT_TRUE(isChecked("toggles/lock"));
}

TEST_F(GalleryTest, ChoicesAreSummedUp) {
    showPage("choices");
    EXPECT_EQ(textOf("summary/text"), "Normal, Follow, 4 of 6 on");
    click("difficulty/hard");
    click("boxes/subtitles");
    click("boxes/cloud");
    EXPECT_EQ(textOf("summary/text"), "Hard, Follow, 5 of 6 on");
    EXPECT_FALSE(isChecked("difficulty/normal"));
}

TEST_F(GalleryTest, TheFormIsSavedAndReset) {
    showPage("form");
    for (int i = 0; i < 5; ++i)
        click("size/larger");
    EXPECT_EQ(textOf("size/percent"), "200 %");
    EXPECT_FALSE(find("size/larger").isEnabled());
    click("team/blue");
    click("fields/invert");
    click("actions/save");
    EXPECT_EQ(textOf("actions/message"), "Saved");
    click("actions/reset");
    EXPECT_EQ(textOf("actions/message"), "");
    EXPECT_EQ(textOf("size/percent"), "100 %");
    EXPECT_TRUE(find("size/larger").isEnabled());
    EXPECT_TRUE(isChecked("team/red"));
    EXPECT_FALSE(isChecked("team/blue"));
    EXPECT_FALSE(isChecked("fields/invert"));
    EXPECT_TRUE(isChecked("fields/voice"));
}

TEST_F(GalleryTest, BoxesAreAddedToALayoutAndRemoved) {
    showPage("layout");
    const auto count = [] { return static_cast<nurel::ui::Container &>(find("live/flow")).getChildCount(); };
    EXPECT_EQ(count(), 3U);
    for (int i = 0; i < 6; ++i)
        click("live/add");
    EXPECT_EQ(count(), 7U);
    for (int i = 0; i < 9; ++i)
        click("live/remove");
    EXPECT_EQ(count(), 0U);
}

TEST_F(GalleryTest, TheLampGoesOnByItsClass) {
    showPage("images");
    Component &lamp = find("cells/live");
    EXPECT_TRUE(lamp.hasClass("red"));
    for (const char *next : {"amber", "green", "dark", "red"}) {
        click("cells/next");
        EXPECT_TRUE(lamp.hasClass(next)) << next;
        EXPECT_EQ(lamp.getClasses().size(), 2U);
    }
}
