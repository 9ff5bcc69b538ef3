// From cursor, buttons and wheel to events.
#include "nui/ui/UIManager.h"

#include "nui/ui/ManagerTest.h"

#include "nengine/scene/Camera.h"
#include "nui/ui/ComponentHandler.h"

using namespace nurel::ui;
using nurel::input::Mouse;
using nurel::math::Matrix4;
using nurel::math::Vector2;
using nurel::math::Vector3;

namespace {

class UIManagerInputTest : public test::ManagerTest {
public:
    UIManagerInputTest() {
        mWidget = addWidget("w");
        mLeft = addPanel(*mWidget, "left", 100, 100, 200, 200);
        mRight = addPanel(*mWidget, "right", 400, 100, 200, 200);
        frame();
    }

    static void queue(Mouse::MouseButton button, Mouse::ButtonState state) { manager().setMouseButton(button, state); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mLeft;  ///< around (200, 200)
    core::SmartPtr<Panel> mRight; ///< around (500, 200)
};

class Consumer : public ComponentHandler {
public:
    explicit Consumer(Component *target) : ComponentHandler("handler", target) {}

protected:
    UIEventHandler *processEvent(const DragEvent &) override { return this; }
    UIEventHandler *handleEvent(const UIEvent &event) override {
        return event.getType() == UIEvent::ET_DRAG_EVENT ? this : ComponentHandler::handleEvent(event);
    }
};

} // namespace

// --- cursor and ray ---

TEST_F(UIManagerInputTest, CutsTheCursorToUIPixels) {
    manager().setScale({0.5f, 2});
    point(9, 7);
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{4, 14}));
    point(-9, -7);
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{-4, -14}));
}

TEST_F(UIManagerInputTest, HitsWhatLiesUnderTheScaledCursor) {
    manager().setScale({0.5f, 0.5f});
    frame();
    moveTo(440, 440); // (220, 220) in UI pixels
    EXPECT_EQ(manager().getComponentAtCursor(), mLeft.get());
}

TEST_F(UIManagerInputTest, HitsComponentsAtADepth) {
    mLeft->setDepth(1000); // half as large, from the middle of the screen: around (300, 250)
    frame();
    moveTo(200, 200);
    EXPECT_EQ(manager().getComponentAtCursor(), mWidget.get());
    moveTo(300, 250);
    EXPECT_EQ(manager().getComponentAtCursor(), mLeft.get());
}

TEST_F(UIManagerInputTest, SendsParallelRaysThroughAnOrthographicCamera) {
    Matrix4 orthographic;
    orthographic.orthographic(800, 600, 1, 2000);
    manager().getCamera()->setProjection(orthographic);
    mLeft->setDepth(1000);
    frame();
    const Ray *seen = nullptr;
    Ray ray;
    mLeft->HoverCallbacks::subscribeCallback([&](UIEventHandler *, const HoverEvent &event) {
        ray = event.getRay();
        seen = &ray;
        return false;
    });
    moveTo(200, 200);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(ray.origin, Vector3(200, 200, -1000));
    EXPECT_EQ(ray.direction.x, 0);
    EXPECT_EQ(ray.direction.y, 0);
    EXPECT_EQ(ray.direction.z, 1);
}

TEST_F(UIManagerInputTest, SendsARayFromTheCameraThroughThePixel) {
    Ray ray;
    mWidget->HoverCallbacks::subscribeCallback([&](UIEventHandler *, const HoverEvent &event) {
        ray = event.getRay();
        return false;
    });
    moveTo(400, 300);
    EXPECT_EQ(ray.origin, Vector3(400, 300, -1000));
    EXPECT_NEAR(ray.direction.z, 1, 1e-6f);
    EXPECT_EQ(ray.direction.w, 0);
    moveTo(0, 0);
    // Meets z = 0 at the top left corner.
    const float t = -ray.origin.z / ray.direction.z;
    EXPECT_NEAR(ray.origin.x + t * ray.direction.x, 0, 1e-2f);
    EXPECT_NEAR(ray.origin.y + t * ray.direction.y, 0, 1e-2f);
}

