#include "nui/ui/components/ComboList.h"

#include "foundation/core/Exception.h"
#include "foundation/core/Type.h"
#include "nui/ui/components/Combo.h"

namespace nurel::ui::components {

constinit const core::Type ComboList::TYPE("ComboList", &Listbox::TYPE);

ComboList::ComboList(Combo *owner) : Listbox("combo"), mOwner(owner) {
    if (owner)
        setClasses(owner->getClasses());
    initializeSize(math::Vector2::ZERO, math::Vector2::HALF);
    setAnchor(ANCHOR_CENTER);
}

core::Object *ComboList::clone(core::CloningOptions &options) const {
    core::SmartPtr<ComboList> copy(new ComboList(mOwner));
    _clone(copy.get(), options);
    return copy.release();
}

void ComboList::_clone(core::Object *object, core::CloningOptions &options) const {
    if (!object || !object->instanceOf(TYPE))
        throw core::IllegalArgumentException("%s cannot be cloned into %s", getType().getName(),
                                             object ? object->getType().getName() : "nothing");
    if (object == this)
        return;
    Listbox::_clone(object, options);
    const core::CloningOptions::Option *option = options.get(TYPE, false);
    static_cast<ComboList &>(*object).mOwner = option ? static_cast<const ComboListCO *>(option)->getOwner() : nullptr;
}

} // namespace nurel::ui::components
