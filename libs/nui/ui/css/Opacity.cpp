#include "nui/ui/css/Opacity.h"

#include "foundation/text/StringUtil.h"

namespace nurel::ui::css {

Opacity::Opacity() : Opacity(OPACITY) {}

Opacity::Opacity(Name name) : Property(name, 1) {}

Property *Opacity::clone() const {
    return cloneOf(*this);
}

bool Opacity::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mOpacity = static_cast<const Opacity *>(other)->mOpacity;
    return true;
}

bool Opacity::_setValue(const char *text, int &index) {
    if (!text || index != 0)
        return false;
    mOpacity = text::StringUtil::parseFloat(text);
    ++index;
    return true;
}

void Opacity::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<Opacity *>(copy)->mOpacity = mOpacity;
}

} // namespace nurel::ui::css
