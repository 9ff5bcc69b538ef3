#include "nui/ui/css/NAnchor.h"

#include "nui/ui/css/Common.h"

namespace nurel::ui::css {

// There is one value only, and states for four
NAnchor::NAnchor() : Property(NANCHOR, 4) {}

Property *NAnchor::clone() const {
    return cloneOf(*this);
}

const char *NAnchor::_getValueString(int) const {
    return Common::unparseAnchor(mAnchor);
}

bool NAnchor::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mAnchor = static_cast<const NAnchor *>(other)->mAnchor;
    return true;
}

bool NAnchor::_setValue(const char *text, int &index) {
    return advance(index) == 0 && Common::parseAnchor(text, mAnchor);
}

void NAnchor::_clone(Property *copy) const {
    if (isSameKind(copy))
        static_cast<NAnchor *>(copy)->mAnchor = mAnchor;
}

} // namespace nurel::ui::css
