#include "nui/ui/components/Slider.h"

#include "nui/ui/ManagerTest.h"

#include "foundation/core/Exception.h"
#include "nengine/EngineFactory.h"
#include "nmain/core/CloningOptions.h"
#include "nui/ui/AnimationContext.h"
#include "nui/ui/layouts/FlowLayout.h"
#include "nui/ui/skins/DefaultSkin.h"

#include <cmath>
#include <functional>
#include <limits>

using namespace nurel::ui;
using components::Slider;
using nurel::math::Vector2;

namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float LARGEST = std::numeric_limits<float>::max();

// The thumb of 20 in the slider of 200
constexpr float LOWEST = -91;
constexpr float HIGHEST = 90;
constexpr float MIDDLE = -0.5f;
constexpr float TRAVEL = HIGHEST - LOWEST;

class OpenSlider : public Slider {
public:
    using Slider::onDragBegin;
    using Slider::onDragMove;
    using Slider::setClean;
    using Slider::Slider;

    static void clean(Component &component) { (component.*&OpenSlider::setClean)(DIRTY_ALL); }
};

class SliderTest : public test::ManagerTest {
public:
    SliderTest() {
        mWidget = addWidget("w");
        mPanel = addPanel(*mWidget, "panel", 0, 0, 400, 400);
        mSlider = new OpenSlider("slider");
        mSlider->getThumb()->setSize({20, 40});
        place(*mSlider, 100, 100, 200, 40);
        mPanel->addChild(mSlider.get());
        frame();
        mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float old) {
            mSeen.push_back(std::string(slider->getName()) + " " + number(old) + ">" + number(slider->getValue()));
            return false;
        });
    }

    static std::string number(float value) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
        return text;
    }

    Lines seen() { return std::exchange(mSeen, {}); }

    float x() const { return xOf(*mSlider); }
    static float xOf(const Slider &slider) { return slider.getThumb()->getComponentPosition().absolute.x; }

    void dragTo(float delta) { mSlider->onDragMove({-delta, 0}, CursorPosition()); }

    static core::SmartPtr<Slider> cloneOf(const Slider &slider) { return static_cast<Slider *>(slider.clone()); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenSlider> mSlider; ///< around (200, 120)
    Lines mSeen;
};

std::string messageOf(const std::function<void()> &act) {
    try {
        act();
    } catch (const core::Exception &e) {
        return e.getMessage();
    }
    return "nothing was raised";
}

/// A part of the way in percent, brought to the travel.
float placeOf(int percent) {
    return static_cast<float>(percent * static_cast<double>(TRAVEL) / 100 + static_cast<double>(LOWEST));
}

} // namespace

TEST_F(SliderTest, HasItsDefaults) {
    const core::SmartPtr<Slider> slider(new Slider);
    EXPECT_STREQ(slider->getName(), "");
    EXPECT_STREQ(Slider::ELEMENT, "slider");
    EXPECT_EQ(slider->getElement(), "slider");
    EXPECT_STREQ(slider->getType().getName(), "Slider");
    EXPECT_TRUE(slider->instanceOf(Container::TYPE));
    EXPECT_EQ(slider->getEventMask(), Component::EVENT_MASK_DEFAULT | 0xa1);
    EXPECT_EQ(slider->getScrollMask(), 0u);
    EXPECT_EQ(slider->getMinValue(), 0);
    EXPECT_EQ(slider->getMaxValue(), 100);
    EXPECT_EQ(slider->getAccuracy(), 0);
    EXPECT_EQ(slider->getValue(), 50);
    EXPECT_EQ(slider->getChildCount(), 1u);
}

TEST_F(SliderTest, HasAThumbFromTheStart) {
    const core::SmartPtr<Slider> slider(new Slider("name"));
    Panel *thumb = slider->getThumb();
    ASSERT_NE(thumb, nullptr);
    EXPECT_EQ(slider->getChildAt(0), thumb);
    EXPECT_STREQ(thumb->getName(), "thumb");
    EXPECT_EQ(thumb->getElement(), "slider");
    EXPECT_STREQ(thumb->getType().getName(), "SliderThumb");
    EXPECT_TRUE(thumb->instanceOf(Panel::TYPE));
    EXPECT_EQ(thumb->getAnchor(), 0x12u);
    EXPECT_EQ(thumb->getScrollMask(), 0u);
    EXPECT_EQ(thumb->getEventMask(), (Component::EVENT_MASK_DEFAULT | 0x80u) & ~0x21u);
    EXPECT_EQ(thumb->getComponentSize().absolute, Component::DEFAULT_SIZE);
    EXPECT_EQ(thumb->getComponentPosition().absolute, Vector2(0, 0));
}

