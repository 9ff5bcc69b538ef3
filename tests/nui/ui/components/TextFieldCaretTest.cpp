// The keys of a text field, and what they do to its caret.
#include "nui/ui/components/TextFieldFixture.h"

#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/Glyph.h"
#include "nengine/scene/meshes/TextMesh.h"

#include <cmath>
#include <initializer_list>

using namespace nurel::ui;
using components::Label;
using components::TextField;
using nurel::input::Keyboard;
using nurel::math::Vector2;

namespace {

class TextFieldCaretTest : public test::TextFieldFixture {
public:
    void start(const char *text, int index = -1) {
        mField->setText(text);
        mField->setFocus();
        if (index >= 0)
            caretTo(index);
        frame();
        OpenField::clean(*mField);
        changes();
    }

    bool isMarked() const { return mField->isDirty(Component::DIRTY_VIEW) != 0; }

    float characterWidth() const { return std::floor(mField->getFont()->getGlyph(U'm')->advance); }

    /// From the label's left edge.
    float caretX() const {
        const Label *label = mField->getLabel();
        const unsigned int index = caret() < 0 ? label->getTextLength() : static_cast<unsigned int>(caret());
        return label->getCharacterPosition(index).x + label->getSize().x * 0.5f;
    }

    float scroll() const { return mField->getScrollOffset().x; }
};

} // namespace

TEST_F(TextFieldCaretTest, LeftGoesFromTheEndToTheLastCharacterAndStopsAtTheFirst) {
    start("aöc");
    tap(Keyboard::K_LEFT);
    EXPECT_EQ(caret(), 2);
    EXPECT_TRUE(isMarked());
    tap(Keyboard::K_LEFT, 2);
    EXPECT_EQ(caret(), 0);
    frame();
    OpenField::clean(*mField);
    tap(Keyboard::K_LEFT);
    EXPECT_EQ(caret(), 0);
    EXPECT_FALSE(isMarked());
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldCaretTest, LeftInAnEmptyFieldStaysAtTheEnd) {
    start("");
    tap(Keyboard::K_LEFT);
    EXPECT_EQ(caret(), -1);
}

TEST_F(TextFieldCaretTest, RightGoesOnPastTheEnd) {
    start("ab", 0);
    tap(Keyboard::K_RIGHT);
    EXPECT_EQ(caret(), 1);
    EXPECT_TRUE(isMarked());
    tap(Keyboard::K_RIGHT, 3);
    EXPECT_EQ(caret(), 4);
    tap(Keyboard::K_LEFT);
    EXPECT_EQ(caret(), 3);
}

TEST_F(TextFieldCaretTest, RightAtTheEndStaysThere) {
    start("ab");
    tap(Keyboard::K_RIGHT);
    EXPECT_EQ(caret(), -1);
}

TEST_F(TextFieldCaretTest, HomeAndEndGoToTheEnds) {
    start("ab");
    tap(Keyboard::K_HOME);
    EXPECT_EQ(caret(), 0);
    EXPECT_TRUE(isMarked());
    tap(Keyboard::K_HOME);
    EXPECT_EQ(caret(), 0);
    tap(Keyboard::K_END);
    EXPECT_EQ(caret(), -1);
    tap(Keyboard::K_END);
    EXPECT_EQ(caret(), -1);
}

TEST_F(TextFieldCaretTest, ActsOnThePressAndOnItsRepeats) {
    start("abc");
    key(Keyboard::K_LEFT, false);
    EXPECT_EQ(caret(), -1);
    key(Keyboard::K_LEFT, true);
    key(Keyboard::K_LEFT, true);
    EXPECT_EQ(caret(), 1);
    key(Keyboard::K_LEFT, false);
    EXPECT_EQ(caret(), 1);
}

TEST_F(TextFieldCaretTest, TakesEveryKey) {
    start("abc");
    record();
    for (const int code : std::initializer_list<int>{Keyboard::K_RETURN, Keyboard::K_ESCAPE, Keyboard::K_UP, 0, -1}) {
        key(code, true);
        key(code, false);
        const std::string name = "key:" + std::to_string(code);
        EXPECT_EQ(events(), (Lines{name + "+ field>field", name + "- field>field"}));
    }
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(caret(), -1);
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldCaretTest, BackspaceTakesTheCharacterAheadOfTheCaret) {
    start("aöc");
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "aö");
    EXPECT_EQ(shown(), "aö");
    EXPECT_EQ(caret(), -1);
    EXPECT_EQ(changes(), 1);
    EXPECT_TRUE(isMarked());
    tap(Keyboard::K_BACKSPACE, 3);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(changes(), 2); // nothing in the empty field
}

