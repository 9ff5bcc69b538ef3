// What a cover flow is made of, and how it gets its data; the motion has tests of its own.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

#include "foundation/core/Exception.h"

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

class CoverFlowHandlerTest : public test::CoverFlowFixture {};

} // namespace

TEST_F(CoverFlowHandlerTest, HasItsDefaults) {
    const core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    EXPECT_STREQ(flow->getName(), "");
    EXPECT_EQ(flow->getItemTemplate(), nullptr);
    EXPECT_EQ(flow->getDataProvider(), nullptr);
    EXPECT_EQ(flow->getCustomComponent(), nullptr);
    EXPECT_EQ(flow->getCurrentElement(), nullptr);
    EXPECT_EQ(flow->getExtraCount(), 1u);
    EXPECT_EQ(flow->getCurrent(), 0u);
    EXPECT_EQ(flow->getState(), CoverFlowHandler::COVER_IDLE);
    EXPECT_EQ(flow->getElasticRecoveryTime(), 0.2f);
    EXPECT_EQ(flow->getElasticSpeedMin(), 50);
    EXPECT_EQ(flow->getElasticSpeedMax(), 1000);
    EXPECT_EQ(flow->getElasticDeceleration(), 1000);
    EXPECT_STREQ(flow->getType().getName(), "CoverFlowHandler");
    EXPECT_TRUE(flow->instanceOf(ComponentHandler::TYPE));
}

TEST_F(CoverFlowHandlerTest, MakesItsContainer) {
    const core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    const Panel &container = *flow->getContainer();
    EXPECT_EQ(flow->getTarget(), &container);
    EXPECT_EQ(container.getHandler(), flow.get());
    EXPECT_STREQ(container.getName(), "");
    EXPECT_EQ(container.getComponentPosition().absolute, Vector2(0, 0));
    EXPECT_EQ(container.getComponentSize().absolute, Vector2(0, 0));
    EXPECT_EQ(container.getComponentSize().relative, Vector2(1, 1));
    EXPECT_EQ(container.getScrollMask(), 0u);
    EXPECT_TRUE(container.isEventEnabled(UIEvent::ET_DRAG_EVENT | UIEvent::ET_MOUSE_EVENT));
}

TEST_F(CoverFlowHandlerTest, SetsWhatMakesTheMotionElastic) {
    mFlow->setElasticRecoveryTime(1);
    mFlow->setElasticSpeed(2, 3);
    EXPECT_EQ(mFlow->getElasticSpeedMin(), 2);
    EXPECT_EQ(mFlow->getElasticSpeedMax(), 3);
    mFlow->setElasticSpeedMin(4);
    mFlow->setElasticSpeedMax(5);
    mFlow->setElasticDeceleration(6);
    EXPECT_EQ(mFlow->getElasticRecoveryTime(), 1);
    EXPECT_EQ(mFlow->getElasticSpeedMin(), 4);
    EXPECT_EQ(mFlow->getElasticSpeedMax(), 5);
    EXPECT_EQ(mFlow->getElasticDeceleration(), 6);
}

// --- items ---

TEST_F(CoverFlowHandlerTest, IsEmptyUntilItHasTemplateAndProvider) {
    mFlow->setItemTemplate(mTemplate.get());
    EXPECT_EQ(container().getChildCount(), 0u);
    mFlow->setDataProvider(mEntries.get());
    EXPECT_EQ(container().getChildCount(), 6u);
    mFlow->setItemTemplate(nullptr);
    EXPECT_EQ(container().getChildCount(), 0u);
    EXPECT_EQ(mFlow->getCurrentElement(), nullptr);
    mFlow->setItemTemplate(mTemplate.get());
    EXPECT_EQ(container().getChildCount(), 6u);
    mFlow->setDataProvider(nullptr);
    EXPECT_EQ(container().getChildCount(), 0u);
}

