#include "nui/ui/css/VerticalAlign.h"

#include <cstring>
#include <iterator>

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
    const auto number = static_cast<std::size_t>(mAlign);
    return number < std::size(WORDS) ? WORDS[number] : nullptr;
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
    for (std::size_t i = 0; i < std::size(WORDS); ++i) {
        if (std::strcmp(text, WORDS[i]) == 0) {
            mAlign = static_cast<font::Font::VerticalAlignment>(i);
            return true;
        }
    }
    return false;
}

void VerticalAlign::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<VerticalAlign *>(copy)->mAlign = mAlign;
}

} // namespace nurel::ui::css
