#pragma once

#include "StyleUndo.h"

#include "nui/ui/css/CSSSkin.h"

namespace viewer {

/// The skin of the sheets. It can change the sheet under components that are shown, so that they look as if they had
/// never had another one.
class RestylingSkin : public nurel::ui::css::CSSSkin {
public:
    static constexpr const char *NAME = "style";

    RestylingSkin() : CSSSkin(NAME) {}

    /// Takes the sheet in place of the one before and styles all that is shown with it. Components, focus, states,
    /// texts and, as far as there is as much to scroll, scroll offsets stay.
    void restyle(std::unique_ptr<nurel::ui::css::CSS> sheet);

    /// To be called after components were removed for good.
    void forgetUnused() { mUndo.forgetUnused(); }

    /// To be called before the end: the skin holds components, whose views hold the skin. Later sheets are no longer
    /// undone on the components that are there.
    void forget() { mUndo.forget(); }

    nurel::ui::ComponentView *visit(nurel::ui::components::Image *image) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::TextField *field) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Listbox *listbox) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Selector *selector) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Progress *progress) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Slider *slider) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Checkbox *checkbox) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Button *button) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Panel *panel) override;
    nurel::ui::ComponentView *visit(nurel::ui::components::Label *label) override;
    nurel::ui::ComponentView *visit(nurel::ui::Widget *widget) override;

private:
    StyleUndo mUndo;
};

} // namespace viewer
