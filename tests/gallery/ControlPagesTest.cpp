// The pages of lists, selectors, sliders and text fields, used as a person would.
#include "GalleryFixture.h"

#include "ComponentFinder.h"

#include "nui/ui/UIManager.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"

namespace {

using nurel::math::Vector2;
using nurel::ui::Component;
using nurel::ui::UIManager;
using nurel::ui::components::Combo;
using nurel::ui::components::Image;
using nurel::ui::components::Listbox;
using nurel::ui::components::Panel;
using nurel::ui::components::Progress;
using nurel::ui::components::Selector;
using nurel::ui::components::Slider;
using nurel::ui::components::TextField;

class ControlPages : public test::GalleryFixture {
protected:
    static Component &row(Listbox &list, int index) { return *list.getItemEntry(index)->item; }

    /// Presses on the thumb, takes it to a part of the track and lets go.
    void dragTo(const std::string &path, float part) {
        Slider &slider = find<Slider>(path);
        moveTo(*slider.getThumb());
        press();
        const Vector2 target = viewer::getScreenCenter(slider) + Vector2((part - 0.5F) * slider.getSize().x, 0);
        for (const int step : {12, 0}) {
            UIManager::getSingleton().setMousePos({static_cast<int>(target.x) + step, static_cast<int>(target.y)});
            runFrames(1);
        }
        release();
    }

    void choose(const std::string &path, int index) {
        click(path);
        click(row(*find<Combo>(path).getList(), index));
        runFrames(2);
    }
};

} // namespace

TEST_F(ControlPages, TheListIsSortedByNameAndBySizeWithItsSelection) {
    showPage("lists");
    Listbox &list = find<Listbox>("moons/list");
    EXPECT_EQ(list.getItemCount(), 12U);
    EXPECT_STREQ(list.getItemText(0), "Io");
    EXPECT_EQ(textOf("moons/selection"), "Ganymede: 5268 km across");
    click("moons/by-name");
    EXPECT_STREQ(list.getItemText(0), "Callisto");
    EXPECT_STREQ(list.getItemText(11), "Triton");
    EXPECT_STREQ(list.getItemText(list.getSelectedIndex()), "Ganymede");
    click("moons/by-size");
    EXPECT_STREQ(list.getItemText(0), "Ganymede");
    EXPECT_STREQ(list.getItemText(1), "Titan");
    EXPECT_STREQ(list.getItemText(11), "Charon");
    EXPECT_EQ(list.getSelectedIndex(), 0);
}

TEST_F(ControlPages, ARowIsSelectedByAClickAndByKeys) {
    showPage("lists");
    Listbox &list = find<Listbox>("moons/list");
    click(row(list, 1));
    EXPECT_EQ(textOf("moons/selection"), "Europa: 3122 km across");
    EXPECT_TRUE(hasFocus("moons/list"));
    tap(DOWN_KEY);
    tap(DOWN_KEY);
    EXPECT_EQ(textOf("moons/selection"), "Europa: 3122 km across");
    tap(RETURN_KEY);
    EXPECT_EQ(textOf("moons/selection"), "Callisto: 4821 km across");
}

TEST_F(ControlPages, RowsAreRemovedUntilNothingIsSelectedAndComeBack) {
    showPage("lists");
    Listbox &list = find<Listbox>("moons/list");
    click("moons/remove");
    EXPECT_EQ(list.getItemCount(), 11U);
    EXPECT_EQ(textOf("moons/selection"), "Nothing is selected");
    click("moons/remove");
    EXPECT_EQ(list.getItemCount(), 11U);
    click("moons/refill");
    EXPECT_EQ(list.getItemCount(), 12U);
    EXPECT_STREQ(list.getItemText(2), "Ganymede");
}

TEST_F(ControlPages, CombosTellWhatWasChosen) {
    showPage("lists");
    EXPECT_EQ(textOf("combos/quality"), "High");
    EXPECT_EQ(textOf("combos/language"), "Choose one");
    choose("combos/quality", 0);
    EXPECT_EQ(textOf("combos/quality"), "Low");
    EXPECT_EQ(textOf("combos/choice"), "Quality: Low");
    choose("combos/language", 1);
    EXPECT_EQ(textOf("combos/choice"), "Language: Deutsch");
    EXPECT_TRUE(find("combos/sample").hasClass("normal"));
    choose("combos/size", 3);
    EXPECT_TRUE(find("combos/sample").hasClass("title"));
    EXPECT_FALSE(find("combos/sample").hasClass("normal"));
}

TEST_F(ControlPages, AnOpenListSurvivesTheLookAndGoesWithThePage) {
    showPage("lists");
    const unsigned int before = UIManager::getSingleton().getWidgetCount();
    click("combos/language");
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), before + 1);
    shown->setDark(true);
    runFrames(3);
    draw();
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), before + 1);
    Listbox &list = *find<Combo>("combos/language").getList();
    moveTo(row(list, 2));
    press();
    showPage("selectors");
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), before);
    release();
    draw();
    EXPECT_EQ(textOf("main/title"), "Selectors");
}

TEST_F(ControlPages, SelectorsStepAndTell) {
    showPage("selectors");
    EXPECT_EQ(textOf("summary/text"), "Normal, 1280 x 720, no voice");
    click("difficulty/right");
    click("difficulty/right");
    click("difficulty/right");
    click("resolution/left");
    click("voice/right");
    EXPECT_EQ(textOf("summary/text"), "Merciless, 3840 x 2160, Ada");
    EXPECT_FALSE(find("device").isEnabled());
}

