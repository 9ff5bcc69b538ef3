// The view of a text field: its box and its caret.
#include "nui/ui/css/CSSTextFieldView.h"
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/font/ShapingStatistics.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/handlers/BlinkHandler.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nui/ui/components/TextField.h"
#include "nui/ui/css/StyleTest.h"

#include <cmath>
#include <string>

using namespace nurel::ui;
using components::TextField;
using css::CSSTextFieldView;
using nurel::input::Keyboard;
using nurel::scene::Property;
using nurel::scene::handlers::BlinkHandler;
using nurel::scene::meshes::SizeableRectangleMesh;
using nurel::scene::properties::AlphaProperty;
using nurel::scene::properties::MaterialProperty;
using nurel::scene::properties::StencilProperty;

namespace {

constexpr const char *SHEET =
    "text { background: white; overflow: hidden; } text#label { width: auto; height: 100%; -n-anchor: center-left; }";

class CSSTextFieldViewTest : public test::StyleTest {
public:
    CSSTextFieldViewTest() : StyleTest(SHEET) {}

    void addField(const char *sheet = SHEET) {
        setSheet(sheet);
        mWidget = addStyledWidget();
        mField = new TextField("field");
        place(*mField, 100, 100, 200, 40);
        mWidget->addChild(mField.get());
        frame();
    }

    CSSTextFieldView &view() const { return dynamic_cast<CSSTextFieldView &>(*mField->getView()); }
    SizeableRectangleMesh &caret() const { return *view().getCaret(); }

    BlinkHandler &blink() const { return static_cast<BlinkHandler &>(*caret().getHandler(BlinkHandler::TYPE)); }

    Vector4 caretColor() const { return static_cast<MaterialProperty *>(caret().getPropertySet()[1])->getColor(); }

    /// The middle of the caret's left edge on the stage.
    Vector2 caretPlace() const {
        const Vector3 center = caret().getPosition();
        return {center.x - caret().getSize().x * 0.5f, center.y};
    }

    static void tap(int code) {
        key(code, true);
        key(code, false);
        frame();
    }

    /// Where the character's cell begins on the stage.
    float cell(unsigned int index) const {
        const Label *label = mField->getLabel();
        return label->getWorldPosition().x + label->getCharacterPosition(index).x;
    }

    core::SmartPtr<TextField> mField;
};

} // namespace

TEST_F(CSSTextFieldViewTest, HasABoxAndACaretThatIsHidden) {
    addField();
    EXPECT_STREQ(view().getName(), "CSSTextFieldView");
    EXPECT_FALSE(mField->getMesh()->isHidden());
    EXPECT_TRUE(caret().isHidden());
    EXPECT_EQ(caret().getParent(), view().getOverlay());
    EXPECT_EQ(view().getOverlay()->getChildren().front(), &caret()); // ahead of what ends the clipping
    EXPECT_EQ(caret().getSize(), Vector2(10, 10));
    EXPECT_EQ(caretColor(), Vector4(1, 1, 1, 0.5f));
    EXPECT_FALSE(caret().getPropertySet()[1]->isDefault());
    auto *alpha = static_cast<AlphaProperty *>(caret().getPropertySet()[0]);
    ASSERT_NE(alpha, nullptr);
    EXPECT_TRUE(alpha->isBlending());
    EXPECT_FALSE(alpha->isDefault());
    EXPECT_FALSE(blink().isEnabled());
}

TEST_F(CSSTextFieldViewTest, ShowsABlinkingCaretWhileTheFieldHasTheFocus) {
    addField();
    mField->setFocus();
    frame();
    EXPECT_FALSE(caret().isHidden());
    EXPECT_TRUE(blink().isEnabled());
    EXPECT_EQ(caret().getSize(), Vector2(2, mField->getFont()->getHeight()));
    advance(0.6);
    frame();
    EXPECT_TRUE(caret().isHidden());
    advance(0.5);
    frame();
    EXPECT_FALSE(caret().isHidden());
    manager().setFocus(nullptr);
    frame();
    EXPECT_TRUE(caret().isHidden());
    EXPECT_FALSE(blink().isEnabled());
    advance(1.1);
    frame();
    EXPECT_TRUE(caret().isHidden());
}

