#pragma once

#include "nui/ui/ComponentView.h"

namespace nurel::ui::views {

/// Base of the views of a widget: knows it by its class.
class WidgetView : public ComponentView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    WidgetView(const char *name, Widget *widget, Skin *skin);

    /// Null from the moment the widget dropped the view.
    Widget *getWidget() const;
};

} // namespace nurel::ui::views
