// What a text field takes and shows: bad input, its maximum length, and its mask.
#include "nui/ui/components/TextFieldFixture.h"

#include "foundation/text/Utf8.h"

#include <climits>

using namespace nurel::ui;
using nurel::input::Keyboard;

namespace {

class TextFieldLimitsTest : public test::TextFieldFixture {};

} // namespace

// --- bad input ---

TEST_F(TextFieldLimitsTest, AByteThatIsNoCharacterCountsAsOne) {
    mField->setFocus();
    for (const char *typed : {"\xff", "\xc3", "a", "\xe3\x81", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xc0\xaf"})
        mField->insertText(typed);
    const std::string all = "\xff\xc3"
                            "a\xe3\x81\xed\xa0\x80\xf4\x90\x80\x80\xc0\xaf";
    EXPECT_EQ(text(), all);
    EXPECT_EQ(shown(), all);
    EXPECT_EQ(mField->getTextLength(), all.size());
    frame();
    for (std::size_t left = all.size(); left > 0; --left) {
        EXPECT_EQ(text().size(), left);
        tap(Keyboard::K_BACKSPACE);
    }
    EXPECT_EQ(text(), "");
}

TEST_F(TextFieldLimitsTest, HalvesOfACharacterBecomeOne) {
    mField->setFocus();
    mField->insertText("\xc3");
    EXPECT_EQ(mField->getTextLength(), 1u);
    mField->insertText("\xa9");
    EXPECT_EQ(text(), "é");
    EXPECT_EQ(mField->getTextLength(), 1u);
    mField->setPasswordChar("*");
    mField->clearText();
    mField->insertText("\xc3");
    mField->insertText("\xa9");
    EXPECT_EQ(text(), "é");
    EXPECT_EQ(shown(), "**"); // the mask does not know
    tap(Keyboard::K_BACKSPACE, 3);
    EXPECT_EQ(shown(), "");
}

TEST_F(TextFieldLimitsTest, ATextEndsAtItsFirstNul) {
    const char typed[] = "ab\0cd";
    mField->setFocus();
    mField->insertText(typed);
    EXPECT_EQ(text(), "ab");
    mField->setText(typed);
    EXPECT_EQ(text(), "ab");
    manager().textInput(typed);
    frame();
    EXPECT_EQ(text(), "abab");
}

TEST_F(TextFieldLimitsTest, TakesAMegabyte) {
    const std::string megabyte(1 << 20, 'x');
    mField->setFocus();
    type(megabyte.c_str());
    EXPECT_EQ(text().size(), megabyte.size());
    EXPECT_EQ(mField->getTextLength(), megabyte.size());
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text().size(), megabyte.size() - 1);
    mField->setMaxLength(1 << 20);
    type(megabyte.c_str());
    EXPECT_EQ(text().size(), megabyte.size());
    mField->clearText();
    frame();
}

// --- maximum length ---

TEST_F(TextFieldLimitsTest, TypingBeyondTheMaximumDoesNothing) {
    mField->setMaxLength(3);
    EXPECT_EQ(mField->getMaxLength(), 3);
    mField->setFocus();
    type("aöc");
    EXPECT_EQ(changes(), 1);
    type("d");
    type("efg");
    EXPECT_EQ(text(), "aöc");
    EXPECT_EQ(shown(), "aöc");
    EXPECT_EQ(changes(), 0);
    tap(Keyboard::K_HOME);
    type("d");
    EXPECT_EQ(text(), "aöc");
    EXPECT_EQ(caret(), 0);
}

TEST_F(TextFieldLimitsTest, ARunThatTheMaximumCutsIsShownUncut) {
    mField->setMaxLength(3);
    mField->setFocus();
    type("ä");
    type("böcd");
    EXPECT_EQ(text(), "äbö");
    EXPECT_EQ(shown(), "äböcd");
    EXPECT_EQ(mField->getTextLength(), 5u);
    EXPECT_EQ(changes(), 2);
    type("e"); // over the maximum, and no count below 0
    EXPECT_EQ(text(), "äbö");
    EXPECT_EQ(changes(), 0);
    tap(Keyboard::K_BACKSPACE, 2); // takes what only the label has
    EXPECT_EQ(text(), "äbö");
    EXPECT_EQ(shown(), "äbö");
    EXPECT_EQ(changes(), 2);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "äb");
    EXPECT_EQ(shown(), "äb");
}

TEST_F(TextFieldLimitsTest, AMaximumOfNothingTakesNothing) {
    mField->setMaxLength(0);
    mField->insertText("a");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(changes(), 0);
    mField->setMaxLength(INT_MAX);
    mField->insertText("a");
    EXPECT_EQ(text(), "a");
    mField->setMaxLength(INT_MIN);
    mField->insertText("b");
    EXPECT_EQ(text(), "ab");
}