TEST_F(CSSTextFieldViewTest, TheCaretGoesWithTheFocusAlsoWhenInputIsDisabled) {
    addField();
    mField->setFocus();
    frame();
    EXPECT_FALSE(caret().isHidden());
    manager().setEnabled(false);
    EXPECT_TRUE(mField->getState() & Component::STATE_FOCUSED); // which is left
    frame();
    EXPECT_TRUE(caret().isHidden());
    EXPECT_FALSE(blink().isEnabled());
}

TEST_F(CSSTextFieldViewTest, ACaretThatIsMovedIsSeenAtOnce) {
    addField();
    mField->setText("abc");
    mField->setFocus();
    frame();
    advance(0.6);
    frame();
    EXPECT_TRUE(caret().isHidden());
    tap(Keyboard::K_LEFT);
    EXPECT_FALSE(caret().isHidden());
    advance(0.4);
    frame();
    EXPECT_FALSE(caret().isHidden());
    advance(0.2);
    frame();
    EXPECT_TRUE(caret().isHidden());
    manager().textInput("d");
    frame();
    EXPECT_FALSE(caret().isHidden());
}

TEST_F(CSSTextFieldViewTest, AnEmptyFieldShowsItsCaretToo) {
    addField();
    mField->setPlaceholderText("Name");
    mField->setFocus();
    frame();
    EXPECT_FALSE(caret().isHidden());
    EXPECT_NEAR(caretPlace().x, 100, 1);
    EXPECT_NEAR(caretPlace().y, 120, 1);
}

TEST_F(CSSTextFieldViewTest, TheCaretStandsAtItsCharacter) {
    addField();
    mField->setText("abc");
    mField->setFocus();
    frame();
    EXPECT_NEAR(caretPlace().x, cell(3), 0.6f);
    EXPECT_GT(caretPlace().x, 115);
    EXPECT_NEAR(caretPlace().y, 120, 1);
    tap(Keyboard::K_LEFT);
    EXPECT_NEAR(caretPlace().x, cell(2), 0.6f);
    tap(Keyboard::K_HOME);
    EXPECT_NEAR(caretPlace().x, cell(0), 0.6f);
    EXPECT_NEAR(caretPlace().x, 100, 0.6f);
    manager().textInput("m");
    frame();
    EXPECT_NEAR(caretPlace().x, cell(1), 0.6f);
    for (int i = 0; i < 9; ++i)
        tap(Keyboard::K_RIGHT);
    EXPECT_NEAR(caretPlace().x, cell(4), 0.6f); // past the end is the end
}

TEST_F(CSSTextFieldViewTest, TheCaretOfRightToLeftTextStandsAtItsLeft) {
    addField();
    mField->setText("שלום");
    mField->setFocus();
    frame();
    EXPECT_NEAR(caretPlace().x, 100, 0.6f);
    tap(Keyboard::K_HOME);
    EXPECT_NEAR(caretPlace().x, 100 + mField->getLabel()->getSize().x, 0.6f);
}

TEST_F(CSSTextFieldViewTest, TheCaretStaysInSightAndIsCutOffWhereTheTextIs) {
    addField();
    mField->setFocus();
    for (int i = 0; i < 40; ++i) {
        manager().textInput("n");
        frame();
        EXPECT_GE(caretPlace().x, 99) << i;
        EXPECT_LE(caretPlace().x, 298) << i;
    }
    EXPECT_TRUE(mField->isContentOutside());
    EXPECT_EQ(caret().getPropertySet()[Property::STENCIL],
              mField->getLabel()->getView()->getPropertySet()[Property::STENCIL]);
    EXPECT_EQ(static_cast<StencilProperty *>(caret().getPropertySet()[Property::STENCIL])->getReference(), 2u);
}

