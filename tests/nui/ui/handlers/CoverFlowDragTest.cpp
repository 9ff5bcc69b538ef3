// How a cover flow follows the finger, and what lies over what: every figure is worked out by hand.
#include "nui/ui/handlers/CoverFlowHandler.h"

#include "nui/ui/handlers/CoverFlowFixture.h"

using namespace nurel::ui;

namespace {

class CoverFlowDragTest : public test::CoverFlowFixture {
public:
    CoverFlowDragTest() { mFlow->setElasticRecoveryTime(0.25f); }

    int state() const { return mFlow->getState(); }
};

} // namespace

// --- dragging ---

TEST_F(CoverFlowDragTest, MovesTheItemsToTheRightWithTheFinger) {
    fill(5);
    begin();
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
    move(20); // a fifth of the half of 200
    EXPECT_EQ(mEntries->updates(), (Indexes{2}));
    expectPlace(2, -560, -BEYOND + 0.2f * (BEYOND - SIDE), 0.7f);
    expectPlace(3, -360, -SIDE, 0.7f);
    expectPlace(4, -160, -0.8f * SIDE, 0.76f);
    expectPlace(5, 40, 0.2f * SIDE, 0.94f);
    expectPlace(6, 240, SIDE, 0.7f);
    expectPlace(7, 440, SIDE + 0.2f * (BEYOND - SIDE), 0.7f);
    EXPECT_TRUE(find(2)->isVisible());
    move(30);
    expectPlace(2, -500, -BEYOND + 0.5f * (BEYOND - SIDE), 0.7f);
    expectPlace(4, -100, -0.5f * SIDE, 0.85f);
    expectPlace(5, 100, 0.5f * SIDE, 0.85f);
    EXPECT_EQ(mEntries->updates(), Indexes());
    EXPECT_EQ(mFlow->getCurrent(), 5u);
}

TEST_F(CoverFlowDragTest, MovesTheItemsToTheLeftWithTheFinger) {
    fill(5);
    begin();
    move(-20);
    EXPECT_EQ(mEntries->updates(), (Indexes{8}));
    expectPlace(3, -440, -SIDE - 0.2f * (BEYOND - SIDE), 0.7f);
    expectPlace(4, -240, -SIDE, 0.7f);
    expectPlace(5, -40, -0.2f * SIDE, 0.94f);
    expectPlace(6, 160, 0.8f * SIDE, 0.76f);
    expectPlace(7, 360, SIDE, 0.7f);
    expectPlace(8, 560, BEYOND - 0.2f * (BEYOND - SIDE), 0.7f);
}

TEST_F(CoverFlowDragTest, StaysOnTheSideWhereTheItemIsWhenTheFingerTurnsBack) {
    fill(5);
    begin();
    move(-20);
    EXPECT_NEAR(centreX(), -40, 1e-3);
    move(50); // 30 to the right of where it began, and the item was farther on the left
    EXPECT_NEAR(centreX(), -60, 1e-3);
    move(31); // 61 to the right of it: the item was not so far
    EXPECT_NEAR(centreX(), 122, 1e-3);
}

TEST_F(CoverFlowDragTest, StepsOnAfterHalfTheWidthOfAnItem) {
    fill(5);
    begin();
    const Component *left = find(4), *right = find(7);
    move(60);
    EXPECT_EQ(selected(), Indexes());
    move(60); // farther than the step, which is no head start for the next one
    EXPECT_EQ(selected(), (Indexes{4}));
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    EXPECT_EQ(mFlow->getCurrentElement(), left);
    EXPECT_EQ(mEntries->updates(), (Indexes{2}));
    expectPlace(2, -400, -SIDE, 0.7f);
    expectPlace(3, -200, -SIDE, 0.7f);
    expectPlace(4, 0, 0, 1);
    expectPlace(5, 200, SIDE, 0.7f);
    expectPlace(6, 400, SIDE, 0.7f);
    expectPlace(7, 600, BEYOND, 0.7f);
    EXPECT_EQ(drawn(), (Lines{"7", "2", "3", "6", "5", "4"}));
    frame();
    move(20);
    EXPECT_EQ(find(1), right); // the component that left at the other end
    EXPECT_EQ(find(7), nullptr);
    EXPECT_EQ(mEntries->updates(), (Indexes{1}));
    expectPlace(4, 40, 0.2f * SIDE, 0.94f);
}