TEST_F(CoverFlowHandlerTest, PutsItemsIntoSlotsNearerOnesAboveFartherOnes) {
    mTemplate->setAnchor(Component::ANCHOR_TOP_LEFT);
    fill(5);
    const Lines order{"3", "4", "in(hidden)", "7", "6", "5"};
    EXPECT_EQ(children(), order);
    EXPECT_EQ(drawn(), order);
    expectPlace(3, -400, -SIDE, 0.7f);
    expectPlace(4, -200, -SIDE, 0.7f);
    expectPlace(5, 0, 0, 1);
    expectPlace(6, 200, SIDE, 0.7f);
    expectPlace(7, 400, SIDE, 0.7f);
    EXPECT_EQ(find(5)->getRotation(), nurel::math::Matrix3::IDENTITY);
    for (int entry = 3; entry <= 7; ++entry) {
        EXPECT_EQ(find(entry)->getAnchor(), Component::ANCHOR_CENTER);
        EXPECT_TRUE(find(entry)->isVisible());
        EXPECT_EQ(find(entry)->getTabStop(), entry); // filled with its entry
    }
    EXPECT_FALSE(findNamed("in(hidden)")->isVisible());
    EXPECT_EQ(mFlow->getCurrentElement(), find(5));
}

TEST_F(CoverFlowHandlerTest, HasThreeItemsAndASpareOneWithOneExtra) {
    mFlow->setExtraCount(1);
    fill(5);
    EXPECT_EQ(children(), (Lines{"4", "in(hidden)", "6", "5"}));
    expectPlace(4, -400, -SIDE, 0.7f);
    expectPlace(5, 0, 0, 1);
    expectPlace(6, 400, SIDE, 0.7f);
}

TEST_F(CoverFlowHandlerTest, ShowsOneItemAtATimeWithNoExtra) {
    mFlow->setExtraCount(0);
    fill(5);
    EXPECT_EQ(children(), (Lines{"in(hidden)", "5"}));
    expectPlace(5, 0, 0, 1);
}

TEST_F(CoverFlowHandlerTest, HidesItemsThatHaveNoEntry) {
    mEntries->mCount = 2;
    fill();
    EXPECT_EQ(children(), (Lines{"(hidden)-2", "(hidden)-1", "in(hidden)", "(hidden)2", "1", "0"}));
    EXPECT_FALSE(findNamed("(hidden)-1")->isVisible());
    EXPECT_FALSE(findNamed("(hidden)2")->isVisible());
    EXPECT_TRUE(find(1)->isVisible());
}

TEST_F(CoverFlowHandlerTest, MakesNoMoreComponentsThanItShowsHoweverLongTheDataIs) {
    mEntries->mCount = 10000;
    fill(5000);
    EXPECT_EQ(test::Cover::ALIVE, 2 * 2 + 2 + 1); // the items, the spare one, the template
    for (int i = 0; i < 20; ++i) {
        fling(-90);
        EXPECT_TRUE(rest());
    }
    EXPECT_GT(mFlow->getCurrent(), 5020u);
    EXPECT_EQ(test::Cover::ALIVE, 7);
}

TEST_F(CoverFlowHandlerTest, FillsTheItemsWhenTheyAreMadeAndOnceMoreBySetting) {
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(mEntries.get());
    EXPECT_EQ(mEntries->updates(), (Indexes{0, 1, 2, 0, 1, 2}));
    mFlow->setExtraCount(1);
    EXPECT_EQ(mEntries->updates(), (Indexes{0, 1, 0, 1}));
}

TEST_F(CoverFlowHandlerTest, DoesNothingWhenToldWhatItKnows) {
    fill(5);
    const Component *centre = mFlow->getCurrentElement();
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(mEntries.get());
    mFlow->setExtraCount(2);
    EXPECT_EQ(mFlow->getCurrentElement(), centre);
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    EXPECT_EQ(mEntries->updates(), Indexes());
}

TEST_F(CoverFlowHandlerTest, GoesBackToTheFirstEntryWithOtherDataOrAnotherTemplate) {
    fill(5);
    const core::SmartPtr<test::Entries> other(new test::Entries(20));
    mFlow->setDataProvider(other.get());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    mFlow->setCurrent(5, false);
    const core::SmartPtr<test::Cover> round(new test::Cover("round"));
    mFlow->setItemTemplate(round.get());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    EXPECT_EQ(selected(), Indexes());
}

