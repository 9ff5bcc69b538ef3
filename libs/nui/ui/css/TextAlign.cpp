#include "nui/ui/css/TextAlign.h"

#include <cstring>
#include <iterator>

namespace nurel::ui::css {

namespace {

// By the number of the alignment
constexpr const char *WORDS[] = {"left", "center", "right"};

} // namespace

TextAlign::TextAlign() : Property(TEXT_ALIGN, 1) {}

Property *TextAlign::clone() const {
    return cloneOf(*this);
}

const char *TextAlign::_getValueString(int) const {
    const auto number = static_cast<std::size_t>(mAlign);
    return number < std::size(WORDS) ? WORDS[number] : nullptr;
}

bool TextAlign::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mAlign = static_cast<const TextAlign *>(other)->mAlign;
    return true;
}

bool TextAlign::_setValue(const char *text, int &index) {
    const int current = advance(index);
    if (current != 0 || !text)
        return false;
    for (std::size_t i = 0; i < std::size(WORDS); ++i) {
        if (std::strcmp(text, WORDS[i]) == 0) {
            mAlign = static_cast<font::Font::HorizontalAlignment>(i);
            return true;
        }
    }
    return false;
}

void TextAlign::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<TextAlign *>(copy)->mAlign = mAlign;
}

} // namespace nurel::ui::css
