#include "nui/ui/layouts/FlowLayout.h"

#include "nmain/json/JSObject.h"
#include "nui/ui/Container.h"
#include "nui/ui/UIComponentParser.h"

#include <cstring>

namespace nurel::ui::layouts {

constinit const core::Type FlowLayout::TYPE("FlowLayout", &Layout::TYPE);

namespace {

bool isWord(const char *text, const char *word) {
    return text && std::strcmp(text, word) == 0;
}

/// Elements that are missing count as 0; anything but an array leaves the value alone.
void readVector(const json::JSObject *json, math::Vector2 &value) {
    if (json->getType() == json::JSObject::T_ARRAY)
        value = math::Vector2(json->getFloat(0u, 0), json->getFloat(1u, 0));
}

} // namespace

core::Object *FlowLayout::clone(core::CloningOptions &options) const {
    core::SmartPtr<FlowLayout> copy(new FlowLayout);
    _clone(copy.get(), options);
    return copy.release();
}

void FlowLayout::_clone(core::Object *target, core::CloningOptions &options) const {
    Layout::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    FlowLayout &copy = static_cast<FlowLayout &>(*target);
    copy.mDirection = mDirection;
    copy.mLimitPolicy = mLimitPolicy;
    copy.mLimit = mLimit;
    copy.mStart = mStart;
    copy.mSpacing = mSpacing;
    copy.mAnchor = mAnchor;
}

void FlowLayout::_setParameters(const json::JSObject *parameters) {
    const char *direction = parameters->getString("direction", nullptr);
    if (isWord(direction, "horizontal"))
        mDirection = HORIZONTAL;
    else if (isWord(direction, "vertical"))
        mDirection = VERTICAL;

    const char *policy = parameters->getString("limit-policy", nullptr);
    if (isWord(policy, "relative"))
        mLimitPolicy = RELATIVE;
    else if (isWord(policy, "absolute"))
        mLimitPolicy = ABSOLUTE;

    mLimit = parameters->getFloat("limit", mLimit);
    readVector(parameters->get("position"), mStart);
    readVector(parameters->get("spacing"), mSpacing);

    if (const char *anchor = parameters->getString("anchor", nullptr))
        mAnchor = UIComponentParser::parseAnchor(anchor);
}

void FlowLayout::_layout(const Components &components) const {
    if (mDirection == HORIZONTAL)
        layoutHorizontal(components);
    else
        layoutVertical(components);
}

void FlowLayout::layoutHorizontal(const Components &components) const {
    float x = mStart.x;
    float y = mStart.y;
    float rowHeight = 0;
    float rowBottom = 0;
    auto rowFirst = components.begin();
    const float limit = mLimitPolicy == RELATIVE ? mLimit * getOwner()->getContainerSize().x : mLimit;
    const bool aligned = (mAnchor & Component::ANCHOR_VERTICAL_MASK) != Component::ANCHOR_TOP;

    for (auto it = components.begin(); it != components.end(); ++it) {
        Component &component = **it;
        if (!component.isVisible())
            continue;
        const math::Vector2 size = component.getSize();
        if (component.getAnchor() != Component::ANCHOR_TOP_LEFT)
            component.setAnchor(Component::ANCHOR_TOP_LEFT);
        if (x + size.x > limit) {
            if (aligned) {
                alignRow(components, rowFirst, it, y, rowBottom);
                rowFirst = it;
            }
            // The margin is that of the component which begins the new row. The row's bottom stays until a component of
            // the new row has a height.
            x = mStart.x;
            y += mSpacing.y + rowHeight + component.getMargin().z;
            rowHeight = 0;
        }
        component.setPosition(math::Vector2(x, y), math::Vector2::ZERO);
        x += mSpacing.x + size.x + component.getMargin().y;
        if (size.y > rowHeight) {
            rowHeight = size.y;
            rowBottom = y + size.y;
        }
    }
    if (aligned)
        alignRow(components, rowFirst, components.end(), y, rowBottom);
}

void FlowLayout::layoutVertical(const Components &components) const {
    float x = mStart.x;
    float y = mStart.y;
    float columnWidth = 0;
    float columnRight = 0;
    auto columnFirst = components.begin();
    const float limit = mLimitPolicy == RELATIVE ? mLimit * getOwner()->getContainerSize().y : mLimit;
    const bool aligned = (mAnchor & Component::ANCHOR_HORIZONTAL_MASK) != Component::ANCHOR_LEFT;

    for (auto it = components.begin(); it != components.end(); ++it) {
        Component &component = **it;
        if (!component.isVisible())
            continue;
        const math::Vector2 size = component.getSize();
        if (component.getAnchor() != Component::ANCHOR_TOP_LEFT)
            component.setAnchor(Component::ANCHOR_TOP_LEFT);
        if (y + size.y > limit) {
            if (aligned) {
                alignColumn(components, columnFirst, it, x, columnRight);
                columnFirst = it;
            }
            y = mStart.y;
            x += mSpacing.x + columnWidth + component.getMargin().y;
            columnWidth = 0;
        }
        component.setPosition(math::Vector2(x, y), math::Vector2::ZERO);
        // The step down takes the left margin, not the bottom one: a bottom margin makes no room in a vertical flow.
        y += mSpacing.y + size.y + component.getMargin().w;
        if (size.x > columnWidth) {
            columnWidth = size.x;
            columnRight = x + size.x;
        }
    }
    if (aligned)
        alignColumn(components, columnFirst, components.end(), x, columnRight);
}

void FlowLayout::alignRow(const Components &, Components::const_iterator first, Components::const_iterator last,
                          float top, float bottom) const {
    const Component::Anchor anchor = mAnchor & Component::ANCHOR_VERTICAL_MASK;
    if (anchor != Component::ANCHOR_MIDDLE && anchor != Component::ANCHOR_BOTTOM)
        return;
    // Hidden components move with the row. The row is as high as its highest component without margins, while each
    // component counts with its own.
    for (auto it = first; it != last; ++it) {
        Component &component = **it;
        const Component::ComponentPosition position = component.getComponentPosition();
        const float height = component.getMargin().z + component.getMargin().x + component.getSize().y;
        const float y = anchor == Component::ANCHOR_MIDDLE ? (bottom - top - height) * 0.5f + top : bottom - height;
        component.setPosition(math::Vector2(position.absolute.x, y), position.relative);
    }
}

void FlowLayout::alignColumn(const Components &, Components::const_iterator first, Components::const_iterator last,
                             float left, float right) const {
    const Component::Anchor anchor = mAnchor & Component::ANCHOR_HORIZONTAL_MASK;
    if (anchor != Component::ANCHOR_CENTER_HORIZONTAL && anchor != Component::ANCHOR_RIGHT)
        return;
    for (auto it = first; it != last; ++it) {
        Component &component = **it;
        const Component::ComponentPosition position = component.getComponentPosition();
        const float width = component.getMargin().w + component.getMargin().y + component.getSize().x;
        const float x =
            anchor == Component::ANCHOR_CENTER_HORIZONTAL ? (right - left - width) * 0.5f + left : right - width;
        component.setPosition(math::Vector2(x, position.absolute.y), position.relative);
    }
}

} // namespace nurel::ui::layouts
