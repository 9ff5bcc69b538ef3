#include "nui/ui/components/Label.h"

#include "../TestComponents.h"
#include "support/EngineFixture.h"

#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

namespace test {

namespace {

class TestLabel : public components::Label {
public:
    explicit TestLabel(const char *name = "label") : Label(name) {}

    using Label::applyOpacity;
    using Label::getAutoSize;
    using Label::setClean;
    using Label::visit;

    void setText(const char *text) override {
        texts.push_back(text ? text : "(null)");
        Label::setText(text);
    }

    std::vector<std::string> texts;
};

class LabelTest : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        label = new TestLabel;
    }

    void TearDown() override {
        label = nullptr;
        EngineFixture::TearDown();
    }

    static nurel::font::Font *otherFont() {
        return nurel::font::FontManager::getSingleton().add("other", "tests/data/fonts/DejaVuSans.ttf", 24);
    }

    core::SmartPtr<TestLabel> label;
};

} // namespace

TEST_F(LabelTest, ANewOneHasItsTextMeshAndTakesNoFocus) {
    const components::Label fresh("fresh");
    EXPECT_STREQ(fresh.getName(), "fresh");
    EXPECT_STREQ(components::Label().getName(), "");
    EXPECT_EQ(fresh.getElement(), "label");
    EXPECT_STREQ(components::Label::ELEMENT, "label");
    EXPECT_EQ(&fresh.getType(), &components::Label::TYPE);
    EXPECT_STREQ(components::Label::type().getName(), "Label");
    EXPECT_EQ(fresh.getEventMask(), 0x20aU);
    const nurel::scene::meshes::TextMesh &mesh = *fresh.getTextMesh();
    EXPECT_STREQ(mesh.getName(), "Label.mTXT");
    EXPECT_EQ(mesh.getFont(), nurel::font::FontManager::getSingleton().getDefaultFont());
    EXPECT_STREQ(mesh.getText(), "");
    EXPECT_EQ(mesh.getSizeLimit(), Vector2(-1, -1));
    EXPECT_EQ(mesh.getHorizontalAlignment(), 0U);
    EXPECT_EQ(mesh.getVerticalAlignment(), 1U);
    EXPECT_EQ(mesh.getLineSpacing(), 1);
    EXPECT_EQ(mesh.getParagraphSpacing(), 0.25f);
}

TEST_F(LabelTest, TheTextIsTheMeshs) {
    label->setClean(0x7f);
    label->setText("Grüße");
    EXPECT_STREQ(label->getText(), "Grüße");
    EXPECT_STREQ(label->getTextMesh()->getText(), "Grüße");
    EXPECT_EQ(label->getTextLength(), 5U); // characters
    EXPECT_EQ(label->isDirty(0x7f), 0x11U);
    label->setText(nullptr);
    EXPECT_STREQ(label->getText(), "");
    label->setText("abc");
    label->setText(label->getText() + 1);
    EXPECT_STREQ(label->getText(), "bc");
}

struct InsertCase {
    const char *name;
    const char *text;
    const char *inserted;
    unsigned int index;
    const char *expected;
};

std::ostream &operator<<(std::ostream &out, const InsertCase &tested) {
    return out << tested.name;
}

class LabelInsert : public LabelTest, public testing::WithParamInterface<InsertCase> {};

TEST_P(LabelInsert, CountsCharacters) {
    label->setText(GetParam().text);
    label->texts.clear();
    label->insertTextAt(GetParam().inserted, GetParam().index);
    EXPECT_STREQ(label->getText(), GetParam().expected);
    EXPECT_EQ(label->texts, (std::vector<std::string>{GetParam().expected})); // by the virtual operation
}