TEST_F(SliderTest, IsMadeByItsClassName) {
    UIManager::getSingleton();
    const core::SmartPtr<nurel::core::Object> made = nurel::EngineFactory::getSingleton().create("Slider");
    ASSERT_NE(made.get(), nullptr);
    EXPECT_EQ(&made->getType(), &Slider::TYPE);
}

// --- where the thumb is ---

TEST_F(SliderTest, ANewOneHasItsThumbInTheMiddleOfItsTravel) {
    EXPECT_EQ(mSlider->getValue(), 50);
    EXPECT_EQ(x(), MIDDLE);
    const core::SmartPtr<Slider> unsized(new Slider("unsized"));
    mPanel->addChild(unsized.get());
    frame();
    EXPECT_EQ(xOf(*unsized), MIDDLE);
}

TEST_F(SliderTest, TheTravelFollowsFromTheWidthsOfSliderAndThumb) {
    struct Row {
        float slider, thumb, lowest, highest;
    };
    const Row rows[] = {
        {200, 20, -91, 90}, {201, 20, -91, 91}, {200, 21, -90, 90}, {203, 20, -92, 92}, {100, 100, -1, 0},
        {102, 100, -2, 1},  {100, 101, 0, 0},   {50, 100, 24, -25}, {0, 0, -1, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(number(row.slider) + " " + number(row.thumb));
        place(*mSlider, 0, 0, row.slider, 40);
        mSlider->getThumb()->setSize({row.thumb, 40});
        mSlider->setValue(0, false);
        frame();
        EXPECT_EQ(x(), row.lowest);
        mSlider->setValue(100, false);
        EXPECT_EQ(x(), row.highest);
        mSlider->setValue(50, false);
        EXPECT_EQ(x(), (row.lowest + row.highest) / 2);
    }
}

TEST_F(SliderTest, TheWidthOfAScaledThumbIsTheOneThatIsSeen) {
    mSlider->getThumb()->setScale({2, 1});
    frame();
    mSlider->setValue(0, false);
    EXPECT_EQ(x(), -80);       // 41 wide: half a pixel comes before the scale
    mSlider->setScale({3, 3}); // the track has its own units inside
    frame();
    EXPECT_EQ(x(), -80);
}

TEST_F(SliderTest, TheThumbFollowsANewWidthOfTheSliderOrItsOwnWithinTheFrame) {
    mSlider->setValue(100, false);
    EXPECT_EQ(x(), HIGHEST);
    place(*mSlider, 100, 100, 300, 40);
    frame();
    EXPECT_EQ(x(), 140);
    EXPECT_EQ(mSlider->getThumb()->getPosition().x, 140);
    mSlider->getThumb()->setWidth(40);
    frame();
    EXPECT_EQ(x(), 130);
    EXPECT_EQ(mSlider->getThumb()->getPosition().x, 130);
    EXPECT_EQ(mSlider->getThumb()->isDirty(Component::DIRTY_POSITION), 0u);
}

TEST_F(SliderTest, AThumbIsInItsPlaceAfterTheFirstUpdate) {
    const core::SmartPtr<Slider> slider(new Slider("new"));
    slider->setValue(100, false);
    slider->getThumb()->setSize({20, 20});
    place(*slider, 0, 0, 200, 20);
    mPanel->addChild(slider.get());
    manager().update();
    EXPECT_EQ(slider->getThumb()->getPosition().x, HIGHEST);
}

TEST_F(SliderTest, SomebodyElsesThumbIsNotMoved) {
    const core::SmartPtr<Component> stranger(static_cast<Component *>(mSlider->getThumb()->clone()));
    ASSERT_STREQ(stranger->getType().getName(), "SliderThumb");
    stranger->setPosition(Vector2(5, 6), Vector2(0, 0));
    stranger->setSize({30, 30});
    mSlider->setValue(0, false);
    mSlider->addChild(stranger.get());
    mPanel->addChild(static_cast<Component *>(stranger->clone()));
    frame();
    EXPECT_EQ(stranger->getComponentPosition().absolute, Vector2(5, 6));
    EXPECT_EQ(x(), LOWEST);
}

TEST_F(SliderTest, HeightDepthAndFractionOfTheThumbsPlaceStay) {
    mSlider->getThumb()->setPosition(Vector2(5, 7), Vector2(0.25f, 0.5f));
    mSlider->getThumb()->setDepth(3);
    mSlider->setValue(0, false);
    const Component::ComponentPosition &position = mSlider->getThumb()->getComponentPosition();
    EXPECT_EQ(position.absolute, Vector2(LOWEST, 7));
    EXPECT_EQ(position.relative, Vector2(0.25f, 0.5f));
    EXPECT_EQ(position.depth, 3);
    mSlider->setPosition(Vector2(1, 1), Vector2(0, 0));
    mSlider->getThumb()->setPosition(Vector2(9, 8), Vector2(0, 0));
    frame();
    EXPECT_EQ(position.absolute, Vector2(LOWEST, 8));
}

TEST_F(SliderTest, AnOpenAnimationTakesTheThumbThere) {
    manager().beginAnimation()->setDuration(1);
    mSlider->setValue(0, true);
    EXPECT_EQ(mSlider->getValue(), 0);
    EXPECT_EQ(seen(), (Lines{"slider 50>0"}));
    EXPECT_EQ(x(), MIDDLE);
    manager().commitAnimation();
    frame();
    advance(0.5);
    frame();
    EXPECT_LT(x(), MIDDLE);
    EXPECT_GT(x(), LOWEST);
    advance(2);
    frame();
    EXPECT_EQ(x(), LOWEST);
}

// --- values ---

TEST_F(SliderTest, AValueIsKeptWithinTheRange) {
    mSlider->setValue(-1, false);
    EXPECT_EQ(mSlider->getValue(), 0);
    EXPECT_EQ(x(), LOWEST);
    mSlider->setValue(101, false);
    EXPECT_EQ(mSlider->getValue(), 100);
    EXPECT_EQ(x(), HIGHEST);
    mSlider->setValue(25, false);
    EXPECT_EQ(mSlider->getValue(), 25);
    EXPECT_FLOAT_EQ(x(), placeOf(25));
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, TellsTheValueBeforeWhenItIsToldTo) {
    mSlider->setValue(30, true);
    mSlider->setValue(30, true); // also when it is the same
    mSlider->setValue(40, false);
    mSlider->setValue(200, true);
    EXPECT_EQ(seen(), (Lines{"slider 50>30", "slider 30>30", "slider 40>100"}));
}

TEST_F(SliderTest, ANewRangeKeepsTheValueWithinIt) {
    mSlider->setRange(0, 10, false);
    EXPECT_EQ(mSlider->getValue(), 10);
    EXPECT_EQ(mSlider->getMinValue(), 0);
    EXPECT_EQ(mSlider->getMaxValue(), 10);
    EXPECT_EQ(x(), HIGHEST);
    EXPECT_EQ(seen(), Lines{});
    mSlider->setRange(20, 40, true);
    EXPECT_EQ(mSlider->getValue(), 20);
    EXPECT_EQ(x(), LOWEST);
    mSlider->setRange(0, 40, true);
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(seen(), (Lines{"slider 10>20", "slider 20>20"}));
}

TEST_F(SliderTest, OneEndAloneIsSetWithoutTelling) {
    mSlider->setMinValue(60);
    EXPECT_EQ(mSlider->getMinValue(), 60);
    EXPECT_EQ(mSlider->getMaxValue(), 100);
    EXPECT_EQ(mSlider->getValue(), 60);
    EXPECT_EQ(x(), LOWEST);
    mSlider->setMaxValue(70);
    EXPECT_EQ(mSlider->getMaxValue(), 70);
    EXPECT_EQ(mSlider->getValue(), 60);
    mSlider->setMinValue(-10);
    mSlider->setMaxValue(40);
    EXPECT_EQ(mSlider->getValue(), 40);
    EXPECT_EQ(x(), HIGHEST);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, AnAccuracyRoundsDown) {
    mSlider->setAccuracy(2, false);
    mSlider->setValue(7.9f, true);
    EXPECT_EQ(mSlider->getValue(), 6);
    EXPECT_FLOAT_EQ(x(), placeOf(6));
    mSlider->setValue(100, true);
    EXPECT_EQ(seen(), (Lines{"slider 50>6", "slider 6>100"}));
    mSlider->setRange(-10, 10, false);
    mSlider->setValue(-0.5f, false);
    EXPECT_EQ(mSlider->getValue(), -2);
    EXPECT_EQ(mSlider->filterAccuracy(-4), -4);
    EXPECT_EQ(mSlider->filterAccuracy(1234.5f), 1234); // the range is not its business
    mSlider->setAccuracy(0.25f, false);
    EXPECT_EQ(mSlider->filterAccuracy(1.7f), 1.5f);
}

TEST_F(SliderTest, ANewAccuracyRoundsThePresentValue) {
    mSlider->setAccuracy(7, true);
    EXPECT_EQ(mSlider->getAccuracy(), 7);
    EXPECT_EQ(mSlider->getValue(), 49);
    EXPECT_FLOAT_EQ(x(), placeOf(49));
    mSlider->setAccuracy(0, true);
    mSlider->setAccuracy(30, false);
    EXPECT_EQ(mSlider->getValue(), 30);
    EXPECT_EQ(seen(), (Lines{"slider 50>49", "slider 49>49"}));
}

TEST_F(SliderTest, AnAccuracyOfZeroAndBelowIsNone) {
    for (const float accuracy : {0.0f, -0.0f, -1.0f, -INFINITE}) {
        mSlider->setAccuracy(accuracy, false);
        EXPECT_EQ(mSlider->getAccuracy(), accuracy);
        EXPECT_EQ(mSlider->filterAccuracy(12.5f), 12.5f);
    }
}

TEST_F(SliderTest, TheRangeComesBeforeTheAccuracy) {
    mSlider->setRange(1, 11, false);
    mSlider->setAccuracy(2, false);
    mSlider->setValue(-5, false);
    EXPECT_EQ(mSlider->getValue(), 0); // below the minimum
    EXPECT_FLOAT_EQ(x(), placeOf(-10));
    mSlider->setValue(50, false);
    EXPECT_EQ(mSlider->getValue(), 10);
}

TEST_F(SliderTest, InAnEmptyRangeTheThumbStaysInTheMiddle) {
    mSlider->setRange(30, 30, true);
    EXPECT_EQ(mSlider->getValue(), 30);
    EXPECT_EQ(x(), MIDDLE);
    mSlider->setValue(80, true);
    EXPECT_EQ(mSlider->getValue(), 30);
    EXPECT_EQ(x(), MIDDLE);
    mSlider->setRange(60, 40, true); // upside down: the maximum wins
    EXPECT_EQ(mSlider->getValue(), 40);
    EXPECT_EQ(x(), MIDDLE);
    mSlider->onDragBegin(CursorPosition());
    dragTo(50);
    EXPECT_EQ(mSlider->getValue(), 40);
    EXPECT_EQ(x(), MIDDLE);
    click(280, 120);
    EXPECT_EQ(mSlider->getValue(), 40);
    EXPECT_EQ(x(), MIDDLE);
    EXPECT_EQ(seen(), (Lines{"slider 50>30", "slider 30>30", "slider 30>40", "slider 40>40"}));
}

// --- what is no number ---

TEST_F(SliderTest, AValueThatIsNoNumberIsTheMinimum) {
    mSlider->setMinValue(10);
    mSlider->setValue(NOT_A_NUMBER, true);
    EXPECT_EQ(mSlider->getValue(), 10);
    mSlider->setValue(INFINITE, true);
    EXPECT_EQ(mSlider->getValue(), 100);
    mSlider->setValue(-INFINITE, true);
    EXPECT_EQ(mSlider->getValue(), 10);
    EXPECT_EQ(seen(), (Lines{"slider 50>10", "slider 10>100", "slider 100>10"}));
}

TEST_F(SliderTest, AnEndOrAnAccuracyThatIsNoNumberIsIgnored) {
    mSlider->setRange(NOT_A_NUMBER, 40, true);
    EXPECT_EQ(mSlider->getMinValue(), 0);
    EXPECT_EQ(mSlider->getMaxValue(), 40);
    mSlider->setRange(10, NOT_A_NUMBER, true);
    EXPECT_EQ(mSlider->getMinValue(), 10);
    EXPECT_EQ(mSlider->getMaxValue(), 40);
    mSlider->setMinValue(NOT_A_NUMBER);
    mSlider->setMaxValue(NOT_A_NUMBER);
    mSlider->setAccuracy(3, false);
    mSlider->setAccuracy(NOT_A_NUMBER, true);
    EXPECT_EQ(mSlider->getMinValue(), 10);
    EXPECT_EQ(mSlider->getMaxValue(), 40);
    EXPECT_EQ(mSlider->getAccuracy(), 3);
    EXPECT_EQ(seen(), (Lines{"slider 50>40", "slider 40>40", "slider 39>39"}));
}

TEST_F(SliderTest, RangesAccuraciesAndValuesOfAnySizeLeaveTheThumbSomewhere) {
    const float numbers[] = {0,     -0.0f,  1,       -1,       50,       1e-45f,    -1e-45f,
                             1e30f, -1e30f, LARGEST, -LARGEST, INFINITE, -INFINITE, NOT_A_NUMBER};
    for (const float minimum : numbers) {
        for (const float maximum : numbers) {
            for (const float accuracy : numbers) {
                mSlider->setRange(minimum, maximum, false);
                mSlider->setAccuracy(accuracy, false);
                for (const float value : numbers) {
                    mSlider->setValue(value, false);
                    ASSERT_FALSE(std::isnan(mSlider->getValue()));
                    ASSERT_TRUE(std::isfinite(x()));
                    mSlider->onDragBegin(CursorPosition());
                    dragTo(30);
                    ASSERT_FALSE(std::isnan(mSlider->getValue()));
                    ASSERT_TRUE(std::isfinite(x()));
                }
            }
        }
    }
    frame();
    mSeen.clear();
}

TEST_F(SliderTest, ARangeWiderThanAFloatStillHasAMiddle) {
    mSlider->setRange(-LARGEST, LARGEST, false);
    mSlider->setValue(0, false);
    EXPECT_EQ(x(), MIDDLE);
    mSlider->setValue(LARGEST, false);
    EXPECT_EQ(x(), HIGHEST);
    click(101, 120);
    EXPECT_EQ(mSlider->getValue(), -LARGEST);
    EXPECT_EQ(x(), LOWEST);
    mSeen.clear();
}

TEST_F(SliderTest, AnEndlessRangeIsEmpty) {
    mSlider->setRange(-INFINITE, INFINITE, false);
    mSlider->setValue(7, false);
    EXPECT_EQ(mSlider->getValue(), 7);
    EXPECT_EQ(x(), MIDDLE);
    click(280, 120);
    EXPECT_EQ(mSlider->getValue(), 7);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, AnAccuracyTooFineOrEndlessDoesNotRound) {
    mSlider->setAccuracy(std::numeric_limits<float>::denorm_min(), false);
    EXPECT_EQ(mSlider->getValue(), 50);
    mSlider->setAccuracy(INFINITE, false);
    EXPECT_EQ(mSlider->getValue(), 50);
    EXPECT_EQ(x(), MIDDLE);
}

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

// --- callbacks that take things away ---

TEST_F(SliderTest, ACallbackThatReturnsTrueIsCalledOnce) {
    int calls = 0;
    mSlider->ChangeCallbacks::subscribeCallback([&](Slider *, float) { return ++calls > 0; });
    mSlider->setValue(1, true);
    mSlider->setValue(2, true);
    EXPECT_EQ(calls, 1);
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheSliderInADrag) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float) {
        slider->getParent()->removeChild(slider);
        mSlider = nullptr;
        return false;
    });
    moveTo(199, 120);
    press();
    moveTo(210, 120);
    moveTo(220, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    moveTo(230, 120);
    release();
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheSliderInAJump) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *slider, float) {
        slider->getParent()->removeChild(slider);
        mSlider = nullptr;
        return true;
    });
    click(280, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    EXPECT_EQ(mPanel->getChildCount(), 0u);
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndTheWholeScreen) {
    mSlider->ChangeCallbacks::subscribeCallback([this](Slider *, float) {
        manager().removeWidget(mWidget.get());
        mPanel->clearChildren();
        mSlider = nullptr;
        mPanel = nullptr;
        mWidget = nullptr;
        return false;
    });
    click(280, 120);
    EXPECT_EQ(mSlider.get(), nullptr);
    frame();
    mSeen.clear();
}

