#include "nui/ui/components/Slider.h"

#include "foundation/core/Type.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Skin.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/detail/CloneTarget.h"
#include "nui/ui/detail/ClonedPart.h"

#include <cmath>

namespace nurel::ui::components {

constinit const core::Type Slider::TYPE("Slider", &Container::TYPE);

const char *const Slider::ELEMENT = "slider";

/// The place of a thumb depends on its width, so it tells its slider of a new one.
class Slider::SliderThumb : public Panel {
public:
    static const core::Type TYPE;
    const core::Type &getType() const override { return TYPE; }

    SliderThumb() : Panel("thumb", Slider::ELEMENT) {
        setAnchor(ANCHOR_CENTER);
        setScrollMask(SCROLL_NONE);
        disableEvents(UIEvent::ET_DRAG_EVENT | UIEvent::ET_FOCUS_EVENT);
    }

    core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<SliderThumb> copy(new SliderThumb);
        _clone(copy.get(), options);
        return copy.release();
    }

protected:
    void updatePosition() override {
        const float width = getSize().x;
        Panel::updatePosition();
        if (getSize().x == width || !getParent() || !getParent()->instanceOf(Slider::TYPE))
            return;
        auto &slider = *static_cast<Slider *>(getParent());
        if (slider.mThumb != this)
            return;
        slider.syncThumbPosition();
        if (isDirty(DIRTY_POSITION))
            Panel::updatePosition();
    }
};

constinit const core::Type Slider::SliderThumb::TYPE("SliderThumb", &Panel::TYPE);

namespace {

void storeNumber(float &field, float value) {
    if (!std::isnan(value))
        field = value;
}

/// What lies below, and what is not a number, becomes the lower end; the upper end wins over a higher lower one.
float clampTo(float value, float low, float high) {
    const float raised = value > low ? value : low;
    return raised < high ? raised : high;
}

} // namespace

Slider::Slider(const char *name) : Container(name, ELEMENT), mThumb(new SliderThumb) {
    enableEvents(UIEvent::ET_CLICK_EVENT | UIEvent::ET_DRAG_EVENT | UIEvent::ET_FOCUS_EVENT);
    setScrollMask(SCROLL_NONE);
    Container::_addChild(mThumb.get(), true);
}

Slider::Slider(const Slider &) = default;
Slider &Slider::operator=(const Slider &) = default;
Slider::~Slider() = default;

void Slider::setValue(float value, bool notify) {
    const float old = mValue;
    mValue = filterAccuracy(clampTo(value, mMinimum, mMaximum));
    syncThumbPosition();
    if (notify)
        ChangeCallbacks::triggerCallbacks(this, old);
}

void Slider::setRange(float minimum, float maximum, bool notify) {
    storeNumber(mMinimum, minimum);
    storeNumber(mMaximum, maximum);
    setValue(mValue, notify);
}

void Slider::setMinValue(float minimum) {
    setRange(minimum, mMaximum, false);
}

void Slider::setMaxValue(float maximum) {
    setRange(mMinimum, maximum, false);
}

void Slider::setAccuracy(float accuracy, bool notify) {
    storeNumber(mAccuracy, accuracy);
    setValue(mValue, notify);
}

float Slider::filterAccuracy(float value) const {
    if (!(mAccuracy > 0))
        return value;
    const float rounded = std::floor(value / mAccuracy) * mAccuracy;
    return std::isfinite(rounded) ? rounded : value; // steps too many to count, or a single endless one
}

void Slider::getThumbMinMaxPositions(float &lowest, float &highest) const {
    const float half = (getNaturalSize().x - mThumb->getSize().x) * 0.5f;
    const float whole = std::floor(half);
    lowest = -whole - 1;
    highest = half == whole ? whole : whole + 1;
}

float Slider::clampToTravel(float x) const {
    float lowest = 0;
    float highest = 0;
    getThumbMinMaxPositions(lowest, highest);
    return clampTo(x, lowest, highest);
}

float Slider::computePositionFromValue(float value) const {
    float lowest = 0;
    float highest = 0;
    getThumbMinMaxPositions(lowest, highest);
    const double range = static_cast<double>(mMaximum) - static_cast<double>(mMinimum);
    if (!(range > 0) || std::isinf(range))
        return (lowest + highest) * 0.5f;
    const double distance = static_cast<double>(value) - static_cast<double>(mMinimum);
    const auto x =
        static_cast<float>(distance * static_cast<double>(highest - lowest) / range + static_cast<double>(lowest));
    return std::isfinite(x) ? x : clampTo(x, lowest, highest);
}

