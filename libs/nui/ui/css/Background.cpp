#include "nui/ui/css/Background.h"

#include "nui/ui/css/Common.h"
#include "nui/ui/css/detail/Words.h"

#include <cstring>

namespace nurel::ui::css {

namespace {

enum Value {
    COLOR_VALUE = 0,
    HPOSITION_VALUE = 1,
    VPOSITION_VALUE = 2,
    REPEAT_VALUE = 3,
    IMAGE_VALUE = 4,
    VALUE_COUNT
};

// By the number of the position
constexpr const char *HPOSITION_WORDS[] = {"left", "center", "right"};
constexpr const char *VPOSITION_WORDS[] = {"top", "center", "bottom"};

struct RepeatWord {
    const char *word;
    unsigned int bits;
};

constexpr RepeatWord REPEAT_WORDS[] = {
    {"repeat", Background::REPEAT_BOTH},
    {"repeat-x", Background::REPEAT_X},
    {"repeat-y", Background::REPEAT_Y},
};

/// Every other word is the centre.
int parsePosition(const char *text, const char *const (&words)[3]) {
    const int position = detail::findWord(text, words);
    return position < 0 ? 1 : position;
}

} // namespace

Background::Background() : Property(BACKGROUND, VALUE_COUNT) {}

unsigned int Background::parseRepeat(const char *text) {
    for (const RepeatWord &repeat : REPEAT_WORDS) {
        if (text && std::strcmp(text, repeat.word) == 0)
            return repeat.bits;
    }
    return REPEAT_NONE;
}

const char *Background::unparse(unsigned int repeat) {
    if (repeat == REPEAT_BOTH)
        return "repeat";
    if ((repeat & REPEAT_X) != 0)
        return "repeat-x";
    return (repeat & REPEAT_Y) != 0 ? "repeat-y" : "no-repeat";
}

Property *Background::clone() const {
    return cloneOf(*this);
}

const char *Background::_getValueString(int index) const {
    switch (index) {
    case HPOSITION_VALUE:
        return detail::getWord(mPosition.horizontal, HPOSITION_WORDS);
    case VPOSITION_VALUE:
        return detail::getWord(mPosition.vertical, VPOSITION_WORDS);
    case REPEAT_VALUE:
        return unparse(mRepeat);
    case IMAGE_VALUE:
        return mImage.c_str();
    default:
        return nullptr;
    }
}

bool Background::_setValue(const Property *other, int index) {
    if (!isSameKind(other))
        return false;
    const auto *const background = static_cast<const Background *>(other);
    switch (index) {
    case COLOR_VALUE:
        mColor = background->mColor;
        return true;
    case HPOSITION_VALUE:
        mPosition.horizontal = background->mPosition.horizontal;
        return true;
    case VPOSITION_VALUE:
        mPosition.vertical = background->mPosition.vertical;
        return true;
    case REPEAT_VALUE:
        mRepeat = background->mRepeat;
        return true;
    case IMAGE_VALUE:
        mImage = background->mImage;
        return true;
    default:
        return false;
    }
}

bool Background::parseColor(const char *text) {
    const bool isColor = Common::parseColor(text, mColor);
    if (!isColor)
        mImage = NONE_MARKER;
    else if (isNone())
        mImage.clear();
    return isColor;
}

bool Background::_setValue(const char *text, int &index) {
    if (index == COLOR_VALUE) {
        ++index;
        return parseColor(text);
    }
    if (!text)
        return false;
    switch (index) {
    case HPOSITION_VALUE:
        mPosition.horizontal = static_cast<HPosition>(parsePosition(text, HPOSITION_WORDS));
        mPosition.vertical = VPOSITION_CENTER;
        break;
    case VPOSITION_VALUE:
        mPosition.vertical = static_cast<VPosition>(parsePosition(text, VPOSITION_WORDS));
        break;
    case REPEAT_VALUE:
        mRepeat = parseRepeat(text);
        break;
    case IMAGE_VALUE:
        mImage = text;
        break;
    default:
        return false;
    }
    ++index;
    return true;
}

void Background::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    auto *const background = static_cast<Background *>(copy);
    background->mColor = mColor;
    background->mPosition = mPosition;
    background->mImage = mImage;
}

} // namespace nurel::ui::css