TEST_F(SliderTest, ACallbackMayEndASliderThatNobodyElseHolds) {
    core::SmartPtr<Slider> slider(new Slider("alone"));
    int calls = 0;
    slider->ChangeCallbacks::subscribeCallback([&](Slider *, float) {
        ++calls;
        slider = nullptr;
        return false;
    });
    slider->setValue(3, true);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(slider.get(), nullptr);
}

TEST_F(SliderTest, ACallbackMayTakeTheThumbOut) {
    mSlider->ChangeCallbacks::subscribeCallback([](Slider *slider, float) {
        slider->clearChildren();
        return false;
    });
    mSlider->onDragBegin(CursorPosition());
    dragTo(10);
    dragTo(10);
    click(280, 120);
    EXPECT_EQ(mSlider->getChildCount(), 0u);
    ASSERT_NE(mSlider->getThumb(), nullptr);
    mSlider->setValue(0, true);
    EXPECT_EQ(x(), LOWEST);
    mSeen.clear();
}

TEST_F(SliderTest, AThumbOutlivesItsSlider) {
    const core::SmartPtr<Panel> thumb(mSlider->getThumb());
    mPanel->removeChild(mSlider.get());
    mSlider = nullptr;
    EXPECT_FALSE(thumb->hasParent());
    mPanel->addChild(thumb.get());
    thumb->setWidth(33);
    frame();
    EXPECT_EQ(thumb->getSize().x, 33);
}

