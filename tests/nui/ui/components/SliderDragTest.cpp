// Sliders under the hand: dragged, and clicked beside the thumb.
#include "nui/ui/components/SliderFixture.h"

using namespace nurel::ui;
using components::Slider;
using nurel::math::Vector2;
using test::SliderTest;

// --- dragging ---

TEST_F(SliderTest, AThumbIsDragged) {
    moveTo(199, 120);
    press();
    EXPECT_EQ(mSlider->getThumb()->getState() & Component::STATE_ACTIVE, Component::STATE_ACTIVE);
    moveTo(210, 125); // begins
    EXPECT_EQ(manager().getDragging(), mSlider.get());
    EXPECT_EQ(seen(), Lines{});
    moveTo(220, 130); // the whole way from the press
    EXPECT_EQ(x(), 20.5f);
    EXPECT_EQ(mSlider->getThumb()->getComponentPosition().absolute.y, 0);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (20.5f - LOWEST) * 100 / TRAVEL);
    EXPECT_EQ(seen(), (Lines{"slider 50>61.6022"}));
    moveTo(230, 300); // the cursor may leave it
    EXPECT_EQ(x(), 30.5f);
    moveTo(230, 120);
    moveTo(231, 120);
    release();
    EXPECT_EQ(x(), 31.5f);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (31.5f - LOWEST) * 100 / TRAVEL);
    EXPECT_EQ(seen(), (Lines{"slider 61.6022>67.1271", "slider 67.1271>67.1271", "slider 67.1271>67.6796"}));
    EXPECT_EQ(manager().getDragging(), nullptr);
}

TEST_F(SliderTest, DraggingPastTheEndStopsThereAndSoDoesTheValue) {
    for (const float end : {100.0f, 0.3f, 7.7f, 1e-3f, 3e30f}) {
        mSlider->setRange(-end / 3, end, false);
        mSlider->onDragBegin(CursorPosition());
        dragTo(1000);
        EXPECT_EQ(x(), HIGHEST);
        EXPECT_EQ(mSlider->getValue(), end);
        dragTo(-20); // it comes back at once: what went past the end is forgotten
        EXPECT_EQ(x(), HIGHEST - 20);
        EXPECT_LT(mSlider->getValue(), end);
        dragTo(-1000);
        EXPECT_EQ(x(), LOWEST);
        EXPECT_EQ(mSlider->getValue(), -end / 3);
    }
    mSeen.clear();
}

TEST_F(SliderTest, WhileItIsDraggedTheThumbSnapsAndTheValueDoesNot) {
    mSlider->setAccuracy(10, false);
    mSlider->onDragBegin(CursorPosition());
    dragTo(4);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (MIDDLE + 4 - LOWEST) * 100 / TRAVEL);
    EXPECT_FLOAT_EQ(x(), placeOf(50));
    dragTo(15); // from where the cursor has taken it, not from where it snapped to
    EXPECT_FLOAT_EQ(mSlider->getValue(), (MIDDLE + 19 - LOWEST) * 100 / TRAVEL);
    EXPECT_FLOAT_EQ(x(), placeOf(60));
    mSlider->setValue(mSlider->getValue(), false);
    EXPECT_EQ(mSlider->getValue(), 60);
    mSeen.clear();
}

TEST_F(SliderTest, EveryMoveOfADragIsTold) {
    mSlider->onDragBegin(CursorPosition());
    mSlider->onDragMove({0, 5}, CursorPosition());
    mSlider->onDragMove({0, 0}, CursorPosition());
    EXPECT_EQ(seen(), (Lines{"slider 50>50", "slider 50>50"}));
}

TEST_F(SliderTest, ADragKeepsHeightAndFractionThatTheThumbHadWhenItBegan) {
    Panel *thumb = mSlider->getThumb();
    thumb->setPosition(Vector2(0, 7), Vector2(0.25f, 0.5f));
    mSlider->onDragBegin(CursorPosition());
    thumb->setPosition(Vector2(1, 1), Vector2(0, 0));
    dragTo(10);
    EXPECT_EQ(thumb->getComponentPosition().absolute, Vector2(10, 7));
    EXPECT_EQ(thumb->getComponentPosition().relative, Vector2(0.25f, 0.5f));
    mSeen.clear();
}

TEST_F(SliderTest, ADragMarksTheView) {
    mSlider->onDragBegin(CursorPosition());
    OpenSlider::clean(*mSlider);
    mSlider->onDragMove({0, 0}, CursorPosition());
    EXPECT_EQ(mSlider->isDirty(Component::DIRTY_ALL), static_cast<unsigned int>(Component::DIRTY_VIEW));
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackOfADragRunsBeforeTheThumbMoves) {
    float seenAt = 1000;
    mSlider->ChangeCallbacks::subscribeCallback([&](Slider *slider, float) {
        seenAt = xOf(*slider);
        slider->setValue(0, false);
        return false;
    });
    mSlider->onDragBegin(CursorPosition());
    dragTo(10);
    EXPECT_EQ(seenAt, MIDDLE);
    EXPECT_EQ(mSlider->getValue(), 0); // what the callback set stays, and the thumb is where the cursor has it
    EXPECT_EQ(x(), MIDDLE + 10);
    mSeen.clear();
}

TEST_F(SliderTest, AThumbWithoutRoomIsNotMovedByHand) {
    for (const float width : {101.0f, 300.0f}) { // no travel, and one the wrong way round
        place(*mSlider, 100, 100, 100, 40);
        mSlider->getThumb()->setSize({width, 40});
        mSlider->setValue(30, false);
        frame();
        const float before = x();
        mSlider->onDragBegin(CursorPosition());
        dragTo(40);
        EXPECT_EQ(mSlider->getValue(), 30);
        EXPECT_EQ(x(), before);
    }
    EXPECT_EQ(seen(), (Lines{"slider 30>30", "slider 30>30"}));
}

