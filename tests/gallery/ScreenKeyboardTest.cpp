// The keyboard on the screen: its keys are clicked, and the text is seen to arrive.
#include "ScreenKeyboard.h"

#include "GalleryFixture.h"

#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"

#include "foundation/text/Utf8.h"

namespace {

using gallery::ScreenKeyboard;
using nurel::ui::Component;
using nurel::ui::KeyboardOverlay;
using nurel::ui::UIManager;
using nurel::ui::components::TextField;

class ScreenKeyboardTest : public test::GalleryFixture {
protected:
    ScreenKeyboardTest() { showPage("keyboard"); }

    static TextField &field(const char *name) { return find<TextField>(std::string("note/") + name); }
    static std::string getText(const char *name) { return field(name).getText(); }
    static std::string getResult() { return textOf("summary/result"); }

    static bool isUp() { return exists("screen-keyboard/hide") && find("screen-keyboard").isVisible(); }
    static bool isUp(const char *layer) { return isUp() && isShown(std::string("screen-keyboard/") + layer); }

    /// A key of the layer that is shown.
    void hit(const std::string &name) {
        for (const char *layer : {"letter-keys", "symbol-keys", "arabic-keys"}) {
            if (!isUp(layer))
                continue;
            click(std::string("screen-keyboard/") + layer + "/" + name);
            return;
        }
        FAIL() << "no keyboard for " << name;
    }

    void hitAll(const char *text) {
        while (*text) {
            const std::string character(text, text::getUTF8Index(text, 1));
            text += character.size();
            hit(character == " " ? "space" : character);
        }
    }

    void edit(const char *name) {
        click(field(name));
        runFrames(2);
    }
};

} // namespace

TEST_F(ScreenKeyboardTest, ComesUpWithThePageForItsFirstField) {
    EXPECT_TRUE(isUp("letter-keys"));
    EXPECT_TRUE(hasFocus("note/message"));
    EXPECT_EQ(&shown->getKeyboard(), UIManager::getSingleton().getKeyboardOverlay());
    EXPECT_EQ(shown->getKeyboard().getOwner(), &field("message"));
    EXPECT_TRUE(shown->getKeyboard().isShown());
}

TEST_F(ScreenKeyboardTest, TypesIntoTheFieldWhichKeepsTheFocus) {
    hitAll("see you, then.");
    EXPECT_EQ(getText("message"), "see you, then.");
    EXPECT_TRUE(hasFocus("note/message"));
    type("!");
    EXPECT_EQ(getText("message"), "see you, then.!") << "a real keyboard goes on to work";
}

TEST_F(ScreenKeyboardTest, ShiftIsForOneTextAndASecondClickLocksIt) {
    hit("shift");
    EXPECT_EQ(textOf("letter-keys/q"), "Q");
    hitAll("qa");
    EXPECT_EQ(getText("message"), "Qa");
    EXPECT_EQ(textOf("letter-keys/q"), "q");
    hit("shift");
    hit("shift");
    EXPECT_EQ(textOf("letter-keys/shift"), "Lock");
    hitAll("ok.");
    EXPECT_EQ(getText("message"), "QaOK?");
    hit("shift");
    EXPECT_FALSE(isChecked("letter-keys/shift"));
    hitAll("z");
    EXPECT_EQ(getText("message"), "QaOK?z");
}

TEST_F(ScreenKeyboardTest, EditsAtTheCaret) {
    hitAll("helo");
    hit("left");
    hitAll("l");
    EXPECT_EQ(getText("message"), "hello");
    hit("right");
    hit("backspace");
    EXPECT_EQ(getText("message"), "hell");
    for (int i = 0; i < 6; ++i)
        hit("backspace");
    EXPECT_EQ(getText("message"), "");
    EXPECT_TRUE(isUp());
}

TEST_F(ScreenKeyboardTest, HasSymbolsAndAccentedLetters) {
    hitAll("caf");
    hit("symbols");
    EXPECT_TRUE(isUp("symbol-keys"));
    EXPECT_FALSE(isUp("letter-keys"));
    EXPECT_EQ(textOf("symbol-keys/symbols"), "abc");
    hit("shift");
    EXPECT_EQ(textOf("symbol-keys/1"), "é");
    hit("1");
    hitAll(" 5€");
    hit("symbols");
    hitAll("x");
    EXPECT_EQ(getText("message"), "café 5€x");
}

