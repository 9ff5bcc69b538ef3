#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a selector: a box. Its text is a label and its buttons are panels, with views of their own.
class CSSSelectorView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSSelectorView(components::Selector *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