TEST_F(CoverFlowHandlerTest, StaysAtItsEntryWithAnotherExtraCount) {
    fill(5);
    mFlow->setExtraCount(3);
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    EXPECT_EQ(children(), (Lines{"2", "3", "4", "in(hidden)", "8", "7", "6", "5"}));
}

TEST_F(CoverFlowHandlerTest, TakesTheWidthThatTheContainerHasWhenItemsAreMade) {
    container().setSize({300, 100});
    fill(5);
    expectPlace(4, -75, -SIDE, 0.7f);
    container().setSize({500, 100});
    frame();
    expectPlace(4, -75, -SIDE, 0.7f);
    mFlow->updateSlots();
    expectPlace(3, -250, -SIDE, 0.7f);
    expectPlace(4, -125, -SIDE, 0.7f);
    expectPlace(5, 0, 0, 1);
    expectPlace(7, 250, SIDE, 0.7f);
}

TEST_F(CoverFlowHandlerTest, UpdateSlotsPutsItemsInMotionIntoTheirPlaces) {
    fill(5);
    begin();
    move(30);
    ASSERT_TRUE(find(2)->isVisible());
    mFlow->updateSlots();
    expectPlace(5, 0, 0, 1);
    EXPECT_FALSE(find(2)->isVisible());
    move(20); // goes on from there
    expectPlace(5, 40, 0.2f * SIDE, 0.94f);
    EXPECT_TRUE(find(2)->isVisible());
    EXPECT_EQ(find(2)->getComponentPosition().absolute.x, -560);
}

TEST_F(CoverFlowHandlerTest, RefusesMoreExtrasThanThereCanBe) {
    fill(5);
    mFlow->setExtraCount(CoverFlowHandler::MAXIMUM_EXTRA_COUNT);
    EXPECT_EQ(container().getChildCount(), 2002u);
    try {
        mFlow->setExtraCount(0xffffffff);
        FAIL();
    } catch (const core::IllegalArgumentException &exception) {
        EXPECT_STREQ(exception.what(), "4294967295 extra items are more than the 1000 that there can be");
    }
    EXPECT_EQ(mFlow->getExtraCount(), 1000u);
}

TEST_F(CoverFlowHandlerTest, EmptiesTheContainerAtItsEnd) {
    fill(5);
    const core::SmartPtr<Panel> kept(mFlow->getContainer());
    mFlow = nullptr;
    EXPECT_EQ(kept->getChildCount(), 0u);
    EXPECT_EQ(kept->getHandler(), nullptr);
    EXPECT_EQ(test::Cover::ALIVE, 1);
    EXPECT_EQ(mTemplate->getRefCount(), 1u);
    EXPECT_EQ(mEntries->getRefCount(), 1u);
    tick(0.1);
}

TEST_F(CoverFlowHandlerTest, DoesNotBringTheManagerToLifeByItsEnd) {
    core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    const core::SmartPtr<Panel> kept(flow->getContainer());
    UIManager::shutdown();
    flow = nullptr;
    EXPECT_FALSE(UIManager::isSingletonCreated());
}

TEST_F(CoverFlowHandlerTest, EndsItsSubscriptionAtItsEnd) {
    UIManager::StageCallbacks &stages = manager().getStageCallbacks();
    const int before = stages.subscribeCallback([](UIManager::StageEvent) { return false; });
    core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    flow = nullptr;
    EXPECT_FALSE(stages.unsubscribeCallback(before + 1));
    EXPECT_TRUE(stages.unsubscribeCallback(before));
}

TEST_F(CoverFlowHandlerTest, LeavesTheSubscriptionsOfALaterManagerAlone) {
    core::SmartPtr<CoverFlowHandler> flow(new CoverFlowHandler);
    UIManager::shutdown();
    int updates = 0;
    for (int i = 0; i < 4; ++i) { // the ids start anew
        manager().getStageCallbacks().subscribeCallback([&](UIManager::StageEvent) {
            ++updates;
            return false;
        });
    }
    flow = nullptr;
    manager().update();
    EXPECT_EQ(updates, 4);
}

// --- data ---

TEST_F(CoverFlowHandlerTest, RefillsAllVisibleItemsOnRefresh) {
    fill(1);
    mFlow->refresh();
    EXPECT_EQ(mEntries->updates(), (Indexes{0, 1, 2, 3}));
}

