#pragma once

#include "nmain/core/NamedObject.h"
#include "nui/ui/Fwd.h"

namespace nurel::ui {

/// Decides how components look: makes the view of each component. Components and skins meet in a double dispatch: a
/// component that is asked to `visit` a skin calls the overload for its own class.
///
/// Counted; a skin lives as long as its views. Its name is its key in the `SkinManager`.
class Skin : public core::NamedObject {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// The default skin of the `SkinManager` is forgotten with its end.
    ~Skin() override;

    /// The entry for a component of unknown class: calls the `visit` of the first class in the class test's order that
    /// the component is of, and returns the new view. Raises `core::IllegalArgumentException` for null, and for a
    /// component that is of none of the classes.
    virtual ComponentView *skin(Component *component);

    /// Makes the views of the children and of the scroll bars in use, and hangs them under the container's view. A
    /// `visit` for a container class calls it after it has made that view.
    virtual void visitContainer(Container *container, ComponentView *view);

    // Each gives a new view, which belongs to the caller, or null.
    virtual ComponentView *visit(components::Image *image) = 0;
    virtual ComponentView *visit(components::TextField *field) = 0;
    virtual ComponentView *visit(components::Listbox *listbox) = 0;
    virtual ComponentView *visit(components::Selector *selector) = 0;
    virtual ComponentView *visit(components::Progress *progress) = 0;
    virtual ComponentView *visit(components::Slider *slider) = 0;
    virtual ComponentView *visit(components::Checkbox *checkbox) = 0;
    virtual ComponentView *visit(components::Button *button) = 0;
    virtual ComponentView *visit(components::Panel *panel) = 0;
    virtual ComponentView *visit(components::Label *label) = 0;
    virtual ComponentView *visit(Widget *widget) = 0;

protected:
    explicit Skin(const char *name) : core::NamedObject(name) {}
};

} // namespace nurel::ui
