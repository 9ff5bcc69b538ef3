// Text and parts of a text field. Limits and masks, caret and keyboard have files of their own.
#include "nui/ui/components/TextField.h"

#include "nui/ui/components/TextFieldFixture.h"

#include "foundation/core/Exception.h"
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/Glyph.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"

#include <vector>

using namespace nurel::ui;
using components::Label;
using components::TextField;
using nurel::input::Keyboard;

namespace {

constexpr unsigned int HOVER = Component::STATE_HOVER;
constexpr unsigned int FOCUSED = Component::STATE_FOCUSED;

class TextFieldTest : public test::TextFieldFixture {};

} // namespace

TEST_F(TextFieldTest, HasItsDefaults) {
    const core::SmartPtr<TextField> field(new TextField);
    EXPECT_STREQ(field->getName(), "");
    EXPECT_STREQ(TextField::ELEMENT, "text");
    EXPECT_EQ(field->getElement(), "text");
    EXPECT_STREQ(field->getType().getName(), "TextField");
    EXPECT_TRUE(field->instanceOf(Container::TYPE));
    EXPECT_EQ(field->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x1e1 | 0x80);
    EXPECT_EQ(field->getScrollMask(), 1u);
    EXPECT_EQ(field->getTabStop(), 0);
    EXPECT_STREQ(field->getText(), "");
    EXPECT_STREQ(field->getPasswordChar(), "");
    EXPECT_FALSE(field->isPassword());
    EXPECT_EQ(field->getMaxLength(), -1);
    EXPECT_EQ(field->getCaretIndex(), -1);
    EXPECT_EQ(field->getKeyboardOptions(), 0u);
    EXPECT_EQ(field->getChildCount(), 0u);
    EXPECT_STREQ(field->getPlaceholderText(), "");
    EXPECT_EQ(field->getChildCount(), 0u);
}

// --- text ---

TEST_F(TextFieldTest, ShowsItsTextByALabel) {
    mField->addClass("big");
    mField->addClass("blue");
    mField->setElement("special");
    mField->setText("Äb");
    EXPECT_EQ(text(), "Äb");
    EXPECT_EQ(mField->getTextLength(), 2u);
    EXPECT_EQ(changes(), 1);
    ASSERT_EQ(mField->getChildCount(), 1u);
    Label *label = mField->getLabel();
    EXPECT_EQ(mField->getChildAt(0), label);
    EXPECT_STREQ(label->getText(), "Äb");
    EXPECT_STREQ(label->getName(), "label");
    EXPECT_EQ(label->getElement(), "text"); // not the field's own
    EXPECT_EQ(label->getEventMask(), 0u);
    EXPECT_EQ(label->getZIndex(), 0);
    EXPECT_TRUE(label->hasClass("big"));
    EXPECT_TRUE(label->hasClass("blue"));
    EXPECT_EQ(label->getClasses().size(), 2u);
    EXPECT_EQ(&label->getType(), &Label::TYPE);
}

TEST_F(TextFieldTest, SettingATextMarksTheViewAndLeavesTheCaretAlone) {
    mField->setText("abc");
    mField->setFocus();
    caretTo(2);
    frame();
    OpenField::clean(*mField);
    changes();
    mField->setText("x");
    EXPECT_TRUE(mField->isDirty(Component::DIRTY_VIEW));
    EXPECT_EQ(caret(), 2);
    EXPECT_EQ(changes(), 1);
    mField->setText("x"); // no news, but told
    EXPECT_EQ(changes(), 1);
    mField->clearText();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(changes(), 1);
    mField->setText("x");
    mField->setText(nullptr);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(changes(), 2);
}

TEST_F(TextFieldTest, KeepsItsTextWhenItIsSetToItself) {
    mField->setText("some text");
    mField->setText(mField->getText());
    EXPECT_EQ(text(), "some text");
    EXPECT_EQ(shown(), "some text");
    mField->setText(mField->getText() + 5);
    EXPECT_EQ(text(), "text");
    EXPECT_EQ(shown(), "text");
    mField->setText(mField->getLabel()->getText() + 1);
    EXPECT_EQ(text(), "ext");
    EXPECT_EQ(shown(), "ext");
    mField->insertText(mField->getText());
    EXPECT_EQ(text(), "extext");
    mField->insertText(mField->getLabel()->getText());
    EXPECT_EQ(text(), "extextextext");
    EXPECT_EQ(shown(), "extextextext");
}