TEST_F(CoverFlowDragTest, StepsBackAgainWithoutFillingWhatIsThere) {
    fill(5);
    begin();
    move(100);
    frame();
    mEntries->updates();
    move(-50);
    EXPECT_EQ(mEntries->updates(), Indexes()); // the spare item shows the 7 still
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    expectPlace(4, -100, -0.5f * SIDE, 0.85f);
    expectPlace(7, 500, BEYOND - 0.5f * (BEYOND - SIDE), 0.7f);
    move(-50);
    EXPECT_EQ(selected(), (Indexes{4, 5}));
}

TEST_F(CoverFlowDragTest, MeasuresTheWayByTheWidthThatTheCentreItemHasAtRest) {
    fill(5);
    begin();
    move(20);
    frame(); // at 0.94 the item is 188 pixels wide
    ASSERT_EQ(mFlow->getCurrentElement()->getSize().x, 188);
    move(20);
    EXPECT_NEAR(progress(), -0.4f, 1e-5);
}

TEST_F(CoverFlowDragTest, DoesNotMoveForOnePixel) {
    fill(5);
    begin();
    move(1);
    EXPECT_EQ(centreX(), 0);
    EXPECT_FALSE(findNamed("in(hidden)")->isVisible());
    move(0.5f);
    EXPECT_NEAR(centreX(), 3, 1e-3);
}

