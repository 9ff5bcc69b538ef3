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
    // the sides that the word sets beyond its own
    if (index == TOP_SIDE) {
        addValueState(RIGHT_SIDE, VALUE_SET);
        addValueState(BOTTOM_SIDE, VALUE_SET);
    }
    if (index == TOP_SIDE || index == RIGHT_SIDE)
        addValueState(LEFT_SIDE, VALUE_SET);
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
