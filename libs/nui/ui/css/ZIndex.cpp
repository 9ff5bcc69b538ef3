#include "nui/ui/css/ZIndex.h"

#include "nui/ui/css/detail/NumberScan.h"

namespace nurel::ui::css {

ZIndex::ZIndex() : Property(ZINDEX, 1) {}

Property *ZIndex::clone() const {
    return cloneOf(*this);
}

bool ZIndex::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mValue = static_cast<const ZIndex *>(other)->mValue;
    return true;
}

bool ZIndex::_setValue(const char *text, int &index) {
    if (!text || index != 0 || !detail::scanInt(text, mValue))
        return false;
    ++index;
    return true;
}

void ZIndex::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<ZIndex *>(copy)->mValue = mValue;
}

} // namespace nurel::ui::css