TEST_F(CSSTextFieldViewTest, TheCaretFollowsTheLabelsPaddingAndFont) {
    addField("text#label { width: auto; height: 100%; -n-anchor: center-left; padding: 0px 0px 0px 20px; "
             "font-size: 200%; }");
    mField->setText("abc");
    mField->setFocus();
    frame();
    EXPECT_EQ(caret().getSize(), Vector2(2, mField->getFont()->getHeight() * 2));
    const Label *label = mField->getLabel();
    EXPECT_NEAR(caretPlace().x, label->getWorldPosition().x + 10 + label->getCharacterPosition(3).x, 0.6f);
    EXPECT_NEAR(caretPlace().y, 120, 1);
}

TEST_F(CSSTextFieldViewTest, TheColourOfTheFieldIsTheCarets) {
    addField("text { color: red; } text#label { color: blue; }");
    EXPECT_EQ(caretColor(), Vector4(1, 0, 0, 0.5f)); // a colour without an alpha leaves that alone
    mField->setText("text");
    frame();
    EXPECT_EQ(mField->getLabel()->getColor(), Vector3(0, 0, 1));
    setSheet("text { color: #00ff0080; }");
    view().setStyleDirty();
    frame();
    EXPECT_EQ(caretColor(), Vector4(0, 1, 0, 128 * 0.003921569f));
}

TEST_F(CSSTextFieldViewTest, FollowsTheFieldsLabel) {
    addField();
    mField->setText("abc");
    mField->addChild(new Label("decoration"));
    mField->setFocus();
    frame();
    EXPECT_NEAR(caretPlace().x, cell(3), 0.6f);
    mField->clearChildren();
    frame();
    EXPECT_TRUE(caret().isHidden()); // there is no label
    mField->insertText("d");
    frame();
    EXPECT_FALSE(caret().isHidden());
    EXPECT_NEAR(caretPlace().x, cell(4), 0.6f);
}

TEST_F(CSSTextFieldViewTest, TheCaretStandsInTheFirstLabelWhicheverItIs) {
    addField("text { overflow: hidden; }");
    const core::SmartPtr<Container> box(new components::Panel("box"));
    const core::SmartPtr<Label> ahead(new Label("ahead"));
    place(*box, 20, 0, 100, 40);
    place(*ahead, 0, 0, 100, 40);
    ahead->setText("mmmm");
    box->addChild(ahead.get());
    mField->addChild(box.get());
    mField->setText("ab");
    mField->setFocus();
    frame();
    const auto expectedX = [&](unsigned int index) { // as if the label lay in the field itself
        return mField->getWorldPosition().x + ahead->getParentRelativePosition().x +
               ahead->getCharacterPosition(index).x;
    };
    EXPECT_NE(ahead->getCharacterPosition(2), mField->getLabel()->getCharacterPosition(2));
    EXPECT_FLOAT_EQ(caretPlace().x, expectedX(4)); // the end of that text, not of the field's
    tap(Keyboard::K_HOME);
    tap(Keyboard::K_RIGHT);
    EXPECT_FLOAT_EQ(caretPlace().x, expectedX(1));
    mField->removeChild(box.get()); // now it is the field's own
    mField->setText("abc");
    frame();
    EXPECT_NEAR(caretPlace().x, cell(1), 0.6f);
}

TEST_F(CSSTextFieldViewTest, ALabelThatComesLaterDoesNotTakeTheCaret) {
    addField();
    mField->setText("abc");
    mField->setFocus();
    frame();
    const core::SmartPtr<Label> later(new Label("later"));
    later->setZIndex(-1); // ahead of the field's own, but that was found before
    later->setText("mmmmm");
    mField->addChild(later.get());
    frame();
    ASSERT_EQ(mField->getChildAt(0), later.get());
    tap(Keyboard::K_END);
    EXPECT_NEAR(caretPlace().x, cell(3), 0.6f);
}

