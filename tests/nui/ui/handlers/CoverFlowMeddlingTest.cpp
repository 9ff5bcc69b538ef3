// What others do to the parts of a cover flow while it moves.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

#include "foundation/core/Exception.h"

using namespace nurel::ui;

namespace {

class CoverFlowMeddlingTest : public test::CoverFlowFixture {
public:
    CoverFlowMeddlingTest() { mFlow->setElasticRecoveryTime(0.25f); }

    int state() const { return mFlow->getState(); }

    /// From the next choice on.
    template <typename Act>
    void onSelection(Act act) {
        mFlow->SelectionCallbacks::subscribeCallback([act](CoverFlowHandler *) {
            act();
            return true;
        });
    }
};

} // namespace

TEST_F(CoverFlowMeddlingTest, ADragThatBeginsInACallbackGoesOn) {
    fill(5);
    for (const bool isCoasting : {false, true}) {
        mFlow->setCurrent(8, false);
        onSelection([this] { begin(); });
        if (isCoasting) {
            fling(-90);
            tick(0);
            tick(0.25); // to the end of the data, where it would settle
        } else {
            begin();
            move(-60);
            tick(0.5);
            end();
            tick(0);
            tick(0.25);
        }
        EXPECT_EQ(selected(), (Indexes{9}));
        EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
        tick(1);
        EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
        end();
        EXPECT_TRUE(rest());
        EXPECT_EQ(centreX(), 0);
    }
}

TEST_F(CoverFlowMeddlingTest, GoesOnWithoutTheWidgetThatACallbackRemoves) {
    for (const bool isParent : {false, true}) {
        const core::SmartPtr<Widget> widget = addWidget("other");
        const core::SmartPtr<Panel> page = addPanel(*widget, "page", 0, 0, 800, 600);
        mWidget->removeChild(&container());
        page->addChild(&container());
        frame();
        fill(5);
        mFlow->setCurrent(5, false);
        onSelection([&] {
            if (isParent)
                widget->removeChild(page.get());
            else
                manager().removeWidget(widget.get());
        });
        fling(-90);
        tick(0);
        tick(0.125);
        EXPECT_EQ(selected(), (Indexes{6}));
        EXPECT_TRUE(rest());
        EXPECT_EQ(mFlow->getCurrent(), 8u);
        EXPECT_EQ(centreX(), 0);
        page->removeChild(&container());
        mWidget->addChild(&container());
        manager().removeWidget(widget.get());
        frame();
        selected();
    }
}

TEST_F(CoverFlowMeddlingTest, MovesOnWithoutTheItemsThatSomebodyTookAway) {
    fill(5);
    begin();
    move(20);
    const Component *spare = find(2);
    container().removeChild(find(5));
    container().removeChild(find(6));
    move(35);
    move(2);
    EXPECT_EQ(drawn(), (Lines{"2", "3", "7", "4"}));
    container().removeChild(find(2));
    ASSERT_NE(spare->getParent(), &container());
    move(1); // without the spare one nothing is put in order
    EXPECT_EQ(drawn(), (Lines{"3", "7", "4"}));
    move(50); // the 7 is the spare one now
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    EXPECT_EQ(drawn(), (Lines{"7", "3", "4"}));
    end();
    EXPECT_TRUE(rest());
    container().clearChildren();
    fling(-90);
    EXPECT_TRUE(rest());
    mFlow->setExtraCount(1);
    EXPECT_EQ(container().getChildCount(), 4u);
}

TEST_F(CoverFlowMeddlingTest, IsFilledByAProviderThatTakesItsItemsAway) {
    mEntries->mOnUpdate = [this](unsigned int, Component *item) { container().removeChild(item); };
    fill(5);
    EXPECT_EQ(container().getChildCount(), 1u); // the spare one
    EXPECT_NE(mFlow->getCurrentElement(), nullptr);
    fling(-90);
    EXPECT_TRUE(rest());
    EXPECT_EQ(container().getChildCount(), 0u);
}

TEST_F(CoverFlowMeddlingTest, WaitsInADragWhileItIsDisabledForThePressThatLetsItGo) {
    fill(5);
    begin();
    tick(0.125);
    move(-60);
    container().setEnabled(false);
    end(); // which reaches nobody
    EXPECT_FALSE(rest());
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
    EXPECT_NEAR(progress(), 0.6f, 1e-5);
    container().setEnabled(true);
    pressContainer();
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 6u);
    EXPECT_EQ(centreX(), 0);
}

