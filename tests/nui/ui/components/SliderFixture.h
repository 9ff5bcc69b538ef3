#pragma once

#include "nui/ui/ManagerTest.h"

#include <cstdio>
#include <limits>
#include <string>
#include <utility>

namespace test {

/// A slider on the stage, around (200, 120) and 200 wide, with a thumb of 20. Its changes are told by seen().
class SliderTest : public ManagerTest {
public:
    using Slider = nurel::ui::components::Slider;
    using CursorPosition = nurel::ui::CursorPosition;

    static constexpr float INFINITE = std::numeric_limits<float>::infinity();
    static constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
    static constexpr float LARGEST = std::numeric_limits<float>::max();

    // Places of the thumb
    static constexpr float LOWEST = -91;
    static constexpr float HIGHEST = 90;
    static constexpr float MIDDLE = -0.5f;
    static constexpr float TRAVEL = HIGHEST - LOWEST;

    /// Lets tests at the protected operations.
    class OpenSlider : public Slider {
    public:
        using Slider::onDragBegin;
        using Slider::onDragMove;
        using Slider::setClean;
        using Slider::Slider;

        static void clean(Component &component) { (component.*&OpenSlider::setClean)(DIRTY_ALL); }
    };

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

    /// A part of the way in percent, brought to the travel.
    static float placeOf(int percent) {
        return static_cast<float>(percent * static_cast<double>(TRAVEL) / 100 + static_cast<double>(LOWEST));
    }

    void dragTo(float delta) { mSlider->onDragMove({-delta, 0}, CursorPosition()); }

    static core::SmartPtr<Slider> cloneOf(const Slider &slider) { return static_cast<Slider *>(slider.clone()); }

    core::SmartPtr<Widget> mWidget;
    core::SmartPtr<Panel> mPanel;
    core::SmartPtr<OpenSlider> mSlider;
    Lines mSeen;
};

} // namespace test
