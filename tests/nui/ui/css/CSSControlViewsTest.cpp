// The views that do more than a box: label and image.
#include "nengine/font/Font.h"
#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/css/CSSLabelView.h"
#include "nui/ui/css/StyleTest.h"

using namespace nurel::ui;
using nurel::font::FontManager;
using nurel::scene::meshes::TextMesh;
using nurel::texture::TexturePool;

namespace {

class CSSLabelViewTest : public test::StyleTest {
public:
    CSSLabelViewTest() {
        mOther = FontManager::getSingleton().add("Other Font", "tests/data/fonts/DejaVuSans.ttf", 32);
    }

    core::SmartPtr<Label> addLabel(const char *sheet, const char *text = "text") {
        setSheet(sheet);
        mWidget = addStyledWidget();
        core::SmartPtr<Label> label(new Label("label"));
        label->setText(text);
        place(*label, 10, 10, 200, 40);
        mWidget->addChild(label.get());
        frame();
        return label;
    }

    static Vector4 color(Label &label) {
        return static_cast<nurel::scene::properties::MaterialProperty *>(label.getTextMesh()->getPropertySet()[1])
            ->getColor();
    }

    nurel::font::Font *mOther;
};

class CSSImageViewTest : public test::StyleTest {
public:
    CSSImageViewTest() {
        const std::vector<unsigned char> pixels(64U * 32U * 4U, 255);
        TexturePool::getSingleton().add("small.png", 20, 10, pixels.data());
        TexturePool::getSingleton().add("large.png", 64, 32, pixels.data());
    }

    core::SmartPtr<components::Image> addImage(const char *sheet) {
        setSheet(sheet);
        mWidget = addStyledWidget();
        core::SmartPtr<components::Image> image(new components::Image("image"));
        place(*image, 10, 10, 30, 30);
        mWidget->addChild(image.get());
        frame();
        return image;
    }
};

} // namespace

TEST_F(CSSLabelViewTest, PutsTheLabelsTextIntoTheSceneAtTheFirstUpdate) {
    const auto label = addLabel("");
    const auto &view = dynamic_cast<css::CSSLabelView &>(*label->getView());
    EXPECT_EQ(view.getTextMesh(), label->getTextMesh());
    EXPECT_EQ(label->getTextMesh()->getParent(), &view);
}

TEST_F(CSSLabelViewTest, TakesColourAndAlignment) {
    const auto label = addLabel("label { color: #ff000080; text-align: center; vertical-align: bottom; }");
    EXPECT_EQ(color(*label), Vector4(1, 0, 0, 128 * 0.003921569f));
    EXPECT_EQ(label->getTextMesh()->getHorizontalAlignment(), 1U);
    EXPECT_EQ(label->getTextMesh()->getVerticalAlignment(), 2U);
}

TEST_F(CSSLabelViewTest, AColourWithoutAlphaKeepsTheOpacity) {
    const auto label = addLabel("label { color: blue; opacity: 0.5; }");
    EXPECT_EQ(color(*label), Vector4(0, 0, 1, 0.5f));
    label->addClass("x");
    frame();
    EXPECT_EQ(color(*label), Vector4(0, 0, 1, 0.5f));
}

TEST_F(CSSLabelViewTest, ASizeInPixelsScalesTheFont) {
    const auto label = addLabel("label { font-size: 24px; }");
    const float own = label->getFont()->getSize();
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 24 / own);
}

TEST_F(CSSLabelViewTest, ABareNumberIsASizeInPixels) {
    const auto label = addLabel("label { font: 1.5 Missing; }");
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 1.5f / label->getFont()->getSize());
}

TEST_F(CSSLabelViewTest, APercentageIsAScale) {
    const auto label = addLabel("label { font-size: 150%; }");
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 1.5f);
}

TEST_F(CSSLabelViewTest, FindsAFamilyWhoseNameCameThroughAMacro) {
    const auto label = addLabel("@define { f: \"Other Font\"; } label { font-family: $f; }");
    EXPECT_EQ(label->getFont(), mOther);
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 1);
}

TEST_F(CSSLabelViewTest, ASizeInPixelsIsThatOfTheFamilysFont) {
    const auto label = addLabel("@define { f: \"Other Font\"; } label { font-size: 16px; font-family: $f; }");
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 0.5f);
}

TEST_F(CSSLabelViewTest, AnUnknownFamilyChangesNothingButTheSizeCounts) {
    const auto label = addLabel("label { font: 50% Missing; }");
    EXPECT_EQ(label->getFont(), FontManager::getSingleton().getDefaultFont());
    EXPECT_FLOAT_EQ(label->getTextMesh()->getScale(), 0.5f);
}

TEST_F(CSSLabelViewTest, TheSameStyleAgainDirtiesNothing) {
    for (const char *size : {"24px", "150%", "-5px", "0px", "1e39px"}) {
        SCOPED_TRACE(size);
        const auto label = addLabel((std::string("label { color: red; text-align: right; font-size: ") + size +
                                     "; } label { vertical-align: center; opacity: 0.5; }")
                                        .c_str());
        label->addClass("x");
        label->getView()->updateView();
        EXPECT_FALSE(label->isDirty(Component::DIRTY_POSITION));
        EXPECT_FALSE(mWidget->isDirty(Component::DIRTY_CONTENT));
    }
}