TEST_F(CoverFlowHandlerTest, MovesToTheLastEntryWhenTheDataShrinksBelowTheCurrentOne) {
    fill(5);
    mEntries->mCount = 3;
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 2u);
    EXPECT_EQ(children(), (Lines{"0", "1", "in(hidden)", "(hidden)4", "(hidden)3", "2"}));
    EXPECT_EQ(selected(), Indexes());
}

TEST_F(CoverFlowHandlerTest, MovesToTheLastEntryWhenTheCountFallsToTheCurrentIndex) {
    fill(5);
    mEntries->mCount = 6;
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 5u);
    mEntries->mCount = 5;
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 4u);
}

TEST_F(CoverFlowHandlerTest, ShowsEntriesThatCameToTheData) {
    mEntries->mCount = 1;
    fill();
    mEntries->mCount = 3;
    EXPECT_EQ(find(1), nullptr);
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    EXPECT_TRUE(find(1)->isVisible());
    EXPECT_TRUE(find(2)->isVisible());
}

TEST_F(CoverFlowHandlerTest, SetCurrentShowsTheEntryAndSaysWhichOneItIs) {
    fill();
    EXPECT_EQ(mFlow->setCurrent(4, true), 4u);
    EXPECT_EQ(selected(), (Indexes{4}));
    EXPECT_EQ(mEntries->updates(), (Indexes{2, 3, 4, 5, 6}));
    EXPECT_EQ(mFlow->getCurrentElement(), find(4));
    EXPECT_EQ(mFlow->setCurrent(10, true), 9u);
    EXPECT_EQ(mFlow->setCurrent(0xffffffff, true), 9u);
    EXPECT_EQ(selected(), (Indexes{9}));
    EXPECT_EQ(mFlow->setCurrent(1, false), 1u);
    EXPECT_EQ(selected(), Indexes());
}

TEST_F(CoverFlowHandlerTest, SetCurrentDoesNothingForTheEntryInTheCentre) {
    fill(4);
    EXPECT_EQ(mFlow->setCurrent(4, true), 4u);
    EXPECT_EQ(selected(), Indexes());
    EXPECT_EQ(mEntries->updates(), Indexes());
}

TEST_F(CoverFlowHandlerTest, SetCurrentReadsTheCountAgain) {
    fill();
    mEntries->mCount = 4;
    EXPECT_EQ(mFlow->setCurrent(7, true), 3u);
    EXPECT_EQ(selected(), (Indexes{3}));
}

TEST_F(CoverFlowHandlerTest, HasTheLargestNumberAsCurrentOneWithoutEntries) {
    fill(4);
    mEntries->mCount = 0;
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 0xffffffffu);
    EXPECT_EQ(mFlow->setCurrent(2, true), 0xffffffffu);
    EXPECT_EQ(selected(), Indexes());
    EXPECT_EQ(mEntries->updates(), Indexes());
    for (unsigned int i = 0; i < container().getChildCount(); ++i)
        EXPECT_FALSE(container().getChildAt(i)->isVisible());
}

TEST_F(CoverFlowHandlerTest, SetCurrentStoresTheLargestNumberForAProviderThatNeverHadEntries) {
    mEntries->mCount = 0;
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(mEntries.get());
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    EXPECT_EQ(mFlow->setCurrent(0, true), 0xffffffffu);
    EXPECT_EQ(selected(), (Indexes{0xffffffff}));
    mEntries->mCount = 3; // and entries that come then are shown from the last one
    mFlow->refresh();
    EXPECT_EQ(mFlow->getCurrent(), 2u);
}

TEST_F(CoverFlowHandlerTest, FillsASpareItemThatHasNeverShownTheEntryOfItsNumber) {
    mFlow->setItemTemplate(mTemplate.get());
    mFlow->setDataProvider(mEntries.get());
    begin();
    move(-100); // the item without an entry on the far left becomes the spare one, still with the number 0
    ASSERT_EQ(mFlow->getCurrent(), 1u);
    mFlow->setCurrent(3, false);
    mEntries->updates();
    move(20);
    EXPECT_EQ(mEntries->updates(), (Indexes{0}));
}

