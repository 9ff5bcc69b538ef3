// The three views of the style-free skin, and the typed bases that they stand on.
#include "nui/ui/views/DefaultLabelView.h"
#include "nui/ui/views/DefaultPanelView.h"
#include "nui/ui/views/DefaultWidgetView.h"

#include "nengine/font/FontManager.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/ManagerTest.h"
#include "nui/ui/skins/DefaultSkin.h"

using namespace nurel::ui;
using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::scene::meshes::SizeableRectangleMesh;
using nurel::scene::meshes::TextMesh;
using nurel::scene::properties::MaterialProperty;
using nurel::scene::properties::TextureProperty;

namespace {

class ViewTest : public test::ManagerTest {
public:
    ViewTest() : mDefault(new skins::DefaultSkin) { SkinManager::getSingleton().setDefaultSkin(mDefault.get()); }

    /// A widget on the stage with views of the style-free skin.
    core::SmartPtr<Widget> addViewedWidget() {
        core::SmartPtr<Widget> widget(new Widget("w"));
        manager().setView(widget.get());
        manager().addWidget(widget.get());
        frame();
        return widget;
    }

    static SizeableRectangleMesh &rectangle(Component &component) {
        return dynamic_cast<SizeableRectangleMesh &>(*component.getView()->getChild(0));
    }

    static TextMesh &text(Component &component) { return dynamic_cast<TextMesh &>(*component.getView()->getChild(1)); }

    static MaterialProperty &material(Component &component) {
        return dynamic_cast<MaterialProperty &>(*rectangle(component).getPropertySet()[1]);
    }

    core::SmartPtr<components::Label> addLabel(Container &parent, const char *label) {
        core::SmartPtr<components::Label> added(new components::Label("label"));
        added->setText(label);
        place(*added, 0, 0, 200, 40);
        parent.addChild(added.get());
        return added;
    }

    core::SmartPtr<skins::DefaultSkin> mDefault;
};

using DefaultWidgetViewTest = ViewTest;
using DefaultPanelViewTest = ViewTest;
using DefaultLabelViewTest = ViewTest;

} // namespace

TEST_F(DefaultWidgetViewTest, IsARedRectangleOfTheWidgetsSize) {
    const auto widget = addViewedWidget();
    EXPECT_EQ(rectangle(*widget).getSize(), widget->getSize());
    EXPECT_EQ(rectangle(*widget).getSize().x, 800);
    EXPECT_EQ(material(*widget).getSecondColor(), Vector3(0.8f, 0, 0));
    EXPECT_EQ(static_cast<views::WidgetView *>(widget->getView())->getWidget(), widget.get());
}

TEST_F(DefaultWidgetViewTest, FollowsTheSizeOnEitherAxis) {
    const auto widget = addViewedWidget();
    widget->setSize(Vector2(300, 600), Vector2(0, 0));
    frame();
    EXPECT_EQ(rectangle(*widget).getSize(), Vector2(300, 600));
    widget->setSize(Vector2(300, 50), Vector2(0, 0));
    frame();
    EXPECT_EQ(rectangle(*widget).getSize(), Vector2(300, 50));
}

TEST_F(DefaultWidgetViewTest, TakesTransformAndVisibilityOver) {
    const auto widget = addViewedWidget();
    const Matrix3 rotation(0.5f, Vector3::AXIS_Z);
    widget->setRotation(rotation);
    widget->setScale(Vector2(2, 3));
    frame();
    ComponentView *view = widget->getView();
    EXPECT_EQ(view->getRotation(), rotation);
    EXPECT_EQ(view->getScale(), Vector3(2, 3, 1));
    EXPECT_EQ(view->getTranslation(), widget->getParentRelativePosition());
    EXPECT_FALSE(view->isHidden());
}

TEST_F(DefaultWidgetViewTest, OfAHiddenWidgetIsAHiddenFrameThatStaysInTheScene) {
    const auto widget = addViewedWidget();
    widget->setVisible(false);
    frame();
    EXPECT_TRUE(widget->getView()->isHidden());
    EXPECT_EQ(widget->getView()->getParent(), manager().getRoot());
    widget->setVisible(true);
    frame();
    EXPECT_FALSE(widget->getView()->isHidden());
}

