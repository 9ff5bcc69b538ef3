// Where the mark of a list is, whatever moves the row below it.
#include "nui/ui/components/ListboxFixture.h"

using namespace nurel::ui;
using components::Listbox;
using components::Panel;

namespace {

class ListboxMarkTest : public test::ListboxFixture {
public:
    ListboxMarkTest() {
        add({"a", "b", "c"});
        check().setSize(Vector2(100, 20));
        select(2);
        frame();
    }

    Panel &check() const { return *mList->getCheck(); }
    void select(int index) { mList->setSelectedIndex(index, false); }
};

} // namespace

TEST_F(ListboxMarkTest, HasTheSizeOfAnyComponentAtFirst) {
    const core::SmartPtr<Listbox> list(new Listbox);
    EXPECT_EQ(list->getCheck()->getComponentSize().absolute, Component::DEFAULT_SIZE);
    EXPECT_EQ(list->getCheck()->getComponentSize().relative, Vector2(0, 0));
    EXPECT_EQ(list->getCheck()->getAnchor(), 0u + Component::ANCHOR_CENTER);
}

TEST_F(ListboxMarkTest, IsInPlaceWithTheFirstFrameOfTheList) {
    const core::SmartPtr<Listbox> list(new Listbox);
    for (const char *text : {"a", "b", "c"})
        list->addItem(text, nullptr);
    list->getCheck()->setSize(Vector2(100, 20));
    list->setSelectedIndex(1, false);
    place(*list, 400, 100, 200, 100);
    mWidget->addChild(list.get());
    frame();
    EXPECT_TRUE(list->getCheck()->isVisible());
    EXPECT_EQ(list->getCheck()->getMinBound(), Vector2(400, 119));
}

TEST_F(ListboxMarkTest, FollowsTheRowWhenThoseAboveItGo) {
    EXPECT_EQ(check().getMinBound(), Vector2(100, 138));
    mList->setItemVisible(0, false);
    frame();
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 119));
    EXPECT_EQ(check().getMinBound(), Vector2(100, 119));
    mList->removeItem(1, false);
    frame();
    EXPECT_EQ(row(1)->getMinBound(), Vector2(100, 100));
    EXPECT_EQ(check().getMinBound(), Vector2(100, 100));
    EXPECT_EQ(mWidget->isDirty(Component::DIRTY_ALL), 0u);
}

TEST_F(ListboxMarkTest, FollowsTheRowWhenSpacingAndHeightChange) {
    mList->setItemSpacing(10);
    frame();
    EXPECT_EQ(check().getMinBound(), Vector2(100, 160));
    mList->setItemHeight(40);
    frame();
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 200));
    EXPECT_EQ(check().getMinBound(), Vector2(100, 210)); // in the middle of the row
}

TEST_F(ListboxMarkTest, FollowsTheRowWhenTheListOrItsParentGetsAnotherSize) {
    mList->setSize(Vector2(300, 300));
    frame();
    EXPECT_EQ(row(2)->getMinBound(), Vector2(100, 138));
    EXPECT_EQ(check().getMinBound(), Vector2(100, 138));
    mList->setSize(Vector2(0, 0), Vector2(0.5f, 0.5f));
    mWidget->setPositionData({0, 0}, {0, 0}, {600, 400}, {0, 0}, Component::ANCHOR_TOP_LEFT);
    frame();
    EXPECT_EQ(mList->getSize(), Vector2(300, 200));
    EXPECT_EQ(check().getMinBound(), row(2)->getMinBound());
    EXPECT_EQ(check().getMinBound(), Vector2(100, 138));
    EXPECT_EQ(mWidget->isDirty(Component::DIRTY_ALL), 0u);
}

TEST_F(ListboxMarkTest, IsOnTheRowAlsoWherePaddingAndBorderAreNotTheSameAllAround) {
    mList->setPadding({1, 21, 3, 5});
    mList->setBorder({2, 0, 8, 0});
    frame();
    frame();
    EXPECT_EQ(row(2)->getMinBound(), Vector2(105, 141));
    EXPECT_EQ(check().getMinBound(), Vector2(105, 141));
}

TEST_F(ListboxMarkTest, DoesNotReachFurtherThanItsRowOnceThatHasMoved) {
    for (int i = 0; i < 30; ++i)
        mList->addItem("more", nullptr);
    select(32);
    frame();
    frame();
    EXPECT_TRUE(mList->getScrollInfoV().scrollable);
    for (int i = 0; i < 32; ++i)
        mList->setItemVisible(i, false);
    frame();
    EXPECT_EQ(check().getMinBound(), Vector2(100, 100));
    EXPECT_EQ(mList->getContentExtentMax().y, 0);
    EXPECT_FALSE(mList->getScrollInfoV().scrollable);
}

TEST_F(ListboxMarkTest, StaysHiddenWhileItsRowIsAndComesBackWithIt) {
    mList->setItemVisible(2, false);
    frame();
    mList->setSize(Vector2(300, 300));
    frame();
    EXPECT_FALSE(check().isSelfVisible());
    mList->setItemVisible(2, true);
    frame();
    EXPECT_TRUE(check().isSelfVisible());
    EXPECT_EQ(check().getMinBound(), Vector2(100, 138));
}
