#pragma once

#include "nui/ui/ComponentView.h"

namespace nurel::ui {

namespace components {
class Label;
}

namespace views {

/// Base of the views of a label: knows it by its class.
class LabelView : public ComponentView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    LabelView(const char *name, components::Label *label, Skin *skin);

    components::Label *getLabel() const { return mLabel; }

private:
    components::Label *mLabel;
};

} // namespace views

} // namespace nurel::ui
