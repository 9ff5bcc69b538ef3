#include "nui/ui/skins/DefaultSkin.h"

#include "nui/ui/ManagerTest.h"
#include "nui/ui/views/DefaultLabelView.h"
#include "nui/ui/views/DefaultPanelView.h"
#include "nui/ui/views/DefaultWidgetView.h"

using namespace nurel::ui;

namespace {

class DefaultSkinTest : public test::ManagerTest {
public:
    DefaultSkinTest() : mDefault(new skins::DefaultSkin) {
        SkinManager::getSingleton().addSkin(mDefault.get());
        SkinManager::getSingleton().setDefaultSkin(mDefault.get());
    }

    core::SmartPtr<skins::DefaultSkin> mDefault;
};

} // namespace

TEST_F(DefaultSkinTest, IsNamedDefault) {
    EXPECT_STREQ(mDefault->getName(), "default");
    EXPECT_STREQ(skins::DefaultSkin::NAME, "default");
}

TEST_F(DefaultSkinTest, SkinsNothingThroughItsEntry) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    EXPECT_EQ(mDefault->skin(widget.get()), nullptr);
    EXPECT_EQ(mDefault->skin(nullptr), nullptr);
}

TEST_F(DefaultSkinTest, HasViewsForWidgetsLabelsAndPanels) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const core::SmartPtr<Panel> panel(new Panel("p"));
    const core::SmartPtr<components::Label> label(new components::Label("l"));
    const core::SmartPtr<ComponentView> widgetView(mDefault->visit(widget.get()));
    const core::SmartPtr<ComponentView> panelView(mDefault->visit(panel.get()));
    const core::SmartPtr<ComponentView> labelView(mDefault->visit(label.get()));
    EXPECT_STREQ(widgetView->getName(), "DefaultWidgetView");
    EXPECT_STREQ(panelView->getName(), "DefaultPanelView");
    EXPECT_STREQ(labelView->getName(), "DefaultLabelView");
    EXPECT_TRUE(widgetView->instanceOf(views::DefaultWidgetView::TYPE));
    EXPECT_TRUE(panelView->instanceOf(views::DefaultPanelView::TYPE));
    EXPECT_TRUE(labelView->instanceOf(views::DefaultLabelView::TYPE));
    EXPECT_EQ(widgetView->getSkin(), mDefault.get());
}

TEST_F(DefaultSkinTest, HasNoViewForTheOthers) {
    EXPECT_EQ(mDefault->visit(static_cast<components::Image *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::TextField *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Listbox *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Selector *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Progress *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Slider *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Checkbox *>(nullptr)), nullptr);
    EXPECT_EQ(mDefault->visit(static_cast<components::Button *>(nullptr)), nullptr);
}

TEST_F(DefaultSkinTest, ViewsATreeThatSetViewIsGivenAndAddWidgetKeepsIt) {
    const core::SmartPtr<Widget> widget(new Widget("w"));
    const auto panel = addPanel(*widget, "p", 0, 0, 100, 100);
    const core::SmartPtr<components::Label> label(new components::Label("l"));
    panel->addChild(label.get());
    panel->addChild(new components::Image("no view"));
    manager().setView(widget.get());
    ComponentView *view = widget->getView();
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(panel->hasView());
    EXPECT_TRUE(label->hasView());
    EXPECT_FALSE(panel->getChildAt(1)->hasView());

    manager().addWidget(widget.get());
    frame();
    EXPECT_EQ(widget->getView(), view);
    EXPECT_EQ(manager().getRoot()->getChild(0), view);
}

TEST_F(DefaultSkinTest, LeavesAWidgetWithoutAViewWhenSetViewWasNotAsked) {
    const auto widget = addWidget();
    EXPECT_FALSE(widget->hasView());
    EXPECT_TRUE(manager().hasWidget(widget.get()));
    EXPECT_EQ(manager().getRoot()->getChildCount(), 0u);
    moveTo(100, 100); // hits nothing
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}