// --- jumping ---

TEST_F(SliderTest, AReleaseOnTheTrackTakesTheThumbThere) {
    moveTo(280, 130);
    press();
    EXPECT_EQ(seen(), Lines{});
    EXPECT_EQ(x(), MIDDLE);
    release();
    EXPECT_NEAR(x(), 80, 1e-3);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (80 - LOWEST) * 100 / TRAVEL);
    EXPECT_EQ(seen(), (Lines{"slider 50>94.4751"}));
    frame();
    EXPECT_NEAR(x(), 80, 1e-3);
    click(299, 120);
    EXPECT_EQ(x(), HIGHEST);
    EXPECT_EQ(mSlider->getValue(), 100);
    click(101, 120);
    EXPECT_EQ(x(), LOWEST);
    EXPECT_EQ(mSlider->getValue(), 0);
    EXPECT_EQ(seen(), (Lines{"slider 94.4751>100", "slider 100>0"}));
}

TEST_F(SliderTest, AJumpIsToldOnlyIfTheValueChanged) {
    mSlider->setValue(100, false);
    mSlider->getThumb()->setSize({20, 2}); // out of the cursor's way
    frame();
    click(298, 101);
    click(299, 101); // both past the end of the travel
    EXPECT_EQ(mSlider->getValue(), 100);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, AJumpSnapsTheThumbAndNotTheValue) {
    mSlider->setAccuracy(10, false);
    click(280, 130);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (80 - LOWEST) * 100 / TRAVEL);
    EXPECT_FLOAT_EQ(x(), placeOf(90));
    mSeen.clear();
}

TEST_F(SliderTest, AJumpKeepsHeightAndFraction) {
    mSlider->getThumb()->setPosition(Vector2(0, 7), Vector2(0.25f, 0.5f));
    frame();
    click(120, 102);
    EXPECT_NEAR(x(), -80, 1e-3);
    EXPECT_EQ(mSlider->getThumb()->getComponentPosition().absolute.y, 7);
    EXPECT_EQ(mSlider->getThumb()->getComponentPosition().relative, Vector2(0.25f, 0.5f));
    mSeen.clear();
}

TEST_F(SliderTest, AReleaseOfThePressedThumbIsNoJump) {
    click(205, 125);
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(mSlider->getValue(), 50);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, AReleaseOverTheThumbCountsFromTheMiddleOfTheSlider) {
    mSlider->setValue(100, false); // around 290
    frame();
    moveTo(150, 120);
    press();
    moveTo(285, 120);
    EXPECT_EQ(manager().getDragging(), mSlider.get());
    release();
    EXPECT_NEAR(x(), 85, 1e-3);
    EXPECT_FLOAT_EQ(mSlider->getValue(), (85 - LOWEST) * 100 / TRAVEL);
    EXPECT_EQ(seen(), (Lines{"slider 100>97.2376"}));
}

TEST_F(SliderTest, AReleaseBesideTheSliderIsNoJump) {
    moveTo(280, 120);
    press();
    moveTo(280, 200); // begins a drag, which does not move yet
    release();
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, OnlyAReleaseMakesItJump) {
    const CursorPosition cursor{280, 120};
    point(280, 120);
    Ray ray;
    ray.origin = {280, 120, -50};
    ray.direction = {0, 0, 1, 0};
    EXPECT_EQ(mSlider->handleEvent(MouseEvent(ray, cursor, MouseEvent::MOUSE_PRESS, 0, 1)), mSlider.get());
    mSlider->handleEvent(ClickEvent(ray, cursor, cursor));
    mSlider->handleEvent(HoverEvent(ray, cursor, HoverEvent::HOVER_MOVE));
    mSlider->handleEvent(WheelEvent(ray, cursor, 3));
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(mSlider->handleEvent(MouseEvent(ray, cursor, MouseEvent::MOUSE_RELEASE, 0, 0)), mSlider.get());
    EXPECT_NE(x(), MIDDLE); // also for the release of a press that was cancelled
    mSeen.clear();
}

TEST_F(SliderTest, ADisabledOrHiddenOneDoesNotJump) {
    const CursorPosition cursor{280, 120};
    Ray ray;
    ray.origin = {280, 120, -50};
    ray.direction = {0, 0, 1, 0};
    const MouseEvent release(ray, cursor, MouseEvent::MOUSE_RELEASE, 0, 1);
    mSlider->setEnabled(false);
    EXPECT_EQ(mSlider->handleEvent(release), mPanel.get()); // whoever is next gets it
    mSlider->setEnabled(true);
    mSlider->setVisible(false);
    mSlider->handleEvent(release);
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, KeysAndTheWheelDoNothing) {
    mSlider->setTabStop(0);
    mSlider->setFocus();
    ASSERT_TRUE(mSlider->hasFocus());
    key(nurel::input::Keyboard::K_TAB);
    key(0xcb); // left
    key(0xcd); // right
    moveTo(280, 120);
    manager().setMouseWheel(5);
    frame();
    EXPECT_EQ(mSlider->getValue(), 50);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, TakesTheFocusWhenItsTrackIsPressedAndItHasATabStop) {
    mSlider->setTabStop(0);
    moveTo(280, 120);
    press();
    EXPECT_TRUE(mSlider->hasFocus());
    release();
    mSeen.clear();
}