TEST_F(CoverFlowDragTest, ShowsNoSpareItemAheadOfTheFirstEntryAndSettlesBack) {
    fill(0);
    begin();
    move(50);
    EXPECT_NEAR(centreX(), 100, 1e-3);
    EXPECT_FALSE(findNamed("-1(hidden)")->isVisible());
    move(100); // as far as the next place, and no farther
    EXPECT_NEAR(centreX(), 200, 1e-3);
    EXPECT_EQ(mFlow->getCurrent(), 0u);
    tick(0.5);
    end();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
    tick(0.125);
    EXPECT_NEAR(centreX(), 100, 1e-3);
    tick(0.125);
    EXPECT_EQ(centreX(), 0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    expectPlace(1, 200, SIDE, 0.7f);
    EXPECT_EQ(selected(), Indexes());
    EXPECT_EQ(mEntries->updates(), Indexes());
}

TEST_F(CoverFlowDragTest, HidesTheSpareItemBehindTheLastEntryAndSettlesBack) {
    fill(7);
    begin();
    move(-100);
    EXPECT_TRUE(find(5)->isVisible()); // 6, 7, 8, 9 and a hidden one in the slots
    frame();
    EXPECT_EQ(mFlow->getCurrent(), 8u);
    move(-50);
    EXPECT_FALSE(findNamed("5(hidden)")->isVisible());
    move(-50);
    frame();
    EXPECT_EQ(mFlow->getCurrent(), 9u);
    move(-70);
    EXPECT_NEAR(centreX(), -140, 1e-3);
    tick(0.5);
    end();
    EXPECT_TRUE(rest());
    EXPECT_EQ(centreX(), 0);
    EXPECT_EQ(mFlow->getCurrent(), 9u);
    EXPECT_EQ(selected(), (Indexes{8, 9}));
}

TEST_F(CoverFlowDragTest, MovesWithOneExtraItem) {
    mFlow->setExtraCount(1);
    fill(5);
    begin();
    move(25);
    expectPlace(3, -700, -BEYOND + 0.25f * (BEYOND - SIDE), 0.7f);
    expectPlace(4, -300, -0.75f * SIDE, 0.775f);
    expectPlace(5, 100, 0.25f * SIDE, 0.925f);
    expectPlace(6, 500, SIDE + 0.25f * (BEYOND - SIDE), 0.7f);
    move(75);
    EXPECT_EQ(mFlow->getCurrent(), 4u);
    EXPECT_EQ(drawn(), (Lines{"6", "3", "5", "4"}));
}

TEST_F(CoverFlowDragTest, MovesWithoutExtraItems) {
    mFlow->setExtraCount(0);
    fill(5);
    begin();
    move(-25); // the way is that to the container's edge
    expectPlace(5, -100, -0.25f * BEYOND, 0.925f);
    expectPlace(6, 300, 0.75f * BEYOND, 0.775f);
    EXPECT_EQ(drawn(), (Lines{"6", "5"}));
    move(-75);
    EXPECT_EQ(mFlow->getCurrent(), 6u);
    expectPlace(6, 0, 0, 1);
    expectPlace(5, -400, -BEYOND, 0.7f);
    end();
    EXPECT_TRUE(rest());
}

// --- order of drawing ---

TEST_F(CoverFlowDragTest, BringsTheNextItemToTheFrontOnItsWay) {
    fill(5);
    begin();
    move(20);
    const Lines sorted{"2", "3", "4", "7", "6", "5"};
    EXPECT_EQ(drawn(), sorted);
    move(30); // to -100, the half of the way
    EXPECT_EQ(drawn(), sorted);
    move(2); // which is not beyond it
    EXPECT_EQ(drawn(), sorted);
    move(2);
    EXPECT_EQ(drawn(), (Lines{"2", "3", "7", "6", "5", "4"}));
    move(-10);
    move(-1);
    EXPECT_EQ(drawn(), sorted);
}

TEST_F(CoverFlowDragTest, BringsTheNextItemOnTheRightToTheFront) {
    fill(5);
    begin();
    move(-20);
    const Lines sorted{"3", "4", "8", "7", "6", "5"};
    EXPECT_EQ(drawn(), sorted);
    move(-30); // to 100, the half of the way
    EXPECT_EQ(drawn(), sorted);
    move(-2); // which is not beyond it
    EXPECT_EQ(drawn(), sorted);
    move(-2);
    EXPECT_EQ(drawn(), (Lines{"3", "4", "5", "8", "7", "6"}));
    move(-50);
    EXPECT_EQ(mFlow->getCurrent(), 6u);
    EXPECT_EQ(drawn(), (Lines{"4", "5", "3", "8", "7", "6"}));
}

TEST_F(CoverFlowDragTest, SortsAnewWhenTheFingerTurns) {
    fill(5);
    begin();
    move(60);
    move(1);
    EXPECT_EQ(drawn(), (Lines{"2", "3", "7", "6", "5", "4"}));
    move(-200); // the item is on the right still, but goes to the left
    EXPECT_EQ(mFlow->getCurrent(), 6u);
    EXPECT_EQ(drawn(), (Lines{"4", "5", "3", "8", "7", "6"}));
}

TEST_F(CoverFlowDragTest, KeepsTheSideOfTheSpareItemWhenTheCurrentEntryIsSet) {
    fill(5);
    mFlow->setCurrent(4, false);
    EXPECT_EQ(drawn(), (Lines{"2", "3", "in(hidden)", "6", "5", "4"}));
    begin();
    move(20);
    mFlow->setCurrent(6, false);
    EXPECT_EQ(drawn(), (Lines{"1", "4", "5", "8", "7", "6"}));
    EXPECT_EQ(children(), (Lines{"4", "5", "1", "8", "7", "6"})); // the views' order alone is written
}

TEST_F(CoverFlowDragTest, MovesWithoutViews) {
    mWidget->removeChild(&container());
    container().clearView();
    fill(5);
    container().update();
    begin();
    move(60);
    move(2);
    expectPlace(5, 124, 0.62f * SIDE, 1 - 0.62f * 0.3f);
    move(40);
    EXPECT_EQ(mFlow->getCurrent(), 4u);
}

// --- events ---

TEST_F(CoverFlowDragTest, EndsADragThatIsCancelled) {
    fill(5);
    begin();
    tick(0.125);
    advance(0.125);
    move(-30);
    send(DragEvent::DRAG_CANCEL, 0, 0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_RELEASED);
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
}

TEST_F(CoverFlowDragTest, CoastsOnWhenItIsPressed) {
    fill(5);
    pressContainer();
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    fling(-90);
    tick(0);
    tick(0.125);
    pressContainer();
    EXPECT_EQ(state(), CoverFlowHandler::COVER_RELEASED);
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING);
    EXPECT_TRUE(rest());
    EXPECT_EQ(progress(), 0);
}

