#include "nui/ui/css/SizeBase.h"

#include "nui/ui/css/Common.h"

namespace nurel::ui::css {

namespace {

constexpr int VALUE_COUNT = 2;

} // namespace

SizeBase::SizeBase(Name name) : Property(name, VALUE_COUNT) {}

void SizeBase::setSize(const Size &size) {
    switch (size.measurement) {
    case Size::PIXELS:
        mAbsolute = size.value;
        break;
    case Size::PERCENT:
        mRelative = size.value;
        break;
    case Size::AUTO:
        mAbsolute = 0;
        mRelative = 0;
        mAuto = true;
        break;
    }
}

bool SizeBase::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    const auto *const size = static_cast<const SizeBase *>(other);
    mAbsolute = size->mAbsolute;
    mRelative = size->mRelative;
    return true;
}

bool SizeBase::_setValue(const char *text, int &index) {
    if (!text || index < 0 || index >= VALUE_COUNT)
        return false;
    Size size;
    Common::parseSize(text, size);
    setSize(size);
    ++index;
    return true;
}

void SizeBase::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    auto *const size = static_cast<SizeBase *>(copy);
    size->mAbsolute = mAbsolute;
    size->mRelative = mRelative;
    size->mAuto = mAuto;
}

} // namespace nurel::ui::css
