#include "nui/ui/components/Combo.h"

#include "nui/ui/components/ComboFixture.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/skins/DefaultSkin.h"

using namespace nurel::ui;
using components::Button;
using components::Combo;
using components::ComboList;
using components::Listbox;

namespace {

class ComponentsComboTest : public test::ComboFixture {};

} // namespace

TEST_F(ComponentsComboTest, HasItsDefaults) {
    const core::SmartPtr<Combo> combo(new Combo);
    EXPECT_STREQ(combo->getName(), "");
    EXPECT_STREQ(Combo::ELEMENT, "combo");
    EXPECT_EQ(combo->getElement(), "combo");
    EXPECT_STREQ(combo->getType().getName(), "Combo");
    EXPECT_TRUE(combo->instanceOf(Button::TYPE));
    EXPECT_EQ(combo->getEventMask(), Component::EVENT_MASK_DEFAULT | 0x81);
    EXPECT_EQ(combo->getFlags(), 0u);
    ASSERT_NE(combo->getLabel(), nullptr);
    EXPECT_STREQ(combo->getText(), "");
    EXPECT_EQ(combo->getLabel()->getAnchor(), 10u);
    EXPECT_EQ(combo->getLabel()->getElement(), "combo");
    ASSERT_NE(combo->getIcon(), nullptr);
    EXPECT_TRUE(combo->isIconVisible());
    EXPECT_EQ(combo->getIcon()->getAnchor(), 0x22u);
    EXPECT_EQ(combo->getIcon()->getElement(), "combo");
    EXPECT_EQ(combo->getChildCount(), 2u);
}

TEST_F(ComponentsComboTest, TheListIsMadeOnceWhenItIsAskedFor) {
    const core::SmartPtr<Combo> combo(new Combo);
    combo->addClass("dark");
    ComboList *list = combo->getList();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(combo->getList(), list);
    EXPECT_EQ(list->getOwner(), combo.get());
    EXPECT_STREQ(list->getName(), "combo");
    EXPECT_EQ(list->getElement(), "listbox");
    EXPECT_STREQ(list->getType().getName(), "ComboList");
    EXPECT_TRUE(list->instanceOf(Listbox::TYPE));
    EXPECT_TRUE(list->hasClass("dark"));
    EXPECT_TRUE(list->getCheck()->hasClass("dark"));
    EXPECT_EQ(list->getComponentSize().absolute, nurel::math::Vector2(0, 0));
    EXPECT_EQ(list->getComponentSize().relative, nurel::math::Vector2(0.5f, 0.5f));
    EXPECT_EQ(list->getAnchor(), 0x12u);
    EXPECT_EQ(list->getParent(), nullptr);
    EXPECT_EQ(list->getScrollMask(), 2u);
}

TEST_F(ComponentsComboTest, AListMayHaveNoOwner) {
    const core::SmartPtr<ComboList> list(new ComboList(nullptr));
    EXPECT_EQ(list->getOwner(), nullptr);
    EXPECT_EQ(list->getClasses().size(), 0u);
    list->addItem("a", nullptr);
    const core::SmartPtr<nurel::core::Object> copy(list->clone());
    EXPECT_EQ(static_cast<ComboList &>(*copy).getOwner(), nullptr);
    EXPECT_STREQ(static_cast<ComboList &>(*copy).getItemText(0), "a");
}

TEST_F(ComponentsComboTest, IsMadeByItsClassName) {
    const core::SmartPtr<nurel::core::Object> made = nurel::EngineFactory::getSingleton().create("Combo");
    ASSERT_NE(made.get(), nullptr);
    EXPECT_EQ(&made->getType(), &Combo::TYPE);
    EXPECT_EQ(nurel::EngineFactory::getSingleton().create("ComboList"), nullptr);
}

// --- opening and closing ---

