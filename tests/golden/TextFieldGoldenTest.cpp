// Text fields under a sheet, with their caret.
#include "GoldenFixture.h"

#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "ninput/input/InputSystem.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIComponentParser.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSParser.h"
#include "nui/ui/css/CSSSkin.h"

#include <cstdio>
#include <filesystem>

namespace golden {

using nurel::input::Keyboard;
using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::SkinManager;
using nurel::ui::UIManager;
using nurel::ui::components::TextField;
using nurel::ui::css::CSSParser;
using nurel::ui::css::CSSSkin;

namespace {

constexpr const char *SHEET = R"(
text { background: #243048; color: #f2a33a; overflow: hidden; padding: 0px 8px; }
text:focus { background: #30456a; }
text#label, text#placeholder {
    background: none; padding: 0px; color: #e6ecf5; width: auto; height: 100%; -n-anchor: center-left; font-size: 20px;
}
text#placeholder { color: #7f8ba3; }
)";

constexpr const char *FIELDS[] = {
    R"("text":"Grüße, Welt")",
    R"("text":"שלום עולם")",
    R"("text":"abc שלום 123")",
    R"("placeholder":"Name")",
    R"("placeholder":"x","password":"•")",
    R"("text":"")",
};

constexpr const char *JAPANESE = "/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc";

class TextFieldGolden : public GoldenFixture {
protected:
    void SetUp() override {
        GoldenFixture::SetUp();
        mStyle = new CSSSkin("style");
        nurel::stream::MemoryInputStream sheet("sheet", SHEET);
        mStyle->setStyleSheet(CSSParser().parse(&sheet));
        SkinManager::getSingleton().setDefaultSkin(mStyle.get());
        std::string screen = R"({"type":"widget","name":"stage","children":[)";
        int top = 20;
        for (const char *keys : FIELDS) {
            screen += (top > 20 ? "," : "") + std::string(R"({"type":"text","name":"f","position":[20,)") +
                      std::to_string(top) + R"(],"size":[300,36],"anchor":"top-left",)" + keys + "}";
            top += 48;
        }
        nurel::stream::MemoryInputStream stream("screen", screen + "]}");
        const core::SmartPtr<Component> widget(nurel::ui::UIComponentParser().parse(&stream));
        GoldenFixture::show(widget);
        mStage = static_cast<Container *>(widget.get());
        field(4).setText("geheim");
    }

    void TearDown() override {
        mStage = nullptr;
        GoldenFixture::TearDown();
        mStyle = nullptr;
    }

    TextField &field(unsigned int index) const { return static_cast<TextField &>(*mStage->getChildAt(index)); }

    /// The field with the focus and its caret before the character of that number.
    void putCaret(unsigned int index, int character) const {
        field(index).setFocus();
        frame();
        tap(Keyboard::K_HOME);
        tap(Keyboard::K_RIGHT, character);
    }

    /// The picture must have the caret, which is no more than a few dozen pixels, in its place.
    void expectCaret(const char *name) { expectPicture(name, 16); }

    static void tap(int code, int times = 1) {
        for (int i = 0; i < times; ++i)
            nurel::input::InputSystem::getSingleton().getKeyboard().inject(code, true);
    }

    static void frame() {
        UIManager::getSingleton().updateEvents();
        UIManager::getSingleton().update();
    }

    core::SmartPtr<CSSSkin> mStyle;
    core::SmartPtr<Container> mStage;
};

} // namespace

TEST_F(TextFieldGolden, TheCaretOfLeftToRightTextStandsBeforeItsCharacter) {
    putCaret(0, 5); // behind "Grüße"
    expectCaret("text-field-left-to-right");
}

TEST_F(TextFieldGolden, TheCaretOfRightToLeftTextStandsBeforeItsCharacterToo) {
    putCaret(1, 4); // behind the first word, the right one
    expectCaret("text-field-right-to-left");
}

TEST_F(TextFieldGolden, TheCaretOfArabicStandsBetweenJoinedLetters) {
    field(1).setText("مرحبا بالعالم");
    putCaret(1, 3);
    expectCaret("text-field-arabic");
}

TEST_F(TextFieldGolden, TheCaretOfMixedTextGoesByTheDirectionOfItsCharacter) {
    field(2).setText("abc مرحبا 123 xyz");
    putCaret(2, 11); // behind the 1 of the number, which stands left of the word ahead of it
    expectCaret("text-field-mixed-number");
    putCaret(2, 4); // before the word: at its right
    expectCaret("text-field-mixed-word");
}

TEST_F(TextFieldGolden, TheCaretOfJapaneseStandsBetweenItsCharacters) {
    if (!std::filesystem::exists(JAPANESE)) {
        std::puts("There is no Japanese font: its picture is not compared");
        return;
    }
    field(0).setFont(nurel::font::FontManager::getSingleton().add("japanese", JAPANESE));
    field(0).setText("日本語の文字入力");
    putCaret(0, 3);
    expectCaret("text-field-japanese");
}

TEST_F(TextFieldGolden, ALongTextScrollsToItsCaretAndIsCutOff) {
    field(5).setFocus();
    for (const char letter : std::string("a text that is longer than its field")) {
        const char typed[] = {letter, '\0'};
        UIManager::getSingleton().textInput(typed);
        frame();
    }
    expectCaret("text-field-scrolled");
}

TEST_F(TextFieldGolden, ALongArabicTextIsTypedAtItsLeftAndScrollsToItsBeginning) {
    field(5).setFocus();
    for (int i = 0; i < 4; ++i) {
        for (const char *letters : {"م", "ر", "ح", "ب", "ا", " ", "ب", "ا", "ل", "ع", "ا", "ل", "م", " "}) {
            UIManager::getSingleton().textInput(letters);
            frame();
        }
    }
    expectCaret("text-field-arabic-end");
    tap(Keyboard::K_HOME);
    expectCaret("text-field-arabic-home");
}

} // namespace golden
