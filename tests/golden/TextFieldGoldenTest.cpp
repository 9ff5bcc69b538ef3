// Text fields under a sheet, with their caret.
#include "GoldenFixture.h"

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
    field(0).setFocus();
    tap(Keyboard::K_HOME);
    tap(Keyboard::K_RIGHT, 5); // behind "Grüße"
    expectPicture("text-field-left-to-right");
}

TEST_F(TextFieldGolden, TheCaretOfRightToLeftTextStandsBeforeItsCharacterToo) {
    field(1).setFocus();
    tap(Keyboard::K_HOME);
    tap(Keyboard::K_RIGHT, 4); // behind the first word, the right one
    expectPicture("text-field-right-to-left");
}

TEST_F(TextFieldGolden, ALongTextScrollsToItsCaretAndIsCutOff) {
    field(5).setFocus();
    for (const char letter : std::string("a text that is longer than its field")) {
        const char typed[] = {letter, '\0'};
        UIManager::getSingleton().textInput(typed);
        frame();
    }
    expectPicture("text-field-scrolled");
}

} // namespace golden