TEST_F(CoverFlowHandlerTest, FillsTheSpareItemAnewWhenTheDataHasChanged) {
    fill(5);
    begin();
    move(20);
    EXPECT_EQ(mEntries->updates(), (Indexes{2}));
    move(10);
    EXPECT_EQ(mEntries->updates(), Indexes());
    mFlow->refresh();
    EXPECT_EQ(mEntries->updates(), (Indexes{3, 4, 5, 6, 7}));
    move(10);
    EXPECT_EQ(mEntries->updates(), (Indexes{2}));
}

// --- the custom component ---

TEST_F(CoverFlowHandlerTest, KeepsTheCustomComponentOnTop) {
    fill(5);
    const core::SmartPtr<Panel> first(new Panel("first")), second(new Panel("second"));
    mFlow->setCustomComponent(first.get());
    EXPECT_EQ(children().back(), "first");
    EXPECT_EQ(first->getRefCount(), 3u);
    mFlow->setCustomComponent(second.get());
    EXPECT_EQ(children().back(), "second");
    EXPECT_EQ(first->getRefCount(), 1u);
    mFlow->setExtraCount(1);
    EXPECT_EQ(children(), (Lines{"4", "in(hidden)", "6", "5", "second"}));
    mFlow->setCustomComponent(second.get());
    mFlow->setCustomComponent(nullptr);
    EXPECT_EQ(children().size(), 4u);
    EXPECT_EQ(second->getRefCount(), 1u);
}

TEST_F(CoverFlowHandlerTest, TakesTheCustomComponentAwayWithTheItems) {
    const core::SmartPtr<Panel> custom(new Panel("custom"));
    mFlow->setCustomComponent(custom.get());
    EXPECT_EQ(children(), (Lines{"custom"}));
    mFlow->setItemTemplate(mTemplate.get());
    EXPECT_EQ(children(), (Lines{}));
    mFlow->setDataProvider(mEntries.get());
    EXPECT_EQ(children().back(), "custom");
}

TEST_F(CoverFlowHandlerTest, LeavesTheCustomComponentToWhoeverElseHasIt) {
    fill(5);
    const core::SmartPtr<Panel> mine(new Panel("mine"));
    mFlow->setCustomComponent(mine.get());
    const core::SmartPtr<Panel> elsewhere = addPanel(*mWidget, "elsewhere", 0, 0, 10, 10);
    try {
        mFlow->setCustomComponent(elsewhere.get());
        FAIL();
    } catch (const core::IllegalStateException &exception) {
        EXPECT_STREQ(exception.what(), "Component already has a parent");
    }
    EXPECT_EQ(mFlow->getCustomComponent(), mine.get());
    EXPECT_EQ(children().back(), "mine");
    container().removeChild(mine.get());
    mWidget->addChild(mine.get());
    mFlow->setExtraCount(1); // makes everything anew
    EXPECT_EQ(children(), (Lines{"4", "in(hidden)", "6", "5"}));
}

TEST_F(CoverFlowHandlerTest, LeavesTheViewsOfOtherChildrenWhereTheyAre) {
    fill(5);
    const core::SmartPtr<Panel> custom(new Panel("custom")), behind(new Panel("behind"));
    behind->setZIndex(-1);
    container().addChild(behind.get());
    mFlow->setCustomComponent(custom.get());
    EXPECT_EQ(drawn(), (Lines{"behind", "3", "4", "in(hidden)", "7", "6", "5", "custom"}));
    begin();
    move(20);
    EXPECT_EQ(drawn(), (Lines{"behind", "2", "3", "4", "7", "6", "5", "custom"}));
    move(40);
    move(1);
    EXPECT_EQ(drawn(), (Lines{"behind", "2", "3", "7", "6", "5", "4", "custom"}));
    move(1);
    EXPECT_EQ(drawn(), (Lines{"behind", "2", "3", "7", "6", "5", "4", "custom"}));
    mFlow->setCurrent(6, false);
    EXPECT_EQ(drawn(), (Lines{"behind", "2", "4", "5", "8", "7", "6", "custom"}));
}
