#pragma once

#include "foundation/mpl/Int2Type.h"
#include "nui/ui/Container.h"

namespace nurel::ui::components {

class Panel;

/// A horizontal track with a thumb that stands for a number. Drag the thumb, or press and release anywhere on the track
/// to make it jump there; keys and the wheel do nothing.
///
/// Subscribe to changes by `slider->ChangeCallbacks::subscribeCallback(...)`: a callback gets the slider and the value
/// **before** the change. setValue(), setRange() and setAccuracy() call it when they are told to, and a drag with every
/// move, also when the value is the same; a jump only when the value changed.
///
/// The thumb is a child, a panel with the element of the slider and the name "thumb". It starts with a component's
/// default size. Where it may go follows from the widths of slider and thumb, so its place is exact only after an
/// update. A thumb with no room to move, and one of a range that is empty, does not move, and the value stays what it
/// is.
///
/// A clone has the value fields of its source and a thumb of its own as it is when new: size and look of the source's
/// thumb are not taken over.
class Slider : public Container, public core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, Slider *, float> {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    using ChangeCallbacks = core::CallbackSubscriptor<mpl::Int2Type<0>, 1, bool, Slider *, float>;

    /// "slider"
    static const char *const ELEMENT;

    explicit Slider(const char *name = "");
    Slider(const Slider &other);
    Slider &operator=(const Slider &other);
    ~Slider() override;

    /// Sets the value, kept within the range and then rounded down to the accuracy, which may take it below the
    /// minimum. What is not a number counts as the minimum. With `notify` the callbacks run, also when the value is the
    /// same.
    void setValue(float value, bool notify);

    /// 50 at first. While it is dragged the value is not rounded to the accuracy; the thumb is.
    float getValue() const { return mValue; }

    /// Sets both ends and then the present value again. The range is empty unless the maximum is above the minimum. An
    /// end that is not a number is left as it was.
    void setRange(float minimum, float maximum, bool notify);

    /// 0 at first. As setRange(), without callbacks.
    void setMinValue(float minimum);
    float getMinValue() const { return mMinimum; }

    /// 100 at first. As setRange(), without callbacks.
    void setMaxValue(float maximum);
    float getMaxValue() const { return mMaximum; }

    /// Sets the step that values are rounded down to, counted from 0, and then the present value again. 0, which it is
    /// at first, and less is no step. What is not a number is ignored.
    void setAccuracy(float accuracy, bool notify);
    float getAccuracy() const { return mAccuracy; }

    /// The next multiple of the accuracy at or below the value; without an accuracy the value itself.
    float filterAccuracy(float value) const;

    /// It lives as long as the slider.
    Panel *getThumb() const { return mThumb.get(); }

    /// What is done to the slider's classes is done to those of the thumb.
    void addClass(const char *name) override;
    void removeClass(const char *name) override;
    void removeClasses() override;

    UIEventHandler *handleEvent(const UIEvent &event) override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    ComponentView *visit(Skin *skin) override;

    void updatePosition() override;
    void onDragBegin(const CursorPosition &cursor) override;
    void onDragMove(const math::Vector2 &delta, const CursorPosition &cursor) override;

private:
    class SliderThumb;

    void syncThumbPosition();
    void getThumbMinMaxPositions(float &lowest, float &highest) const;
    float computeValueFromPosition(float &x) const;
    float computePositionFromValue(float value) const;
    float clampToTravel(float x) const;
    void jumpTo(const MouseEvent &release);

    core::SmartPtr<Panel> mThumb;
    ComponentPosition mDragPosition; ///< where the cursor has taken the thumb, before it snaps to the accuracy
    float mMinimum = 0;
    float mMaximum = 100;
    float mAccuracy = 0;
    float mValue = 50;
};

} // namespace nurel::ui::components