TEST_F(TextFieldCaretTest, BackspaceInTheMiddleMovesTheCaretBack) {
    start("aöc", 2);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "ac");
    EXPECT_EQ(caret(), 1);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "c");
    EXPECT_EQ(caret(), 0);
    changes();
    frame();
    OpenField::clean(*mField);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "c");
    EXPECT_EQ(changes(), 0);
    EXPECT_FALSE(isMarked());
}

TEST_F(TextFieldCaretTest, BackspaceAtOneTakesTheFirstCharacter) {
    start("aöc", 1);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "öc");
    EXPECT_EQ(caret(), 0);
}

TEST_F(TextFieldCaretTest, BackspacePastTheEndOnlyComesBack) {
    start("ab", 4);
    tap(Keyboard::K_BACKSPACE);
    EXPECT_EQ(text(), "ab");
    EXPECT_EQ(caret(), 3);
    EXPECT_EQ(changes(), 0);
    tap(Keyboard::K_BACKSPACE, 2);
    EXPECT_EQ(text(), "a");
    EXPECT_EQ(caret(), 1);
    EXPECT_EQ(changes(), 1);
}

TEST_F(TextFieldCaretTest, DeleteTakesTheWholeCharacterBehindTheCaret) {
    start("aöc", 1);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "ac");
    EXPECT_EQ(shown(), "ac");
    EXPECT_EQ(caret(), 1);
    EXPECT_EQ(changes(), 1);
    EXPECT_TRUE(isMarked());
}

TEST_F(TextFieldCaretTest, DeletingTheLastCharacterLeavesTheCaretAtTheEnd) {
    start("ab", 1);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "a");
    EXPECT_EQ(caret(), -1);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "a");
    EXPECT_EQ(changes(), 1);
}

TEST_F(TextFieldCaretTest, DeletePastTheEndDoesNothing) {
    start("ab", 2);
    tap(Keyboard::K_DELETE);
    EXPECT_EQ(text(), "ab");
    EXPECT_EQ(caret(), 2);
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextFieldCaretTest, TabGoesOnToTheNextFieldAndStaysOutOfTheText) {
    const core::SmartPtr<TextField> second(new TextField("second"));
    place(*second, 100, 200, 200, 40);
    mWidget->addChild(second.get());
    frame();
    mField->setFocus();
    type("a");
    tap(Keyboard::K_TAB);
    type("\tb");
    type("c");
    EXPECT_EQ(manager().getFocus(), second.get());
    EXPECT_EQ(text(), "a");
    EXPECT_STREQ(second->getText(), "c");
}

// --- scrolling ---

TEST_F(TextFieldCaretTest, StaysAtTheStartWhileTheTextFits) {
    layOutLabel();
    mField->setFocus();
    type("ab");
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x));
    EXPECT_EQ(mField->getLabel()->getMinBound().x, 100);
}

TEST_F(TextFieldCaretTest, KeepsTheCaretInSightWithRoomForOneMore) {
    layOutLabel();
    mField->setFocus();
    for (int i = 0; i < 60; ++i) {
        const float before = caretX();
        type("n");
        Vector2 minimum;
        Vector2 maximum;
        mField->getCaretBounds(minimum, maximum);
        EXPECT_GE(minimum.x, 100) << i;
        EXPECT_LE(maximum.x, 300) << i;
        EXPECT_GT(caretX(), before);
    }
    EXPECT_LT(scroll(), -300);
    // One more, by the numbers: what is measured is what was placed last
    const float start = mField->getScrollMin().x;
    key(Keyboard::K_END, true);
    EXPECT_EQ(scroll(), std::floor(start - (caretX() - 200 + characterWidth())));
    tap(Keyboard::K_HOME);
    EXPECT_EQ(scroll(), std::floor(start));
    frame();
    Vector2 minimum;
    Vector2 maximum;
    mField->getCaretBounds(minimum, maximum);
    EXPECT_EQ(minimum.x, 100);
}