TEST_F(ControlPages, TheSelectorChangesTheSampleBesideIt) {
    showPage("selectors");
    click("season/right");
    EXPECT_TRUE(find("row/sample").hasClass("summer"));
    EXPECT_FALSE(find("row/sample").hasClass("spring"));
    EXPECT_EQ(textOf("sample/text"), "Summer");
    EXPECT_EQ(textOf("choice/change"), "It was Spring");
    click("choice/any");
    EXPECT_EQ(textOf("sample/text"), "Autumn");
    click("choice/any");
    EXPECT_EQ(textOf("choice/change"), "It was Summer") << "what is chosen already is no change";
}

TEST_F(ControlPages, SlidersTakeBarsAlong) {
    showPage("sliders");
    EXPECT_EQ(textOf("values/volume-value"), "65");
    EXPECT_EQ(find<Progress>("bars/follows").getValue(), 65);
    dragTo("values/volume", 0);
    EXPECT_EQ(textOf("values/volume-value"), "0");
    EXPECT_EQ(find<Progress>("bars/follows").getValue(), 0);
    EXPECT_STREQ(find<Progress>("bars/follows").getLabel()->getText(), "0%");
    dragTo("values/steps", 0.9F);
    EXPECT_EQ(textOf("values/steps-value"), "75");
    EXPECT_STREQ(find<Progress>("bars/words").getLabel()->getText(), "75 of 100");
    click("values/volume");
    EXPECT_NEAR(find<Slider>("values/volume").getValue(), 50, 1);
}

TEST_F(ControlPages, SlidersTurnAndFadeThePicture) {
    showPage("sliders");
    dragTo("picture/fade", 0);
    EXPECT_EQ(find("frame/postcard").getOpacity(), 0);
    dragTo("picture/turn", 1);
    EXPECT_EQ(find<Slider>("picture/turn").getValue(), 180);
    shown->setDark(true);
    runFrames(2);
    EXPECT_EQ(find("frame/postcard").getOpacity(), 0) << "a look does not take it back";
    dragTo("picture/fade", 1);
    EXPECT_EQ(find("frame/postcard").getOpacity(), 1);
}

TEST_F(ControlPages, ButtonsMoveTheBarAndStopAtItsEnds) {
    showPage("sliders");
    EXPECT_EQ(textOf("bars/loaded"), "40 of 100 files");
    for (int i = 0; i < 7; ++i)
        click("bars/more");
    EXPECT_EQ(textOf("bars/loaded"), "All is there");
    EXPECT_EQ(find<Progress>("bars/load").getValue(), 100);
    EXPECT_FALSE(find("bars/more").isEnabled());
    for (int i = 0; i < 11; ++i)
        click("bars/less");
    EXPECT_EQ(textOf("bars/loaded"), "0 of 100 files");
    EXPECT_FALSE(find("bars/less").isEnabled());
}

TEST_F(ControlPages, FieldsTellWhatIsStillMissing) {
    showPage("fields");
    EXPECT_EQ(textOf("summary/state"), "A name is missing");
    click("form/name");
    type("Åsa");
    EXPECT_EQ(textOf("name-row/greeting"), "Hello, Åsa");
    EXPECT_EQ(textOf("summary/state"), "The password is too short");
    click("form/password");
    for (const char *character : {"s", "e", "s", "a", "m", "e", "!", "!"})
        type(character);
    EXPECT_EQ(textOf("summary/state"), "The code is not complete");
    click("form/code");
    for (const char *character : {"1", "2", "3", "4", "5", "6", "7"})
        type(character);
    EXPECT_STREQ(find<TextField>("form/code").getText(), "123456");
    EXPECT_EQ(textOf("code-row/count"), "6 of 6");
    EXPECT_EQ(textOf("summary/state"), "All is well");
}

TEST_F(ControlPages, ThePasswordIsMaskedUnlessItIsToBeShown) {
    showPage("fields");
    TextField &password = find<TextField>("form/password");
    click("form/password");
    type("a");
    type("ß");
    EXPECT_STREQ(password.getLabel()->getText(), "••");
    EXPECT_STREQ(password.getText(), "aß");
    click("form/reveal");
    EXPECT_STREQ(password.getLabel()->getText(), "aß");
    click("form/reveal");
    EXPECT_STREQ(password.getLabel()->getText(), "••");
}

TEST_F(ControlPages, TextOfEveryScriptIsTyped) {
    showPage("fields");
    TextField &arabic = find<TextField>("form/arabic");
    TextField &japanese = find<TextField>("form/japanese");
    click("form/arabic");
    type("!");
    EXPECT_STREQ(arabic.getText(), "مرحبا بالعالم!");
    tap(TAB_KEY);
    click("form/japanese");
    type("、");
    type("日本");
    EXPECT_STREQ(japanese.getText(), "こんにちは世界、日本");
}

TEST_F(ControlPages, AllFieldsAreClearedAtOnce) {
    showPage("fields");
    click("form/name");
    type("Ada");
    click("form/code");
    type("12");
    click("screen-keyboard/hide"); // it stands over the button
    runFrames(2);
    click("summary/clear");
    EXPECT_STREQ(find<TextField>("form/name").getText(), "");
    EXPECT_EQ(textOf("name-row/greeting"), "");
    EXPECT_EQ(textOf("code-row/count"), "0 of 6");
    EXPECT_TRUE(find<TextField>("form/name").getPlaceholder()->isVisible());
    EXPECT_EQ(textOf("summary/state"), "A name is missing");
}

TEST_F(ControlPages, WhatIsSwitchedOffTakesNothing) {
    showPage("fields");
    click("form/off");
    type("x");
    EXPECT_STREQ(find<TextField>("form/off").getText(), "Not now");
    EXPECT_FALSE(hasFocus("form/off"));
}