TEST_F(ComponentsComboTest, AClickOpensTheListInAWidgetOfItsOwn) {
    mCombo->addClass("dark");
    mCombo->addClass("wide");
    click(200, 120);
    EXPECT_EQ(takeClicks(), 1u);
    EXPECT_EQ(manager().getWidgetCount(), 1u); // with the next frame
    frame();
    ASSERT_EQ(manager().getWidgetCount(), 2u);
    Widget *widget = openWidget();
    ASSERT_NE(widget, nullptr);
    EXPECT_TRUE(widget->hasClass("dark") && widget->hasClass("wide"));
    EXPECT_EQ(widget->getSize(), nurel::math::Vector2(800, 600));
    ASSERT_EQ(widget->getChildCount(), 1u);
    EXPECT_EQ(widget->getChildAt(0), mCombo->getList());
    EXPECT_EQ(mCombo->getList()->getMinBound(), nurel::math::Vector2(200, 150));
    EXPECT_EQ(mCombo->getList()->getMaxBound(), nurel::math::Vector2(600, 450));
}

TEST_F(ComponentsComboTest, TheWidgetHasTheSkinOfTheCombos) {
    const core::SmartPtr<test::BlankSkin> other(new test::BlankSkin("other"));
    SkinManager::getSingleton().addSkin(other.get());
    const core::SmartPtr<Widget> widget(new Widget("second"));
    widget->setSkinName("other");
    mWidget->removeChild(mCombo.get());
    mCombo->clearView();
    widget->addChild(mCombo.get());
    manager().addWidget(widget.get());
    frame();
    open();
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_EQ(openWidget()->getSkinName(), "other");
    EXPECT_EQ(mCombo->getList()->getView()->getSkin(), other.get());
}

TEST_F(ComponentsComboTest, AClickOnARowChoosesItAndClosesTheList) {
    open();
    choose(1);
    EXPECT_STREQ(mCombo->getText(), "two");
    EXPECT_EQ(mCombo->getList()->getSelectedIndex(), 1);
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_EQ(mCombo->getList()->getParent(), nullptr);
    open();
    choose(2);
    EXPECT_STREQ(mCombo->getText(), "three");
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, AClickBesideTheListOnlyClosesIt) {
    open();
    choose(0);
    open();
    const core::SmartPtr<Widget> widget(openWidget());
    clickOutside();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_STREQ(mCombo->getText(), "one");
    EXPECT_EQ(mCombo->getList()->getSelectedIndex(), 0);
    clickOn(*widget); // the subscription has gone
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, TheListIsTheSameEveryTimeAndKeepsItsSelection) {
    ComboList *list = mCombo->getList();
    open();
    choose(2);
    open();
    EXPECT_EQ(openWidget()->getChildAt(0), list);
    EXPECT_EQ(mCombo->getList(), list);
    EXPECT_EQ(list->getSelectedIndex(), 2);
    EXPECT_TRUE(list->getItemEntry(2)->item->hasState(Component::STATE_CHECKED));
    EXPECT_TRUE(list->getCheck()->isVisible());
}

TEST_F(ComponentsComboTest, KeysDoNotChoose) {
    open();
    ComboList *list = mCombo->getList();
    list->handleEvent(KeyEvent(nurel::input::Keyboard::K_DOWN, false));
    list->handleEvent(KeyEvent(nurel::input::Keyboard::K_RETURN, false));
    frame();
    EXPECT_EQ(list->getSelectedIndex(), 0);
    EXPECT_STREQ(mCombo->getText(), "");
    EXPECT_NE(openWidget(), nullptr);
}