TEST_F(UIManagerInputTest, UsesOneSnapshotForAPass) {
    std::vector<int> xs;
    const auto look = [&](UIEventHandler *, const HoverEvent &event) {
        xs.push_back(event.getCursor().x);
        point(10, 10); // for the next pass
        return false;
    };
    mLeft->HoverCallbacks::subscribeCallback(look);
    moveTo(200, 200);
    EXPECT_EQ(xs, (std::vector<int>{200, 200}));
    EXPECT_EQ(manager().getMousePos(), (CursorPosition{10, 10}));
    record();
    frame();
    EXPECT_EQ(events(), (Lines{"move w>w", "leave left>left", "enter w>w"}));
}

// --- hit test ---

TEST_F(UIManagerInputTest, AsksTheTopmostWidgetFirstAndStopsAtItsAnswer) {
    const auto above = addWidget("above");
    record();
    moveTo(200, 200);
    EXPECT_EQ(events(), (Lines{"move above>above", "enter above>above"}));
    above->setEventMask(UIEvent::EVENT_MASK_HITTABLE); // answers, and takes nothing
    moveTo(210, 200);
    EXPECT_EQ(events(), (Lines{"move above>-", "leave above>-"}));
    above->setEventMask(0);
    moveTo(220, 200);
    EXPECT_EQ(events(), (Lines{"move left>left", "enter left>left"}));
}

// --- hover ---

TEST_F(UIManagerInputTest, SendsTheMoveFirstThenLeaveThenEnter) {
    moveTo(200, 200);
    record();
    moveTo(500, 200);
    EXPECT_EQ(events(), (Lines{"move right>right", "leave left>left", "enter right>right"}));
    EXPECT_EQ(manager().getComponentAtCursor(), mRight.get());
    EXPECT_FALSE(mLeft->hasState(Component::STATE_HOVER));
    EXPECT_TRUE(mRight->hasState(Component::STATE_HOVER));
    moveTo(510, 200);
    EXPECT_EQ(events(), (Lines{"move right>right"}));
    frame();
    EXPECT_EQ(events(), (Lines{})); // it did not move
}

TEST_F(UIManagerInputTest, EntersWhoeverTookTheMove) {
    mLeft->disableEvents(UIEvent::ET_HOVER_EVENT);
    record();
    moveTo(200, 200);
    EXPECT_EQ(events(), (Lines{"move left>w", "enter w>w"}));
    EXPECT_EQ(manager().getComponentAtCursor(), mWidget.get());
}

TEST_F(UIManagerInputTest, SendsNullTargetsPastTheObserverToo) {
    manager().removeWidget(mWidget.get());
    frame();
    record();
    moveTo(200, 200);
    EXPECT_EQ(events(), (Lines{"move ->-"}));
    press();
    EXPECT_EQ(events(), (Lines{"press ->-"}));
    release();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerInputTest, LetsAnObserverReplaceTheResult) {
    manager().getEventObserver().subscribeCallback([&](UIEventHandler *, const UIEvent &, UIEventHandler *&result) {
        result = mRight.get();
        return false;
    });
    moveTo(200, 200);
    EXPECT_EQ(manager().getComponentAtCursor(), mRight.get());
}

TEST_F(UIManagerInputTest, TakesNoHandlerForAComponent) {
    const core::SmartPtr<Consumer> handler(new Consumer(mLeft.get()));
    moveTo(200, 200);
    press();
    record();
    moveTo(220, 220);
    EXPECT_EQ(events(), (Lines{"drag left>handler"}));
    EXPECT_EQ(manager().getDragging(), nullptr); // the handler took it, but it is no component
}

