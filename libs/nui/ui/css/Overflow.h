#pragma once

#include "nui/ui/css/Property.h"

#include <cstdint>

namespace nurel::ui::css {

/// `overflow: X Y`: what happens to a container's content that sticks out. One word sets both axes, "overflow-x" too.
class Overflow : public Property {
public:
    static constexpr const char *CSSNAME = "overflow";
    static constexpr const char *CSSNAME_X = "overflow-x";
    static constexpr int CSSNAME_X_IDX = 0;
    static constexpr const char *CSSNAME_Y = "overflow-y";
    static constexpr int CSSNAME_Y_IDX = 1;

    enum Behavior : std::uint8_t { VISIBLE = 0, HIDDEN = 1, SCROLL = 2, AUTO = 3 };

    Overflow();

    Overflow &operator=(const Overflow &other) {
        Property::operator=(other);
        return *this;
    }

    /// Visible at first.
    Behavior getX() const { return mX; }
    Behavior getY() const { return mY; }
    void setX(Behavior x) { mX = x; }
    void setY(Behavior y) { mY = y; }

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;

    /// The index stays at a bad word.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    Behavior mX = VISIBLE;
    Behavior mY = VISIBLE;
};

} // namespace nurel::ui::css
