#include "nui/ui/css/VerticalAlign.h"

#include "nui/ui/css/detail/Words.h"

namespace nurel::ui::css {

namespace {

// By the number of the alignment
constexpr const char *WORDS[] = {"top", "center", "bottom"};

} // namespace

VerticalAlign::VerticalAlign() : Property(VERTICAL_ALIGN, 1) {}

Property *VerticalAlign::clone() const {
    return cloneOf(*this);
}

const char *VerticalAlign::_getValueString(int) const {
    return detail::getWord(mAlign, WORDS);
}

bool VerticalAlign::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mAlign = static_cast<const VerticalAlign *>(other)->mAlign;
    return true;
}

bool VerticalAlign::_setValue(const char *text, int &index) {
    const int current = advance(index);
    if (current != 0 || !text)
        return false;
    const int word = detail::findWord(text, WORDS);
    if (word < 0)
        return false;
    mAlign = static_cast<font::Font::VerticalAlignment>(word);
    return true;
}

void VerticalAlign::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<VerticalAlign *>(copy)->mAlign = mAlign;
}

} // namespace nurel::ui::css
