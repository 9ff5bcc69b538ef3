#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a button: a box. Its text, if it has one, is a label with a view of its own.
class CSSButtonView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSButtonView(components::Button *component, CSSSkin *skin);
};

} // namespace nurel::ui::css
