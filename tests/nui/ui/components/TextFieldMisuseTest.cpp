// Text fields where nobody would put them, and what callbacks do to them in the middle of an edit.
#include "nui/ui/components/TextFieldFixture.h"

#include "nmain/core/CloningOptions.h"

#include <limits>

using namespace nurel::ui;
using components::Label;
using components::TextField;
using nurel::input::Keyboard;
using nurel::math::Vector2;

namespace {

class TextFieldMisuseTest : public test::TextFieldFixture {
public:
    ~TextFieldMisuseTest() override { UIManager::shutdown(); } // which still tells

    /// All that a user can do to a field.
    static void useAll(OpenField &field) {
        const Ray ray;
        const CursorPosition cursor;
        field.handleEvent(FocusEvent(FocusEvent::FOCUS_GAINED));
        field.handleEvent(ClickEvent(ray, cursor, cursor));
        field.handleEvent(TextEvent("ab"));
        for (const int code : {Keyboard::K_HOME, Keyboard::K_RIGHT, Keyboard::K_DELETE, Keyboard::K_LEFT,
                               Keyboard::K_END, Keyboard::K_BACKSPACE}) {
            field.handleEvent(KeyEvent(code, true));
            field.handleEvent(KeyEvent(code, false));
        }
        field.handleEvent(TextEvent("c"));
        field.handleEvent(FocusEvent(FocusEvent::FOCUS_LOST));
    }
};

} // namespace

// --- where a field may be ---

TEST_F(TextFieldMisuseTest, AFieldOutsideOfAnyWidgetIsEdited) {
    const core::SmartPtr<OpenField> field(new OpenField("alone"));
    useAll(*field);
    EXPECT_STREQ(field->getText(), "c");
    EXPECT_STREQ(field->getLabel()->getText(), "c");
    EXPECT_EQ(manager().getKeyboardOverlay()->getOwner(), field.get());
    Vector2 minimum;
    Vector2 maximum;
    field->getCaretBounds(minimum, maximum);
    EXPECT_EQ(maximum.x, minimum.x + 2);
    field->update();
}

TEST_F(TextFieldMisuseTest, AFieldWithoutAnEngineIsEdited) {
    mField = nullptr;
    mWidget = nullptr;
    UIManager::shutdown();
    mEngine.reset();
    const core::SmartPtr<OpenField> field(new OpenField("alone"));
    useAll(*field);
    EXPECT_STREQ(field->getText(), "c");
    EXPECT_EQ(field->getFont(), nullptr);
    EXPECT_FALSE(UIManager::isSingletonCreated());
    const core::SmartPtr<nurel::core::Object> copy(field->clone());
    EXPECT_STREQ(static_cast<TextField &>(*copy).getText(), "c");
}

TEST_F(TextFieldMisuseTest, AFieldOutlivesTheManagerAndTheEngine) {
    mField->setPlaceholderText("Name");
    mField->setFocus();
    mField->insertText("a");
    mWidget = nullptr;
    UIManager::shutdown();
    mEngine.reset();
    changes();
    useAll(*mField);
    EXPECT_EQ(text(), "ac");
    EXPECT_EQ(shown(), "ac");
    EXPECT_EQ(changes(), 4);
}

TEST_F(TextFieldMisuseTest, AFieldOfARemovedWidgetKeepsTheFocusAndIsEditedWithoutAView) {
    mField->setFocus();
    type("a");
    manager().removeWidget(mWidget.get());
    frame();
    EXPECT_FALSE(mField->hasView());
    EXPECT_EQ(manager().getFocus(), mField.get()); // what lies in a widget is not looked through
    type("b");
    tap(Keyboard::K_HOME);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "b");
    EXPECT_EQ(shown(), "b");
    manager().addWidget(mWidget.get(), nullptr);
    frame();
    EXPECT_TRUE(mField->hasView());
    EXPECT_EQ(text(), "b");
}

