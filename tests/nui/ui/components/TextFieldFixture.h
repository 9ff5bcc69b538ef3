#pragma once

#include "nui/ui/ManagerTest.h"

#include "nui/ui/KeyboardOverlay.h"

#include <string>

namespace test {

/// A text field on the stage, and what a user does to it.
class TextFieldFixture : public ManagerTest {
public:
    using TextField = nurel::ui::components::TextField;
    using Label = nurel::ui::components::Label;
    using Keyboard = nurel::input::Keyboard;

    /// Lets tests at the protected operations.
    class OpenField : public TextField {
    public:
        using TextField::TextField;

        using TextField::processEvent;
        using TextField::setChildState;
        using TextField::setClean;
        using TextField::setState;
        using TextField::updatePosition;
        using TextField::visit;

        static void clean(Component &component) { (component.*&OpenField::setClean)(DIRTY_ALL); }
    };

    TextFieldFixture() {
        mWidget = addWidget("w");
        mField = new OpenField("field");
        place(*mField, 100, 100, 200, 40);
        mWidget->addChild(mField.get());
        frame();
        mField->ChangeCallbacks::subscribeCallback([this](TextField *field) {
            EXPECT_EQ(field, mField.get());
            ++mChanges;
            return false;
        });
    }

    /// Puts the label where a sheet would: at the left, as wide as its text.
    void layOutLabel() {
        mField->getLabel()->setPositionData({0, 0}, {0, 0}, {0, 20}, {0, 0}, Component::ANCHOR_CENTER_LEFT);
        mField->getLabel()->setAutoSize(Component::AUTO_SIZE_WIDTH);
        frame();
    }

    static void type(const char *text) {
        manager().textInput(text);
        frame();
    }

    static void tap(int code, int times = 1) {
        for (int i = 0; i < times; ++i) {
            key(code, true);
            key(code, false);
        }
    }

    /// Home, and then so many times to the right.
    static void caretTo(int index) {
        tap(Keyboard::K_HOME);
        tap(Keyboard::K_RIGHT, index);
    }

    std::string text() const { return mField->getText(); }
    std::string shown() const { return mField->getLabel()->getText(); }
    int caret() const { return mField->getCaretIndex(); }

    /// How often the field has said that its text changed since the last call.
    int changes() { return std::exchange(mChanges, 0); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<OpenField> mField; ///< around (200, 120)
    int mChanges = 0;
};

} // namespace test
