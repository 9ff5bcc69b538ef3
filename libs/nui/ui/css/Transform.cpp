#include "nui/ui/css/Transform.h"

#include "foundation/text/StringUtil.h"
#include "nui/ui/css/detail/NumberScan.h"

#include <algorithm>
#include <cstring>

namespace nurel::ui::css {

namespace {

/// Reads the scale of a transformation; false, and the scale is undefined, for another text.
bool parseScale(const char *text, math::Vector3 &scale) {
    constexpr std::size_t SKIPPED = 5;
    // 1.
    if (!text || !*text)
        return false;
    // 2. The letters ahead of the bracket count for nothing
    if (std::memchr(text, '\0', SKIPPED))
        return false;
    // 3. A bracket with nothing behind it
    if (text::StringUtil::compareIgnoreCase(text, "scale(") == 0)
        return false;
    text += SKIPPED;
    // 4.
    float numbers[3] = {1, 1, 1};
    const auto commas = std::count(text, text + std::strlen(text), ',');
    if ((commas != 1 && commas != 2) || !detail::scanFloats(text, static_cast<int>(commas) + 1, numbers))
        return false;
    scale = math::Vector3(numbers[0], numbers[1], numbers[2]);
    return true;
}

} // namespace

Transform::Transform() : Property(TRANSFORM, 1) {}

Property *Transform::clone() const {
    return cloneOf(*this);
}

bool Transform::_setValue(const Property *other, int index) {
    if (!isSameKind(other) || index != 0)
        return false;
    mMatrix = static_cast<const Transform *>(other)->mMatrix;
    return true;
}

bool Transform::_setValue(const char *text, int &index) {
    if (index != 0)
        return false;
    index = 1;
    math::Vector3 scale;
    if (!parseScale(text, scale))
        return false;
    // 5.
    mMatrix.identity();
    mMatrix.setScale(scale);
    return true;
}

void Transform::_clone(Property *copy) const {
    if (!isSameKind(copy))
        return;
    Property::_clone(copy);
    static_cast<Transform *>(copy)->mMatrix = mMatrix;
}

} // namespace nurel::ui::css
