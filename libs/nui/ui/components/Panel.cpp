#include "nui/ui/components/Panel.h"

#include "foundation/core/Type.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Layout.h"
#include "nui/ui/Skin.h"

namespace nurel::ui::components {

constinit const core::Type Panel::TYPE("Panel", &Container::TYPE);

const char *const Panel::ELEMENT = "panel";

Panel::Panel(const char *name) : Container(name, ELEMENT) {}

Panel::Panel(const char *name, const char *element) : Container(name, element) {}

ComponentView *Panel::visit(Skin *skin) {
    if (hasView() || !skin)
        return getView();
    const core::SmartPtr<ComponentView> view(skin->visit(this));
    setView(view.get());
    return getView();
}

core::Object *Panel::clone(core::CloningOptions &options) const {
    core::SmartPtr<Panel> copy(new Panel(getName()));
    _clone(copy.get(), options);
    return copy.release();
}

} // namespace nurel::ui::components
