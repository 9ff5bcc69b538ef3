#include "TextEntry.h"

#include "ScreenFixture.h"

#include "ninput/input/InputSystem.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/TextField.h"

#include <memory>
#include <string>

namespace viewer {

namespace {

using nurel::input::Keyboard;
using nurel::ui::UIManager;
using nurel::ui::components::TextField;

class TextEntryTest : public ScreenFixture {
protected:
    TextEntryTest() : mField(new TextField("field")) {
        open({"style/a.css"});
        mScreen->getWidget()->addChild(mField.get());
        mField->setFocus();
        runFrames(1);
    }

    std::string shown() const { return mField->getLabel()->getText(); }

    core::SmartPtr<TextField> mField;
};

} // namespace

TEST_F(TextEntryTest, ARunIsTypedCharacterByCharacter) {
    mField->setText("<>");
    Keyboard &keyboard = nurel::input::InputSystem::getSingleton().getKeyboard();
    keyboard.inject(Keyboard::K_LEFT, true);
    enterText("日本é😀");
    EXPECT_STREQ(mField->getText(), "<日本é😀>");
    EXPECT_EQ(mField->getCaretIndex(), 5);
    keyboard.inject(Keyboard::K_BACKSPACE, true); // it is in the field already
    EXPECT_STREQ(mField->getText(), "<日本é>");
}

TEST_F(TextEntryTest, ARunIsMaskedAndCutWhereItShouldBe) {
    mField->setPasswordChar("*");
    mField->setMaxLength(4);
    enterText("pässwort");
    EXPECT_STREQ(mField->getText(), "päss");
    EXPECT_EQ(shown(), "****");
}

TEST_F(TextEntryTest, WhatIsNoTextIsTakenAsItIs) {
    enterText("");
    EXPECT_STREQ(mField->getText(), "");
    enterText("a\xff\xe3\x81");
    EXPECT_STREQ(mField->getText(), "a\xff\xe3\x81");
    UIManager::getSingleton().setFocus(nullptr);
    enterText("lost");
    EXPECT_STREQ(mField->getText(), "a\xff\xe3\x81");
}

TEST_F(TextEntryTest, AHandlerMayEndTheManager) {
    mField->ChangeCallbacks::subscribeCallback([](TextField *) {
        UIManager::shutdown();
        return false;
    });
    enterText("abc");
    EXPECT_STREQ(mField->getText(), "a");
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

} // namespace viewer
