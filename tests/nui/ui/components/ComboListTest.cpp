// What a user does in the open list of a combo.
#include "nui/ui/components/ComboList.h"

#include "nui/ui/components/ComboFixture.h"

using namespace nurel::ui;
using components::Combo;
using components::ComboList;
using components::Listbox;

namespace {

class ComponentsComboListTest : public test::ComboFixture {};

} // namespace

TEST_F(ComponentsComboListTest, AClickBesideTheRowsClosesTheListAndChoosesNothing) {
    open();
    choose(0);
    open();
    click(500, 400); // in the list, below its rows
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_EQ(mCombo->getList()->getParent(), nullptr);
    EXPECT_EQ(mCombo->getList()->getSelectedIndex(), 0);
    EXPECT_STREQ(mCombo->getText(), "one");
}

TEST_F(ComponentsComboListTest, AClickOnTheRowThatIsSelectedClosesTheList) {
    open();
    choose(1);
    int told = 0;
    mCombo->getList()->SelectionCallbacks::subscribeCallback([&told](Listbox *, int) {
        ++told;
        return false;
    });
    open();
    choose(1);
    EXPECT_EQ(openWidget(), nullptr);
    EXPECT_STREQ(mCombo->getText(), "two");
    EXPECT_EQ(told, 0);
}

TEST_F(ComponentsComboListTest, ADragInTheListLeavesItOpen) {
    for (int i = 0; i < 40; ++i)
        mCombo->getList()->addItem("more", nullptr);
    open();
    moveTo(250, 400);
    press();
    moveTo(250, 390);
    moveTo(250, 350);
    release();
    frame();
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_EQ(mCombo->getList()->getScrollOffset().y, -50);
    EXPECT_STREQ(mCombo->getText(), "");
    moveTo(250, 400);
    press();
    moveTo(250, 404); // the distance of a drag: no choice, and no end either
    release();
    frame();
    EXPECT_NE(openWidget(), nullptr);
    click(250, 152);
    frame();
    EXPECT_EQ(openWidget(), nullptr);
    EXPECT_STREQ(mCombo->getText(), "three"); // two rows and a half have gone off at the top
}

TEST_F(ComponentsComboListTest, TheScrollBarIsNoPlaceToCloseTheList) {
    for (int i = 0; i < 40; ++i)
        mCombo->getList()->addItem("more", nullptr);
    open();
    frame();
    Component *bar = mCombo->getList()->getScrollInfoV().bar;
    ASSERT_NE(bar, nullptr);
    clickOn(*bar);
    frame();
    EXPECT_NE(openWidget(), nullptr);
}

TEST_F(ComponentsComboListTest, AListThatTheApplicationPutElsewhereLeavesItsWidgetOpen) {
    ComboList *list = mCombo->getList();
    mWidget->addChild(list);
    frame();
    clickOn(*list);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_EQ(list->getParent(), mWidget.get());
    open(); // takes the list over, and the application takes it back
    openWidget()->removeChild(list);
    mWidget->addChild(list);
    clickOn(*list);
    frame();
    EXPECT_NE(openWidget(), nullptr);
    clickOutside();
    EXPECT_EQ(openWidget(), nullptr);
    EXPECT_TRUE(manager().hasWidget(mWidget.get()));
}

TEST_F(ComponentsComboListTest, AListThatWasLetGoClosesNothing) {
    const core::SmartPtr<ComboList> list(mCombo->getList());
    nurel::core::CloningOptions options;
    const core::SmartPtr<Combo> plain(new Combo);
    plain->_clone(mCombo.get(), options); // which has none now
    clickOn(*list);
    list->setSelectedIndex(1, true);
    EXPECT_STREQ(mCombo->getText(), "");
    clickOn(*mCombo);
    frame();
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_NE(openWidget()->getChildAt(0), list.get());
    clickOn(*list);
    frame();
    EXPECT_NE(openWidget(), nullptr);
}

TEST_F(ComponentsComboListTest, ASubscriberOfTheListsClicksMayDropEverything) {
    mCombo->getList()->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        manager().clearWidgets();
        mWidget = nullptr;
        mCombo = nullptr;
        return false;
    });
    open();
    choose(1);
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(ComponentsComboListTest, TheMarkIsOverTheRowThatWasSelectedBeforeTheListWasOpen) {
    ComboList *list = mCombo->getList();
    list->getCheck()->setSize(nurel::math::Vector2(100, 20));
    list->setSelectedIndex(2, true);
    open();
    EXPECT_TRUE(list->getCheck()->isVisible());
    EXPECT_EQ(list->getCheck()->getMinBound(), list->getItemEntry(2)->item->getMinBound());
    EXPECT_EQ(list->getCheck()->getMinBound(), nurel::math::Vector2(200, 188));
}

TEST_F(ComponentsComboListTest, ACloneByItselfTellsNoComboOfItsSelection) {
    const core::SmartPtr<nurel::core::Object> object(mCombo->getList()->clone());
    auto &copy = static_cast<ComboList &>(*object);
    copy.setSelectedIndex(1, true);
    EXPECT_EQ(copy.getSelectedIndex(), 1);
    EXPECT_STREQ(mCombo->getText(), "");
    EXPECT_EQ(mCombo->getList()->getSelectedIndex(), -1);
}

TEST(ComponentsCombo, ChoosesAlsoWhereThereIsNoEngine) {
    const core::SmartPtr<Combo> combo(new Combo("c"));
    combo->getList()->addItem("a", nullptr);
    test::ComboFixture::clickOn(*combo);
    test::ComboFixture::clickOn(*combo);
    test::ComboFixture::clickOn(*combo->getList());
    const core::SmartPtr<Combo> copy = test::ComboFixture::cloneOf(*combo);
    combo->getList()->setSelectedIndex(0, true);
    EXPECT_STREQ(combo->getText(), "a");
    EXPECT_STREQ(copy->getText(), "");
    EXPECT_FALSE(UIManager::isSingletonCreated());
}
