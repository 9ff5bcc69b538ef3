#pragma once

#include "nmain/core/Object.h"
#include "nui/ui/Fwd.h"

#include <list>
#include <map>

namespace nurel::json {
class JSObject;
}

namespace nurel::ui {

/// Places children of one container. The container holds the layout; the layout only points at its owner and at the
/// components under it, which need not be all of the container's children. It writes through the public geometry
/// operations of `Component` and compares nothing itself: a pass that changes nothing marks nothing dirty.
///
/// A component leaves its layout when it leaves its container, and every layout when it dies. When the owner dies or
/// takes another layout, the layout has no owner and no components any more.
class Layout : public core::Object {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    ~Layout() override;

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override = 0;

    /// When the owner's copy is known to the options and the target is a layout, that copy becomes the target's owner.
    /// The components are not copied.
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// Places the components; does nothing without an owner.
    void layout() const;

    /// Reads the keys of a JSON object; null and any other kind of value are ignored, and so is every unusable value.
    void setParameters(const json::JSObject *parameters);

    /// The container that is laid out, or null.
    Container *getOwner() const { return mOwner; }

    /// Puts a component under the layout, behind all others of its own z-index. Null and one that is there are ignored.
    /// A later change of a z-index does not sort the list again.
    void addComponent(Component *component);

    /// An absent component is no error.
    void removeComponent(Component *component);

    bool hasComponent(const Component *component) const;
    unsigned int getComponentCount() const { return static_cast<unsigned int>(mManaged.size()); }

    /// Takes all components out and keeps the owner.
    void clearComponents();

    /// The same as `removeComponent`.
    void addIgnore(Component *component) { removeComponent(component); }

    // The answer is the opposite of what the name says: true for a component that the layout manages.
    bool isIgnored(const Component *component) const { return hasComponent(component); }

    /// How many of the owner's children are not under the layout; 0 without an owner.
    unsigned int getIgnoreCount() const;

    /// Puts all children of the owner under the layout, in child order, in place of what was there.
    void clearIgnores();

    /// In layout order: ascending z-index, and in order of arrival among equal ones.
    const std::list<Component *> &getComponents() const { return mOrdered; }

    /// Called by the destructor of `Component`: no layout is left with a dead one.
    static void componentDestroyed(Component *component) noexcept;

protected:
    Layout() = default;
    Layout(const Layout &) = delete;
    Layout &operator=(const Layout &) = delete;

    /// A new owner, or null, starts without components.
    void setOwner(Container *owner);

    virtual void _layout(const std::list<Component *> &components) const = 0;
    virtual void _setParameters(const json::JSObject *parameters);

private:
    friend class Container;

    bool isHighest(const Component &component) const;
    void noteStranger();
    void forgetStrangers();

    Container *mOwner = nullptr;
    std::list<Component *> mOrdered;
    std::map<const Component *, std::list<Component *>::iterator> mManaged; ///< where each stands in the order

    // The layouts that hold a component which was no child of their owner when it came, and those whose owner does not
    // hold them, are chained, so that the death of such a component or owner finds them. A child of the owner needs no
    // such search: its container tells the layout.
    static Layout *mSTRANGERS;
    Layout *mPreviousStranger = nullptr;
    Layout *mNextStranger = nullptr;
    bool mHasStrangers = false;
};

} // namespace nurel::ui
