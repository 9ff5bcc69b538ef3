#include "nui/ui/components/Radio.h"

#include "foundation/core/Type.h"

namespace nurel::ui::components {

constinit const core::Type Radio::TYPE("Radio", &Checkbox::TYPE);

const char *const Radio::ELEMENT = "radio";

Radio::Radio(const char *name) : Checkbox(name, ELEMENT) {}

void Radio::setChecked(bool checked) {
    // 1.
    if (checked == isChecked())
        return;
    // 2.
    applyChecked(checked);
    // 3. Not by setChecked(), so that it ends here. Unchecking checks the others.
    const Container *group = getParent();
    if (!group)
        return;
    const unsigned int count = group->getChildCount();
    for (unsigned int i = 0; i < count; ++i) {
        Component *child = group->getChildAt(i);
        if (child == this || !child->instanceOf(TYPE))
            continue;
        Radio &other = *static_cast<Radio *>(child);
        if (other.isChecked() == checked)
            other.applyChecked(!checked);
    }
}

void Radio::setUnchecked(bool unchecked) {
    applyChecked(!unchecked);
}

UIEventHandler *Radio::processEvent(const ClickEvent &) {
    setChecked(true);
    return this;
}

core::Object *Radio::clone(core::CloningOptions &options) const {
    core::SmartPtr<Radio> copy(new Radio(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

} // namespace nurel::ui::components
