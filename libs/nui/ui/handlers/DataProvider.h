#pragma once

#include "foundation/core/IRefCount.h"
#include "nui/ui/Fwd.h"

namespace nurel::ui::handlers {

/// The entries of a list that is too long to have a component for each: how many there are, and what one of them looks
/// like. The application derives from it; a `CoverFlowHandler` asks it on the thread that drives the `UIManager`.
class DataProvider : public core::IRefCount {
public:
    ~DataProvider() override;

    virtual unsigned int getCount() = 0;

    /// Fills the component, a clone of the template that has shown another entry before, with the entry of the index.
    /// An entry may be asked for at any time and any number of times. The index is below the count that getCount() gave
    /// last, which the handler asks for on `CoverFlowHandler::refresh()` only: a provider whose entries have gone in
    /// between has to bear with it.
    virtual void update(unsigned int index, Component *item) = 0;
};

} // namespace nurel::ui::handlers
