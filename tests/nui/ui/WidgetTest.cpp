#include "nui/ui/Widget.h"

#include "TestComponents.h"
#include "support/EngineFixture.h"

#include "nengine/Engine.h"
#include "ninput/input/Mouse.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <string>
#include <utility>

namespace test {

namespace {

class WidgetTest : public EngineFixture {};

} // namespace

TEST_F(WidgetTest, FillsItsParentAndFollowsIt) {
    const core::SmartPtr<Widget> widget(new Widget("widget"));
    EXPECT_EQ(widget->getElement(), "widget");
    EXPECT_STREQ(Widget::ELEMENT, "widget");
    EXPECT_EQ(widget->getComponentSize().absolute, Vector2(0, 0));
    EXPECT_EQ(widget->getComponentSize().relative, Vector2(1, 1));
    EXPECT_EQ(widget->getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(widget->getComponentPosition().relative, Vector2(0, 0));
    EXPECT_EQ(widget->getAnchor(), 0x12U);
    show(*widget);
    EXPECT_EQ(widget->getSize(), Vector2(800, 600));
    EXPECT_EQ(widget->getWorldPosition(), Vector3(400, 300, 0));
    engine().resize(1000, 500);
    EXPECT_EQ(widget->getSize(), Vector2(1000, 500));
}

TEST_F(WidgetTest, MayHaveASizeOfItsOwn) {
    const core::SmartPtr<Widget> widget(new Widget("widget", Vector2(10, 20), Vector2(0.5f, 0)));
    show(*widget);
    EXPECT_EQ(widget->getSize(), Vector2(410, 20));
}

TEST_F(WidgetTest, IsNotAnimatedByItsConstructor) {
    UIManager::getSingleton().beginAnimation();
    const core::SmartPtr<Widget> widget(new Widget("widget"));
    EXPECT_EQ(widget->getComponentSize().relative, Vector2(1, 1));
    UIManager::getSingleton().cancelAnimation();
}

TEST_F(WidgetTest, ANullNameIsAnEmptyOne) {
    EXPECT_STREQ(Widget(nullptr).getName(), "");
    EXPECT_STREQ(Widget(nullptr, Vector2(1, 1), Vector2(0, 0)).getName(), "");
    EXPECT_STREQ(Widget().getName(), "");
}

TEST_F(WidgetTest, NamesItsSkin) {
    Widget widget("widget");
    EXPECT_EQ(widget.getSkinName(), "");
    widget.setSkinName("night");
    EXPECT_EQ(widget.getSkinName(), "night");
    widget.setSkinName(nullptr);
    EXPECT_EQ(widget.getSkinName(), "");
}

TEST_F(WidgetTest, ACloneHasTheSkinNameAndNoView) {
    Widget source("source", Vector2(5, 6), Vector2(0, 0));
    source.setSkinName("night");
    UIManager::getSingleton().setView(&source);
    ASSERT_TRUE(source.hasView());
    const core::SmartPtr<Widget> copy(static_cast<Widget *>(source.clone()));
    EXPECT_STREQ(copy->getName(), "source");
    EXPECT_EQ(copy->getSkinName(), "night");
    EXPECT_EQ(copy->getComponentSize().absolute, Vector2(5, 6));
    EXPECT_EQ(copy->getComponentSize().relative, Vector2(0, 0));
    EXPECT_FALSE(copy->hasView());
    EXPECT_EQ(&copy->getType(), &Widget::TYPE);
}

namespace {

class Visitable : public Widget {
public:
    using Widget::setView;
    using Widget::visit;
    using Widget::Widget;
};

} // namespace

TEST_F(WidgetTest, EachVisitGivesItANewView) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    Visitable widget("widget");
    const core::SmartPtr<ComponentView> first(widget.visit(plain.get()));
    const core::SmartPtr<ComponentView> second(widget.visit(plain.get()));
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(widget.getView(), second.get());
    EXPECT_EQ(plain->made, 2);
    EXPECT_EQ(first->getComponent(), nullptr);
    EXPECT_EQ(widget.visit(nullptr), nullptr);
    EXPECT_EQ(widget.getView(), second.get());
}

TEST_F(WidgetTest, InsideAContainerWithAViewItGetsItsViewOnce) {
    const core::SmartPtr<PlainSkin> plain(new PlainSkin);
    Box box("box");
    const core::SmartPtr<ComponentView> boxView(box.visit(plain.get()));
    const core::SmartPtr<Visitable> widget(new Visitable("widget"));
    box.addChild(widget.get());
    ASSERT_TRUE(widget->hasView());
    EXPECT_EQ(plain->made, 1);
    ASSERT_EQ(boxView->getContent()->getChildCount(), 1U);
    EXPECT_EQ(boxView->getContent()->getChild(0), widget->getView());
    const core::SmartPtr<ComponentView> own(new ComponentView("own", widget.get(), plain.get()));
    widget->setView(own.get());
    EXPECT_EQ(widget->getView(), own.get());
    ASSERT_EQ(boxView->getContent()->getChildCount(), 1U);
    EXPECT_EQ(boxView->getContent()->getChild(0), own.get());
}

TEST_F(WidgetTest, OfTwoOverTheSamePointTheLaterGetsTheEvents) {
    const core::SmartPtr<Widget> lower(new Widget("lower"));
    const core::SmartPtr<Widget> upper(new Widget("upper"));
    const core::SmartPtr<components::Panel> through(new components::Panel("through"));
    through->setEventMask(0);
    upper->addChild(through.get());
    lower->setZIndex(100);
    show(*lower);
    show(*upper);
    UIManager &manager = UIManager::getSingleton();
    manager.setMousePos({400, 300});
    frame();
    EXPECT_EQ(manager.getComponentAtCursor(), upper.get());
    manager.removeWidget(upper.get());
    manager.addWidget(upper.get());
    manager.removeWidget(lower.get());
    manager.setView(lower.get());
    frame();
    UIManager::getSingleton().setView(lower.get());
    manager.addWidget(lower.get());
    frame();
    manager.setMousePos({401, 300});
    frame();
    EXPECT_EQ(manager.getComponentAtCursor(), lower.get()); // brought to the front
}

TEST_F(WidgetTest, OfTwoOverTheSamePointTheEarlierIsToldNothing) {
    const core::SmartPtr<Widget> lower(new Widget("lower"));
    const core::SmartPtr<Widget> upper(new Widget("upper"));
    std::string told;
    for (Widget *widget : {lower.get(), upper.get()}) {
        widget->enableEvents(UIEvent::ET_WHEEL_EVENT);
        const std::string name = widget->getName();
        widget->MouseCallbacks::subscribeCallback([&told, name](UIEventHandler *, const MouseEvent &event) {
            told += name + (event.getAction() == MouseEvent::MOUSE_PRESS ? ":press " : ":release ");
            return false;
        });
        widget->HoverCallbacks::subscribeCallback([&told, name](UIEventHandler *, const HoverEvent &event) {
            if (event.getAction() == HoverEvent::HOVER_ENTER)
                told += name + ":enter ";
            return false;
        });
        widget->ClickCallbacks::subscribeCallback([&told, name](UIEventHandler *, const ClickEvent &) {
            told += name + ":click ";
            return false;
        });
    }
    // A child of the upper one that takes nothing does not let anything through either.
    const core::SmartPtr<components::Panel> through(new components::Panel("through"));
    through->setEventMask(0);
    through->setSize(Vector2(800, 600));
    upper->addChild(through.get());
    show(*lower);
    show(*upper);
    UIManager &manager = UIManager::getSingleton();
    const auto click = [&](int x) {
        manager.setMousePos({x, 300});
        frame();
        manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::PRESS);
        frame();
        manager.setMouseButton(nurel::input::Mouse::LEFT, nurel::input::Mouse::RELEASE);
        frame();
        return std::exchange(told, {});
    };
    EXPECT_EQ(click(400), "upper:enter upper:press upper:release upper:click ");
    manager.removeWidget(upper.get());
    frame();
    told.clear();
    EXPECT_EQ(click(410), "lower:enter lower:press lower:release lower:click ");
}

} // namespace test
