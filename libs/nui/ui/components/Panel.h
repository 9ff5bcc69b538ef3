#pragma once

#include "nui/ui/Container.h"

namespace nurel::ui::components {

/// A plain container that a skin can draw.
class Panel : public Container {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "panel"
    static const char *const ELEMENT;

    explicit Panel(const char *name = "");

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;

protected:
    Panel(const char *name, const char *element);

    ComponentView *visit(Skin *skin) override;
};

} // namespace nurel::ui::components