INSTANTIATE_TEST_SUITE_P(
    Label, LabelInsert,
    testing::Values(InsertCase{"AtTheStart", "äöü", "x", 0, "xäöü"}, InsertCase{"InTheMiddle", "äöü", "ß", 2, "äößü"},
                    InsertCase{"AtTheLength", "äöü", "x", 3, "äöüx"}, InsertCase{"PastTheEnd", "äöü", "x", 99, "äöüx"},
                    InsertCase{"IntoNothing", "", "x", 0, "x"}, InsertCase{"Nothing", "abc", "", 1, "abc"},
                    InsertCase{"Null", "abc", nullptr, 1, "abc"},
                    InsertCase{"BehindABrokenByte", "\xff\xff", "x", 1, "\xffx\xff"}),
    [](const auto &tested) { return tested.param.name; });

struct RemoveCase {
    const char *name;
    const char *text;
    unsigned int index;
    unsigned int count;
    const char *expected;
};

std::ostream &operator<<(std::ostream &out, const RemoveCase &tested) {
    return out << tested.name;
}

class LabelRemove : public LabelTest, public testing::WithParamInterface<RemoveCase> {};

TEST_P(LabelRemove, CountsCharacters) {
    label->setText(GetParam().text);
    label->removeTextAt(GetParam().index, GetParam().count);
    EXPECT_STREQ(label->getText(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Label, LabelRemove,
    testing::Values(RemoveCase{"OneWhole", "aäb", 1, 1, "ab"}, RemoveCase{"Several", "äöüß", 1, 2, "äß"},
                    RemoveCase{"PastTheEnd", "äöü", 1, 99, "ä"}, RemoveCase{"AtTheLength", "äöü", 3, 1, "äöü"},
                    RemoveCase{"BehindTheLength", "äöü", 9, 1, "äöü"}, RemoveCase{"None", "äöü", 1, 0, "äöü"},
                    RemoveCase{"FromNothing", "", 0, 1, ""},
                    RemoveCase{"ABrokenByte",
                               "a\xff"
                               "b",
                               1, 1, "ab"}),
    [](const auto &tested) { return tested.param.name; });

TEST_F(LabelTest, RemovingNothingDoesNotSetTheText) {
    label->setText("abc");
    label->texts.clear();
    label->removeTextAt(3, 1);
    EXPECT_TRUE(label->texts.empty());
}

TEST_F(LabelTest, AnotherFontInvalidatesTheGeometryAndTheSameOneDoesNot) {
    nurel::font::Font *font = otherFont();
    ASSERT_NE(font, nullptr);
    label->setClean(0x7f);
    label->setFont(label->getFont());
    EXPECT_EQ(label->isDirty(0x7f), 0U);
    label->setFont(font);
    EXPECT_EQ(label->getFont(), font);
    EXPECT_EQ(label->isDirty(0x7f), 0x11U);
}

TEST_F(LabelTest, CharacterPositionsEndWithThePen) {
    label->setText("ab");
    EXPECT_EQ(label->getCharacterPosition(1), label->getTextMesh()->getCharacterPosition(1));
    EXPECT_EQ(label->getCharacterPosition(2), label->getTextMesh()->getEndPosition());
    EXPECT_EQ(label->getCharacterPosition(99), label->getTextMesh()->getEndPosition());
    EXPECT_LT(label->getCharacterPosition(0).x, label->getCharacterPosition(1).x);
    EXPECT_LT(label->getCharacterPosition(1).x, label->getCharacterPosition(2).x);
}

TEST_F(LabelTest, AColorOfThreeKeepsTheOpacity) {
    EXPECT_EQ(label->getColor(), Vector3(1, 1, 1));
    EXPECT_EQ(label->getOpacity(), 1);
    label->setOpacity(0.5f);
    label->setClean(0x7f);
    label->setColor(Vector3(0.25f, 0.5f, 0.75f));
    EXPECT_EQ(label->getColor(), Vector3(0.25f, 0.5f, 0.75f));
    EXPECT_EQ(label->getOpacity(), 0.5f);
    label->setColor(Vector4(0, 0, 1, 0.125f));
    EXPECT_EQ(label->getColor(), Vector3(0, 0, 1));
    EXPECT_EQ(label->getOpacity(), 0.125f);
    EXPECT_EQ(label->isDirty(0x7f), 0U);
    EXPECT_EQ(label->Component::getOpacity(), 1);
}

TEST_F(LabelTest, TheComponentsOpacityReachesTextAndMesh) {
    label->setOpacity(0.25f, false);
    EXPECT_EQ(label->Component::getOpacity(), 0.25f);
    EXPECT_EQ(label->getOpacity(), 0.25f);
    ASSERT_TRUE(label->hasMesh());
    const auto *material = static_cast<nurel::scene::properties::MaterialProperty *>(
        label->getMesh()->getPropertySet()[nurel::scene::Property::MATERIAL]);
    EXPECT_EQ(material->getAlpha(), 0.25f);
}

TEST_F(LabelTest, WithoutAutoSizeTheTextKeepsToTheSizeLessTheBox) {
    label->setText("some text");
    label->setSize(Vector2(50, 20));
    label->setBorder(Vector4(1, 2, 3, 4));
    label->setPadding(Vector4(0.5f, 1, 1.5f, 2));
    label->setMargin(Vector4(100, 0, -100, 0)); // does not count
    label->update();
    EXPECT_EQ(label->getSize(), Vector2(50, 20));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(50 - 9, 20 - 6));
}

TEST_F(LabelTest, AutoSizeIsTheExtentOfTheText) {
    label->setText("Text");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    label->update();
    const Vector2 extents = label->getTextMesh()->getExtents();
    EXPECT_GT(extents.x, 10);
    EXPECT_EQ(label->getNaturalSize(), Vector2(std::floor(extents.x + 0.5f), std::floor(extents.y + 0.5f)));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(-1, -1));
    const float before = label->getSize().x;
    label->setText("Text that is longer");
    label->update();
    EXPECT_GT(label->getSize().x, before);
}

