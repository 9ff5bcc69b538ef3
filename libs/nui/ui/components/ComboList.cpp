#include "nui/ui/components/ComboList.h"

#include "foundation/core/Type.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/detail/CloneTarget.h"

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
    detail::requireCloneTarget(*this, object, TYPE);
    if (object == this)
        return;
    Listbox::_clone(object, options);
    const core::CloningOptions::Option *option = options.get(TYPE, false);
    static_cast<ComboList &>(*object).mOwner = option ? static_cast<const ComboListCO *>(option)->getOwner() : nullptr;
}

} // namespace nurel::ui::components