TEST_F(CoverFlowMeddlingTest, CoastsAndSettlesWhileItIsHidden) {
    fill(5);
    fling(-60);
    container().setVisible(false);
    EXPECT_TRUE(rest());
    EXPECT_GT(mFlow->getCurrent(), 5u);
    EXPECT_EQ(centreX(), 0);
    const int current = static_cast<int>(mFlow->getCurrent());
    container().setVisible(true);
    frame();
    for (int entry = current - 2; entry <= current + 2; ++entry)
        EXPECT_TRUE(find(entry)->isVisible()) << entry;
}

TEST_F(CoverFlowMeddlingTest, TwoOfThemMoveByThemselves) {
    fill(5);
    const core::SmartPtr<CoverFlowHandler> other(new CoverFlowHandler("others"));
    const core::SmartPtr<Widget> widget = addWidget("second");
    widget->addChild(other->getContainer());
    frame();
    other->setItemTemplate(mTemplate.get());
    other->setDataProvider(mEntries.get());
    fling(-90);
    EXPECT_EQ(other->getState(), CoverFlowHandler::COVER_IDLE);
    EXPECT_TRUE(rest());
    EXPECT_GT(mFlow->getCurrent(), 5u);
    EXPECT_EQ(other->getCurrent(), 0u);
}

TEST_F(CoverFlowMeddlingTest, AThrowGoesOnByTheWidthOfAnotherTemplate) {
    const core::SmartPtr<test::Cover> narrow(new test::Cover("narrow"));
    narrow->setSize({80, 100});
    mFlow->setElasticDeceleration(0);
    fill(5);
    fling(-90); // 720 a second
    tick(0);
    tick(0.125); // 90 farther, which makes 180
    EXPECT_EQ(mFlow->getCurrent(), 6u);
    mFlow->setItemTemplate(narrow.get());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    tick(0.125); // 90 of 40 for a step
    EXPECT_EQ(mFlow->getCurrent(), 2u);
    EXPECT_NEAR(progress(), 0.25f, 1e-5);
    EXPECT_TRUE(rest());
}

TEST_F(CoverFlowMeddlingTest, TakesItsOwnContainerForATemplate) {
    fill(5);
    mFlow->setItemTemplate(&container());
    EXPECT_EQ(container().getChildCount(), 6u);
    frame();
    fling(-90);
    EXPECT_TRUE(rest());
    mFlow->setItemTemplate(mTemplate.get());
    EXPECT_EQ(container().getChildCount(), 6u);
}

TEST_F(CoverFlowMeddlingTest, RefusesItsOwnContainerAsCustomComponent) {
    fill(5);
    for (Container *custom : {&container(), static_cast<Container *>(mWidget.get())})
        EXPECT_THROW(mFlow->setCustomComponent(custom), core::IllegalStateException);
    EXPECT_EQ(mFlow->getCustomComponent(), nullptr);
    EXPECT_EQ(container().getChildCount(), 6u);
}

TEST_F(CoverFlowMeddlingTest, AThrowBackFromBeyondTheFirstEntryJumpsOnAndReturns) {
    fill(0);
    begin();
    move(300);
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    tick(0.125);
    advance(0.125);
    move(-75); // 600 a second, and 225 beyond still
    end();
    tick(0);
    tick(0.125); // 475 a second: 165.625 beyond
    EXPECT_EQ(selected(), (Indexes{1}));
    tick(0.125); // 350 a second: 121.875
    tick(0.125); // 225 a second: 93.75
    EXPECT_EQ(selected(), (Indexes{0}));
    EXPECT_NEAR(progress(), 0.9375f, 1e-5);
    EXPECT_TRUE(rest());
    EXPECT_EQ(selected(), (Indexes{1}));
    EXPECT_EQ(centreX(), 0);
}

TEST_F(CoverFlowMeddlingTest, SnapsBackFromAWholeStepBeyondTheLastEntry) {
    fill(9);
    fling(-60); // 480 a second
    tick(0);
    EXPECT_NEAR(progress(), 0.6f, 1e-5);
    tick(0.0625); // 417.5 a second: 26.09375 farther
    EXPECT_NEAR(progress(), 0.8609375f, 1e-5);
    tick(0.0625); // 355 a second: 108.28125 in all, which is no entry
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    EXPECT_NEAR(progress(), 0.8609375f, 1e-5);
    tick(0.125);
    EXPECT_NEAR(progress(), 0.04140625f, 1e-5);
    EXPECT_TRUE(rest());
    EXPECT_EQ(mFlow->getCurrent(), 9u);
    EXPECT_EQ(selected(), Indexes());
}