TEST_F(TextFieldLimitsTest, AMaximumBelowTheLengthEmptiesTheField) {
    mField->setText("abc");
    changes();
    mField->setMaxLength(2);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(mField->getMaxLength(), 2);
    EXPECT_EQ(changes(), 1);
    mField->setMaxLength(-1);
    mField->setText("abc");
    changes();
    mField->setMaxLength(3); // just fits
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldLimitsTest, AMaximumBelowTheCaretPutsItToTheEnd) {
    mField->setText("abc");
    mField->setFocus();
    caretTo(3);
    mField->setMaxLength(3);
    EXPECT_EQ(caret(), 3);
    mField->setMaxLength(-5);
    EXPECT_EQ(caret(), 3);
    OpenField::clean(*mField);
    mField->setMaxLength(2);
    EXPECT_EQ(caret(), -1);
    EXPECT_TRUE(mField->isDirty(Component::DIRTY_VIEW));
    mField->setMaxLength(-1);
    mField->setText("abc");
    caretTo(5);
    mField->setMaxLength(4); // it was past the end
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(caret(), -1);
}

TEST_F(TextFieldLimitsTest, SettingALongerTextThanTheMaximumShowsAndStoresItWhole) {
    mField->setMaxLength(2);
    mField->setText("abcd");
    EXPECT_EQ(text(), "abcd");
    EXPECT_EQ(shown(), "abcd");
}

TEST_F(TextFieldLimitsTest, SettingATextWhileTheLabelIsOverTheMaximumLosesTheRealOne) {
    mField->setMaxLength(2);
    mField->setText("abcd");
    mField->setText("ef");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "ef");
    mField->setText("gh"); // the label is in bounds again
    EXPECT_EQ(text(), "gh");
}

TEST_F(TextFieldLimitsTest, SettingItsOwnTextWhileTheLabelIsOverTheMaximumEmptiesBoth) {
    mField->setMaxLength(2);
    mField->setText("abcd");
    mField->setText(mField->getText());
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "");
}

// --- masking ---

TEST_F(TextFieldLimitsTest, AMaskOfThreeBytesStandsForEachCharacter) {
    mField->setPasswordChar("•");
    EXPECT_TRUE(mField->isPassword());
    EXPECT_STREQ(mField->getPasswordChar(), "•");
    mField->setText("aä日😀");
    EXPECT_EQ(text(), "aä日😀");
    EXPECT_EQ(shown(), "••••");
    mField->setFocus();
    type("é");
    EXPECT_EQ(text(), "aä日😀é");
    EXPECT_EQ(shown(), "•••••");
    caretTo(2);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "aä😀é");
    EXPECT_EQ(shown(), "••••");
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "a😀é");
    EXPECT_EQ(shown(), "•••");
    type("x");
    EXPECT_EQ(text(), "ax😀é");
    EXPECT_EQ(mField->getTextLength(), text::getUTF8Length(mField->getText()));
}

TEST_F(TextFieldLimitsTest, AMaskedRunShowsOneMask) {
    mField->setPasswordChar("*");
    mField->setFocus();
    type("abc");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(shown(), "*");
    mField->setText(mField->getText());
    EXPECT_EQ(shown(), "***");
}

TEST_F(TextFieldLimitsTest, WhatIsOnShowIsNotMaskedUntilTheNextText) {
    mField->setText("abc");
    mField->setPasswordChar("*");
    EXPECT_EQ(shown(), "abc");
    mField->setText("abc");
    EXPECT_EQ(shown(), "***");
    mField->setPasswordChar(nullptr);
    EXPECT_FALSE(mField->isPassword());
    EXPECT_EQ(shown(), "***");
    mField->setText("abc");
    EXPECT_EQ(shown(), "abc");
}

TEST_F(TextFieldLimitsTest, TakesFourBytesForTheMask) {
    mField->setPasswordChar("😀");
    EXPECT_STREQ(mField->getPasswordChar(), "😀");
    mField->setPasswordChar("abcdef");
    EXPECT_STREQ(mField->getPasswordChar(), "abcd");
    mField->setText("xyz");
    EXPECT_EQ(shown(), "aaa"); // one for each character, whatever follows
    mField->setPasswordChar(mField->getPasswordChar() + 2);
    EXPECT_STREQ(mField->getPasswordChar(), "cd");
    mField->setPasswordChar("\xe2\x80");
    mField->setText("xyz");
    EXPECT_EQ(mField->getTextLength(), 3u);
    mField->setPasswordChar("");
    EXPECT_STREQ(mField->getPasswordChar(), "");
    EXPECT_FALSE(mField->isPassword());
}

TEST_F(TextFieldLimitsTest, TheKeyboardOptionsTellOfTheMask) {
    mField->setKeyboardOptions(5);
    EXPECT_EQ(mField->getKeyboardOptions(), 5u);
    mField->setPasswordChar("*");
    EXPECT_EQ(mField->getKeyboardOptions(), 0x10005u);
    mField->setKeyboardOptions(2);
    EXPECT_EQ(mField->getKeyboardOptions(), 0x10002u);
    mField->setPasswordChar("");
    EXPECT_EQ(mField->getKeyboardOptions(), 2u);
    mField->setKeyboardOptions(0xffffffff);
    EXPECT_EQ(mField->getKeyboardOptions(), 0xfffeffffu);
}
