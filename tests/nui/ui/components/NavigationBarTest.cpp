#include "nui/ui/components/NavigationBar.h"

#include "foundation/core/Exception.h"
#include "nengine/font/Font.h"
#include "nengine/scene/meshes/TextMesh.h"
#include "nui/ui/Scenario.h"

using namespace nurel::ui;
using nurel::math::Vector2;
using nurel::math::Vector4;

namespace {

using Bar = components::NavigationBar;

/// A bar with buttons of 100 x 30 and a border of 5 at the top of a stage of 800 x 600.
class NavigationBarTest : public test::ScenarioTest {
public:
    NavigationBarTest() : mBar(newBar()) {
        mWidget = addWidget();
        mWidget->addChild(mBar.get());
        frame();
    }

    static core::SmartPtr<Bar> newBar() { return new Bar(50, Vector4(5, 5, 5, 5), Vector2(100, 30), "title-class"); }

    static components::Button &button(Component *element) {
        EXPECT_TRUE(element && element->instanceOf(components::Button::TYPE));
        return *static_cast<components::Button *>(element);
    }

    components::Button &left() { return button(mBar->getElement(Bar::ELEMENT_LEFT)); }
    components::Button &right() { return button(mBar->getElement(Bar::ELEMENT_RIGHT)); }

    core::SmartPtr<Bar> mBar;
    core::SmartPtr<Widget> mWidget;
};

constexpr auto NO_FLAG = static_cast<Bar::ElementFlag>(4);

} // namespace

TEST_F(NavigationBarTest, IsAPanelOfTheGivenClass) {
    EXPECT_TRUE(mBar->instanceOf(Panel::TYPE));
    EXPECT_STREQ(mBar->getType().getName(), "NavigationBar");
    EXPECT_STREQ(mBar->getName(), "");
    EXPECT_EQ(mBar->getElement(), "panel");
    EXPECT_TRUE(mBar->hasClass("title-class"));
    EXPECT_EQ(mBar->getAnchor(), 9U);
    EXPECT_EQ(mBar->getBorder(), Vector4(5, 5, 5, 5));
    EXPECT_EQ(mBar->getMargin(), Vector4(0, 0, 0, 0));
    EXPECT_EQ(mBar->getPadding(), Vector4(0, 0, 0, 0));
}

TEST_F(NavigationBarTest, IsAsHighAsItsButtonsAndTheBorder) {
    EXPECT_EQ(mBar->getComponentSize().absolute, Vector2(0, 40));
    EXPECT_EQ(mBar->getComponentSize().relative, Vector2(1, 0));
    EXPECT_EQ(mBar->getSize(), Vector2(800, 40));
    EXPECT_EQ(place(*mBar), "0,-280");
    const core::SmartPtr<Bar> other(new Bar(999, Vector4(1, 2, 4, 8), Vector2(50, 20), nullptr));
    EXPECT_EQ(other->getComponentSize().absolute, Vector2(0, 25)); // the first argument counts for nothing
}

TEST_F(NavigationBarTest, ShowsItsTitleAndNeitherSide) {
    EXPECT_STREQ(mBar->getText(), "Title bar");
    EXPECT_STREQ(mBar->getLabel()->getText(), "Title bar");
    EXPECT_TRUE(mBar->getLabel()->isVisible());
    EXPECT_EQ(mBar->getElementMask(), 0U);
    EXPECT_FALSE(left().isVisible());
    EXPECT_FALSE(right().isVisible());
    EXPECT_STREQ(left().getText(), "Left");
    EXPECT_STREQ(right().getText(), "Right");
    ASSERT_EQ(mBar->getChildCount(), 3U);
    EXPECT_EQ(mBar->getChildAt(0), mBar->getLabel());
    EXPECT_EQ(mBar->getChildAt(1), &left());
    EXPECT_EQ(mBar->getChildAt(2), &right());
}