TEST_F(CSSLabelViewTest, ALabelOfAutomaticSizeGrowsWithTheFont) {
    const auto label = addLabel("label { width: auto; height: auto; } .large { font-size: 300%; }");
    const Vector2 before = label->getSize();
    label->addClass("large");
    frame();
    EXPECT_GT(label->getSize().x, before.x * 2);
    EXPECT_GT(label->getSize().y, before.y * 2);
}

TEST_F(CSSLabelViewTest, PlacesTheTextInsideTheBox) {
    const auto label =
        addLabel("label { padding: 0 1px 0 10px; border: 4px 0 1px 0; left: 0px; top: 0px; -n-anchor: top-left; "
                 "width: 100px; height: 40px; }");
    EXPECT_EQ(label->getWorldPosition().x, 50);
    EXPECT_EQ(label->getTextMesh()->getTranslation(), Vector3(4, 1, 0));
}

TEST_F(CSSLabelViewTest, TextStandsOnWholePixelsWhereTheLabelDoesNot) {
    const auto label = addLabel("label { left: 0px; top: 0px; -n-anchor: top-left; width: 101px; height: 41px; }");
    const Vector3 world = label->getWorldPosition();
    EXPECT_EQ(label->getTextMesh()->getTranslation(),
              Vector3(world.x == std::floor(world.x) ? 0 : 0.5f, world.y == std::floor(world.y) ? 0 : 0.5f, 0));
    EXPECT_NE(world.x, std::floor(world.x));
}

TEST_F(CSSLabelViewTest, TheColourOfAButtonIsNotThatOfItsText) {
    setSheet("button { color: red; } .blue { color: red; } button#label { color: blue; }");
    mWidget = addStyledWidget();
    const core::SmartPtr<components::Button> button(new components::Button("button"));
    button->setText("text");
    mWidget->addChild(button.get());
    frame();
    EXPECT_EQ(color(*button->getLabel()), Vector4(0, 0, 1, 1));
    EXPECT_EQ(button->getMeshColor(), Vector3(1, 1, 1));
}

TEST_F(CSSLabelViewTest, ALabelInAButtonFollowsItsStates) {
    setSheet("button#label { color: white; } button#label:hover { color: red; }");
    mWidget = addStyledWidget();
    const core::SmartPtr<components::Button> button(new components::Button("button"));
    button->setText("text");
    place(*button, 10, 10, 100, 40);
    mWidget->addChild(button.get());
    frame();
    moveTo(20, 20);
    frame();
    EXPECT_EQ(color(*button->getLabel()), Vector4(1, 0, 0, 1));
}

TEST_F(CSSLabelViewTest, AViewThatWasTakenAwayLeavesTheLabelAlone) {
    const auto label = addLabel("label { color: red; }");
    const core::SmartPtr<ComponentView> view(label->getView());
    mWidget->removeChild(label.get());
    label->clearView();
    setSheet("label { color: blue; }");
    label->addClass("x");
    view->updateView();
    EXPECT_EQ(color(*label), Vector4(1, 0, 0, 1));
}

TEST_F(CSSImageViewTest, EachNewTextureGrowsTheDeclaredSizeByAPixel) {
    const auto image = addImage("image { width: auto; background-image: small.png; } .x { background-image: "
                                "large.png; }");
    const Vector2 before = image->getComponentSize().absolute;
    image->addClass("x");
    frame();
    EXPECT_EQ(image->getComponentSize().absolute.y, before.y + 1);
    // Both rules are applied again: the small picture, and then the large one.
    image->addClass("y");
    frame();
    EXPECT_EQ(image->getComponentSize().absolute.y, before.y + 3);
}

TEST_F(CSSImageViewTest, ShowsWithoutABackground) {
    const auto image = addImage("");
    EXPECT_FALSE(image->getMesh()->isHidden());
}

TEST_F(CSSImageViewTest, AnAutomaticSizeFollowsTheTexture) {
    const auto image =
        addImage("image { width: auto; height: auto; background-image: small.png; } .x { background-image: "
                 "large.png; }");
    EXPECT_EQ(image->getSize(), Vector2(20, 10));
    image->addClass("x");
    frame();
    EXPECT_EQ(image->getSize(), Vector2(64, 32));
    image->removeClass("x");
    frame();
    EXPECT_EQ(image->getSize(), Vector2(20, 10));
}

TEST_F(CSSImageViewTest, AFixedSizeStays) {
    const auto image = addImage("image { background-image: small.png; } .x { background-image: large.png; }");
    EXPECT_EQ(image->getSize(), Vector2(30, 30));
    image->addClass("x");
    frame();
    EXPECT_EQ(image->getSize(), Vector2(30, 30));
    EXPECT_EQ(image->getComponentSize().absolute, Vector2(30, 30));
}
