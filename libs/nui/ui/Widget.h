#pragma once

#include "nui/ui/Container.h"

#include <string>

namespace nurel::ui {

/// The root of a component tree: the only kind of component that the `UIManager` takes at top level. It says with which
/// skin its tree is drawn.
///
/// Widgets stack in the order in which they were added, whatever their z-indexes; the last one is on top and alone
/// decides what lies under the cursor, as soon as it is hit at all.
class Widget : public Container {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// "widget": the element of style sheets.
    static const char *const ELEMENT;

    /// Fills its parent, which is the viewport. A null name counts as empty.
    explicit Widget(const char *name = "");

    /// Of the given size, with what else a component starts with.
    Widget(const char *name, const math::Vector2 &absoluteSize, const math::Vector2 &relativeSize);

    Widget(const Widget &other);
    Widget &operator=(const Widget &other);
    ~Widget() override;

    /// The name of the skin; an empty one stands for the default skin. Set it before `UIManager::addWidget()`, which is
    /// where it is read. Null counts as empty.
    void setSkinName(const char *name) { mSkinName = name ? name : ""; }
    const std::string &getSkinName() const { return mSkinName; }

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

protected:
    /// Gives the widget a new view each time, also when it has one.
    ComponentView *visit(Skin *skin) override;
    void setView(ComponentView *view) override;

private:
    std::string mSkinName;
    bool mSettingView = false;
};

} // namespace nurel::ui
