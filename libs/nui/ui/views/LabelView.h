#pragma once

#include "nui/ui/ComponentView.h"

namespace nurel::ui::views {

/// Base of the views of a label: knows it by its class.
class LabelView : public ComponentView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    LabelView(const char *name, components::Label *label, Skin *skin);

    /// Null from the moment the label dropped the view.
    components::Label *getLabel() const;
};

} // namespace nurel::ui::views
