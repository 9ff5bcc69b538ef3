#include "nui/ui/components/Slider.h"

#include "nui/ui/components/SliderFixture.h"

#include "nengine/EngineFactory.h"
#include "nui/ui/AnimationContext.h"

#include <cmath>
#include <limits>

using namespace nurel::ui;
using components::Slider;
using nurel::math::Vector2;
using test::SliderTest;

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
