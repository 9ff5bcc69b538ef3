// The text field and the on-screen keyboard.
#include "nui/ui/components/TextFieldFixture.h"

#include <string>
#include <vector>

using namespace nurel::ui;
using components::TextField;
using nurel::input::Keyboard;

namespace {

/// A keyboard of the platform that notes what it shows, and that a test can end.
class TestKeyboard : public KeyboardOverlay {
public:
    ~TestKeyboard() override { end(); }

    using KeyboardOverlay::textEditingFinished;

    std::string mShown;

private:
    void _show(unsigned int options, const char *text) override { mShown = std::to_string(options) + " " + text; }
    void _refresh(unsigned int options, const char *text) override { _show(options, text); }
};

class TextFieldKeyboardTest : public test::TextFieldFixture {
public:
    TextFieldKeyboardTest() : mOther(new OpenField("other")) {
        place(*mOther, 100, 200, 200, 40);
        mWidget->addChild(mOther.get());
        frame();
        note(*mField);
        note(*mOther);
    }
    ~TextFieldKeyboardTest() override { UIManager::shutdown(); } // which still tells

    void note(TextField &field) {
        field.FinishCallbacks::subscribeCallback([this](TextField *which, KeyboardOverlay::TextEditingResult result) {
            mFinishes.push_back(which->getName() + std::string(" ") + std::to_string(result) + " " + which->getText());
            return false;
        });
    }

    TestKeyboard &bringKeyboard() {
        auto overlay = std::make_unique<TestKeyboard>();
        TestKeyboard &result = *overlay;
        manager().setKeyboardOverlay(std::move(overlay));
        return result;
    }

    static KeyboardOverlay &overlay() { return *manager().getKeyboardOverlay(); }

    Lines finishes() { return std::exchange(mFinishes, {}); }

    core::SmartPtr<OpenField> mOther;
    Lines mFinishes;
};

} // namespace

TEST_F(TextFieldKeyboardTest, TakesTheKeyboardWithTheFocus) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setText("töxt");
    mField->setKeyboardOptions(5);
    mField->setPasswordChar("*");
    mField->setFocus();
    EXPECT_EQ(keyboard.getOwner(), mField.get());
    EXPECT_EQ(keyboard.mShown, "65541 töxt"); // the real text
}

TEST_F(TextFieldKeyboardTest, MakesAnOverlayIfThereIsNone) {
    EXPECT_EQ(manager().getKeyboardOverlay(), nullptr);
    mField->setFocus();
    ASSERT_NE(manager().getKeyboardOverlay(), nullptr);
    EXPECT_EQ(overlay().getOwner(), mField.get());
    EXPECT_TRUE(overlay().isShown());
}

TEST_F(TextFieldKeyboardTest, TakesTheKeyboardAgainWhenItIsClicked) {
    TestKeyboard &keyboard = bringKeyboard();
    click(200, 120);
    EXPECT_EQ(keyboard.getOwner(), mField.get());
    keyboard.textEditingFinished(KeyboardOverlay::OVERLAY_DISMISSED, nullptr);
    EXPECT_EQ(finishes(), Lines{"field 2 "});
    EXPECT_EQ(keyboard.getOwner(), nullptr);
    EXPECT_EQ(manager().getFocus(), mField.get());
    click(200, 120);
    EXPECT_EQ(keyboard.getOwner(), mField.get());
    EXPECT_TRUE(keyboard.isShown());
}

TEST_F(TextFieldKeyboardTest, ALossOfTheFocusLeavesTheKeyboardWhereItIs) {
    mField->setFocus();
    manager().setFocus(nullptr);
    EXPECT_EQ(overlay().getOwner(), mField.get());
    EXPECT_EQ(finishes(), Lines{});
}

TEST_F(TextFieldKeyboardTest, AnAcceptedTextIsTheFieldsText) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setText("old");
    mField->setFocus();
    changes();
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(text(), "new");
    EXPECT_EQ(shown(), "new");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(finishes(), Lines{"field 0 new"});
}

TEST_F(TextFieldKeyboardTest, OtherEndsLeaveTheTextAlone) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setText("old");
    mField->setFocus();
    changes();
    keyboard.textEditingFinished(KeyboardOverlay::OVERLAY_DISMISSED, "new");
    EXPECT_EQ(text(), "old");
    EXPECT_EQ(finishes(), Lines{"field 2 old"});
    manager().setFocus(nullptr);
    mField->setFocus();
    keyboard.resign(mField.get());
    EXPECT_EQ(finishes(), Lines{"field 1 old"}); // the dismissal behind it is nobody's
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldKeyboardTest, IsSubscribedOnceHoweverOftenItTakesTheFocus) {
    TestKeyboard &keyboard = bringKeyboard();
    for (int i = 0; i < 3; ++i) {
        manager().setFocus(nullptr);
        mField->setFocus();
        click(200, 120);
    }
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), Lines{"field 0 new"});
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "newer"); // its edit is over
    EXPECT_EQ(finishes(), Lines{});
    EXPECT_EQ(text(), "new");
}

TEST_F(TextFieldKeyboardTest, AnotherFieldTakesTheKeyboardOver) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setFocus();
    mOther->setText("other");
    mOther->setFocus();
    EXPECT_EQ(finishes(), Lines{"field 1 "});
    EXPECT_EQ(keyboard.getOwner(), mOther.get());
    EXPECT_EQ(keyboard.mShown, "0 other");
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), Lines{"other 0 new"});
    EXPECT_EQ(text(), "");
}

