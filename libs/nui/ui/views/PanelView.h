#pragma once

#include "nui/ui/ComponentView.h"

namespace nurel::ui::views {

/// Base of the views of a panel: knows it by its class.
class PanelView : public ComponentView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    PanelView(const char *name, components::Panel *panel, Skin *skin);

    /// Null from the moment the panel dropped the view.
    components::Panel *getPanel() const;
};

} // namespace nurel::ui::views
