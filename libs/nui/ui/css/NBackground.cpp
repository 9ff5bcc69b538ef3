#include "nui/ui/css/NBackground.h"

#include "foundation/text/StringUtil.h"
#include "nui/ui/css/Common.h"

#include <cstring>
#include <limits>

namespace nurel::ui::css {

namespace {

enum Value {
    SKIN_VALUE = 0,
    COUNT_U_VALUE = 1,
    COUNT_V_VALUE = 2,
    OFFSET_X_VALUE = 3,
    OFFSET_Y_VALUE = 4,
    SIZE_X_VALUE = 5,
    SIZE_Y_VALUE = 6,
    SPACING_VALUE = 7,
    VALUE_COUNT
};

unsigned int parseCount(const char *text) {
    return static_cast<unsigned int>(text::StringUtil::parseInt(text));
}

/// The number of a size, whatever it counts.
float parseLength(const char *text) {
    Size size;
    Common::parseSize(text, size);
    return size.value;
}

/// Without its fraction; a number out of range gives the nearest int.
int cut(float value) {
    constexpr auto LIMIT = -static_cast<float>(std::numeric_limits<int>::min());
    if (value >= LIMIT)
        return std::numeric_limits<int>::max();
    return value > -LIMIT ? static_cast<int>(value) : std::numeric_limits<int>::min();
}

} // namespace

NBackground::NBackground() : Property(NBACKGROUND, VALUE_COUNT) {}

Property *NBackground::clone() const {
    return cloneOf(*this);
}

bool NBackground::_setValue(const Property *other, int index) {
    if (!isSameKind(other))
        return false;
    const auto *const background = static_cast<const NBackground *>(other);
    switch (index) {
    case SKIN_VALUE:
        mCurrentSkin = background->mCurrentSkin;
        return true;
    case COUNT_U_VALUE:
        mSkinCountU = background->mSkinCountU;
        return true;
    case COUNT_V_VALUE:
        mSkinCountV = background->mSkinCountV;
        return true;
    case OFFSET_X_VALUE:
        mSkinOffset.x = background->mSkinOffset.x;
        return true;
    case OFFSET_Y_VALUE:
        mSkinOffset.y = background->mSkinOffset.y;
        return true;
    case SIZE_X_VALUE:
        mSkinSize.x = background->mSkinSize.x;
        return true;
    case SIZE_Y_VALUE:
        mSkinSize.y = background->mSkinSize.y;
        return true;
    case SPACING_VALUE:
        mSkinSpacing = background->mSkinSpacing;
        return true;
    default:
        return false;
    }
}

bool NBackground::_setValue(const char *text, int &index) {
    const int current = advance(index);
    if (!text)
        return false;
    switch (current) {
    case SKIN_VALUE:
        mCurrentSkin = std::strcmp(text, "none") == 0 ? -1 : text::StringUtil::parseInt(text);
        return true;
    case COUNT_U_VALUE:
        mSkinCountU = parseCount(text);
        return true;
    case COUNT_V_VALUE:
        mSkinCountV = parseCount(text);
        return true;
    case OFFSET_X_VALUE:
        mSkinOffset.x = parseLength(text);
        return true;
    case OFFSET_Y_VALUE:
        mSkinOffset.y = parseLength(text);
        return true;
    case SIZE_X_VALUE:
        mSkinSize.x = parseLength(text);
        return true;
    case SIZE_Y_VALUE:
        mSkinSize.y = parseLength(text);
        return true;
    case SPACING_VALUE:
        mSkinSpacing = cut(parseLength(text));
        return true;
    default:
        return false;
    }
}

void NBackground::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    auto *const background = static_cast<NBackground *>(copy);
    background->mCurrentSkin = mCurrentSkin;
    background->mSkinCountU = mSkinCountU;
    background->mSkinCountV = mSkinCountV;
    background->mSkinOffset = mSkinOffset;
    background->mSkinSize = mSkinSize;
    background->mSkinSpacing = mSkinSpacing;
}

} // namespace nurel::ui::css