TEST_F(TextFieldTest, HasANewLabelWithItsTextAfterTheOldOneWasTakenOut) {
    mField->setText("text");
    const core::SmartPtr<Label> old(mField->getLabel());
    mField->removeChild(old.get());
    EXPECT_NE(mField->getLabel(), old.get());
    EXPECT_EQ(shown(), "text");
    EXPECT_EQ(mField->getChildCount(), 1u);
    mField->setPasswordChar("*");
    mField->clearChildren();
    EXPECT_EQ(shown(), "****");
    mField->addClass("late");
    EXPECT_FALSE(old->hasClass("late"));
    EXPECT_STREQ(old->getText(), "text");
}

// --- inserting ---

TEST_F(TextFieldTest, TypingAtTheEndAppendsAndLeavesTheCaretThere) {
    mField->setFocus();
    type("é");
    EXPECT_EQ(changes(), 1);
    type("x");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(text(), "éx");
    EXPECT_EQ(text().size(), 3u);
    EXPECT_EQ(shown(), "éx");
    EXPECT_EQ(mField->getTextLength(), 2u);
    EXPECT_EQ(caret(), -1);
}

TEST_F(TextFieldTest, TypingAtAPlaceInsertsAndMovesTheCaretOn) {
    mField->setText("aöc");
    mField->setFocus();
    caretTo(1);
    type("日");
    EXPECT_EQ(text(), "a日öc");
    EXPECT_EQ(caret(), 2);
    type("b");
    EXPECT_EQ(text(), "a日böc");
    EXPECT_EQ(shown(), "a日böc");
    EXPECT_EQ(caret(), 3);
    tap(Keyboard::K_HOME);
    type("ع");
    EXPECT_EQ(text(), "عa日böc");
    EXPECT_EQ(caret(), 1);
}

TEST_F(TextFieldTest, ALongerRunMovesTheCaretByOneOnly) {
    mField->setText("ab");
    mField->setFocus();
    caretTo(1);
    type("1234");
    EXPECT_EQ(text(), "a1234b");
    EXPECT_EQ(caret(), 2);
    EXPECT_EQ(changes(), 2);
}

TEST_F(TextFieldTest, TypingPastTheEndAppends) {
    mField->setText("ab");
    mField->setFocus();
    caretTo(7);
    type("c");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(shown(), "abc");
    EXPECT_EQ(caret(), 8);
}

TEST_F(TextFieldTest, InsertingNothingTellsNobody) {
    mField->insertText("");
    mField->insertText(nullptr);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldTest, InsertingMarksTheView) {
    mField->insertText("a");
    frame();
    OpenField::clean(*mField);
    mField->insertText("b");
    EXPECT_TRUE(mField->isDirty(Component::DIRTY_VIEW));
}

TEST_F(TextFieldTest, ATextThatBeginsWithAControlCharacterIsNotInserted) {
    mField->setFocus();
    for (const char *typed : {"\b", "\t", "\r", "\n", "\nabc", "\r\nx", ""}) {
        mField->processEvent(TextEvent(typed));
        EXPECT_EQ(text(), "") << typed;
    }
    EXPECT_EQ(changes(), 0);
    type("a\tb\n");
    EXPECT_EQ(text(), "a\tb\n");
    type("\x1b\x7f");
    EXPECT_EQ(text(), "a\tb\n\x1b\x7f");
    EXPECT_EQ(mField->processEvent(TextEvent("\n")), mField.get());
    EXPECT_EQ(mField->processEvent(TextEvent("x")), mField.get());
    EXPECT_EQ(mField->processEvent(TextEvent(nullptr)), mField.get());
}

