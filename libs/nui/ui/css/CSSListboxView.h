#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a list and the list of a combo: a box. Its rows are labels with views of their own, and its mark is a
/// panel.
class CSSListboxView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSListboxView(components::Listbox *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
