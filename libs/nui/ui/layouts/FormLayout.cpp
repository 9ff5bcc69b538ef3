#include "nui/ui/layouts/FormLayout.h"

#include "nmain/json/JSObject.h"
#include "nui/ui/Container.h"

#include <algorithm>
#include <utility>

namespace nurel::ui::layouts {

constinit const core::Type FormLayout::TYPE("FormLayout", &Layout::TYPE);

namespace {

/// An element that is missing or no number leaves its value alone, and so does anything but an array.
void readPair(const json::JSObject *json, float &first, float &second) {
    if (json->getType() != json::JSObject::T_ARRAY)
        return;
    first = json->getFloat(0U, first);
    second = json->getFloat(1U, second);
}

} // namespace

core::Object *FormLayout::clone(core::CloningOptions &options) const {
    core::SmartPtr<FormLayout> copy(new FormLayout);
    _clone(copy.get(), options);
    return copy.release();
}

void FormLayout::_clone(core::Object *target, core::CloningOptions &options) const {
    Layout::_clone(target, options);
    if (!target || !target->instanceOf(TYPE))
        return;
    FormLayout &copy = static_cast<FormLayout &>(*target);
    copy.mLabelWidth = mLabelWidth;
    copy.mFieldWidth = mFieldWidth;
    copy.mSpacing = mSpacing;
}

void FormLayout::_setParameters(const json::JSObject *parameters) {
    readPair(parameters->get("width"), mLabelWidth, mFieldWidth);
    readPair(parameters->get("spacing"), mSpacing.x, mSpacing.y);
}

void FormLayout::Walk::start(const Components &list) {
    components.assign(list.begin(), list.end());
    for (Component *component : components) {
        if (component->getRefCount() != 0) // else it is somebody's on the stack
            held.emplace_back(component);
    }
}

void FormLayout::Walk::end() {
    components.clear();
    held.clear();
}

void FormLayout::_layout(const Components &components) const {
    // Hiding runs callbacks, which may take components or the layout away, or lay out once more: each pass walks over
    // what there was, and passes by what is gone.
    const core::SmartPtr<const FormLayout> self(getRefCount() != 0 ? this : nullptr);
    Walk walk;
    std::swap(walk, mBuffer);
    walk.start(components);
    const float width = getOwner()->getContainerSize().x;
    const Column label = column(mLabelWidth, mFieldWidth);
    const Column field = column(mFieldWidth, mLabelWidth);
    placeLabels(walk.components, label);
    placeFields(walk.components, field, mSpacing.x + label.fixed + label.fraction * width);
    walk.end();
    std::swap(walk, mBuffer);
}

FormLayout::Column FormLayout::column(float own, float other) const {
    Column column{own > 1 ? own : 0, own <= 1 ? own : 0};
    if (!(column.fraction > 0)) // pixels; or a negative fraction, which is passed on as it is
        return column;
    column.fixed -= other >= 0 && other <= 1 ? mSpacing.x * 0.5f : mSpacing.x;
    if (other > 1)
        column.fixed -= other;
    return column;
}

bool FormLayout::hasPair(const Component *label, const Component *field) const {
    return hasComponent(label) && (!field || hasComponent(field));
}

void FormLayout::show(Component *component, bool visible) const {
    if (!hasComponent(component))
        return;
    const bool before = component->isSelfVisible();
    component->setVisible(visible);
    // Its own update has passed in this frame, so its view learns of it here.
    if (hasComponent(component) && component->isSelfVisible() != before)
        component->update();
}

void FormLayout::placeLabels(const std::vector<Component *> &walk, const Column &column) const {
    float y = 0;
    float rowHeight = 0;
    for (std::size_t i = 0; i < walk.size(); i += 2) {
        Component *label = walk[i];
        Component *field = i + 1 < walk.size() ? walk[i + 1] : nullptr;
        if (!hasPair(label, field))
            continue;
        // 1.
        bool visible = label->isVisible();
        // 2. A last label without a field keeps the height of the row before
        if (field) {
            rowHeight = std::max(label->getSize().y, field->getSize().y);
            visible = visible && field->isVisible();
            show(field, visible);
            show(label, visible);
            if (!hasPair(label, field))
                continue;
        }
        // 3.
        if (!visible)
            continue;
        if (label->getAnchor() != Component::ANCHOR_TOP_LEFT)
            label->setAnchor(Component::ANCHOR_TOP_LEFT);
        label->setPosition(math::Vector2(0, y), math::Vector2::ZERO);
        label->setSize(math::Vector2(column.fixed, rowHeight), math::Vector2(column.fraction, 0));
        y = mSpacing.y + rowHeight + y;
    }
}

void FormLayout::placeFields(const std::vector<Component *> &walk, const Column &column, float x) const {
    float y = 0;
    for (std::size_t i = 0; i + 1 < walk.size(); i += 2) {
        const Component *label = walk[i];
        Component *field = walk[i + 1];
        if (!hasPair(label, field) || !field->isVisible())
            continue;
        // 1.
        const float height = field->getSize().y;
        // 2. and 3. The height set here is the one without the margins, so a margin takes from it at every pass
        if ((field->getAnchor() & Component::ANCHOR_HORIZONTAL_MASK) == Component::ANCHOR_LEFT) {
            field->setPosition(math::Vector2(x, y), math::Vector2::ZERO);
            field->setSize(math::Vector2(column.fixed, height), math::Vector2(column.fraction, 0));
        } else {
            field->setPosition(math::Vector2(0, y), math::Vector2::ZERO);
        }
        // 4.
        y = mSpacing.y + std::max(height, label->getSize().y) + y;
    }
}

} // namespace nurel::ui::layouts
