#pragma once

#include "nui/ui/views/PanelView.h"

namespace nurel::ui::views {

/// A panel that shows nothing of its own.
class DefaultPanelView : public PanelView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    DefaultPanelView(const char *name, components::Panel *panel, Skin *skin);
};

} // namespace nurel::ui::views
