#include "nui/ui/css/BorderRadius.h"

#include "nui/ui/css/Common.h"
#include "nui/ui/css/detail/Sides.h"

namespace nurel::ui::css {

using namespace detail;

BorderRadius::BorderRadius() : Property(BORDER_RADIUS, SIDE_COUNT) {}

Property *BorderRadius::clone() const {
    return cloneOf(*this);
}

bool BorderRadius::_setValue(const Property *other, int index) {
    return isSameKind(other) && copySide(static_cast<const BorderRadius *>(other)->mBorder, index, mBorder);
}

bool BorderRadius::_setValue(const char *text, int &index) {
    const int current = advance(index);
    if (!text || !isSide(current))
        return false;
    Size size;
    Common::parseSize(text, size);
    if (size.measurement != Size::PIXELS)
        return false;
    setSides(mBorder, current, size.value);
    // the caller marks the word's own side
    for (int side = current + 1; side < SIDE_COUNT; ++side) {
        if (isForSide(current, side))
            addValueState(side, VALUE_SET);
    }
    return true;
}

void BorderRadius::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<BorderRadius *>(copy)->mBorder = mBorder;
}

} // namespace nurel::ui::css