TEST_F(ComponentsComboTest, TheEndOfTheSelectionShowsTheNoItemText) {
    ComboList *list = mCombo->getList();
    list->setNoItemText("choose");
    list->setSelectedIndex(1, true); // outside any widget
    EXPECT_STREQ(mCombo->getText(), "two");
    list->setSelectedIndex(7, true); // there is none: the selection stays
    EXPECT_STREQ(mCombo->getText(), "two");
    list->setSelectedIndex(-1, true);
    EXPECT_STREQ(mCombo->getText(), "choose");
    list->setSelectedIndex(0, false);
    EXPECT_STREQ(mCombo->getText(), "choose");
    list->removeItem(0, true);
    EXPECT_STREQ(mCombo->getText(), "choose");
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, SelectingClosesTheWidgetThatTheListIsIn) {
    ComboList *list = mCombo->getList();
    const core::SmartPtr<Widget> own(new Widget("own"));
    const core::SmartPtr<Panel> panel = addPanel(*own, "panel", 0, 0, 300, 300);
    panel->addChild(list);
    manager().addWidget(own.get());
    frame();
    list->setSelectedIndex(1, true);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    EXPECT_EQ(list->getParent(), panel.get());
    open(); // takes the list over
    EXPECT_EQ(list->getParent(), openWidget());
}

TEST_F(ComponentsComboTest, AClickWhileTheListIsOpenOpensItAnew) {
    open();
    const core::SmartPtr<Widget> first(openWidget());
    clickOn(*mCombo);
    frame();
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_NE(openWidget(), first.get());
    EXPECT_EQ(manager().getWidgetCount(), 2u);
    EXPECT_EQ(first->getChildCount(), 0u);
    EXPECT_EQ(openWidget()->getChildAt(0), mCombo->getList());
    clickOn(*first);
    frame();
    EXPECT_NE(openWidget(), nullptr);
    choose(1);
    EXPECT_STREQ(mCombo->getText(), "two");
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, OpensAgainWhileItIsStillClosing) {
    open();
    mCombo->getList()->setSelectedIndex(2, true); // the widget goes with the next frame
    clickOn(*mCombo);
    clickOn(*mCombo);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 2u);
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_EQ(openWidget()->getChildAt(0), mCombo->getList());
    clickOutside();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, AWidgetThatTheApplicationTookAwayIsNoHindrance) {
    open();
    manager().clearWidgets();
    manager().addWidget(mWidget.get());
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    open();
    choose(0);
    EXPECT_STREQ(mCombo->getText(), "one");
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

// --- ends ---

TEST_F(ComponentsComboTest, AnOpenListClosesWhenItsComboDies) {
    open();
    const core::SmartPtr<ComboList> list(mCombo->getList());
    const core::SmartPtr<Widget> widget(openWidget());
    mWidget->removeChild(mCombo.get());
    mCombo = nullptr;
    EXPECT_EQ(list->getOwner(), nullptr);
    list->setSelectedIndex(1, true); // nobody is told
    clickOn(*widget);
    frame();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, AListThatIsHeldOutlivesItsCombo) {
    const core::SmartPtr<ComboList> list(mCombo->getList());
    mWidget->removeChild(mCombo.get());
    mCombo = nullptr;
    EXPECT_EQ(list->getOwner(), nullptr);
    list->setSelectedIndex(1, true);
    EXPECT_EQ(list->getSelectedIndex(), 1);
}

TEST_F(ComponentsComboTest, ASubscriberOfTheListMayDropTheCombo) {
    mCombo->getList()->SelectionCallbacks::subscribeCallback([this](Listbox *, int) {
        mWidget->removeChild(mCombo.get());
        mCombo = nullptr;
        return false;
    });
    open();
    choose(1);
    EXPECT_EQ(mCombo.get(), nullptr);
    EXPECT_EQ(manager().getWidgetCount(), 1u);
}

TEST_F(ComponentsComboTest, ASubscriberOfTheClickMayDropTheComboOrTheScreen) {
    mCombo->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        mWidget->removeChild(mCombo.get());
        mCombo = nullptr;
        return false;
    });
    open();
    EXPECT_EQ(manager().getWidgetCount(), 1u);
    mCombo = new Combo("combo2");
    place(*mCombo, 100, 100, 200, 40);
    mWidget->addChild(mCombo.get());
    mCombo->ClickCallbacks::subscribeCallback([this](UIEventHandler *, const ClickEvent &) {
        manager().clearWidgets();
        mWidget = nullptr;
        mCombo = nullptr;
        return false;
    });
    frame();
    open();
    EXPECT_EQ(manager().getWidgetCount(), 0u);
}