TEST_F(TextFieldTest, TextReachesAFieldInFocusOnly) {
    type("lost");
    EXPECT_EQ(text(), "");
    click(200, 120);
    EXPECT_EQ(manager().getFocus(), mField.get());
    type("kept");
    EXPECT_EQ(text(), "kept");
}

// --- placeholder ---

TEST_F(TextFieldTest, APlaceholderShowsWhileThereIsNoText) {
    mField->addClass("big");
    mField->setPlaceholderText("Name");
    Label *placeholder = mField->getPlaceholder();
    EXPECT_STREQ(mField->getPlaceholderText(), "Name");
    EXPECT_STREQ(placeholder->getText(), "Name");
    EXPECT_STREQ(placeholder->getName(), "placeholder");
    EXPECT_EQ(placeholder->getElement(), "text");
    EXPECT_EQ(placeholder->getEventMask(), 0u);
    EXPECT_TRUE(placeholder->hasClass("big"));
    ASSERT_EQ(mField->getChildCount(), 2u);
    EXPECT_EQ(mField->getChildAt(0), mField->getLabel()); // what a view takes for the text
    EXPECT_TRUE(placeholder->isVisible());
    mField->setFocus();
    type("a");
    EXPECT_FALSE(placeholder->isVisible());
    tap(Keyboard::K_BACKSPACE);
    EXPECT_TRUE(placeholder->isVisible());
    mField->setText("b");
    EXPECT_FALSE(placeholder->isVisible());
    caretTo(0);
    tap(Keyboard::K_DELETE);
    EXPECT_TRUE(placeholder->isVisible());
    mField->setPlaceholderText(nullptr);
    EXPECT_STREQ(mField->getPlaceholderText(), "");
}

TEST_F(TextFieldTest, APlaceholderOfAFieldWithATextIsHidden) {
    mField->setText("text");
    mField->setPlaceholderText("Name");
    EXPECT_FALSE(mField->getPlaceholder()->isVisible());
    EXPECT_STREQ(mField->getPlaceholderText(), "Name");
}

TEST_F(TextFieldTest, AskingForThePlaceholderMakesIt) {
    EXPECT_STREQ(mField->getPlaceholder()->getText(), "");
    EXPECT_EQ(mField->getChildCount(), 2u);
    const core::SmartPtr<Label> old(mField->getPlaceholder());
    mField->removeChild(old.get());
    EXPECT_STREQ(mField->getPlaceholderText(), "");
    mField->setText("a");
    EXPECT_TRUE(old->isSelfVisible());
    EXPECT_NE(mField->getPlaceholder(), old.get());
}

// --- font ---

TEST_F(TextFieldTest, ItsFontIsThatOfItsLabel) {
    auto &fonts = nurel::font::FontManager::getSingleton();
    EXPECT_EQ(mField->getFont(), fonts.getDefaultFont());
    EXPECT_EQ(mField->getChildCount(), 1u);
    mField->setFont(nullptr);
    EXPECT_EQ(mField->getLabel()->getFont(), nullptr);
    EXPECT_EQ(mField->getFont(), nullptr);
    mField->insertText("without a font");
    tap(Keyboard::K_BACKSPACE);
    nurel::math::Vector2 minimum;
    nurel::math::Vector2 maximum;
    mField->getCaretBounds(minimum, maximum);
    mField->setFont(fonts.getDefaultFont());
    EXPECT_EQ(mField->getLabel()->getFont(), fonts.getDefaultFont());
}

// --- state and classes ---

TEST_F(TextFieldTest, ItsPartsFollowItsStateButForTheFocus) {
    mField->setPlaceholderText("Name");
    mField->setFocus();
    EXPECT_EQ(mField->getState(), FOCUSED);
    EXPECT_EQ(mField->getLabel()->getState(), 0u);
    frame();
    OpenField::clean(*mField->getLabel());
    OpenField::clean(*mField->getPlaceholder());
    moveTo(200, 120);
    EXPECT_EQ(mField->getState(), FOCUSED | HOVER);
    EXPECT_EQ(mField->getLabel()->getState(), HOVER);
    EXPECT_EQ(mField->getPlaceholder()->getState(), HOVER);
    const Ray ray;
    const CursorPosition cursor;
    OpenField::clean(*mField->getLabel());
    OpenField::setChildState(*mField->getPlaceholder(), 0);
    OpenField::clean(*mField->getPlaceholder());
    mField->handleEvent(HoverEvent(ray, cursor, HoverEvent::HOVER_MOVE));
    EXPECT_EQ(mField->getLabel()->isDirty(Component::DIRTY_VIEW), 0u);
    EXPECT_TRUE(mField->getPlaceholder()->isDirty(Component::DIRTY_VIEW));
}

