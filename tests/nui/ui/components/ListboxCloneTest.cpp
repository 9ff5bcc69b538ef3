// Clones and copies of a list, and how skins show it.
#include "nui/ui/components/ListboxFixture.h"

#include "foundation/core/Exception.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"

using namespace nurel::ui;
using components::Label;
using components::Listbox;
using components::Panel;

namespace {

class ListboxCloneTest : public test::ListboxFixture {
public:
    ListboxCloneTest() {
        mList->setItemHeight(30);
        mList->setNoItemText("none");
        mList->addClass("dark");
        mList->addItem("a", new CountedData);
        add({"b", "c"});
        gainFocus();
        mList->setSelectedIndex(1, false);
        frame();
        tap(Keyboard::K_DOWN);
    }
};

} // namespace

TEST_F(ListboxCloneTest, ACloneHasTheRowsTheSelectionAndTheData) {
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(&copy->getType(), &Listbox::TYPE);
    EXPECT_STREQ(copy->getName(), "list");
    EXPECT_EQ(textsOf(*copy), "a b c");
    EXPECT_EQ(copy->getSelectedIndex(), 1);
    EXPECT_EQ(rowsWith(*copy, CHECKED), "b");
    EXPECT_EQ(copy->getItemHeight(), 30);
    EXPECT_STREQ(copy->getNoItemText(), "none");
    EXPECT_EQ(copy->getItemData(0), mList->getItemData(0));
    EXPECT_EQ(CountedData::sAlive, 1);
    EXPECT_EQ(copy->getEventMask(), mList->getEventMask());
    ASSERT_EQ(copy->getChildCount(), 4u);
    for (int i = 0; i < 3; ++i) {
        Label *item = copy->getItemEntry(i)->item.get();
        EXPECT_NE(item, row(i));
        EXPECT_EQ(item->getParent(), copy.get());
        EXPECT_STREQ(item->getType().getName(), "ListboxItem");
        EXPECT_EQ(item->getEventMask(), 0x242u);
        EXPECT_TRUE(item->hasClass("dark"));
        EXPECT_TRUE(copy->getLayout()->hasComponent(item));
        EXPECT_EQ(copy->getChildIndex(item), mList->getChildIndex(row(i)));
    }
    ASSERT_NE(copy->getCheck(), nullptr);
    EXPECT_NE(copy->getCheck(), mList->getCheck());
    EXPECT_EQ(copy->getCheck()->getParent(), copy.get());
    EXPECT_STREQ(copy->getCheck()->getType().getName(), "ListboxCheck");
    EXPECT_EQ(copy->getCheck()->getEventMask(), 0x202u);
    EXPECT_FALSE(copy->getLayout()->hasComponent(copy->getCheck()));
    EXPECT_EQ(copy->getLayout()->getOwner(), copy.get());
    EXPECT_EQ(copy->getLayout()->getComponentCount(), 3u);
}

TEST_F(ListboxCloneTest, ACloneHasNoFocusRowNoPressAndNoSubscribers) {
    manager().setMinDragDistance(1000);
    moveTo(150, 110);
    press();
    EXPECT_EQ(focused(), "a");
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(rowsWith(*copy, FOCUSED), "");
    copy->setSelectedIndex(2, true);
    EXPECT_EQ(seen(), Lines{});
    EXPECT_EQ(mList->getSelectedIndex(), 1);
    copy->handleEvent(KeyEvent(Keyboard::K_DOWN, false));
    EXPECT_EQ(rowsWith(*copy, FOCUSED), "c"); // of the selection; there is no row behind it
    release();
    manager().setMinDragDistance(4);
}

TEST_F(ListboxCloneTest, ACloneIsAListLikeAnyOther) {
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    place(*copy, 400, 100, 200, 200);
    mWidget->addChild(copy.get());
    frame();
    click(450, 170);
    EXPECT_EQ(copy->getSelectedIndex(), 2);
    frame();
    EXPECT_EQ(copy->getChildAt(3), copy->getCheck());
    EXPECT_TRUE(copy->getCheck()->isVisible());
    copy->removeItem(0, false);
    EXPECT_EQ(rowsWith(*copy, CHECKED), "c");
    copy->addItem("d", nullptr);
    copy->clearItems();
    EXPECT_EQ(textsOf(*mList), "a b c");
}

TEST_F(ListboxCloneTest, ATargetLosesWhatItHad) {
    const core::SmartPtr<Listbox> target(new Listbox("target"));
    target->addItem("old", new CountedData);
    target->setSelectedIndex(0, false); // and has the focus
    nurel::core::CloningOptions options;
    mList->_clone(target.get(), options);
    EXPECT_EQ(textsOf(*target), "a b c");
    EXPECT_EQ(CountedData::sAlive, 1);
    EXPECT_EQ(target->getChildCount(), 4u);
    EXPECT_EQ(target->getLayout()->getComponentCount(), 3u);
    target->handleEvent(KeyEvent(Keyboard::K_DOWN, false)); // from no row
    EXPECT_EQ(rowsWith(*target, FOCUSED), "a");
    mList->_clone(mList.get(), options); // nothing happens
    EXPECT_EQ(textsOf(*mList), "a b c");
}