TEST_F(UIManagerInputTest, WhatTheCursorHasLeftIsNotHoveredAlsoWhenAFilterDroppedTheEvent) {
    moveTo(200, 200);
    ASSERT_TRUE(mLeft->hasState(Component::STATE_HOVER));
    mWidget->FilterCallbacks::subscribeCallback([](UIEventHandler *, const UIEvent &, UIEventHandler *&target) {
        target = nullptr;
        return false;
    });
    moveTo(350, 200);
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
    EXPECT_FALSE(mLeft->hasState(Component::STATE_HOVER));
}

TEST_F(UIManagerInputTest, HoverStandsStillWhileAButtonIsHeld) {
    moveTo(200, 200);
    press();
    record();
    moveTo(500, 200);
    EXPECT_EQ(events(), (Lines{"drag left>-"}));
    EXPECT_EQ(manager().getComponentAtCursor(), mLeft.get());
    release();
    events();
    moveTo(501, 200);
    EXPECT_EQ(events(), (Lines{"move right>right", "leave left>left", "enter right>right"}));
}

// --- press, release, click ---

TEST_F(UIManagerInputTest, ClicksWhatWasPressedAndReleased) {
    moveTo(200, 200);
    record();
    press();
    EXPECT_EQ(events(), (Lines{"press left>left"}));
    moveTo(202, 201);
    EXPECT_EQ(events(), (Lines{}));
    release();
    EXPECT_EQ(events(), (Lines{"release left>left", "click:200,200 left>left"}));
}

TEST_F(UIManagerInputTest, NeedsTwoFramesForAPressAndARelease) {
    moveTo(200, 200);
    record();
    queue(Mouse::LEFT, Mouse::PRESS);
    queue(Mouse::LEFT, Mouse::RELEASE);
    frame();
    EXPECT_EQ(events(), (Lines{"press left>left"}));
    frame();
    EXPECT_EQ(events(), (Lines{"release left>left", "click:200,200 left>left"}));
}

TEST_F(UIManagerInputTest, SendsNoClickForAReleaseOutside) {
    moveTo(200, 200);
    press();
    point(500, 200);
    record();
    release(); // in the same frame as the move: no drag has begun
    // The move goes to whoever took the release: there is no new hit test.
    EXPECT_EQ(events(), (Lines{"release left>left", "move left>left"}));
    moveTo(501, 200);
    EXPECT_EQ(events(), (Lines{"move right>right", "leave left>left", "enter right>right"}));
}

TEST_F(UIManagerInputTest, GivesTheReleaseToWhoeverTookThePress) {
    mLeft->disableEvents(UIEvent::ET_MOUSE_EVENT);
    moveTo(200, 200);
    record();
    press();
    release();
    EXPECT_EQ(events(), (Lines{"press left>w", "release w>w", "click:200,200 w>w"}));
}

TEST_F(UIManagerInputTest, ReleasesNothingThatWasNotPressed) {
    moveTo(200, 200);
    record();
    release();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerInputTest, ReleasesAndClicksNothingAfterAPressThatAFilterDropped) {
    mLeft->FilterCallbacks::subscribeCallback([](UIEventHandler *, const UIEvent &event, UIEventHandler *&handler) {
        if (event.getType() == UIEvent::ET_MOUSE_EVENT &&
            static_cast<const MouseEvent &>(event).getAction() == MouseEvent::MOUSE_PRESS)
            handler = nullptr;
        return false;
    });
    mLeft->setTabStop(0);
    moveTo(200, 200);
    record();
    press();
    EXPECT_EQ(events(), (Lines{"press left>-"}));
    EXPECT_FALSE(mLeft->hasState(Component::STATE_ACTIVE));
    release();
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(manager().getFocus(), nullptr);
    EXPECT_FALSE(mLeft->hasState(Component::STATE_RELEASED));
}

