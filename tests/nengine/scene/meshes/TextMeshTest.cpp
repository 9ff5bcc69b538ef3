#include "nengine/scene/meshes/TextMesh.h"

#include "foundation/text/Utf8.h"
#include "nengine/font/TestFonts.h"
#include "nengine/scene/Property.h"
#include "nengine/scene/PropertyCO.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"

#include <cmath>
#include <limits>

namespace nurel {
namespace {

using math::Vector2;
using scene::meshes::TextMesh;
using scene::properties::AlphaProperty;
using scene::properties::MaterialProperty;
using Text = core::SmartPtr<TextMesh>;

constexpr float SIZE = 16.0f;

/// Characters of these texts are n, which kerns with nothing, so that all places can be told from its advance.
class TextMeshTest : public test::TextTest {
protected:
    Text make(const char *text, const Vector2 &limit = {-1, -1}) {
        Text mesh(new TextMesh("text", manager->getDefaultFont()));
        mesh->setText(text);
        mesh->setSizeLimit(limit);
        return mesh;
    }

    float width(const std::u32string &characters) const { return facts.getAdvance(characters) * SIZE; }
    float getLine() const { return (facts.getAscent() + facts.getDescent()) * SIZE; }

    static float left(const Text &mesh) { return -mesh->getExtents().x / 2; }

    static void expectNear(const Vector2 &actual, const Vector2 &expected) {
        EXPECT_NEAR(actual.x, expected.x, 2e-3f);
        EXPECT_NEAR(actual.y, expected.y, 2e-3f);
    }