TEST_F(ListboxCloneTest, ATargetForgetsThePress) {
    const core::SmartPtr<Listbox> source(new Listbox("source"));
    source->addItem("x", nullptr);
    place(*source, 100, 100, 200, 100);
    moveTo(150, yOf(0));
    press();
    nurel::core::CloningOptions options;
    source->_clone(mList.get(), options);
    mWidget->removeChild(mList.get());
    mWidget->addChild(mList.get()); // for a new view
    frame();
    const Ray ray{{150, 110, -10}, {0, 0, 1, 0}};
    const CursorPosition cursor{150, 110};
    ASSERT_EQ(mList->getHitChildIndex(MouseEvent(ray, cursor, MouseEvent::MOUSE_PRESS, 0, 1)), 0);
    mList->handleEvent(ClickEvent(ray, cursor, cursor));
    EXPECT_EQ(mList->getSelectedIndex(), -1);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(ListboxCloneTest, ACloneIsOneColumnToo) {
    for (int i = 0; i < 100; ++i)
        mList->addItem("more", nullptr);
    mList->setItemSpacing(3);
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    place(*copy, 400, 100, 200, 100);
    mWidget->addChild(copy.get());
    frame();
    EXPECT_EQ(copy->getItemSpacing(), 3);
    EXPECT_EQ(copy->getItemEntry(102)->item->getMinBound(), Vector2(400, 100 + 102 * 33));
}

TEST_F(ListboxCloneTest, ReturnInACloneEndsItsSelectionSinceItHasNoFocusRow) {
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(copy->getSelectedIndex(), 1);
    copy->handleEvent(KeyEvent(Keyboard::K_RETURN, false));
    EXPECT_EQ(copy->getSelectedIndex(), -1);
    EXPECT_EQ(rowsWith(*copy, CHECKED | FOCUSED), "");
}

TEST_F(ListboxCloneTest, PartsThatWereTakenOutAreFoundInTheCloneAllTheSame) {
    mList->removeChild(mList->getCheck());
    mList->removeChild(row(1));
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(textsOf(*copy), "a b c");
    EXPECT_EQ(copy->getSelectedIndex(), 1);
    EXPECT_EQ(copy->getItemEntry(1)->item->getParent(), nullptr);
    ASSERT_NE(copy->getCheck(), nullptr);
    EXPECT_EQ(copy->getCheck()->getParent(), copy.get());
    nurel::core::CloningOptions options;
    const core::SmartPtr<nurel::core::Object> first(mList->clone(options));
    options.setCloned(row(1), first.get()); // from an earlier clone, and of no use
    const core::SmartPtr<nurel::core::Object> second(mList->clone(options));
    EXPECT_EQ(textsOf(static_cast<Listbox &>(*second)), "a b c");
}

TEST_F(ListboxCloneTest, RowsWithZIndexesAreFoundInTheCloneInTheirOrder) {
    row(0)->setZIndex(5); // not sorted yet: the clone's children stand in another order
    const core::SmartPtr<Listbox> copy = cloneOf(*mList);
    EXPECT_EQ(textsOf(*copy), "a b c");
    EXPECT_EQ(copy->getItemEntry(0)->item->getZIndex(), 5);
    EXPECT_EQ(copy->getChildAt(3), copy->getItemEntry(0)->item.get());
}

TEST_F(ListboxCloneTest, IsNotClonedIntoSomethingElse) {
    const core::SmartPtr<Panel> panel(new Panel("panel"));
    nurel::core::CloningOptions options;
    for (nurel::core::Object *target :
         {static_cast<nurel::core::Object *>(panel.get()), static_cast<nurel::core::Object *>(nullptr)}) {
        try {
            mList->_clone(target, options);
            ADD_FAILURE();
        } catch (const core::IllegalArgumentException &e) {
            EXPECT_STREQ(e.getMessage(),
                         target ? "Listbox cannot be cloned into Panel" : "Listbox cannot be cloned into nothing");
        }
    }
}

TEST_F(ListboxCloneTest, ACopySharesTheRows) {
    const Listbox copy(*mList);
    EXPECT_EQ(textsOf(copy), "a b c");
    EXPECT_EQ(copy.getItemEntry(0)->item.get(), row(0));
    Listbox assigned("other");
    assigned = *mList;
    EXPECT_EQ(assigned.getSelectedIndex(), 1);
    EXPECT_EQ(row(0)->getParent(), mList.get());
}

// --- skins ---

TEST_F(ListboxCloneTest, IsSkinnedWithItsRows) {
    const core::SmartPtr<Listbox> list = cloneOf(*mList);
    const core::SmartPtr<ComponentView> view(mSkin->skin(list.get()));
    ASSERT_NE(view.get(), nullptr);
    EXPECT_EQ(view->getContent()->getChildCount(), 4u);
    EXPECT_TRUE(list->getItemEntry(0)->item->hasView());
}

TEST_F(ListboxCloneTest, TheStyleFreeSkinShowsNothingAndNothingCanBeHit) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Listbox> list = cloneOf(*mList);
    place(*list, 0, 0, 200, 100);
    widget->addChild(list.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_FALSE(list->hasView());
    EXPECT_FALSE(list->getItemEntry(0)->item->hasView());
    click(50, 10);
    EXPECT_EQ(list->getSelectedIndex(), 1);
    list->setSelectedIndex(0, true);
    frame();
    EXPECT_EQ(rowsWith(*list, CHECKED), "a");
}