TEST_F(NavigationBarTest, SetsUpTheTitle) {
    components::Label &title = *mBar->getLabel();
    EXPECT_STREQ(title.getName(), "");
    EXPECT_EQ(title.getAnchor(), 0x12U);
    EXPECT_EQ(title.getAutoSizeFlags(), 3U);
    EXPECT_EQ(title.getAutoSizeOffset(), Vector2(0, 0));
    EXPECT_EQ(title.getEventMask(), 0U);
    EXPECT_TRUE(title.hasClass("title-class"));
    EXPECT_EQ(title.getTextMesh()->getHorizontalAlignment(), nurel::font::Font::HA_CENTER);
    EXPECT_EQ(title.getTextMesh()->getVerticalAlignment(), nurel::font::Font::VA_CENTER);
    mBar->setText("Options");
    EXPECT_STREQ(mBar->getText(), "Options");
    mBar->setText(nullptr);
    EXPECT_STREQ(mBar->getText(), "");
}

TEST_F(NavigationBarTest, SetsUpTheButtons) {
    EXPECT_EQ(left().getAnchor(), 10U);
    EXPECT_EQ(right().getAnchor(), 0x22U);
    for (components::Button *button : {&left(), &right()}) {
        EXPECT_STREQ(button->getName(), "");
        EXPECT_TRUE(button->hasClass("title-class"));
        EXPECT_EQ(button->getComponentSize().absolute, Vector2(100, 30));
        EXPECT_EQ(button->getComponentSize().relative, Vector2(0, 0));
    }
    mBar->enableElement(3);
    frame();
    // 790 x 30 are left inside of the border
    EXPECT_EQ(place(left()), "-345,0");
    EXPECT_EQ(place(right()), "345,0");
}

TEST_F(NavigationBarTest, ShowsAndHidesByBits) {
    mBar->enableElement(3);
    EXPECT_TRUE(left().isVisible());
    EXPECT_TRUE(right().isVisible());
    EXPECT_EQ(mBar->getElementMask(), 3U);
    EXPECT_EQ(mBar->isElementEnabled(2), 2U);
    mBar->disableElement(1);
    EXPECT_FALSE(left().isVisible());
    EXPECT_TRUE(right().isVisible());
    EXPECT_EQ(mBar->isElementEnabled(1), 0U);
    EXPECT_EQ(mBar->isElementEnabled(3), 2U);
    mBar->setElementMask(1);
    EXPECT_TRUE(left().isVisible());
    EXPECT_FALSE(right().isVisible());
}

TEST_F(NavigationBarTest, TheMaskThatIsInForceDoesNothing) {
    left().setVisible(true);
    mBar->setElementMask(0);
    EXPECT_TRUE(left().isVisible());
    mBar->setElementMask(8); // a bit that shows nothing is kept, and the others are applied
    EXPECT_FALSE(left().isVisible());
    EXPECT_EQ(mBar->getElementMask(), 8U);
}

TEST_F(NavigationBarTest, HasNoElementForAnotherFlag) {
    EXPECT_EQ(mBar->getElement(NO_FLAG), nullptr);
    EXPECT_EQ(mBar->getElement(static_cast<Bar::ElementFlag>(3)), nullptr);
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    mBar->setElement(NO_FLAG, panel.get());
    EXPECT_EQ(mBar->getElement(NO_FLAG), nullptr);
    EXPECT_FALSE(panel->hasParent());
    mBar->setElement(NO_FLAG, nullptr);
    EXPECT_EQ(mBar->getChildCount(), 3U);
}

TEST_F(NavigationBarTest, SwapsTheRightElement) {
    const core::SmartPtr<Component> before(&right());
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    mBar->setElement(Bar::ELEMENT_RIGHT, panel.get());
    EXPECT_EQ(mBar->getElement(Bar::ELEMENT_RIGHT), panel.get());
    EXPECT_EQ(panel->getParent(), mBar.get());
    EXPECT_EQ(panel->getAnchor(), 0x22U);
    EXPECT_TRUE(panel->isVisible()); // as it was, whatever the mask
    EXPECT_FALSE(before->hasParent());
    mBar->setElement(Bar::ELEMENT_RIGHT, panel.get());
    EXPECT_EQ(mBar->getChildCount(), 3U);
    mBar->setElement(Bar::ELEMENT_RIGHT, nullptr);
    EXPECT_EQ(&right(), before.get());
    EXPECT_STREQ(right().getText(), "Right");
    EXPECT_EQ(before->getParent(), mBar.get());
    EXPECT_FALSE(panel->hasParent());
    EXPECT_EQ(panel->getRefCount(), 1U);
}