TEST_F(ComponentsComboTest, ASubscriberOfTheListMayClearItOrOpenItAgain) {
    ComboList *list = mCombo->getList();
    list->setNoItemText("none");
    list->SelectionCallbacks::subscribeCallback([this](Listbox *told, int) {
        told->clearItems();
        clickOn(*mCombo);
        return true;
    });
    open();
    choose(1);
    EXPECT_STREQ(mCombo->getText(), "two"); // it was told first
    EXPECT_EQ(list->getItemCount(), 0u);
    ASSERT_NE(openWidget(), nullptr);
    EXPECT_EQ(openWidget()->getChildAt(0), list);
    EXPECT_EQ(manager().getWidgetCount(), 2u);
}

TEST_F(ComponentsComboTest, TheManagerMayEndWhileAListIsOpen) {
    open();
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
    mWidget = nullptr;
    mCombo = nullptr;
}

TEST_F(ComponentsComboTest, AComboMayEndWithTheManager) {
    open();
    mWidget = nullptr;
    mCombo = nullptr;
    UIManager::shutdown();
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

// --- clones ---

TEST_F(ComponentsComboTest, ACloneHasAListOfItsOwn) {
    mCombo->getList()->setSelectedIndex(1, true);
    const core::SmartPtr<Combo> copy = cloneOf(*mCombo);
    EXPECT_EQ(&copy->getType(), &Combo::TYPE);
    EXPECT_STREQ(copy->getText(), "two");
    EXPECT_EQ(copy->getLabel()->getAnchor(), 10u);
    EXPECT_TRUE(copy->isIconVisible());
    EXPECT_EQ(copy->getChildCount(), 2u);
    ComboList *list = copy->getList();
    EXPECT_NE(list, mCombo->getList());
    EXPECT_EQ(list->getOwner(), copy.get());
    EXPECT_EQ(mCombo->getList()->getOwner(), mCombo.get());
    EXPECT_EQ(list->getItemCount(), 3u);
    EXPECT_STREQ(list->getItemText(2), "three");
    EXPECT_EQ(list->getSelectedIndex(), 1);
    list->setSelectedIndex(2, true);
    EXPECT_STREQ(copy->getText(), "three");
    EXPECT_STREQ(mCombo->getText(), "two");
}

TEST_F(ComponentsComboTest, ACloneOfAComboWithAnOpenListIsClosed) {
    open();
    const core::SmartPtr<Combo> copy = cloneOf(*mCombo);
    EXPECT_EQ(copy->getList()->getParent(), nullptr);
    EXPECT_EQ(manager().getWidgetCount(), 2u);
    place(*copy, 400, 500, 200, 40);
    mWidget->addChild(copy.get());
    choose(0);
    click(500, 520);
    frame();
    EXPECT_EQ(openWidget()->getChildAt(0), copy->getList());
    choose(1);
    EXPECT_STREQ(copy->getText(), "two");
    EXPECT_STREQ(mCombo->getText(), "one");
}

TEST_F(ComponentsComboTest, CloningLeavesTheOptionsAsTheyWere) {
    nurel::core::CloningOptions options;
    const core::SmartPtr<nurel::core::Object> first(mCombo->clone(options));
    EXPECT_EQ(options.get(ComboList::TYPE, false), nullptr);
    const core::SmartPtr<Combo> other(new Combo);
    options.put(ComboList::TYPE, new ComboList::ComboListCO(other.get()));
    const core::SmartPtr<nurel::core::Object> second(mCombo->clone(options));
    EXPECT_EQ(static_cast<Combo &>(*second).getList()->getOwner(), second.get());
    ASSERT_NE(options.get(ComboList::TYPE, false), nullptr);
    const core::SmartPtr<nurel::core::Object> list(mCombo->getList()->clone(options));
    EXPECT_EQ(static_cast<ComboList &>(*list).getOwner(), other.get());
}

TEST_F(ComponentsComboTest, AListThatIsClonedByItselfLosesItsOwner) {
    const core::SmartPtr<nurel::core::Object> copy(mCombo->getList()->clone());
    ASSERT_EQ(&copy->getType(), &ComboList::TYPE);
    EXPECT_EQ(static_cast<ComboList &>(*copy).getOwner(), nullptr);
    EXPECT_EQ(static_cast<ComboList &>(*copy).getItemCount(), 3u);
}

TEST_F(ComponentsComboTest, ATargetLosesTheListThatItHad) {
    const core::SmartPtr<Combo> target(new Combo);
    const core::SmartPtr<ComboList> before(target->getList());
    nurel::core::CloningOptions options;
    mCombo->_clone(target.get(), options);
    EXPECT_NE(target->getList(), before.get());
    EXPECT_EQ(before->getOwner(), nullptr);
    EXPECT_EQ(target->getList()->getItemCount(), 3u);
    const core::SmartPtr<Combo> plain(new Combo);
    plain->_clone(target.get(), options);
    EXPECT_EQ(target->getList()->getItemCount(), 0u);
    mCombo->_clone(mCombo.get(), options);
    EXPECT_EQ(mCombo->getList()->getItemCount(), 3u);
}

TEST_F(ComponentsComboTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    const core::SmartPtr<Button> button(new Button("b"));
    const core::SmartPtr<Listbox> list(new Listbox("l"));
    const auto messageOf = [&options](const nurel::core::Object &source, nurel::core::Object *target) -> std::string {
        try {
            source._clone(target, options);
        } catch (const core::IllegalArgumentException &e) {
            return e.getMessage();
        }
        return "nothing was raised";
    };
    EXPECT_EQ(messageOf(*mCombo, button.get()), "Combo cannot be cloned into Button");
    EXPECT_EQ(messageOf(*mCombo, nullptr), "Combo cannot be cloned into nothing");
    EXPECT_EQ(messageOf(*mCombo->getList(), list.get()), "ComboList cannot be cloned into Listbox");
    EXPECT_EQ(messageOf(*mCombo->getList(), nullptr), "ComboList cannot be cloned into nothing");
}

TEST_F(ComponentsComboTest, ACopySharesTheListOfItsSource) {
    {
        const Combo copy(*mCombo);
        EXPECT_EQ(const_cast<Combo &>(copy).getList(), mCombo->getList());
    }
    EXPECT_EQ(mCombo->getList()->getOwner(), mCombo.get());
    Combo assigned("assigned");
    const core::SmartPtr<ComboList> before(assigned.getList());
    assigned = *mCombo;
    const Combo &itself = assigned;
    assigned = itself;
    EXPECT_EQ(before->getOwner(), nullptr);
    mCombo->getList()->setSelectedIndex(1, true);
    EXPECT_STREQ(mCombo->getText(), "two");
}

// --- skins ---

TEST_F(ComponentsComboTest, IsSkinnedAsAButtonAndItsListAsAList) {
    const core::SmartPtr<Combo> combo = cloneOf(*mCombo);
    const core::SmartPtr<ComponentView> view(mSkin->skin(combo.get()));
    EXPECT_EQ(view->getContent()->getChildCount(), 2u);
    const core::SmartPtr<ComponentView> listView(mSkin->skin(combo->getList()));
    EXPECT_EQ(listView->getContent()->getChildCount(), 4u);
}

TEST_F(ComponentsComboTest, TheStyleFreeSkinShowsNothing) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Combo> combo = cloneOf(*mCombo);
    widget->addChild(combo.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_FALSE(combo->hasView());
    clickOn(*combo);
    frame();
    combo->getList()->setSelectedIndex(1, true);
    frame();
    EXPECT_STREQ(combo->getText(), "two");
}