    static unsigned int countLines(const Text &mesh) {
        unsigned int lines = 1;
        float y = mesh->getCharacterPosition(0).y;
        for (unsigned int i = 1; i < mesh->getCharacterCount(); ++i) {
            const float next = mesh->getCharacterPosition(i).y;
            lines += next > y ? 1 : 0;
            y = next;
        }
        return lines;
    }
};

TEST_F(TextMeshTest, StartsEmptyWhiteAndBlending) {
    const Text mesh(new TextMesh("name", manager->getDefaultFont()));
    EXPECT_STREQ(mesh->getName(), "name");
    EXPECT_STREQ(mesh->getText(), "");
    EXPECT_EQ(mesh->getCharacterCount(), 0u);
    EXPECT_EQ(mesh->getFont(), manager->getDefaultFont());
    EXPECT_EQ(mesh->getScale(), 1.0f);
    EXPECT_EQ(mesh->getSizeLimit(), Vector2(-1, -1));
    EXPECT_EQ(mesh->getHorizontalAlignment(), 0u);
    EXPECT_EQ(mesh->getVerticalAlignment(), 0u);
    EXPECT_EQ(mesh->getLineSpacing(), 1.0f);
    EXPECT_EQ(mesh->getParagraphSpacing(), 0.0f);

    const auto *alpha = static_cast<AlphaProperty *>(mesh->getPropertySet()[0]);
    const auto *material = static_cast<MaterialProperty *>(mesh->getPropertySet()[1]);
    ASSERT_NE(alpha, nullptr);
    ASSERT_NE(material, nullptr);
    EXPECT_TRUE(alpha->isBlending());
    EXPECT_FALSE(material->isDefault());
    EXPECT_EQ(material->getColor(), math::Vector4(1, 1, 1, 1));
    EXPECT_TRUE(mesh->instanceOf(scene::meshes::TriangleMesh::TYPE));
    EXPECT_STREQ(mesh->getType().getName(), "TextMesh");
}

TEST_F(TextMeshTest, ExtentsAreTheAdvancesAndTheFontsHeightRoundedUp) {
    const Text mesh = make("nnnn");
    EXPECT_EQ(mesh->getExtents(), Vector2(std::ceil(width(U"nnnn")), std::ceil(getLine())));
    mesh->setText("n");
    EXPECT_EQ(mesh->getExtents(), Vector2(std::ceil(width(U"n")), std::ceil(getLine())));
}

TEST_F(TextMeshTest, TheScaleIsAFactorOnTheFontsSize) {
    const Text mesh = make("nnnn");
    mesh->setScale(2.5f);
    EXPECT_EQ(mesh->getExtents(), Vector2(std::ceil(width(U"nnnn") * 2.5f), std::ceil(getLine() * 2.5f)));
    mesh->setFont(manager->add("Large", test::SANS_FILE, 40));
    mesh->setScale(1);
    EXPECT_EQ(mesh->getExtents().x, std::ceil(width(U"nnnn") * 2.5f));
}

TEST_F(TextMeshTest, AScaleThatIsNoneGivesNoSize) {
    const Text mesh = make("nn nn", {20, -1});
    for (const float scale :
         {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        mesh->setScale(scale);
        EXPECT_EQ(mesh->getScale(), 0.0f);
        EXPECT_EQ(mesh->getExtents(), Vector2::ZERO);
    }
}

TEST_F(TextMeshTest, AnEmptyTextIsOneLineHighAndHasNoWidth) {
    EXPECT_EQ(make("")->getExtents(), Vector2(0, std::ceil(getLine())));
}

// Lines

TEST_F(TextMeshTest, BreaksAtSpacesWhichDoNotCountThere) {
    const Text mesh = make("nn nn   nn", {std::ceil(width(U"nn nn")), -1});
    EXPECT_EQ(mesh->getExtents(), Vector2(std::ceil(width(U"nn nn")), std::ceil(2 * getLine())));
    const float top = -getLine();
    const float edge = -mesh->getSizeLimit().x / 2;
    expectNear(mesh->getCharacterPosition(8), {edge, top + getLine() + (2 * getLine() - mesh->getExtents().y) / 2});
    EXPECT_GT(mesh->getCharacterPosition(7).x, mesh->getSizeLimit().x / 2) << "the spaces hang over the end";
}

TEST_F(TextMeshTest, ATextFitsIntoTheWidthThatItWasMeasuredToHave) {
    for (const char *text : {"nnn nnn", "The quick brown fox", "AVAVA To", "a", "שלום עולם"}) {
        for (const float scale : {0.3f, 0.7f, 1.0f, 1.37f, 4.1f}) {
            const Text mesh = make(text);
            mesh->setScale(scale);
            const Vector2 extents = mesh->getExtents();
            mesh->setSizeLimit(extents);
            EXPECT_EQ(mesh->getExtents(), extents) << text << " " << scale;
        }
    }
}

TEST_F(TextMeshTest, BreaksAWordOnlyWhereItIsWiderThanALine) {
    const float limit = std::ceil(width(U"nnnn"));
    const Text mesh = make("nn nnnnnn nn", {limit, -1});
    // nn | nnnn | nn | nn: the long word begins on a line of its own.
    EXPECT_EQ(countLines(mesh), 4u);
    expectNear(mesh->getCharacterPosition(3), {-limit / 2, mesh->getCharacterPosition(0).y + getLine()});
    expectNear(mesh->getCharacterPosition(7), {-limit / 2, mesh->getCharacterPosition(0).y + 2 * getLine()});
}

TEST_F(TextMeshTest, ALimitOfNothingPutsEachLetterOnALine) {
    for (const float limit : {0.0f, 0.001f, 3.0f}) {
        const Text mesh = make("nne\xcc\x81n n", {limit, -1});
        EXPECT_EQ(countLines(mesh), 5u) << limit;
        EXPECT_EQ(mesh->getExtents().y, std::ceil(5 * getLine()));
    }
}

TEST_F(TextMeshTest, ANegativeOrUnknownLimitIsNone) {
    const Text mesh = make("nn nn");
    const Vector2 extents = mesh->getExtents();
    mesh->setSizeLimit({-20, std::numeric_limits<float>::quiet_NaN()});
    EXPECT_EQ(mesh->getSizeLimit(), Vector2(-1, -1));
    EXPECT_EQ(mesh->getExtents(), extents);
    mesh->setSizeLimit({std::numeric_limits<float>::infinity(), 5});
    EXPECT_EQ(mesh->getExtents(), extents) << "a height limits nothing";
}

TEST_F(TextMeshTest, SpacesAtTheEndOfTheTextCountAsFarAsTheLineGoes) {
    EXPECT_EQ(make("nn  ")->getExtents().x, std::ceil(width(U"nn  ")));
    const float limit = std::ceil(width(U"nn "));
    const Text mesh = make("nn    ", {limit, -1});
    EXPECT_EQ(mesh->getExtents(), Vector2(limit, std::ceil(getLine())));
    EXPECT_NEAR(mesh->getEndPosition().x, -limit / 2 + width(U"nn    "), 2e-3f);
}

TEST_F(TextMeshTest, LineEndsOfAllKindsEndAParagraph) {
    const Text mesh = make("n\nn\r\nn\rn\xe2\x80\xa8n\xe2\x80\xa9n");
    EXPECT_EQ(mesh->getCharacterCount(), 12u);
    EXPECT_EQ(mesh->getExtents(), Vector2(std::ceil(width(U"n")), std::ceil(6 * getLine())));
    const float top = mesh->getCharacterPosition(0).y;
    const unsigned int letters[] = {0, 2, 5, 7, 9, 11};
    for (unsigned int line = 0; line < 6; ++line)
        expectNear(mesh->getCharacterPosition(letters[line]), {left(mesh), top + static_cast<float>(line) * getLine()});
}

TEST_F(TextMeshTest, LineSpacingIsAFactorAndParagraphSpacingIsAddedBetweenParagraphs) {
    const Text mesh = make("nn nn\nnn\nnn", {std::ceil(width(U"nn")), -1});
    mesh->setLineSpacing(1.5f);
    mesh->setParagraphSpacing(0.25f);
    EXPECT_EQ(mesh->getExtents().y, std::ceil(getLine() * (1 + 3 * 1.5f + 2 * 0.25f)));
    const float top = mesh->getCharacterPosition(0).y;
    EXPECT_NEAR(mesh->getCharacterPosition(3).y - top, getLine() * 1.5f, 2e-3f);
    EXPECT_NEAR(mesh->getCharacterPosition(6).y - top, getLine() * 3.25f, 2e-3f);
    EXPECT_NEAR(mesh->getCharacterPosition(9).y - top, getLine() * 5.0f, 2e-3f);
    EXPECT_EQ(make("nn")->getExtents().y, std::ceil(getLine()));

    mesh->setLineSpacing(std::numeric_limits<float>::quiet_NaN());
    mesh->setParagraphSpacing(std::numeric_limits<float>::infinity());
    EXPECT_EQ(mesh->getLineSpacing(), 1.5f);
    EXPECT_EQ(mesh->getParagraphSpacing(), 0.25f);
}

// Places

TEST_F(TextMeshTest, CharactersStandOneAdvanceFromAnother) {
    const Text mesh = make("nio o");
    const std::u32string characters = U"nio o";
    for (unsigned int i = 0; i <= 5; ++i)
        expectNear(mesh->getCharacterPosition(i),
                   {left(mesh) + width(characters.substr(0, i)), -mesh->getExtents().y / 2});
    expectNear(mesh->getEndPosition(), mesh->getCharacterPosition(5));
    expectNear(mesh->getCharacterPosition(1000), mesh->getEndPosition());
}

TEST_F(TextMeshTest, AlignmentsPlaceTheTextInTheBoxOfTheLimit) {
    for (unsigned int horizontal = 0; horizontal < 3; ++horizontal) {
        for (unsigned int vertical = 0; vertical < 3; ++vertical) {
            const Text mesh = make("nnn", {200, 100});
            mesh->setHorizontalAlignment(horizontal);
            mesh->setVerticalAlignment(vertical);
            const float freeX = 200 - width(U"nnn");
            const float freeY = 100 - getLine();
            expectNear(mesh->getCharacterPosition(0), {-100 + freeX * static_cast<float>(horizontal) / 2,
                                                       -50 + freeY * static_cast<float>(vertical) / 2});
        }
    }
}

TEST_F(TextMeshTest, AnAlignmentThatIsNoneCountsAsZero) {
    const Text mesh = make("nnn", {200, 100});
    mesh->setHorizontalAlignment(2);
    mesh->setHorizontalAlignment(3);
    mesh->setVerticalAlignment(0xffffffff);
    EXPECT_EQ(mesh->getHorizontalAlignment(), 0u);
    EXPECT_EQ(mesh->getVerticalAlignment(), 0u);
}

TEST_F(TextMeshTest, ABoxThatIsTooSmallIsLeftOnTheSidesThatAlignmentLeavesFree) {
    const Text mesh = make("nnnn", {0, 4});
    mesh->setHorizontalAlignment(1);
    mesh->setVerticalAlignment(2);
    expectNear(mesh->getCharacterPosition(0), {-width(U"n") / 2, 2 - 4 * getLine()});
}

TEST_F(TextMeshTest, LinesOfATextWithoutALimitAreAlignedInItsWidth) {
    const Text mesh = make("nnnn\nnn");
    mesh->setHorizontalAlignment(2);
    EXPECT_NEAR(mesh->getCharacterPosition(5).x, mesh->getExtents().x / 2 - width(U"nn"), 2e-3f);
}

TEST_F(TextMeshTest, TheEndOfAnEmptyTextIsWhereItsFirstCharacterWouldStand) {
    const Text mesh = make("", {200, 100});
    const float expected[] = {-100, 0, 100};
    for (unsigned int horizontal = 0; horizontal < 3; ++horizontal) {
        mesh->setHorizontalAlignment(horizontal);
        expectNear(mesh->getEndPosition(), {expected[horizontal], -50});
        expectNear(mesh->getCharacterPosition(0), mesh->getEndPosition());
    }
}

TEST_F(TextMeshTest, ALineEndStandsAfterItsLineAndAnEmptyLastLineHasTheEnd) {
    const Text mesh = make("nn\n");
    expectNear(mesh->getCharacterPosition(2), {left(mesh) + width(U"nn"), -mesh->getExtents().y / 2});
    expectNear(mesh->getEndPosition(), {left(mesh), -mesh->getExtents().y / 2 + getLine()});
    EXPECT_EQ(mesh->getExtents().y, std::ceil(2 * getLine()));
}

TEST_F(TextMeshTest, InsideALigaturePlacesAreInProportion) {
    const Text mesh = make("nffin");
    const float ligature = facts.getAdvance(U'ﬃ') * SIZE;
    for (unsigned int i = 0; i <= 3; ++i)
        EXPECT_NEAR(mesh->getCharacterPosition(1 + i).x,
                    left(mesh) + width(U"n") + ligature * static_cast<float>(i) / 3, 2e-3f);
}

TEST_F(TextMeshTest, RightToLeftPlacesAreTheRightEdgesOfTheirCells) {
    const Text mesh = make("שלום");
    const std::u32string characters = U"שלום";
    const float total = width(characters);
    for (unsigned int i = 0; i <= 4; ++i)
        EXPECT_NEAR(mesh->getCharacterPosition(i).x, left(mesh) + total - width(characters.substr(0, i)), 2e-3f);
}

TEST_F(TextMeshTest, AWordOfTheOtherDirectionIsSetBackwardInItsPlace) {
    const Text mesh = make("nn שלום nn");
    const std::u32string word = U"שלום";
    const float wordLeft = left(mesh) + width(U"nn ");
    EXPECT_NEAR(mesh->getCharacterPosition(2).x, left(mesh) + width(U"nn"), 2e-3f);
    for (unsigned int i = 0; i < 4; ++i)
        EXPECT_NEAR(mesh->getCharacterPosition(3 + i).x, wordLeft + width(word) - width(word.substr(0, i)), 2e-3f);
    EXPECT_NEAR(mesh->getCharacterPosition(8).x, wordLeft + width(word) + width(U" "), 2e-3f);
}

TEST_F(TextMeshTest, SpacesOfABrokenRightToLeftLineHangOverItsLeft) {
    const float limit = std::ceil(width(U"שלום")) + 2;
    const Text mesh = make("שלום   שלום", {limit, -1});
    EXPECT_EQ(countLines(mesh), 2u);
    mesh->setHorizontalAlignment(0);
    EXPECT_NEAR(mesh->getCharacterPosition(0).x, -limit / 2 + width(U"שלום"), 2e-3f);
    EXPECT_LT(mesh->getCharacterPosition(6).x, -limit / 2);
    EXPECT_NEAR(mesh->getCharacterPosition(7).x, -limit / 2 + width(U"שלום"), 2e-3f);
}

// Text

TEST_F(TextMeshTest, NullIsTheEmptyText) {
    const Text mesh = make("nn");
    mesh->setText(nullptr);
    EXPECT_STREQ(mesh->getText(), "");
    EXPECT_EQ(mesh->getCharacterCount(), 0u);
}

TEST_F(TextMeshTest, TakesItsOwnTextAndPartsOfIt) {
    const Text mesh = make("a long text that is not kept inside the string object itself");
    mesh->setText(mesh->getText());
    EXPECT_STREQ(mesh->getText(), "a long text that is not kept inside the string object itself");
    mesh->setText(mesh->getText() + 7);
    EXPECT_STREQ(mesh->getText(), "text that is not kept inside the string object itself");
    mesh->setText(mesh->getText() + 53);
    EXPECT_STREQ(mesh->getText(), "");
}

TEST_F(TextMeshTest, CountsCharactersAsTheRestOfTheSystemDoes) {
    for (const char *text : {"", "abc", "äöü", "漢字", "😀", "a\xff\xfe", "\xe2\x80", "\xf0\x9f\x98",
                             "a\r\nb\xe2\x80\xa8", "\xc3\n\xa9", "\xe2\n\x80\xa8", "\xed\xa0\x80"}) {
        const Text mesh = make(text);
        EXPECT_EQ(mesh->getCharacterCount(), ::text::getUTF8Length(text)) << testing::PrintToString(text);
        // The end is reached by walking over all characters: both counts go the same way.
        expectNear(mesh->getCharacterPosition(mesh->getCharacterCount()), mesh->getEndPosition());
    }
}

TEST_F(TextMeshTest, TheSameTextAgainShapesNothing) {
    const Text mesh = make("shaped");
    mesh->getExtents();
    const font::ShapingStatistics before = getShaping();
    mesh->setText("shaped");
    mesh->setScale(3);
    mesh->setSizeLimit({20, 20});
    mesh->setHorizontalAlignment(1);
    mesh->getExtents();
    mesh->getEndPosition();
    EXPECT_EQ(getShaping().shapedParagraphs, before.shapedParagraphs);
    EXPECT_EQ(getShaping().cacheHits, before.cacheHits);
}

TEST_F(TextMeshTest, TheSameTextOnAnotherMeshShapesNothing) {
    make("one\ntwo")->getExtents();
    const font::ShapingStatistics before = getShaping();
    make("two\none\ntwo")->getExtents();
    EXPECT_EQ(getShaping().shapedParagraphs, before.shapedParagraphs);
    EXPECT_EQ(getShaping().cacheHits, before.cacheHits + 3);
}

TEST_F(TextMeshTest, SettersAloneShapeNothing) {
    const auto before = getShaping().shapedParagraphs;
    const Text mesh = make("never asked for");
    mesh->setText("nor this");
    mesh->setScale(2);
    EXPECT_EQ(getShaping().shapedParagraphs, before);
}

TEST_F(TextMeshTest, MeasuringInTurnWithAndWithoutALimitBreaksLinesOnce) {
    const Text mesh = make("some words to be broken into lines");
    for (int i = 0; i < 10; ++i) {
        mesh->setSizeLimit({-1, -1});
        EXPECT_EQ(mesh->getExtents().y, std::ceil(getLine()));
        mesh->setSizeLimit({100, -1});
        EXPECT_GT(mesh->getExtents().y, std::ceil(getLine()));
    }
    EXPECT_EQ(getShaping().brokenParagraphs, 1u);
}

TEST_F(TextMeshTest, AFontAddedLaterShowsWhatWasMissing) {
    useDefault(test::MONO_FILE);
    const Text mesh = make("𐌀");
    const test::FontFacts mono(test::MONO_FILE);
    EXPECT_EQ(mesh->getExtents().x, std::ceil(mono.getAdvance(U'𐌀') * SIZE)) << "the box for what is missing";
    manager->add("Sans", test::SANS_FILE);
    EXPECT_EQ(mesh->getExtents().x, std::ceil(width(U"𐌀")));
}

// Copies

TEST_F(TextMeshTest, CopyLayoutTakesAlignmentsSpacingsAndLimit) {
    const Text source = make("source", {50, 60});
    source->setHorizontalAlignment(1);
    source->setVerticalAlignment(2);
    source->setLineSpacing(1.25f);
    source->setParagraphSpacing(0.5f);
    source->setScale(3);
    const Text mesh = make("other");
    screen.root->appendChild(mesh.get());
    screen.draw();
    EXPECT_FALSE(mesh->isChanged());
    mesh->copyLayout(*source);
    EXPECT_TRUE(mesh->isChanged());
    EXPECT_EQ(mesh->getHorizontalAlignment(), 1u);
    EXPECT_EQ(mesh->getVerticalAlignment(), 2u);
    EXPECT_EQ(mesh->getLineSpacing(), 1.25f);
    EXPECT_EQ(mesh->getParagraphSpacing(), 0.5f);
    EXPECT_EQ(mesh->getSizeLimit(), Vector2(50, 60));
    EXPECT_EQ(mesh->getScale(), 1.0f);
    EXPECT_STREQ(mesh->getText(), "other");
}

TEST_F(TextMeshTest, ACloneHasItsOwnTextLayoutAndColour) {
    const Text source = make("source", {50, 60});
    source->setHorizontalAlignment(2);
    source->setScale(2);
    auto *color = static_cast<MaterialProperty *>(source->getPropertySet()[1]);
    color->setColor(math::Vector4(1, 0, 0, 0.5f));
    const Text copy(static_cast<TextMesh *>(source->clone()));
    EXPECT_STREQ(copy->getName(), "text");
    EXPECT_STREQ(copy->getText(), "source");
    EXPECT_EQ(copy->getFont(), source->getFont());
    EXPECT_EQ(copy->getScale(), 2.0f);
    EXPECT_EQ(copy->getHorizontalAlignment(), 2u);
    EXPECT_EQ(copy->getSizeLimit(), Vector2(50, 60));
    EXPECT_TRUE(copy->isChanged());

    const auto *copied = static_cast<MaterialProperty *>(copy->getPropertySet()[1]);
    EXPECT_NE(copied, color);
    EXPECT_EQ(copied->getColor(), math::Vector4(1, 0, 0, 0.5f));
    EXPECT_NE(copy->getPropertySet()[0], source->getPropertySet()[0]);
    source->setText("changed");
    EXPECT_STREQ(copy->getText(), "source");
}

TEST_F(TextMeshTest, ACloneMadeWithPropertyOptionsHasItsOwnColourToo) {
    const Text source = make("source");
    core::CloningOptions options;
    options.put(scene::Property::TYPE, new scene::PropertyCO(0xffff));
    const Text copy(static_cast<TextMesh *>(source->clone(options)));
    EXPECT_NE(copy->getPropertySet()[1], source->getPropertySet()[1]);
    EXPECT_EQ(copy->getPropertySet()[1], options.getCloned(source->getPropertySet()[1]));
}

TEST_F(TextMeshTest, CloningIntoSomethingElseDoesNoHarm) {
    const Text source = make("source");
    const core::SmartPtr<scene::Node> node(new scene::Node("node"));
    core::CloningOptions options;
    source->_clone(node.get(), options);
    EXPECT_STREQ(node->getName(), "text");
}

// What is not there

TEST_F(TextMeshTest, ATextWithoutAFontHasNoSize) {
    const Text mesh = make("nn\nnn");
    mesh->setFont(nullptr);
    EXPECT_EQ(mesh->getExtents(), Vector2::ZERO);
    EXPECT_EQ(mesh->getCharacterPosition(1), Vector2::ZERO);
    EXPECT_EQ(mesh->getEndPosition(), Vector2::ZERO);
    EXPECT_EQ(mesh->getCharacterCount(), 5u);
}

TEST_F(TextMeshTest, AnEmptyFontHasNoSize) {
    const Text mesh = make("nn nn", {10, 10});
    mesh->setFont(new font::Font("none", nullptr, 16));
    EXPECT_EQ(mesh->getExtents(), Vector2::ZERO);
    mesh->getCharacterPosition(3);
    mesh->setSizeLimit({0, 0});
    EXPECT_EQ(mesh->getExtents(), Vector2::ZERO);
}

TEST_F(TextMeshTest, WithoutAManagerWhatWasShapedStaysAndNewTextHasNoWidth) {
    const Text old = make("nnn");
    const Vector2 extents = old->getExtents();
    const Text young(new TextMesh("young", manager->getDefaultFont()));
    manager.reset();
    EXPECT_EQ(old->getExtents(), extents);
    young->setText("nnn nnn");
    young->setSizeLimit({10, 10});
    EXPECT_EQ(young->getExtents(), Vector2(0, std::ceil(getLine())));
    EXPECT_EQ(young->getCharacterCount(), 7u);
    young->getCharacterPosition(3);
}

// Size

TEST_F(TextMeshTest, LongTextsOfAnythingAreLaidOut) {
    const auto repeat = [](const std::string &part, std::size_t size) {
        std::string text;
        while (text.size() < size)
            text += part;
        return text;
    };
    const std::string prose = "word and ";
    for (const std::string &part : {prose, std::string("x"), std::string("\n"), std::string("e\xcc\x81"),
                                    std::string("\xcc\x81"), std::string("a\xd7\xa9 "), std::string("\xff"),
                                    std::string("\xe2\x80\xae"), std::string(" "), std::string("\t")}) {
        SCOPED_TRACE(testing::PrintToString(part));
        const Text mesh = make(repeat(part, part == prose ? 1000000 : 50000).c_str());
        mesh->getExtents();
        mesh->setSizeLimit({0, 0});
        mesh->getExtents();
        mesh->setSizeLimit({300, 300});
        EXPECT_LE(mesh->getExtents().x, 300.0f);
        mesh->getCharacterPosition(mesh->getCharacterCount() / 2);
        mesh->getEndPosition();
    }
}

} // namespace
} // namespace nurel
