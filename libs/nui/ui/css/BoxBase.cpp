#include "nui/ui/css/BoxBase.h"

#include "nui/ui/css/Common.h"
#include "nui/ui/css/detail/Sides.h"

namespace nurel::ui::css {

using namespace detail;

BoxBase::BoxBase(Name name) : Property(name, SIDE_COUNT) {}

bool BoxBase::_setValue(const Property *other, int index) {
    return isSameKind(other) && copySide(static_cast<const BoxBase *>(other)->mBox, index, mBox);
}

bool BoxBase::_setValue(const char *text, int &index) {
    if (!text || !isSide(index))
        return false;
    Size size;
    Common::parseSize(text, size);
    setSides(mBox, index, size.value);
    // the caller marks the word's own side
    for (int side = index + 1; side < SIDE_COUNT; ++side) {
        if (isForSide(index, side))
            addValueState(side, VALUE_SET);
    }
    ++index;
    return true;
}

void BoxBase::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<BoxBase *>(copy)->mBox = mBox;
}

} // namespace nurel::ui::css