TEST_F(TextFieldCaretTest, ScrollsBackForACaretLeftOfTheLabelsEdge) {
    mField->setText("abc");
    mField->getLabel()->setPositionData({0, 0}, {0, 0}, {10, 20}, {0, 0}, Component::ANCHOR_CENTER_LEFT);
    mField->setFocus();
    frame();
    mField->getLabel()->getTextMesh()->setSizeLimit({200, 20}); // a box that is wider than the label
    tap(Keyboard::K_HOME);
    EXPECT_EQ(caretX(), -95);
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x + 95));
}

TEST_F(TextFieldCaretTest, TypedTextKeepsToTheLeftEdgeInBothDirections) {
    layOutLabel();
    mField->setFocus();
    for (const char *typed : {"ש", "ל", "ו", "ם"}) {
        type(typed);
        EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x)) << typed;
        EXPECT_EQ(mField->getLabel()->getMinBound().x, 100) << typed;
    }
    mField->clearText();
    for (const char *typed : {"a", "m", "é"}) {
        type(typed);
        EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x)) << typed;
        EXPECT_EQ(mField->getLabel()->getMinBound().x, 100) << typed;
    }
}

TEST_F(TextFieldCaretTest, TheEdgesBelongToWhatIsInSight) {
    layOutLabel();
    mField->setFocus();
    mField->setText("mm");
    frame();
    const float fitting = std::ceil(caretX()) + characterWidth();
    mField->setSize(Vector2(fitting, 40), Vector2(0, 0));
    frame();
    tap(Keyboard::K_END);
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x));
    mField->setSize(Vector2(fitting - 2, 40), Vector2(0, 0));
    frame();
    tap(Keyboard::K_END);
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x - (caretX() - std::ceil(caretX()) + 2)));
    EXPECT_LE(scroll(), std::floor(mField->getScrollMin().x) - 2);
}

TEST_F(TextFieldCaretTest, KeepsTheVerticalScroll) {
    layOutLabel();
    mField->setScrollOffset({0, 7});
    mField->setText("abc");
    mField->setFocus();
    tap(Keyboard::K_HOME);
    EXPECT_EQ(mField->getScrollOffset().y, 7);
}

TEST_F(TextFieldCaretTest, TheRoomAtTheEdgeFollowsTheFont) {
    auto &fonts = nurel::font::FontManager::getSingleton();
    const core::SmartPtr<nurel::font::Font> big(fonts.add("big", "tests/data/fonts/DejaVuSans.ttf", 60));
    ASSERT_TRUE(big);
    layOutLabel();
    mField->setFont(big.get());
    mField->setText("mmmmmmmmmm");
    mField->setFocus();
    frame();
    tap(Keyboard::K_END);
    EXPECT_EQ(characterWidth(), std::floor(big->getGlyph(U'm')->advance));
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x - (caretX() - 200 + characterWidth())));
    mField->getLabel()->setFont(fonts.getDefaultFont()); // past the field
    frame();
    tap(Keyboard::K_END);
    const float stale = std::floor(big->getGlyph(U'm')->advance);
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x - (caretX() - 200 + stale)));
    mField->refreshCharWidth();
    tap(Keyboard::K_END);
    EXPECT_EQ(scroll(), std::floor(mField->getScrollMin().x));
}

TEST_F(TextFieldCaretTest, AFieldWithoutASizeScrollsToo) {
    const core::SmartPtr<TextField> field(new TextField("small"));
    field->setSize(Vector2(0, 0), Vector2(0, 0));
    field->insertText("abc");
    EXPECT_STREQ(field->getText(), "abc");
    EXPECT_TRUE(std::isfinite(field->getScrollOffset().x));
}

// --- where the caret is ---

TEST_F(TextFieldCaretTest, TellsWhereTheCaretStands) {
    layOutLabel();
    start("ab", 1);
    Vector2 minimum;
    Vector2 maximum;
    mField->getCaretBounds(minimum, maximum);
    const Label *label = mField->getLabel();
    const float advance = mField->getFont()->getGlyph(U'a')->advance;
    EXPECT_NEAR(minimum.x, 100 + advance, 1);
    EXPECT_NEAR(minimum.y, label->getWorldPosition().y - mField->getFont()->getHeight() / 2, 1.5);
    EXPECT_EQ(maximum.x, minimum.x + 2);
    EXPECT_EQ(maximum.y, minimum.y + mField->getFont()->getHeight());
    tap(Keyboard::K_END);
    Vector2 end;
    mField->getCaretBounds(end, maximum);
    EXPECT_GT(end.x, minimum.x + 5);
    caretTo(9);
    mField->getCaretBounds(minimum, maximum);
    EXPECT_EQ(minimum, end);
}