float Slider::computeValueFromPosition(float &x) const {
    float lowest = 0;
    float highest = 0;
    getThumbMinMaxPositions(lowest, highest);
    const double range = static_cast<double>(mMaximum) - static_cast<double>(mMinimum);
    if (!(highest > lowest) || !(range > 0) || std::isinf(range)) {
        x = computePositionFromValue(mValue);
        return mValue;
    }
    float raw = mMinimum;
    if (x >= highest)
        raw = mMaximum;
    else if (x > lowest)
        raw = static_cast<float>(static_cast<double>(x - lowest) * range / static_cast<double>(highest - lowest) +
                                 static_cast<double>(mMinimum));
    const float rounded = filterAccuracy(raw);
    if (rounded != raw)
        x = computePositionFromValue(rounded);
    // The thumb snaps to the accuracy, the value does not: a callback sees every value in between.
    return raw;
}

void Slider::syncThumbPosition() {
    const ComponentPosition &position = mThumb->getComponentPosition();
    mThumb->setPosition(math::Vector2(computePositionFromValue(mValue), position.absolute.y), position.relative);
}

void Slider::updatePosition() {
    Container::updatePosition();
    syncThumbPosition();
}

void Slider::onDragBegin(const CursorPosition &) {
    mDragPosition = mThumb->getComponentPosition();
}

void Slider::onDragMove(const math::Vector2 &delta, const CursorPosition &) {
    const Keeper self(this);
    float x = clampToTravel(mDragPosition.absolute.x - delta.x);
    const float old = mValue;
    mDragPosition.absolute.x = x;
    mValue = computeValueFromPosition(x);
    // With every move, whether the value changed or not, and ahead of the thumb
    ChangeCallbacks::triggerCallbacks(this, old);
    mThumb->setPosition(math::Vector2(x, mDragPosition.absolute.y), mDragPosition.relative);
    setDirty(DIRTY_VIEW);
}

UIEventHandler *Slider::handleEvent(const UIEvent &event) {
    Keeper self(this);
    UIEventHandler *consumer = Container::handleEvent(event);
    Keeper kept(consumer == this ? nullptr : consumer);
    if (event.getType() == UIEvent::ET_MOUSE_EVENT) {
        const auto &mouse = static_cast<const MouseEvent &>(event);
        if (mouse.getAction() == MouseEvent::MOUSE_RELEASE)
            jumpTo(mouse);
    }
    if (consumer == this)
        return self.release();
    self.release();
    return kept.release();
}

void Slider::jumpTo(const MouseEvent &release) {
    // Not the container's test: where the thumb is hit, that gives the point on the thumb.
    math::Vector3 point(0, 0, 0);
    if (!Component::hitTest(release.getRay(), point)) // NOLINT(bugprone-parent-virtual-call)
        return;
    float x = clampToTravel(point.x);
    const float old = mValue;
    mValue = computeValueFromPosition(x);
    const ComponentPosition &position = mThumb->getComponentPosition();
    mThumb->setPosition(math::Vector2(x, position.absolute.y), position.relative);
    if (mValue != old)
        ChangeCallbacks::triggerCallbacks(this, old);
}

void Slider::addClass(const char *name) {
    Container::addClass(name);
    mThumb->addClass(name);
}

void Slider::removeClass(const char *name) {
    Container::removeClass(name);
    mThumb->removeClass(name);
}

void Slider::removeClasses() {
    Container::removeClasses();
    mThumb->removeClasses();
}

ComponentView *Slider::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Slider::clone(core::CloningOptions &options) const {
    core::SmartPtr<Slider> copy(new Slider(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

void Slider::_clone(core::Object *object, core::CloningOptions &options) const {
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Slider &target = *static_cast<Slider *>(object);
    // 1. and 2. The thumb of the copy stays and gets the classes of the source
    const core::SmartPtr<Panel> thumb = target.mThumb;
    target.removeClasses();
    target.clearChildren();
    Container::_clone(object, options);
    // 3. and 4. It takes the place of the one that came with the children
    detail::replaceClonedPart(target, mThumb.get(), thumb.get(), options);
    // 5.
    target.mMinimum = mMinimum;
    target.mMaximum = mMaximum;
    target.mAccuracy = mAccuracy;
    target.mValue = mValue;
    target.mDragPosition = mDragPosition;
}

} // namespace nurel::ui::components