TEST_F(TextFieldTest, NoPartIsMadeForAnEventButTheFocus) {
    moveTo(200, 120);
    EXPECT_EQ(mField->getChildCount(), 0u);
    EXPECT_FALSE(mField->hasLabel());
    press();
    EXPECT_TRUE(mField->hasLabel()); // the caret stands in it
    release();
    EXPECT_EQ(mField->getChildCount(), 1u);
}

TEST_F(TextFieldTest, ItsPartsFollowItsClasses) {
    mField->setPlaceholderText("Name");
    Label *label = mField->getLabel();
    Label *placeholder = mField->getPlaceholder();
    frame();
    OpenField::clean(*mField);
    mField->addClass("a");
    EXPECT_EQ(mField->isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW), 0x18u);
    mField->addClass("b");
    EXPECT_TRUE(label->hasClass("a") && placeholder->hasClass("b"));
    OpenField::clean(*mField);
    mField->removeClass(mField->getClasses().begin()->first); // a name that the set itself holds
    EXPECT_EQ(mField->isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW), 0x18u);
    EXPECT_FALSE(mField->hasClass("a") || label->hasClass("a") || placeholder->hasClass("a"));
    EXPECT_TRUE(mField->hasClass("b") && label->hasClass("b") && placeholder->hasClass("b"));
    mField->removeClass(nullptr);
    OpenField::clean(*mField);
    mField->removeClasses();
    EXPECT_EQ(mField->isDirty(Component::DIRTY_STYLE | Component::DIRTY_VIEW), 0x18u);
    EXPECT_TRUE(mField->getClasses().empty() && label->getClasses().empty() && placeholder->getClasses().empty());
}

TEST_F(TextFieldTest, LetsHitsThroughItsParts) {
    mField->setText("text");
    mField->setPlaceholderText("Name");
    frame();
    moveTo(200, 120);
    EXPECT_EQ(manager().getComponentAtCursor(), mField.get());
}

TEST_F(TextFieldTest, KeepsItsPartsOutOfItsLayout) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mField->setLayout(layout.get());
    mField->setText("text");
    EXPECT_FALSE(layout->hasComponent(mField->getLabel()));
}

TEST_F(TextFieldTest, ADisabledFieldTakesNoText) {
    mField->setFocus();
    mField->setEnabled(false);
    type("a");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(manager().getFocus(), nullptr);
}

// --- copies ---