TEST_F(ScreenKeyboardTest, HasAnotherScript) {
    hit("language");
    EXPECT_TRUE(isUp("arabic-keys"));
    hitAll("مرحبا");
    EXPECT_EQ(getText("message"), "مرحبا");
    hit("symbols");
    EXPECT_EQ(textOf("symbol-keys/symbols"), "ابج");
    hit("symbols");
    EXPECT_TRUE(isUp("arabic-keys")) << "the symbols lead back to where they were called";
    hit("language");
    EXPECT_TRUE(isUp("letter-keys"));
}

TEST_F(ScreenKeyboardTest, EveryKeyTypesWhatItShows) {
    field("message").setMaxLength(-1);
    for (const char *layer : {"letter-keys", "symbol-keys", "arabic-keys"}) {
        SCOPED_TRACE(layer);
        if (std::string(layer) == "symbol-keys")
            hit("symbols");
        if (std::string(layer) == "arabic-keys")
            hit("language");
        const auto &panel = find<nurel::ui::Container>(std::string("screen-keyboard/") + layer);
        unsigned int keys = 0;
        for (unsigned int line = 0; line < 3; ++line) {
            const auto &row = static_cast<nurel::ui::Container &>(*panel.getChildAt(line));
            for (unsigned int i = 0; i < row.getChildCount(); ++i) {
                const Component &key = *row.getChildAt(i);
                if (!key.hasClass("key") || key.hasClass("special"))
                    continue;
                field("message").clearText();
                click(key);
                EXPECT_EQ(getText("message"), key.getName());
                ++keys;
            }
        }
        EXPECT_GE(keys, 28U);
    }
}

TEST_F(ScreenKeyboardTest, EnterAcceptsAndThePageTellsIt) {
    hitAll("hi");
    hit("enter");
    runFrames(2);
    EXPECT_EQ(getResult(), "Entered: hi");
    EXPECT_EQ(getText("message"), "hi");
    EXPECT_FALSE(isUp());
    EXPECT_EQ(shown->getKeyboard().getOwner(), nullptr);
    EXPECT_TRUE(hasFocus("note/message"));
    edit("message");
    EXPECT_TRUE(isUp()) << "a click on the field brings it back";
    hitAll(".");
    EXPECT_EQ(getText("message"), "hi.");
}

TEST_F(ScreenKeyboardTest, CanBePutAway) {
    hitAll("hm");
    hit("hide");
    runFrames(2);
    EXPECT_FALSE(isUp());
    EXPECT_EQ(getResult(), "Put away at: hm");
    EXPECT_FALSE(shown->getKeyboard().isShown());
}

TEST_F(ScreenKeyboardTest, GoesOnWithTheNextFieldAndItsOptions) {
    hitAll("hi");
    hit("shift");
    tap(TAB_KEY);
    EXPECT_TRUE(hasFocus("note/password"));
    EXPECT_EQ(getResult(), "Left with: hi");
    EXPECT_TRUE(isUp("letter-keys"));
    EXPECT_FALSE(isChecked("letter-keys/shift")) << "it begins anew";
    hitAll("ab");
    EXPECT_EQ(getText("password"), "ab");
    EXPECT_STREQ(field("password").getLabel()->getText(), "••");
    edit("number");
    EXPECT_EQ(getResult(), "Left with: 2 characters");
    EXPECT_TRUE(isUp("symbol-keys"));
    hitAll("12345678901234");
    EXPECT_EQ(getText("number"), "123456789012") << "the field's limit counts";
    hit("enter");
    EXPECT_EQ(getResult(), "Entered: 123456789012");
}

TEST_F(ScreenKeyboardTest, GoesWhenTheFieldLosesTheFocus) {
    hitAll("a");
    find("tabs/sheet").setFocus();
    runFrames(2);
    EXPECT_FALSE(isUp());
    EXPECT_EQ(getResult(), "Left with: a");
    EXPECT_EQ(shown->getKeyboard().getOwner(), nullptr);
}

