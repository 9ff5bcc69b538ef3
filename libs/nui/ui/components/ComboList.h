#pragma once

#include "nmain/core/CloningOptions.h"
#include "nui/ui/components/Listbox.h"

namespace nurel::ui::components {

class Combo;

/// The list of a `Combo`: half as wide and high as what it is in, in the middle. It has the name "combo", and the
/// element of every list.
class ComboList : public Listbox {
public:
    static const core::Type TYPE;
    static const core::Type &type() { return TYPE; }
    const core::Type &getType() const override { return TYPE; }

    /// Tells the clone of a list which combo it belongs to: put under `ComboList::TYPE`.
    class ComboListCO : public core::CloningOptions::Option {
    public:
        explicit ComboListCO(Combo *owner) : Option(false), mOwner(owner) {}

        Combo *getOwner() const { return mOwner; }

    private:
        Combo *const mOwner;
    };

    /// Starts with the classes of the owner, which may be null.
    explicit ComboList(Combo *owner);

    /// The combo that opens the list. Null for a list that was cloned by itself, and once the combo is gone.
    Combo *getOwner() const { return mOwner; }

    using core::Object::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

private:
    friend class Combo; // lets go of its list

    Combo *mOwner;
};

} // namespace nurel::ui::components
