#pragma once

namespace nurel::ui::css {

/// A length of a style sheet: a number and what it counts.
struct Size {
    enum Measurement {
        PIXELS = 0,
        PERCENT = 1, ///< the value is a fraction: 50% is 0.5
        AUTO = 2,    ///< the value is 0
    };

    Measurement measurement = PIXELS;
    float value = 0;
};

} // namespace nurel::ui::css
