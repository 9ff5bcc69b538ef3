#pragma once

#include "nmain/math/Vector4.h"
#include "nui/ui/css/Property.h"

namespace nurel::ui::css {

/// `border-radius: TOP RIGHT BOTTOM LEFT`: how wide the edges of a nine-slice image are. Words set sides as those of a
/// margin do, but only pixels are taken.
class BorderRadius : public Property {
public:
    static constexpr const char *CSSNAME = "border-radius";

    BorderRadius();

    BorderRadius &operator=(const BorderRadius &other) {
        Property::operator=(other);
        return *this;
    }

    /// Top, right, bottom, left in pixels, all 0 at first.
    const math::Vector4 &getBorder() const { return mBorder; }
    void setBorder(const math::Vector4 &border) { mBorder = border; }

    Property *clone() const override;
    bool _setValue(const Property *other, int index) override;

    /// The index moves on past a word that is not taken.
    bool _setValue(const char *text, int &index) override;
    void _clone(Property *copy) const override;

private:
    math::Vector4 mBorder;
};

} // namespace nurel::ui::css
