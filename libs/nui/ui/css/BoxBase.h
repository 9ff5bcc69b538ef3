#pragma once

#include "nmain/math/Vector4.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// Four sides, one word for each value: top, right, bottom, left. The first word sets all sides, the second right and
/// left, the third bottom, the fourth left. This holds for the names of single sides too: "margin-top" sets all four
/// sides and "margin-right" both right and left; "-bottom" and "-left" alone touch one side only. A number is taken
/// whatever it counts, so 50% is 0.5 pixels. The kinds are in BoxProperties.h.
class BoxBase : public Property {
public:
    BoxBase &operator=(const BoxBase &other) {
        Property::operator=(other);
        return *this;
    }

    /// Top, right, bottom, left in pixels, all 0 at first.
    const math::Vector4 &getBox() const { return mBox; }
    void setBox(const math::Vector4 &box) { mBox = box; }

    bool _setValue(const Property *other, int index) override;
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

protected:
    explicit BoxBase(Name name);

private:
    math::Vector4 mBox;
};

} // namespace nurel::ui::css
