#pragma once

#include "nmain/math/Vector4.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `color: COLOR`, the colour of text.
class Color : public Property {
public:
    static constexpr const char *CSSNAME = "color";

    Color();

    Color &operator=(const Color &other) {
        Property::operator=(other);
        return *this;
    }

    /// Red, green, blue, alpha from 0 to 1, all 0 at first. An alpha of -1 leaves the target's alone.
    const math::Vector4 &getColor() const { return mColor; }
    void setColor(const math::Vector4 &color) { mColor = color; }

    Property *clone() const override;

    /// Copies red, green and blue. The alpha stays as it is here.
    bool _setValue(const Property *other, int index) override;

    /// The index does not move: of several words the last colour holds.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    math::Vector4 mColor;
};

} // namespace nurel::ui::css