TEST_F(NavigationBarTest, AnElementAtTheLeftIsAnchoredAtTheRightToo) {
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    mBar->setElement(Bar::ELEMENT_LEFT, panel.get());
    EXPECT_EQ(mBar->getElement(Bar::ELEMENT_LEFT), panel.get());
    EXPECT_EQ(panel->getAnchor(), 0x22U);
    // Without one the left gets the button that is for the right
    mBar->setElement(Bar::ELEMENT_LEFT, nullptr);
    EXPECT_EQ(mBar->getElement(Bar::ELEMENT_LEFT), mBar->getElement(Bar::ELEMENT_RIGHT));
}

TEST_F(NavigationBarTest, AnElementThatIsElsewhereRaisesAndChangesNothing) {
    const core::SmartPtr<Panel> other = addPanel(*mWidget, "other", 0, 0, 10, 10);
    for (Component *element : {static_cast<Component *>(other.get()), static_cast<Component *>(mWidget.get())}) {
        try {
            mBar->setElement(Bar::ELEMENT_RIGHT, element);
            FAIL() << "nothing was raised";
        } catch (const core::IllegalStateException &e) {
            EXPECT_STREQ(e.getMessage(), element == other ? "Component already has a parent"
                                                          : "Component widget cannot be put into itself or its own "
                                                            "descendant ");
        }
        EXPECT_STREQ(right().getText(), "Right");
        EXPECT_EQ(mBar->getChildCount(), 3U);
    }
}

TEST_F(NavigationBarTest, SurvivesThatItsPartsAreTakenOut) {
    mBar->clearChildren();
    EXPECT_STREQ(mBar->getText(), "Title bar");
    mBar->enableElement(3);
    EXPECT_TRUE(left().isVisible());
    EXPECT_EQ(mBar->getChildCount(), 0U);
    mBar->setElement(Bar::ELEMENT_RIGHT, new Panel("panel"));
    EXPECT_EQ(children(*mBar), "panel");
    mBar->setElement(Bar::ELEMENT_RIGHT, nullptr);
    ASSERT_EQ(mBar->getChildCount(), 1U);
    EXPECT_EQ(mBar->getChildAt(0), &right());
}

TEST_F(NavigationBarTest, ACallbackMaySetAnotherElementWhileOneLeaves) {
    const core::SmartPtr<Panel> first(new Panel("first"));
    const core::SmartPtr<Panel> second(new Panel("second"));
    const core::SmartPtr<Panel> third(new Panel("third"));
    first->setTabStop(0);
    mBar->setElement(Bar::ELEMENT_RIGHT, first.get());
    frame();
    first->setFocus();
    ASSERT_TRUE(first->hasFocus());
    first->FocusCallbacks::subscribeCallback([&](UIEventHandler *, const FocusEvent &) {
        mBar->setElement(Bar::ELEMENT_RIGHT, third.get());
        return true;
    });
    mBar->setElement(Bar::ELEMENT_RIGHT, second.get());
    EXPECT_EQ(mBar->getElement(Bar::ELEMENT_RIGHT), third.get());
    EXPECT_FALSE(second->hasParent());
    EXPECT_EQ(third->getParent(), mBar.get());
}

TEST_F(NavigationBarTest, ItsCloneIsAPlainPanel) {
    const core::SmartPtr<nurel::core::Object> copy(mBar->clone());
    EXPECT_EQ(&copy->getType(), &Panel::TYPE);
}