TEST_F(LabelTest, AnAutoSizedAxisIsUnlimitedAndTheOtherIsTheGivenSize) {
    label->setText("Text");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH);
    label->getAutoSize(Vector2(30, 40));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(-1, 40));
    label->setAutoSize(Component::AUTO_SIZE_HEIGHT);
    label->getAutoSize(Vector2(30, 40));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(30, -1));
    label->setAutoSize(Component::AUTO_SIZE_NONE);
    label->getAutoSize(Vector2(30, 40));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(30, 40));
}

TEST_F(LabelTest, AMaximumWidthWrapsTheText) {
    label->setText("several words that do not fit into a hundred");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    const Vector2 oneLine = label->getAutoSize(Vector2(0, 0));
    ASSERT_GT(oneLine.x, 180);
    label->setMaximumWidth(100);
    const Vector2 wrapped = label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(100, -1));
    EXPECT_LE(wrapped.x, 100);
    EXPECT_GT(wrapped.y, oneLine.y);
}

TEST_F(LabelTest, AMinimumWidthIsAWidthToWrapAt) {
    label->setText("ab");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    label->setMinimumSize(Vector2(150, 60));
    const Vector2 extents = label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(150, 60));
    EXPECT_LT(extents.x, 150); // the text stays as wide as it is
    label->update();
    EXPECT_EQ(label->getSize(), Vector2(150, 60)); // and the component has its minimum
    label->setMinimumSize(Vector2(0, 0));
    label->setMaximumSize(Vector2(500, 500)); // out of reach: no second measurement
    label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(-1, -1));
}