TEST_F(TextFieldMisuseTest, TwoWidgetsHaveOneFocus) {
    const core::SmartPtr<Widget> second = addWidget("second");
    const core::SmartPtr<OpenField> other(new OpenField("other"));
    place(*other, 400, 100, 200, 40);
    second->addChild(other.get());
    frame();
    mField->setFocus();
    type("a");
    click(500, 120);
    EXPECT_EQ(manager().getFocus(), other.get());
    type("b");
    EXPECT_EQ(text(), "a");
    EXPECT_STREQ(other->getText(), "b");
    EXPECT_EQ(manager().getKeyboardOverlay()->getOwner(), other.get());
    manager().removeWidget(second.get());
    frame();
    click(200, 120);
    type("c");
    EXPECT_EQ(text(), "ac");
    EXPECT_STREQ(other->getText(), "b");
}

TEST_F(TextFieldMisuseTest, AFieldThatIsHiddenOrDisabledWhileItIsEditedLosesTheFocusButNotItsText) {
    for (const bool hides : {true, false}) {
        mField->clearText();
        mField->setFocus();
        type("a");
        manager().textInput("lost");
        if (hides)
            mWidget->setVisible(false);
        else
            mWidget->setEnabled(false);
        EXPECT_EQ(manager().getFocus(), nullptr);
        type("b");
        tap(Keyboard::K_BACKSPACE);
        EXPECT_EQ(text(), "a");
        mWidget->setVisible(true);
        mWidget->setEnabled(true);
    }
}

TEST_F(TextFieldMisuseTest, AFieldThatIsDisabledWhileItIsDraggedScrollsNoMore) {
    layOutLabel();
    mField->setText("a text that is longer than its field, and by far so");
    frame();
    moveTo(200, 120);
    press();
    moveTo(150, 120);
    moveTo(140, 120);
    ASSERT_EQ(manager().getDragging(), mField.get());
    const float scroll = mField->getScrollOffset().x;
    mField->setEnabled(false);
    EXPECT_EQ(manager().getDragging(), nullptr);
    moveTo(110, 120);
    EXPECT_EQ(mField->getScrollOffset().x, scroll);
    release();
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(TextFieldMisuseTest, ADisabledManagerTakesNoKeysFromAFieldInTheMiddleOfAnEdit) {
    mField->setText("ab");
    mField->setFocus();
    manager().textInput("c");
    manager().setEnabled(false);
    frame();
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "ab"); // there was nobody left for the text that was waiting
    manager().setEnabled(true);
    mField->setFocus();
    type("d");
    EXPECT_EQ(text(), "abd");
}

// --- callbacks ---

TEST_F(TextFieldMisuseTest, AChangeMayDisableTheFieldOrTheManager) {
    mField->ChangeCallbacks::subscribeCallback([](TextField *field) {
        field->setEnabled(false);
        return true;
    });
    mField->setFocus();
    type("a");
    EXPECT_EQ(manager().getFocus(), nullptr);
    mField->setEnabled(true);
    mField->setFocus();
    mField->ChangeCallbacks::subscribeCallback([](TextField *) {
        manager().setEnabled(false);
        return true;
    });
    tap(Keyboard::K_BACKSPACE, 2);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(manager().getFocus(), nullptr);
}

TEST_F(TextFieldMisuseTest, AChangeMayTakeThePartsOut) {
    mField->setPlaceholderText("Name");
    mField->ChangeCallbacks::subscribeCallback([](TextField *field) {
        field->clearChildren();
        return false;
    });
    mField->setFocus();
    type("a");
    EXPECT_EQ(mField->getChildCount(), 0u);
    type("b");
    tap(Keyboard::K_LEFT);
    tap(Keyboard::K_BACKSPACE);
    mField->setMaxLength(0);
    frame();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "");
}

TEST_F(TextFieldMisuseTest, AChangeMayEditUntilItIsContent) {
    mField->ChangeCallbacks::subscribeCallback([](TextField *field) {
        if (field->getTextLength() < 8)
            field->insertText("x");
        return false;
    });
    mField->setFocus();
    caretTo(0);
    type("a");
    EXPECT_EQ(text(), "axxxxxxx");
    EXPECT_EQ(shown(), "axxxxxxx");
    EXPECT_EQ(caret(), 8);
}

