#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a panel: a box.
class CSSPanelView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSPanelView(components::Panel *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
