#include "nui/ui/css/Font.h"

#include "nui/ui/css/Common.h"

namespace nurel::ui::css {

Font::Font() : Property(FONT, 2) {}

Property *Font::clone() const {
    return cloneOf(*this);
}

const char *Font::_getValueString(int index) const {
    return index == CSSNAME_FAMILY_IDX ? mFamily.c_str() : nullptr;
}

bool Font::_setValue(const Property *other, int index) {
    if (!isSameKind(other))
        return false;
    const auto *const font = static_cast<const Font *>(other);
    switch (index) {
    case CSSNAME_SIZE_IDX:
        mSize = font->mSize;
        return true;
    case CSSNAME_FAMILY_IDX:
        mFamily = font->mFamily;
        return true;
    default:
        return false;
    }
}

bool Font::_setValue(const char *text, int &index) {
    if (!text)
        return false;
    switch (index) {
    case CSSNAME_SIZE_IDX:
        ++index;
        return Common::parseSize(text, mSize);
    case CSSNAME_FAMILY_IDX:
        mFamily = text;
        ++index;
        return !mFamily.empty();
    default:
        return false;
    }
}

void Font::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    auto *const font = static_cast<Font *>(copy);
    font->mFamily = mFamily;
    font->mSize = mSize;
}

} // namespace nurel::ui::css
