#pragma once

#include "nui/ui/ManagerTest.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace test {

/// Moves the manual clock step by step, and says what components look like after each step.
class ScenarioTest : public ManagerTest {
public:
    /// Moves the clock by whole milliseconds and runs a frame.
    void after(int milliseconds) {
        if (milliseconds > 0)
            advance(milliseconds / 1000.0);
        frame();
    }

    using ManagerTest::place;

    /// "x,y": the centre relative to the parent's centre.
    static std::string place(const Component &component) {
        char text[64];
        std::snprintf(text, sizeof text, "%g,%g", static_cast<double>(component.getPosition().x),
                      static_cast<double>(component.getPosition().y));
        return text;
    }

    /// How far it is turned around the y axis, from -180 to 180 degrees.
    static float turnY(const Component &component) {
        const nurel::math::Matrix3 &r = component.getRotation();
        return std::atan2(r(2, 0), r(0, 0)) * DEGREES;
    }

    /// The same around the x axis.
    static float turnX(const Component &component) {
        const nurel::math::Matrix3 &r = component.getRotation();
        return std::atan2(r(1, 2), r(1, 1)) * DEGREES;
    }

    /// The names of the children in drawing order, without the scroll bars.
    static std::string children(const Container &container) {
        std::string names;
        for (unsigned int i = 0; i < container.getChildCount(); ++i)
            names += (i > 0 ? " " : "") + std::string(container.getChildAt(i)->getName());
        return names;
    }

private:
    static constexpr float DEGREES = 57.29577951f;
};

} // namespace test