// --- classes ---

TEST_F(SliderTest, ClassesReachTheThumb) {
    constexpr unsigned int STYLE = Component::DIRTY_STYLE | Component::DIRTY_VIEW;
    Panel *thumb = mSlider->getThumb();
    const auto clean = [&] {
        OpenSlider::clean(*mSlider);
        OpenSlider::clean(*thumb);
    };
    clean();
    mSlider->addClass("a");
    EXPECT_TRUE(mSlider->hasClass("a"));
    EXPECT_TRUE(thumb->hasClass("a"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    mSlider->setClass("b");
    clean();
    mSlider->removeClass("a");
    EXPECT_FALSE(mSlider->hasClass("a"));
    EXPECT_FALSE(thumb->hasClass("a"));
    EXPECT_TRUE(thumb->hasClass("b"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    clean();
    mSlider->removeClasses();
    EXPECT_FALSE(thumb->hasClass("b"));
    EXPECT_EQ(mSlider->isDirty(STYLE), STYLE);
    EXPECT_EQ(thumb->isDirty(STYLE), STYLE);
    mSlider->addClass(nullptr);
    mSlider->removeClass(nullptr);
}

// --- clones ---

TEST_F(SliderTest, AClonesFieldsAreThoseOfItsSource) {
    mSlider->setRange(10, 20, false);
    mSlider->setAccuracy(0.5f, false);
    mSlider->setValue(12.5f, false);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    EXPECT_EQ(&copy->getType(), &Slider::TYPE);
    EXPECT_STREQ(copy->getName(), "slider");
    EXPECT_EQ(copy->getMinValue(), 10);
    EXPECT_EQ(copy->getMaxValue(), 20);
    EXPECT_EQ(copy->getAccuracy(), 0.5f);
    EXPECT_EQ(copy->getValue(), 12.5f);
    EXPECT_EQ(copy->getEventMask(), mSlider->getEventMask());
    EXPECT_EQ(copy->getScrollMask(), 0u);
    copy->setValue(11, true); // subscriptions are not cloned
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(SliderTest, ACloneHasAThumbOfItsOwn) {
    Panel *thumb = mSlider->getThumb();
    thumb->setEventMask(0);
    thumb->setAnchor(Component::ANCHOR_TOP_LEFT);
    thumb->setName("knob");
    thumb->addClass("special");
    mSlider->addClass("big");
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 1u);
    Panel *own = copy->getThumb();
    EXPECT_EQ(copy->getChildAt(0), own);
    EXPECT_NE(own, thumb);
    EXPECT_STREQ(own->getName(), "thumb");
    EXPECT_STREQ(own->getType().getName(), "SliderThumb");
    EXPECT_EQ(own->getEventMask(), (Component::EVENT_MASK_DEFAULT | 0x80u) & ~0x21u);
    EXPECT_EQ(own->getAnchor(), 0x12u);
    EXPECT_EQ(own->getComponentSize().absolute, Component::DEFAULT_SIZE);
    EXPECT_TRUE(own->hasClass("big"));
    EXPECT_FALSE(own->hasClass("special"));
    own->setSize({20, 40});
    mPanel->addChild(copy.get());
    copy->setValue(100, false);
    frame();
    EXPECT_EQ(xOf(*copy), HIGHEST);
    EXPECT_EQ(x(), MIDDLE);
}

TEST_F(SliderTest, ACloneTakesOverWhereADragWas) {
    mSlider->getThumb()->setPosition(Vector2(0, 9), Vector2(0, 0.5f));
    mSlider->onDragBegin(CursorPosition());
    dragTo(30);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    copy->getThumb()->setSize({20, 40});
    mPanel->addChild(copy.get());
    frame();
    (static_cast<Slider &>(*copy).*&OpenSlider::onDragMove)({-10, 0}, CursorPosition());
    EXPECT_EQ(copy->getThumb()->getComponentPosition().absolute, Vector2(40, 9));
    EXPECT_EQ(copy->getThumb()->getComponentPosition().relative, Vector2(0, 0.5f));
    mSeen.clear();
}

TEST_F(SliderTest, AClonesThumbIsInTheOldOnesPlaceAmongTheChildren) {
    const auto child = [](const char *name, int zIndex) {
        Panel *made = new Panel(name);
        made->setZIndex(zIndex);
        return made;
    };
    mSlider->addChild(child("below", -1));
    mSlider->addChild(child("mark", 0));
    mSlider->addChild(child("thumb", 0)); // not the one
    mSlider->addChild(child("above", 1));
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 5u);
    EXPECT_STREQ(copy->getChildAt(0)->getName(), "below");
    EXPECT_EQ(copy->getChildAt(1), copy->getThumb());
    EXPECT_STREQ(copy->getChildAt(2)->getName(), "mark");
    EXPECT_STREQ(copy->getChildAt(3)->getName(), "thumb");
    EXPECT_EQ(&copy->getChildAt(3)->getType(), &Panel::TYPE);
    EXPECT_STREQ(copy->getChildAt(4)->getName(), "above");
}

TEST_F(SliderTest, AClonesLayoutHasTheSameChildren) {
    const core::SmartPtr<layouts::FlowLayout> layout(new layouts::FlowLayout);
    mSlider->setLayout(layout.get());
    const core::SmartPtr<Panel> in(new Panel("in"));
    const core::SmartPtr<Panel> out(new Panel("out"));
    mSlider->addChild(in.get(), true);
    mSlider->addChild(out.get(), false);
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 3u);
    ASSERT_TRUE(copy->hasLayout());
    EXPECT_TRUE(copy->getLayout()->hasComponent(copy->getThumb()));
    EXPECT_TRUE(copy->getLayout()->hasComponent(copy->getChildAt(1)));
    EXPECT_FALSE(copy->getLayout()->hasComponent(copy->getChildAt(2)));
}

TEST_F(SliderTest, ACloneFindsTheThumbAtAnyDepth) {
    const core::SmartPtr<Panel> thumb(mSlider->getThumb());
    mSlider->clearChildren();
    const core::SmartPtr<Panel> outer(new Panel("outer"));
    outer->addChild(thumb.get());
    mSlider->addChild(outer.get());
    const core::SmartPtr<Slider> copy = cloneOf(*mSlider);
    ASSERT_EQ(copy->getChildCount(), 2u);
    EXPECT_EQ(static_cast<Panel *>(copy->getChildAt(0))->getChildCount(), 0u);
    EXPECT_EQ(copy->getChildAt(1), copy->getThumb());
}

TEST_F(SliderTest, ACloneOfOneWithoutItsThumbHasOne) {
    mSlider->clearChildren();
    nurel::core::CloningOptions options;
    core::SmartPtr<Slider> copy(static_cast<Slider *>(mSlider->clone(options)));
    EXPECT_EQ(copy->getChildCount(), 1u);
    copy = static_cast<Slider *>(mSlider->clone(options)); // the same options once more
    EXPECT_EQ(copy->getChildCount(), 1u);
    EXPECT_EQ(copy->getChildAt(0), copy->getThumb());
}

TEST_F(SliderTest, AClonesTargetLosesWhatItHad) {
    const core::SmartPtr<Slider> target(new Slider("target"));
    Panel *thumb = target->getThumb();
    target->addClass("old");
    target->addChild(new Panel("child"));
    target->setValue(3, false);
    mSlider->addClass("new");
    nurel::core::CloningOptions options;
    mSlider->_clone(target.get(), options);
    EXPECT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getThumb(), thumb);
    EXPECT_EQ(target->getChildAt(0), thumb);
    EXPECT_EQ(target->getValue(), 50);
    EXPECT_FALSE(thumb->hasClass("old"));
    EXPECT_TRUE(thumb->hasClass("new"));
    mSlider->_clone(mSlider.get(), options);
    EXPECT_EQ(mSlider->getChildCount(), 1u);
}

TEST_F(SliderTest, AClonesTargetTakesItsThumbBackFromElsewhere) {
    const core::SmartPtr<Slider> target(new Slider("target"));
    target->clearChildren();
    mPanel->addChild(target->getThumb());
    nurel::core::CloningOptions options;
    mSlider->_clone(target.get(), options);
    ASSERT_EQ(target->getChildCount(), 1u);
    EXPECT_EQ(target->getChildAt(0), target->getThumb());
    EXPECT_EQ(mPanel->getChildCount(), 1u);
}

TEST_F(SliderTest, IsNotClonedIntoSomethingElse) {
    nurel::core::CloningOptions options;
    EXPECT_EQ(messageOf([&] { mSlider->_clone(mPanel.get(), options); }), "Slider cannot be cloned into Panel");
    EXPECT_EQ(messageOf([&] { mSlider->_clone(nullptr, options); }), "Slider cannot be cloned into nothing");
}

// --- views ---

TEST_F(SliderTest, IsSkinnedWithItsThumb) {
    ASSERT_NE(mSlider->getView(), nullptr);
    ASSERT_NE(mSlider->getThumb()->getView(), nullptr);
    EXPECT_EQ(mSlider->getThumb()->getView()->getParent(), mSlider->getView()->getContent());
}

TEST_F(SliderTest, TheStyleFreeSkinShowsNothingAndNothingCanBeHit) {
    const core::SmartPtr<skins::DefaultSkin> plain(new skins::DefaultSkin);
    SkinManager::getSingleton().addSkin(plain.get());
    SkinManager::getSingleton().setDefaultSkin(plain.get());
    const core::SmartPtr<Widget> widget(new Widget("plain"));
    const core::SmartPtr<Slider> slider(new Slider("s"));
    place(*slider, 0, 0, 200, 40);
    slider->getThumb()->setSize({20, 40});
    widget->addChild(slider.get());
    manager().setView(widget.get());
    manager().addWidget(widget.get());
    frame();
    EXPECT_FALSE(slider->hasView());
    EXPECT_FALSE(slider->getThumb()->hasView());
    EXPECT_EQ(slider->getSize(), Vector2(200, 40));
    slider->setValue(0, false);
    EXPECT_EQ(xOf(*slider), LOWEST);
    click(180, 20);
    EXPECT_EQ(slider->getValue(), 0);
}