TEST_F(LabelTest, ACloneHasATextMeshOfItsOwn) {
    nurel::font::Font *font = otherFont();
    label->setText("text");
    label->setFont(font);
    label->getTextMesh()->setHorizontalAlignment(2);
    label->getTextMesh()->setVerticalAlignment(0);
    label->getTextMesh()->setLineSpacing(1.5f);
    label->getTextMesh()->setParagraphSpacing(2);
    label->getTextMesh()->setSizeLimit(Vector2(77, 88));
    label->setColor(Vector3(1, 0, 0));
    const core::SmartPtr<components::Label> copy(static_cast<components::Label *>(label->clone()));
    EXPECT_STREQ(copy->getName(), "label");
    EXPECT_NE(copy->getTextMesh(), label->getTextMesh());
    EXPECT_STREQ(copy->getText(), "text");
    EXPECT_EQ(copy->getFont(), font);
    EXPECT_EQ(copy->getTextMesh()->getHorizontalAlignment(), 2U);
    EXPECT_EQ(copy->getTextMesh()->getVerticalAlignment(), 0U);
    EXPECT_EQ(copy->getTextMesh()->getLineSpacing(), 1.5f);
    EXPECT_EQ(copy->getTextMesh()->getParagraphSpacing(), 2);
    EXPECT_EQ(copy->getTextMesh()->getSizeLimit(), Vector2(77, 88));
    EXPECT_EQ(copy->getColor(), Vector3(1, 1, 1)); // not taken over
    copy->setText("other");
    EXPECT_STREQ(label->getText(), "text");
}

TEST_F(LabelTest, ACopySharesTheTextMesh) {
    label->setText("text");
    const components::Label copy(*label);
    EXPECT_EQ(copy.getTextMesh(), label->getTextMesh());
    components::Label assigned("assigned");
    assigned = *label;
    EXPECT_EQ(assigned.getTextMesh(), label->getTextMesh());
    EXPECT_STREQ(assigned.getText(), "text");
}

TEST_F(LabelTest, NeverMakesASecondView) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    ComponentView *view = label->visit(plain.get());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(label->getView(), view);
    EXPECT_EQ(label->visit(plain.get()), view);
    EXPECT_EQ(label->visit(&skin()), view);
    EXPECT_EQ(plain->made, 1);
    TestLabel bare;
    EXPECT_EQ(bare.visit(nullptr), nullptr);
}

TEST_F(LabelTest, TheBoundsInHeightAreTheMaximumThenTheMinimum) {
    label->setText("Text");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    const float height = label->getAutoSize(Vector2(0, 0)).y;
    ASSERT_GT(height, 4);
    const auto limit = [&](float minimum, float maximum) {
        label->setMinimumHeight(minimum);
        label->setMaximumHeight(maximum);
        label->getAutoSize(Vector2(0, 0));
        return label->getTextMesh()->getSizeLimit();
    };
    EXPECT_EQ(limit(0, height - 2), Vector2(-1, height - 2));
    EXPECT_EQ(limit(height + 3, 0), Vector2(-1, height + 3));
    EXPECT_EQ(limit(height + 3, height - 2), Vector2(-1, height + 3)); // the minimum has the last word
    EXPECT_EQ(limit(height - 3, height + 2), Vector2(-1, -1));
}

TEST_F(LabelTest, ABoundThatIsMetExactlyIsNoLimit) {
    label->setText("Text");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    const Vector2 extents = label->getAutoSize(Vector2(0, 0));
    label->setMinimumSize(extents);
    label->setMaximumSize(extents);
    label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(-1, -1));
    label->setMaximumWidth(extents.x - 0.5f);
    label->setMinimumWidth(0);
    label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(extents.x - 0.5f, -1));
}

TEST_F(LabelTest, TheBoundsAreNotHeldAgainstTheSecondMeasurement) {
    label->setText("several words that do not fit into a hundred");
    label->setAutoSize(Component::AUTO_SIZE_WIDTH | Component::AUTO_SIZE_HEIGHT);
    const float oneLine = label->getAutoSize(Vector2(0, 0)).y;
    label->setMaximumWidth(100);
    label->setMaximumHeight(oneLine + 1); // wide enough for one line, and the text has more once it is wrapped
    const Vector2 wrapped = label->getAutoSize(Vector2(0, 0));
    EXPECT_EQ(label->getTextMesh()->getSizeLimit(), Vector2(100, -1));
    EXPECT_GT(wrapped.y, oneLine + 1);
}

} // namespace test