TEST_F(CoverFlowDragTest, SettlesWhenItIsPressedAtRestInADrag) {
    fill(5);
    begin();
    move(-30);
    pressContainer();
    tick(0);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_SETTLING);
}

TEST_F(CoverFlowDragTest, LeavesTheDragsOfAChildAlone) {
    fill(5);
    find(5)->enableEvents(UIEvent::ET_DRAG_EVENT);
    const Ray ray;
    const CursorPosition cursor{400, 300};
    find(5)->handleEvent(DragEvent(ray, cursor, DragEvent::DRAG_BEGIN, nurel::math::Vector2::ZERO));
    EXPECT_EQ(state(), CoverFlowHandler::COVER_IDLE);
    find(4)->handleEvent(DragEvent(ray, cursor, DragEvent::DRAG_BEGIN, nurel::math::Vector2::ZERO));
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
}

TEST_F(CoverFlowDragTest, TakesADragThatAFilterGaveToSomebodyWhoTakesNone) {
    fill(5);
    UIEventHandler *receiver = find(4);
    container().FilterCallbacks::subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&handler) {
        handler = receiver;
        return false;
    });
    const Ray ray;
    const CursorPosition cursor{400, 300};
    const DragEvent event(ray, cursor, DragEvent::DRAG_BEGIN, nurel::math::Vector2::ZERO);
    EXPECT_EQ(container().filterEvent(event, &container()), receiver);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
    receiver = nullptr; // and none that it has taken away
    EXPECT_EQ(container().filterEvent(DragEvent(ray, cursor, DragEvent::DRAG_END, {}), &container()), nullptr);
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
}

TEST_F(CoverFlowDragTest, LetsEveryEventGoOn) {
    fill(5);
    std::string told;
    const auto note = [&](const char *name) {
        return [&told, name](UIEventHandler *, const UIEvent &event, UIEventHandler *&) {
            told += std::string(name) + ":" + describe(event) + " ";
            return false;
        };
    };
    mFlow->FilterCallbacks::subscribeCallback(note("flow"));
    mWidget->FilterCallbacks::subscribeCallback(note("widget"));
    begin();
    pressContainer();
    EXPECT_EQ(told, "flow:drag widget:drag flow:press widget:press ");
}

TEST_F(CoverFlowDragTest, IsDraggedAndThrownByTheMouse) {
    fill(5);
    moveTo(400, 300);
    press();
    tick(0.125);
    moveTo(406, 300); // a drag begins
    EXPECT_EQ(state(), CoverFlowHandler::COVER_DRAGGING);
    EXPECT_EQ(manager().getDragging(), &container());
    tick(0.125);
    advance(0.125);
    moveTo(420, 300); // and its first move has the way from the press
    EXPECT_NEAR(progress(), -0.2f, 1e-5);
    release();
    EXPECT_EQ(state(), CoverFlowHandler::COVER_COASTING); // 160 pixels a second
    EXPECT_TRUE(rest());
    EXPECT_EQ(progress(), 0);
    EXPECT_EQ(container().getScrollOffset(), nurel::math::Vector2(0, 0));
}