TEST_F(DefaultWidgetViewTest, TakesTheWorldScaleWhereOtherViewsTakeTheOwnOne) {
    const auto root = addViewedWidget();
    root->setScale(Vector2(2, 2));
    const core::SmartPtr<Widget> inner(new Widget("inner"));
    const auto panel = addPanel(*root, "p", 0, 0, 10, 10);
    root->addChild(inner.get());
    inner->setScale(Vector2(3, 3));
    panel->setScale(Vector2(3, 3));
    frame();
    EXPECT_EQ(inner->getView()->getScale(), Vector3(6, 6, 1));
    EXPECT_EQ(panel->getView()->getScale(), Vector3(3, 3, 1));
}

TEST_F(DefaultWidgetViewTest, OutlivesItsWidget) {
    core::SmartPtr<Widget> widget(new Widget("w"));
    manager().setView(widget.get());
    const core::SmartPtr<ComponentView> view(widget->getView());
    widget = nullptr;
    EXPECT_EQ(static_cast<views::WidgetView &>(*view).getWidget(), nullptr);
    view->updateView();
}

TEST_F(DefaultPanelViewTest, ShowsNothingOfItsOwn) {
    const auto widget = addViewedWidget();
    const auto panel = addPanel(*widget, "p", 0, 0, 10, 10);
    frame();
    ASSERT_TRUE(panel->hasView());
    EXPECT_EQ(panel->getView()->getChildCount(), 0u);
    EXPECT_EQ(static_cast<views::PanelView *>(panel->getView())->getPanel(), panel.get());
}

TEST_F(DefaultLabelViewTest, IsAMagentaRectangleWithTheTextOnIt) {
    const auto widget = addViewedWidget();
    const auto label = addLabel(*widget, "hello");
    frame();
    EXPECT_EQ(static_cast<views::LabelView *>(label->getView())->getLabel(), label.get());
    EXPECT_EQ(label->getView()->getChildCount(), 2u);
    EXPECT_EQ(rectangle(*label).getSize(), Vector2(200, 40));
    EXPECT_EQ(material(*label).getSecondColor(), Vector3(1, 0, 1));
    EXPECT_STREQ(text(*label).getName(), "TextMesh");
    EXPECT_STREQ(text(*label).getText(), "hello");
    EXPECT_EQ(text(*label).getFont(), nurel::font::FontManager::getSingleton().getDefaultFont());
    EXPECT_EQ(text(*label).getHorizontalAlignment(), 0u);
    EXPECT_EQ(text(*label).getVerticalAlignment(), 0u);
    EXPECT_EQ(text(*label).getParagraphSpacing(), 1.5f);
}

TEST_F(DefaultLabelViewTest, LimitsTheTextToTheLabelsSize) {
    const auto widget = addViewedWidget();
    const auto label = addLabel(*widget, "hello");
    frame();
    EXPECT_EQ(text(*label).getSizeLimit(), Vector2(200, 40));
    place(*label, 0, 0, 100, 20);
    frame();
    EXPECT_EQ(text(*label).getSizeLimit(), Vector2(100, 20));
    EXPECT_EQ(rectangle(*label).getSize(), Vector2(100, 20));
}

TEST_F(DefaultLabelViewTest, TakesTheSizeThatTheLabelHasAtItsMaking) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const auto label = addLabel(*widget, "hello");
    widget->update();
    const core::SmartPtr<ComponentView> view(mDefault->visit(label.get()));
    EXPECT_EQ(dynamic_cast<SizeableRectangleMesh &>(*view->getChild(0)).getSize(), Vector2(200, 40));
    EXPECT_EQ(dynamic_cast<TextMesh &>(*view->getChild(1)).getSizeLimit(), Vector2(200, 40));
}

TEST_F(DefaultLabelViewTest, FollowsTheText) {
    const auto widget = addViewedWidget();
    const auto label = addLabel(*widget, "hello");
    frame();
    label->setText("good bye");
    frame();
    EXPECT_STREQ(text(*label).getText(), "good bye");
}

TEST_F(DefaultLabelViewTest, KeepsItsColourAndHasNoTexture) {
    const auto widget = addViewedWidget();
    const auto label = addLabel(*widget, "hello");
    frame();
    const unsigned char white[] = {255, 255, 255, 255};
    nurel::texture::Texture *texture = nurel::texture::TexturePool::getSingleton().add("white", 1, 1, white);
    auto &property = dynamic_cast<TextureProperty &>(*rectangle(*label).getPropertySet()[5]);
    property.getStage(0).setTexture(texture);
    material(*label).setSecondColor(Vector3(0, 1, 0));
    label->setText("good bye");
    frame();
    EXPECT_EQ(property.getTexture(0), nullptr);
    EXPECT_EQ(material(*label).getSecondColor(), Vector3(1, 0, 1));
}
