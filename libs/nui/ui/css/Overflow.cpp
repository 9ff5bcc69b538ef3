#include "nui/ui/css/Overflow.h"

#include "nui/ui/css/detail/Words.h"

namespace nurel::ui::css {

namespace {

// By the number of the behavior
constexpr const char *WORDS[] = {"visible", "hidden", "scroll", "auto"};

/// Leaves the behavior alone and returns false for another word.
bool parseBehavior(const char *text, Overflow::Behavior &behavior) {
    const int word = detail::findWord(text, WORDS);
    if (word < 0)
        return false;
    behavior = static_cast<Overflow::Behavior>(word);
    return true;
}

} // namespace

Overflow::Overflow() : Property(OVERFLOW, 2) {}

Property *Overflow::clone() const {
    return cloneOf(*this);
}

bool Overflow::_setValue(const Property *other, int index) {
    if (!isSameKind(other))
        return false;
    const auto *const overflow = static_cast<const Overflow *>(other);
    switch (index) {
    case CSSNAME_X_IDX:
        mX = overflow->mX;
        return true;
    case CSSNAME_Y_IDX:
        mY = overflow->mY;
        return true;
    default:
        return false;
    }
}

bool Overflow::_setValue(const char *text, int &index) {
    if (!text || (index != CSSNAME_X_IDX && index != CSSNAME_Y_IDX) || !parseBehavior(text, mY))
        return false;
    if (index == CSSNAME_X_IDX) {
        mX = mY;
        addValueState(CSSNAME_Y_IDX, VALUE_SET);
    }
    ++index;
    return true;
}

void Overflow::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    auto *const overflow = static_cast<Overflow *>(copy);
    overflow->mX = mX;
    overflow->mY = mY;
}

} // namespace nurel::ui::css
