#pragma once

#include "nui/ui/css/CSSView.h"

namespace nurel::ui::css {

/// The view of a widget. It opens the levels of clipping: whatever the content, the widget's area is stamped with level
/// 1, so that each widget starts from a clean one, whatever another has left there.
class CSSWidgetView : public CSSView {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    CSSWidgetView(Widget *widget, CSSSkin *skin);

    void updateView() override;
    bool updateInternal(float time, bool parentChanged) override;

protected:
    void buildGeometry() override;

private:
    void stamp();
};

} // namespace nurel::ui::css