TEST_F(TextFieldTest, ACloneHasTextOptionsAndPartsOfItsOwn) {
    mField->setText("se😀ret");
    mField->setPasswordChar("•");
    mField->setText("se😀ret");
    mField->setKeyboardOptions(3);
    mField->setMaxLength(9);
    mField->setPlaceholderText("Name");
    mField->addClass("big");
    mField->addChild(new components::Panel("extra"));
    mField->setFocus();
    caretTo(2);
    frame();
    changes();
    const core::SmartPtr<nurel::core::Object> object(mField->clone());
    auto &copy = static_cast<TextField &>(*object);
    EXPECT_EQ(&copy.getType(), &TextField::TYPE);
    EXPECT_STREQ(copy.getName(), "field");
    EXPECT_STREQ(copy.getText(), "se😀ret");
    EXPECT_STREQ(copy.getPasswordChar(), "•");
    EXPECT_EQ(copy.getKeyboardOptions(), 0x10003u);
    EXPECT_EQ(copy.getMaxLength(), 9);
    EXPECT_EQ(copy.getCaretIndex(), -1);
    EXPECT_EQ(copy.getTabStop(), 0);
    ASSERT_EQ(copy.getChildCount(), 3u);
    EXPECT_EQ(copy.getLabel(), copy.getChildAt(0));
    EXPECT_EQ(copy.getPlaceholder(), copy.getChildAt(1));
    EXPECT_EQ(copy.getChildCount(), 3u);
    EXPECT_STREQ(copy.getLabel()->getText(), "••••••");
    EXPECT_STREQ(copy.getPlaceholderText(), "Name");
    EXPECT_FALSE(copy.getPlaceholder()->isSelfVisible());
    EXPECT_EQ(copy.getLabel()->getElement(), "text");
    EXPECT_EQ(copy.getLabel()->getEventMask(), 0u);
    EXPECT_TRUE(copy.getLabel()->hasClass("big"));
    copy.setText("other");
    EXPECT_EQ(text(), "se😀ret");
    EXPECT_EQ(shown(), "••••••");
    EXPECT_EQ(changes(), 0); // subscribers are not cloned
}

TEST_F(TextFieldTest, ACloneOfAFieldWithoutPartsHasNone) {
    const core::SmartPtr<nurel::core::Object> object(mField->clone());
    auto &copy = static_cast<TextField &>(*object);
    EXPECT_EQ(copy.getChildCount(), 0u);
    copy.setText("a");
    EXPECT_EQ(copy.getChildCount(), 1u);
}

TEST_F(TextFieldTest, FindsItsPartsAmongTheChildrenOfAFieldThatItIsClonedInto) {
    const core::SmartPtr<TextField> target(new TextField("target"));
    target->setPlaceholderText("old");
    target->setText("old");
    mField->setText("new");
    core::CloningOptions options;
    mField->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_STREQ(target->getText(), "new");
    EXPECT_STREQ(target->getLabel()->getText(), "new");
    EXPECT_STREQ(target->getPlaceholderText(), "");
    mField->_clone(mField.get(), options);
    EXPECT_EQ(shown(), "new");
}

TEST_F(TextFieldTest, CannotBeClonedIntoSomethingElse) {
    const core::SmartPtr<components::Panel> panel(new components::Panel("panel"));
    core::CloningOptions options;
    try {
        mField->_clone(panel.get(), options);
        FAIL();
    } catch (const core::IllegalArgumentException &e) {
        EXPECT_STREQ(e.what(), "TextField cannot be cloned into Panel");
    }
    EXPECT_THROW(mField->_clone(nullptr, options), core::IllegalArgumentException);
}

TEST_F(TextFieldTest, ACopyMakesPartsOfItsOwn) {
    mField->setText("text");
    const core::SmartPtr<TextField> copy(new TextField(*mField));
    copy->ChangeCallbacks::removeCallbacks();
    EXPECT_STREQ(copy->getText(), "text");
    EXPECT_NE(copy->getLabel(), mField->getLabel());
    EXPECT_STREQ(copy->getLabel()->getText(), "text");
    copy->insertText("s");
    EXPECT_EQ(text(), "text");
    EXPECT_EQ(shown(), "text");
}

// --- under the skins ---

TEST_F(TextFieldTest, IsSkinnedAsATextField) {
    ASSERT_TRUE(mField->hasView());
    ComponentView *view = mField->getView();
    EXPECT_EQ(mField->visit(mSkin.get()), view); // never a second one
    const core::SmartPtr<TextField> other(new TextField("other"));
    const core::SmartPtr<ComponentView> made(mSkin->skin(other.get()));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->getComponent(), other.get());
}

// --- among others ---