TEST_F(CSSTextFieldViewTest, TheCaretStandsWhereTheNumbersSayOnHalfPixelsToo) {
    addField("text#label { width: auto; height: 35px; -n-anchor: center-left; }");
    unsigned int odd = 0;
    for (const char *text : {"i", "il", "ab", "abc", "mm", "W", "éé"}) {
        mField->setText(text);
        mField->setFocus();
        frame();
        const Label *label = mField->getLabel();
        odd += std::fmod(label->getWorldPosition().x, 1.0f) != 0;
        EXPECT_FLOAT_EQ(caretPlace().x, cell(label->getTextLength())) << text;
        const float top = label->getWorldPosition().y + label->getCharacterPosition(label->getTextLength()).y;
        EXPECT_FLOAT_EQ(caret().getPosition().y - caret().getSize().y * 0.5f, top) << text;
    }
    EXPECT_GT(odd, 0u);
}

TEST_F(CSSTextFieldViewTest, SurvivesWhatIsTakenAway) {
    addField();
    mField->setText("abc");
    mField->setFocus();
    frame();
    const core::SmartPtr<ComponentView> kept(mField->getView());
    mWidget->removeChild(mField.get());
    mField->clearView();
    manager().setFocus(nullptr);
    manager().setKeyboardOverlay(nullptr);
    mField = nullptr;
    static_cast<CSSTextFieldView &>(*kept).updateView();
    static_cast<CSSTextFieldView &>(*kept).updateInternal(0, true);
    frame();
    // A label without a view, and a font without glyphs
    addField();
    mField->setFont(nullptr);
    mField->setText("abc");
    mField->setFocus();
    frame();
    mField->getLabel()->clearView();
    mField->insertText("d");
    frame();
    EXPECT_TRUE(caret().isHidden());
}

TEST_F(CSSTextFieldViewTest, PlacesTheCaretAnewOnlyWithTheView) {
    addField();
    mField->setText("abc");
    mField->setFocus();
    frame();
    const Vector2 before = caretPlace();
    mField->getLabel()->getTextMesh()->setText("behind the field's back");
    frame();
    EXPECT_EQ(caretPlace(), before);
}

TEST_F(CSSTextFieldViewTest, TypingShapesOneTextAndRebuildsItsLabelAndTheCaretOnly) {
    addField();
    for (int i = 0; i < 100; ++i) {
        const core::SmartPtr<TextField> other(new TextField("other"));
        place(*other, 400, static_cast<float>(i % 20) * 30, 200, 28);
        other->setText(("text " + std::to_string(i)).c_str());
        mWidget->addChild(other.get());
    }
    mField->setText("ab");
    mField->setFocus();
    const auto &statistics = manager().getRenderPass()->getStatistics();
    const auto shaped = [] { return nurel::font::FontManager::getSingleton().getStatistics().shapedParagraphs; };
    const auto draw = [this] {
        frame();
        render();
    };
    draw();
    for (const char *typed : {"c", "d"}) {
        manager().textInput(typed);
        const std::uint64_t shapedBefore = shaped();
        const std::uint64_t rebuiltBefore = statistics.verticesRebuilt;
        draw();
        EXPECT_EQ(shaped(), shapedBefore + 1);
        const unsigned int quads = mField->getTextLength() + 2; // caret and box of the label, which has grown
        EXPECT_GT(statistics.verticesRebuilt, rebuiltBefore);
        EXPECT_LE(statistics.verticesRebuilt, rebuiltBefore + 4 * quads);
    }
    const std::uint64_t rebuiltBefore = statistics.verticesRebuilt;
    tap(Keyboard::K_LEFT);
    render();
    EXPECT_LE(statistics.verticesRebuilt, rebuiltBefore + 4); // the caret's
}
