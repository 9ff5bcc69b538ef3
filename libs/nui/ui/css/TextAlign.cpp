#include "nui/ui/css/TextAlign.h"

#include "nui/ui/css/detail/Words.h"

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
    return detail::getWord(mAlign, WORDS);
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
    const int word = detail::findWord(text, WORDS);
    if (word < 0)
        return false;
    mAlign = static_cast<font::Font::HorizontalAlignment>(word);
    return true;
}

void TextAlign::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<TextAlign *>(copy)->mAlign = mAlign;
}

} // namespace nurel::ui::css
