#pragma once

#include "nui/ui/components/Checkbox.h"

namespace nurel::ui::components {

/// A checkbox that stands for one choice of several: the radios of one parent are a group. A click checks it, and a
/// second click does not uncheck it.
class Radio : public Checkbox {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "radio"
    static const char *const ELEMENT;

    explicit Radio(const char *name = "");

    /// A change gives every other radio of the parent the opposite value. This holds both ways: unchecking the checked
    /// radio of three checks the two others. setUnchecked() is the way to clear a radio alone.
    void setChecked(bool checked) override;

    /// Unchecks (true) or checks (false) this radio and leaves the others alone.
    void setUnchecked(bool unchecked);

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;

protected:
    using Checkbox::processEvent;
    UIEventHandler *processEvent(const ClickEvent &event) override;
};

} // namespace nurel::ui::components
