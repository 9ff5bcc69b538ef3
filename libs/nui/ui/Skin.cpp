#include "nui/ui/Skin.h"

#include "foundation/core/Exception.h"
#include "nui/ui/ComponentView.h"
#include "nui/ui/SkinManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"

namespace nurel::ui {

constinit const core::Type Skin::TYPE("Skin", &core::NamedObject::TYPE);

namespace {

struct SkinnableClass {
    const core::Type &type;
    ComponentView *(*visit)(Skin &skin, Component &component);
};

template <class Class>
ComponentView *visitAs(Skin &skin, Component &component) {
    return skin.visit(static_cast<Class *>(&component));
}

/// The class test, first hit first: a derived class is skinned as the first of its bases here, unless it stands ahead.
constexpr SkinnableClass SKINNABLE_CLASSES[] = {
    {Widget::TYPE, visitAs<Widget>},
    {components::Label::TYPE, visitAs<components::Label>},
    {components::Panel::TYPE, visitAs<components::Panel>},
    {components::Button::TYPE, visitAs<components::Button>},
    {components::Checkbox::TYPE, visitAs<components::Checkbox>},
    {components::Slider::TYPE, visitAs<components::Slider>},
    {components::Progress::TYPE, visitAs<components::Progress>},
    {components::Selector::TYPE, visitAs<components::Selector>},
    {components::Listbox::TYPE, visitAs<components::Listbox>},
    {components::TextField::TYPE, visitAs<components::TextField>},
    {components::Image::TYPE, visitAs<components::Image>},
};

} // namespace

Skin::~Skin() {
    if (SkinManager::isSingletonCreated() && SkinManager::getSingleton().getDefaultSkin() == this)
        SkinManager::getSingleton().setDefaultSkin(nullptr);
}

ComponentView *Skin::skin(Component *component) {
    if (!component)
        throw core::IllegalArgumentException("Cannot skin NULL component");
    for (const SkinnableClass &skinnable : SKINNABLE_CLASSES) {
        if (component->instanceOf(skinnable.type))
            return skinnable.visit(*this, *component);
    }
    throw core::IllegalArgumentException("Unsupported skinnable type: %s", component->getType().getName());
}

void Skin::visitContainer(Container *container, ComponentView *view) {
    if (!container || !view)
        return;
    for (unsigned int i = 0; i < container->getChildCount(); ++i)
        view->insertView(container->getChildAt(i)->visit(this));
    for (const Container::ScrollInfo *info : {&container->getScrollInfoH(), &container->getScrollInfoV()}) {
        if (info->scrollable && info->bar)
            view->insertView(info->bar->visit(this));
    }
}

} // namespace nurel::ui