TEST_F(TextFieldKeyboardTest, TheEndOfSomebodyElsesEditEndsTheSubscription) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setFocus();
    const core::SmartPtr<components::Panel> panel(new components::Panel("panel"));
    keyboard.getFinishedSignal().triggerCallbacks(&keyboard, panel.get(), KeyboardOverlay::TEXT_ACCEPTED, "strange");
    EXPECT_EQ(text(), "");
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), Lines{});
    EXPECT_EQ(text(), "");
}

TEST_F(TextFieldKeyboardTest, AMaximumLengthDoesNotHoldForTheKeyboardsText) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setMaxLength(2);
    mField->setFocus();
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "long");
    EXPECT_EQ(text(), "long");
}

TEST_F(TextFieldKeyboardTest, AFieldThatTakesTheKeyboardAgainWhenItsEditEndsIsToldOnce) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->FinishCallbacks::subscribeCallback([](TextField *field, KeyboardOverlay::TextEditingResult) {
        manager().setFocus(nullptr);
        field->setFocus();
        return false;
    });
    mField->setFocus();
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), Lines{"field 0 new"});
    EXPECT_EQ(keyboard.getOwner(), nullptr); // the end takes it away all the same
    keyboard.acquire(mField.get(), "new", 0);
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "newer"); // it is still subscribed
    EXPECT_EQ(finishes(), Lines{"field 0 newer"});
}

TEST_F(TextFieldKeyboardTest, AFieldMaySendTheFocusOnWhenItsEditEnds) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->FinishCallbacks::subscribeCallback([this](TextField *, KeyboardOverlay::TextEditingResult) {
        mOther->setFocus();
        return false;
    });
    mField->setFocus();
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), (Lines{"field 0 new", "field 1 new"}));
    EXPECT_EQ(manager().getFocus(), mOther.get());
    mOther->handleEvent(ClickEvent(Ray(), CursorPosition(), CursorPosition()));
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "next");
    EXPECT_EQ(finishes(), Lines{"other 0 next"});
}

TEST_F(TextFieldKeyboardTest, LivesAsLongAsTheKeyboardIsItsOwn) {
    mField->setFocus();
    const TextField *field = mField.get();
    mWidget->removeChild(mField.get());
    mField = nullptr;
    EXPECT_EQ(overlay().getOwner(), field);
    overlay().resign(nullptr);
    EXPECT_EQ(finishes(), Lines{"field 1 "});
    EXPECT_EQ(overlay().getOwner(), nullptr);
}

TEST_F(TextFieldKeyboardTest, AFieldThatDiesLeavesNoSubscription) {
    TestKeyboard &keyboard = bringKeyboard();
    mOther->FinishCallbacks::subscribeCallback([this](TextField *, KeyboardOverlay::TextEditingResult) {
        mField->setFocus();
        return true;
    });
    mOther->setFocus();
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(keyboard.getOwner(), nullptr); // so nobody holds the field that is subscribed
    finishes();
    mWidget->removeChild(mField.get());
    frame();
    EXPECT_EQ(mField->getRefCount(), 1u);
    mField = nullptr;
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "more");
    EXPECT_EQ(finishes(), Lines{});
}

TEST_F(TextFieldKeyboardTest, ACallbackMayRemoveTheFieldWhenItsEditEnds) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setFocus();
    mField->ChangeCallbacks::subscribeCallback([this](TextField *) {
        mField = nullptr;
        mWidget->clearChildren();
        return false;
    });
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(finishes(), Lines{"field 0 new"}); // it lives until it is told
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    frame();
}

TEST_F(TextFieldKeyboardTest, ACallbackMayEndTheManagerWhenTheEditEnds) {
    TestKeyboard &keyboard = bringKeyboard();
    mField->setFocus();
    mField->FinishCallbacks::subscribeCallback([](TextField *, KeyboardOverlay::TextEditingResult) {
        UIManager::shutdown();
        return false;
    });
    keyboard.textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(text(), "new");
    EXPECT_EQ(mField->getRefCount(), 2u); // the widget's and the test's
}

TEST_F(TextFieldKeyboardTest, ACallbackMayBringAnotherKeyboard) {
    mField->setFocus();
    mOther->handleEvent(ClickEvent(Ray(), CursorPosition(), CursorPosition()));
    finishes();
    mOther->FinishCallbacks::subscribeCallback([this](TextField *, KeyboardOverlay::TextEditingResult) {
        if (!mField->hasFocus())
            return true;
        bringKeyboard();
        mField->handleEvent(ClickEvent(Ray(), CursorPosition(), CursorPosition()));
        return true;
    });
    overlay().resign(nullptr);
    EXPECT_EQ(overlay().getOwner(), mField.get());
    static_cast<TestKeyboard &>(overlay()).textEditingFinished(KeyboardOverlay::TEXT_ACCEPTED, "new");
    EXPECT_EQ(text(), "new");
}

TEST_F(TextFieldKeyboardTest, TheEndOfTheManagerEndsTheEdit) {
    mField->setFocus();
    UIManager::shutdown();
    EXPECT_EQ(finishes(), Lines{"field 2 "});
    EXPECT_EQ(mField->getRefCount(), 2u);
}
