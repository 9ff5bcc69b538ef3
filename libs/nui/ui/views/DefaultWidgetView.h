#pragma once

#include "nengine/Fwd.h"
#include "nui/ui/views/WidgetView.h"

namespace nurel::ui::views {

/// A widget as a flat rectangle of its size.
class DefaultWidgetView : public WidgetView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    DefaultWidgetView(const char *name, Widget *widget, Skin *skin);

    // Takes the widget's world scale, where other views take the component's own.
    void updateView() override;

private:
    scene::meshes::SizeableRectangleMesh *mMesh; ///< a child of this node
};

} // namespace nurel::ui::views