TEST_F(TextFieldTest, TypingTouchesThatFieldOnly) {
    const auto rows = addPanel(*mWidget, "rows", 0, 200, 400, 300);
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    rows->setLayout(layout.get());
    std::vector<core::SmartPtr<TextField>> fields;
    for (int i = 0; i < 50; ++i) {
        const auto row = addPanel(*rows, "row", 0, 0, 120, 40);
        fields.emplace_back(new TextField("field"));
        fields.back()->setSize({100, 30});
        fields.back()->setText("text");
        row->addChild(fields.back().get());
    }
    fields[20]->setFocus();
    type("a");
    frame();
    manager().textInput("b");
    manager().updateEvents();
    EXPECT_TRUE(fields[20]->isDirty(Component::DIRTY_VIEW));
    EXPECT_EQ(rows->isDirty(Component::DIRTY_POSITION | Component::DIRTY_VIEW), 0u);
    for (int i = 0; i < 50; ++i) {
        const auto &field = *fields[static_cast<std::size_t>(i)];
        const bool isTouched = field.isDirty(Component::DIRTY_ALL) || field.getLabel()->isDirty(Component::DIRTY_ALL) ||
                               field.getParent()->isDirty(Component::DIRTY_ALL);
        EXPECT_EQ(isTouched, i == 20) << i;
    }
    frame();
    EXPECT_STREQ(fields[20]->getText(), "textab");
}

// --- callbacks that take things away ---

TEST_F(TextFieldTest, ACallbackMayRemoveTheField) {
    mField->ChangeCallbacks::subscribeCallback([this](TextField *field) {
        mWidget->removeChild(field);
        mField = nullptr;
        return false;
    });
    mField->setFocus();
    type("a");
    EXPECT_FALSE(mField);
    EXPECT_EQ(mWidget->getChildCount(), 0u);
    EXPECT_EQ(manager().getFocus(), nullptr);
    frame();
}

TEST_F(TextFieldTest, ACallbackMayRemoveTheFieldAtEveryEdit) {
    const auto removeOnChange = [this](const char *text) {
        mField = new OpenField("field");
        place(*mField, 100, 100, 200, 40);
        mWidget->clearChildren();
        mWidget->addChild(mField.get());
        mField->setText(text);
        mField->ChangeCallbacks::subscribeCallback([this](TextField *) {
            mField = nullptr;
            mWidget->clearChildren();
            return true;
        });
        frame();
        mField->setFocus();
    };
    removeOnChange("ab");
    tap(Keyboard::K_BACKSPACE);
    EXPECT_FALSE(mField);
    removeOnChange("ab");
    caretTo(0);
    tap(Keyboard::K_DELETE);
    EXPECT_FALSE(mField);
    removeOnChange("ab");
    mField->setMaxLength(1);
    EXPECT_FALSE(mField);
    removeOnChange("ab");
    mField->clearText();
    EXPECT_FALSE(mField);
    removeOnChange("ab");
    mField->insertText("c");
    EXPECT_FALSE(mField);
    frame();
}

TEST_F(TextFieldTest, ACallbackMayTakeTheScreenAway) {
    mField->ChangeCallbacks::subscribeCallback([this](TextField *) {
        mField = nullptr;
        mWidget = nullptr;
        manager().clearWidgets();
        return false;
    });
    mField->setFocus();
    type("a");
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(TextFieldTest, ACallbackMayEndTheManager) {
    mField->setFocus();
    mField->ChangeCallbacks::subscribeCallback([](TextField *) {
        UIManager::shutdown();
        return false;
    });
    manager().textInput("a");
    manager().updateEvents();
    EXPECT_FALSE(UIManager::isSingletonCreated());
    EXPECT_EQ(text(), "a");
}

TEST_F(TextFieldTest, ACallbackMayEditTheFieldItself) {
    mField->ChangeCallbacks::subscribeCallback([](TextField *field) {
        const std::string text = field->getText();
        if (text.size() > 3)
            field->setText(text.substr(0, 3).c_str());
        return false;
    });
    mField->setFocus();
    type("abcdef");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(shown(), "abc");
    EXPECT_EQ(changes(), 2);
}

TEST_F(TextFieldTest, ACallbackThatReturnsTrueIsCalledOnce) {
    int calls = 0;
    mField->ChangeCallbacks::subscribeCallback([&calls](TextField *) {
        ++calls;
        return true;
    });
    mField->setText("a");
    mField->setText("b");
    EXPECT_EQ(calls, 1);
}
