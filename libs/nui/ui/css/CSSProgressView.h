#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a progress bar: a box. Its bar is a panel with a view of its own, and so is its text, a label.
class CSSProgressView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSProgressView(components::Progress *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
