#pragma once

#include "nui/ui/ComponentHandler.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/Skin.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Panel.h"

#include <list>

namespace test {

using namespace nurel::ui;
using nurel::math::Matrix3;
using nurel::math::Matrix4;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::math::Vector4;

/// Lets tests at the protected operations, and gives a view of the plain kind.
template <class Base>
class Exposed : public Base {
public:
    explicit Exposed(const char *name = "", const char *element = "test") : Base(name, element) {}

    using Base::_clone;
    using Base::applyOpacity;
    using Base::disableState;
    using Base::enableState;
    using Base::getAutoSize;
    using Base::isClean;
    using Base::processEvent;
    using Base::setClean;
    using Base::setDirty;
    using Base::setDirty__;
    using Base::setParentEnabled;
    using Base::setParentVisible;
    using Base::setState;
    using Base::setView;
    using Base::updateContent;
    using Base::updatePosition;
    using Base::updateView;

    ComponentView *visit(Skin *skin) override {
        if (this->hasView())
            return this->getView();
        core::SmartPtr<ComponentView> view(new ComponentView("view", this, skin));
        if (this->isContainer() && skin)
            skin->visitContainer(static_cast<Container *>(static_cast<Component *>(this)), view.get());
        setView(view.get());
        return this->getView();
    }

    unsigned int dirty() const { return this->isDirty(0xffffffffU); }
    void clean() { setClean(0xffffffffU); }
};

class Leaf : public Exposed<Component> {
public:
    using Exposed::Exposed;

    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<Leaf> copy(new Leaf(getName()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

class Box : public Exposed<Container> {
public:
    using Container::_addChild;
    using Container::updateLayout;
    using Exposed::Exposed;

    using nurel::core::Object::clone;
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<Box> copy(new Box(getName()));
        _clone(copy.get(), options);
        return copy.release();
    }
};

class PlainHandler : public ComponentHandler {
public:
    PlainHandler(const char *name, Component *target) : ComponentHandler(name, target) {}
};

/// Places nothing; says when it was asked.
class NotingLayout : public Layout {
public:
    nurel::core::Object *clone(core::CloningOptions &options) const override {
        core::SmartPtr<NotingLayout> copy(new NotingLayout);
        _clone(copy.get(), options);
        return copy.release();
    }

    mutable int passes = 0;

protected:
    void _layout(const std::list<Component *> &components) const override {
        ++passes;
        for (Component *component : components)
            component->setPosition(Vector2(static_cast<float>(passes), 0), Vector2(0, 0));
    }
};

/// Makes plain views for every component, containers with those of their children.
class PlainSkin : public Skin {
public:
    PlainSkin() : Skin("plain") {}

    ComponentView *skin(Component *component) override { return make(component); }
    ComponentView *visit(components::Image *) override { return nullptr; }
    ComponentView *visit(components::TextField *) override { return nullptr; }
    ComponentView *visit(components::Listbox *) override { return nullptr; }
    ComponentView *visit(components::Selector *) override { return nullptr; }
    ComponentView *visit(components::Progress *) override { return nullptr; }
    ComponentView *visit(components::Slider *) override { return nullptr; }
    ComponentView *visit(components::Checkbox *) override { return nullptr; }
    ComponentView *visit(components::Button *) override { return nullptr; }
    ComponentView *visit(components::Panel *panel) override { return make(panel); }
    ComponentView *visit(components::Label *label) override { return make(label); }
    ComponentView *visit(Widget *widget) override { return make(widget); }

    int made = 0;

private:
    ComponentView *make(Component *component) {
        ++made;
        core::SmartPtr<ComponentView> view(new ComponentView("view", component, this));
        if (component->isContainer())
            visitContainer(static_cast<Container *>(component), view.get());
        return view.release();
    }
};

} // namespace test