TEST_F(TextFieldMisuseTest, AListenerMayRemoveTheFieldOnTheWayToTheFocus) {
    mField->setText("text");
    manager().getEventObserver().subscribeCallback([this](UIEventHandler *handler, const UIEvent &, UIEventHandler *&) {
        if (mField && handler == mField.get()) {
            mField = nullptr;
            mWidget->clearChildren();
        }
        return false;
    });
    mField->setFocus();
    EXPECT_FALSE(mField);
    type("a");
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    manager().getEventObserver().removeCallbacks();
}

// --- copies ---

TEST_F(TextFieldMisuseTest, ACloneOfAFieldThatHasLostItsLabelMakesOneForTheText) {
    mField->setPlaceholderText("Name");
    mField->setText("text");
    const core::SmartPtr<Label> label(mField->getLabel());
    mField->removeChild(label.get());
    const core::SmartPtr<nurel::core::Object> object(mField->clone());
    auto &copy = static_cast<TextField &>(*object);
    EXPECT_FALSE(copy.hasLabel());
    EXPECT_STREQ(copy.getText(), "text");
    EXPECT_STREQ(copy.getPlaceholderText(), "Name");
    EXPECT_STREQ(copy.getLabel()->getText(), "text");
    EXPECT_NE(copy.getLabel(), label.get());
    copy.insertText("s");
    EXPECT_STREQ(copy.getText(), "texts");
}

TEST_F(TextFieldMisuseTest, ACloneLeavesAsMuchRoomForItsCaret) {
    layOutLabel();
    mField->setText("mmmmmmmmmmmmmmmmmmmmmmmmmmmmmm");
    const core::SmartPtr<nurel::core::Object> object(mField->clone());
    const core::SmartPtr<TextField> copy(static_cast<TextField *>(object.get()));
    mWidget->addChild(copy.get());
    frame();
    mField->setFocus();
    tap(Keyboard::K_END);
    copy->setFocus();
    tap(Keyboard::K_END);
    EXPECT_LT(mField->getScrollOffset().x, -100);
    EXPECT_EQ(copy->getScrollOffset().x, mField->getScrollOffset().x);
}

TEST_F(TextFieldMisuseTest, ACloneOfACloneIsAField) {
    mField->setPlaceholderText("Name");
    mField->setText("text");
    const core::SmartPtr<nurel::core::Object> first(mField->clone());
    const core::SmartPtr<nurel::core::Object> second(first->clone());
    auto &copy = static_cast<TextField &>(*second);
    copy.insertText("s");
    EXPECT_STREQ(copy.getLabel()->getText(), "texts");
    EXPECT_EQ(copy.getLabel()->getElement(), "text");
    EXPECT_EQ(copy.getChildCount(), 2u);
    EXPECT_EQ(shown(), "text");
}

// --- numbers at the edge ---

TEST_F(TextFieldMisuseTest, ACaretFarPastTheEndIsTheEnd) {
    mField->setText("ab");
    mField->setFocus();
    caretTo(1000);
    type("c");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(caret(), 1001);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "abc");
    mField->clearText();
    EXPECT_EQ(caret(), 1001);
    type("d");
    EXPECT_EQ(text(), "d");
    tap(Keyboard::K_BACKSPACE, 1001);
    EXPECT_EQ(text(), "d"); // it has come back to 1, and no further
    EXPECT_EQ(caret(), 1);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "");
}

TEST_F(TextFieldMisuseTest, SizesThatAreNoneDoNotKeepItFromEditing) {
    layOutLabel();
    mField->setFocus();
    for (const float size :
         {0.0f, -50.0f, 1e30f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
        mField->setSize(Vector2(size, size), Vector2(0, 0));
        frame();
        mField->clearText();
        type("ab");
        tap(Keyboard::K_LEFT, 2);
        tap(Keyboard::K_DELETE);
        tap(Keyboard::K_END);
        EXPECT_EQ(text(), "b") << size;
    }
    mField->setSize(Vector2(200, 40), Vector2(0, 0));
    frame();
}