TEST_F(ScreenKeyboardTest, StaysOffTheFieldThatIsEdited) {
    const Component &keyboard = find("screen-keyboard");
    EXPECT_NEAR(keyboard.getMaxBound().y, 708, 1);
    showPage("fields");
    find("form/off").setEnabled(true);
    find<nurel::ui::Container>("stage/fields").setSize({0, 420}, {1, 1}); // so that a field stands low
    find("form/off").setPosition({0, 320}, {0, 0});
    runFrames(2);
    find("form/off").setFocus();
    runFrames(3);
    ASSERT_TRUE(isUp());
    const bool free = find("screen-keyboard").getMaxBound().y <= find("form/off").getMinBound().y ||
                      find("screen-keyboard").getMinBound().y >= find("form/off").getMaxBound().y;
    EXPECT_TRUE(free);
}

TEST_F(ScreenKeyboardTest, ComesUpUnderTheCursorWithoutTakingTheFocus) {
    find("tabs/sheet").setFocus();
    runFrames(2);
    UIManager::getSingleton().setMousePos({640, 600}); // where the keys will be
    runFrames(2);
    field("message").setFocus();
    runFrames(3);
    EXPECT_TRUE(isUp());
    EXPECT_TRUE(hasFocus("note/message"));
}

TEST_F(ScreenKeyboardTest, CanBeSwitchedOffForAllPages) {
    click("summary/serve");
    EXPECT_FALSE(shown->getKeyboard().isEnabled());
    edit("message");
    EXPECT_FALSE(isUp());
    EXPECT_EQ(shown->getKeyboard().getOwner(), &field("message")) << "the field has it all the same";
    type("x");
    EXPECT_EQ(getText("message"), "x");
    showPage("fields");
    click("form/name");
    runFrames(2);
    EXPECT_FALSE(isUp());
    showPage("keyboard");
    EXPECT_FALSE(isChecked("summary/serve"));
    click("summary/serve");
    edit("message");
    EXPECT_TRUE(isUp());
}

TEST_F(ScreenKeyboardTest, GoesWithThePageOfItsField) {
    hitAll("a");
    showPage("welcome");
    runFrames(2);
    EXPECT_FALSE(isUp());
    EXPECT_EQ(shown->getKeyboard().getOwner(), nullptr);
    EXPECT_EQ(UIManager::getSingleton().getFocus(), nullptr);
    EXPECT_EQ(UIManager::getSingleton().getWidgetCount(), 1U);
    showPage("keyboard");
    EXPECT_TRUE(isUp());
    EXPECT_EQ(getText("message"), "");
}

TEST_F(ScreenKeyboardTest, APageMayGoWhileAKeyIsHeld) {
    moveTo("letter-keys/a");
    press();
    showPage("welcome");
    release();
    runFrames(2);
    EXPECT_FALSE(isUp());
    draw();
}

TEST_F(ScreenKeyboardTest, TakesTheNewLookWhileItIsUp) {
    hitAll("a");
    for (const bool dark : {true, false}) {
        shown->setDark(dark);
        runFrames(3);
        draw();
        EXPECT_TRUE(isUp("letter-keys"));
        hitAll("b");
    }
    EXPECT_EQ(getText("message"), "abb");
}

TEST_F(ScreenKeyboardTest, MayBeReplacedByWhoIsToldOfTheEnd) {
    hitAll("a");
    field("message").FinishCallbacks::subscribeCallback([](TextField *, KeyboardOverlay::TextEditingResult) {
        UIManager::getSingleton().setKeyboardOverlay(std::make_unique<KeyboardOverlay>());
        return true;
    });
    click("letter-keys/enter");
    runFrames(2);
    EXPECT_FALSE(isUp());
    EXPECT_EQ(getText("message"), "a");
}

TEST_F(ScreenKeyboardTest, TheEndComesWhileItIsUp) {
    hitAll("a");
    ASSERT_TRUE(isUp());
    shown.reset();
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(ScreenKeyboardTest, TheManagerMayEndAheadOfTheGallery) {
    ASSERT_TRUE(isUp());
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
}