TEST_F(UIManagerInputTest, ConsumesOtherButtonsAndDoesNothing) {
    moveTo(200, 200);
    record();
    queue(Mouse::RIGHT, Mouse::PRESS);
    queue(Mouse::MIDDLE, Mouse::PRESS);
    queue(Mouse::LEFT, Mouse::PRESS);
    frame();
    frame();
    EXPECT_EQ(events(), (Lines{}));
    frame();
    EXPECT_EQ(events(), (Lines{"press left>left"}));
}

TEST_F(UIManagerInputTest, KeepsEightButtonChangesAndDropsMore) {
    moveTo(200, 200);
    for (int i = 0; i < 8; ++i)
        queue(Mouse::RIGHT, Mouse::PRESS);
    queue(Mouse::LEFT, Mouse::PRESS);
    record();
    for (int i = 0; i < 10; ++i)
        frame();
    EXPECT_EQ(events(), (Lines{}));
}

TEST_F(UIManagerInputTest, FocusesWhatIsPressedByItsTabStop) {
    mLeft->setTabStop(0);
    click(200, 200);
    EXPECT_EQ(manager().getFocus(), mLeft.get());
    click(500, 200); // tab stop -1
    EXPECT_EQ(manager().getFocus(), mLeft.get());
    mWidget->setTabStop(3);
    mRight->disableEvents(UIEvent::ET_MOUSE_EVENT);
    click(500, 200); // the widget takes the press
    EXPECT_EQ(manager().getFocus(), mWidget.get());
}

TEST_F(UIManagerInputTest, ClicksAComponentWithoutAView) {
    moveTo(200, 200);
    press();
    mLeft->clearView(); // nothing can be hit any more
    record();
    release();
    EXPECT_EQ(events(), (Lines{"release left>left"}));
}

// --- drag ---

TEST_F(UIManagerInputTest, BeginsADragBeyondFourPixelsOnly) {
    mLeft->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    record();
    moveTo(204, 200); // exactly 4
    EXPECT_EQ(events(), (Lines{}));
    EXPECT_EQ(manager().getDragging(), nullptr);
    moveTo(203, 203); // the square root of 18
    EXPECT_EQ(events(), (Lines{"drag left>left"}));
    EXPECT_EQ(manager().getDragging(), mLeft.get());
}

TEST_F(UIManagerInputTest, TakesAnotherDragDistance) {
    EXPECT_EQ(UIManager::getMinDragDistance(), 4);
    EXPECT_EQ(UIManager::getMinDragDistanceSqr(), 16);
    UIManager::setMinDragDistance(10);
    EXPECT_EQ(UIManager::MIN_DRAG_DISTANCE, 10);
    EXPECT_EQ(UIManager::MIN_DRAG_DISTANCE_SQR, 100);
    mLeft->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    moveTo(210, 200);
    EXPECT_EQ(manager().getDragging(), nullptr);
    moveTo(211, 200);
    EXPECT_EQ(manager().getDragging(), mLeft.get());
    UIManager::setMinDragDistance(4);
}

TEST_F(UIManagerInputTest, GivesTheFirstMoveTheWholeDistance) {
    mLeft->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    record();
    moveTo(210, 200);
    moveTo(212, 203);
    moveTo(213, 203);
    EXPECT_EQ(events(), (Lines{"drag left>left", "dragged:-12,-3 left>left", "dragged:-1,0 left>left"}));
}

TEST_F(UIManagerInputTest, EndsADragAndClicksWhatWasDraggedItself) {
    mLeft->enableEvents(UIEvent::ET_DRAG_EVENT);
    mLeft->setScrollMask(0);
    moveTo(200, 200);
    press();
    moveTo(210, 200);
    record();
    release();
    EXPECT_EQ(events(), (Lines{"release left>left", "click:200,200 left>left", "drop left>left"}));
    EXPECT_EQ(manager().getDragging(), nullptr);
}

TEST_F(UIManagerInputTest, ClicksWhenTheDragOfAnotherDidNotScroll) {
    mWidget->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    moveTo(210, 200);
    moveTo(211, 200);
    ASSERT_EQ(manager().getDragging(), mWidget.get());
    record();
    release();
    EXPECT_EQ(events(), (Lines{"release left>left", "click:200,200 left>left", "drop w>w"}));
}

