#include "nui/ui/css/Color.h"

#include "nui/ui/css/Common.h"

namespace nurel::ui::css {

Color::Color() : Property(COLOR, 1) {}

Property *Color::clone() const {
    return cloneOf(*this);
}

bool Color::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    const math::Vector4 &color = static_cast<const Color *>(other)->mColor;
    mColor = math::Vector3(color);
    return true;
}

bool Color::_setValue(const char *text, int &index) {
    return index == 0 && Common::parseColor(text, mColor);
}

void Color::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<Color *>(copy)->mColor = mColor;
}

} // namespace nurel::ui::css