TEST_F(TextFieldCaretTest, TheLabelsPaddingMovesTheCaretWithTheText) {
    layOutLabel();
    start("ab", 1);
    Vector2 before;
    Vector2 after;
    Vector2 maximum;
    mField->getCaretBounds(before, maximum);
    mField->getLabel()->setPadding({0, 0, 10, 20}); // below, and left
    const nurel::math::Vector3 center = mField->getLabel()->getWorldPosition();
    mField->getCaretBounds(after, maximum);
    EXPECT_EQ(mField->getLabel()->getWorldPosition(), center);
    EXPECT_EQ(after, before + Vector2(10, -5));
}

TEST_F(TextFieldCaretTest, TellsWhereTheCaretStandsInRightToLeftText) {
    layOutLabel();
    start("שלום", 0);
    Vector2 first;
    Vector2 last;
    Vector2 maximum;
    mField->getCaretBounds(first, maximum);
    tap(Keyboard::K_END);
    mField->getCaretBounds(last, maximum);
    EXPECT_NEAR(last.x, 100, 1);
    EXPECT_NEAR(first.x, 100 + mField->getLabel()->getSize().x, 1);
}

TEST_F(TextFieldCaretTest, TheCaretOfAScaledFieldIsScaled) {
    layOutLabel();
    start("ab", 0);
    mWidget->setScale({2, 2});
    frame();
    Vector2 minimum;
    Vector2 maximum;
    mField->getCaretBounds(minimum, maximum);
    EXPECT_EQ(maximum.x - minimum.x, 4);
    const Label *label = mField->getLabel();
    EXPECT_NEAR(minimum.x, label->getWorldPosition().x - label->getSize().x, 1); // half of it, twice as large
}

TEST_F(TextFieldCaretTest, TheManagerTellsTheWindowWhereTextIsEntered) {
    Vector2 low(7, 7);
    Vector2 high;
    EXPECT_FALSE(manager().getTextInputBounds(low, high));
    EXPECT_EQ(low, Vector2(7, 7));
    layOutLabel();
    start("ab", 1);
    Vector2 minimum;
    Vector2 maximum;
    mField->getCaretBounds(minimum, maximum);
    EXPECT_TRUE(manager().getTextInputBounds(low, high));
    EXPECT_EQ(low, minimum);
    EXPECT_EQ(high, maximum);
    manager().setScale({0.5f, 2}); // UI pixels for each of the screen's
    frame();
    mField->getCaretBounds(minimum, maximum);
    EXPECT_TRUE(manager().getTextInputBounds(low, high));
    EXPECT_EQ(low, Vector2(minimum.x * 2, minimum.y / 2));
    EXPECT_EQ(high, Vector2(maximum.x * 2, maximum.y / 2));
    manager().setScale({0, 1});
    EXPECT_FALSE(manager().getTextInputBounds(low, high));
    manager().setScale({1, 1});
    manager().setFocus(nullptr);
    EXPECT_FALSE(manager().getTextInputBounds(low, high));
}

TEST_F(TextFieldCaretTest, OtherComponentsTakeTextInTheirBounds) {
    const auto panel = addPanel(*mWidget, "panel", 300, 300, 60, 40);
    const auto inner = addPanel(*panel, "inner", 10, 10, 20, 20);
    inner->setTabStop(0);
    frame();
    inner->setFocus();
    ASSERT_EQ(manager().getFocus(), inner.get());
    Vector2 low;
    Vector2 high;
    EXPECT_FALSE(manager().getTextInputBounds(low, high));
    panel->enableEvents(UIEvent::ET_TEXT_EVENT); // what it lies in takes the text
    EXPECT_TRUE(manager().getTextInputBounds(low, high));
    EXPECT_EQ(low, Vector2(310, 310));
    EXPECT_EQ(high, Vector2(330, 330));
}