TEST_F(UIManagerInputTest, DoesNotClickWhatAScrollWasBegunOn) {
    const auto content = addPanel(*mLeft, "content", 0, 0, 180, 500);
    mLeft->setScrollMask(Container::SCROLL_VERTICAL);
    frame();
    frame();
    moveTo(150, 200);
    press();
    moveTo(150, 190);
    moveTo(150, 180);
    ASSERT_EQ(manager().getDragging(), mLeft.get());
    ASSERT_NE(mLeft->getScrollOffset().y, 0);
    record();
    release();
    EXPECT_EQ(events(), (Lines{"release content>content", "drop left>left"}));
    click(150, 200);
    EXPECT_EQ(events().back(), "click:150,200 content>content"); // the next one does
}

TEST_F(UIManagerInputTest, LeavesWhatIsHoveredWhenTheDragLeavesIt) {
    mWidget->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    moveTo(210, 200);
    record();
    moveTo(290, 200);
    EXPECT_EQ(events(), (Lines{"dragged:-90,0 w>w"}));
    moveTo(350, 200);
    EXPECT_EQ(events(), (Lines{"dragged:-60,0 w>w", "leave left>left"}));
    EXPECT_EQ(manager().getComponentAtCursor(), nullptr);
}

TEST_F(UIManagerInputTest, HoversAgainInTheFrameOfTheRelease) {
    mLeft->enableEvents(UIEvent::ET_DRAG_EVENT);
    moveTo(200, 200);
    press();
    moveTo(290, 200);
    point(500, 200);
    record();
    release();
    // The target of the move is what took the end of the drag; there is no new hit test.
    EXPECT_EQ(events(), (Lines{"release left>left", "drop left>left", "move left>left"}));
}

// --- wheel ---

TEST_F(UIManagerInputTest, SendsTheChangeOfTheWheelToTheTarget) {
    mLeft->enableEvents(UIEvent::ET_WHEEL_EVENT);
    moveTo(200, 200);
    record();
    manager().setMouseWheel(3);
    frame();
    manager().setMouseWheel(1);
    frame();
    frame();
    EXPECT_EQ(events(), (Lines{"wheel:3 left>left", "wheel:-2 left>left"}));
}

TEST_F(UIManagerInputTest, SendsTheWheelToWhoeverTookTheMove) {
    mLeft->disableEvents(UIEvent::ET_HOVER_EVENT);
    mLeft->enableEvents(UIEvent::ET_WHEEL_EVENT);
    point(200, 200);
    manager().setMouseWheel(1);
    record();
    frame();
    EXPECT_EQ(events(), (Lines{"move left>w", "enter w>w", "wheel:1 w>-"}));
}

TEST_F(UIManagerInputTest, DropsTheWheelWithoutATargetAndCountsOn) {
    mWidget->setVisible(false);
    frame();
    record();
    manager().setMouseWheel(5);
    frame();
    mWidget->setVisible(true);
    mWidget->enableEvents(UIEvent::ET_WHEEL_EVENT);
    frame();
    moveTo(10, 10);
    for (const std::string &line : events())
        EXPECT_EQ(line.find("wheel"), std::string::npos) << line;
    manager().setMouseWheel(6);
    frame();
    EXPECT_EQ(events(), (Lines{"wheel:1 w>w"}));
}

TEST_F(UIManagerInputTest, TakesAWheelThatRunsOver) {
    mWidget->enableEvents(UIEvent::ET_WHEEL_EVENT);
    moveTo(10, 10);
    manager().setMouseWheel(std::numeric_limits<int>::max());
    frame();
    record();
    manager().setMouseWheel(std::numeric_limits<int>::min());
    frame();
    EXPECT_EQ(events(), (Lines{"wheel:1 w>w"}));
}
