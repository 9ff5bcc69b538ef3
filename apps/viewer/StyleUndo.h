#pragma once

#include "foundation/core/SmartPtr.h"

#include <map>
#include <memory>

namespace nurel::ui {
class Component;
class Container;
} // namespace nurel::ui

namespace nurel::ui::css {
class CSS;
} // namespace nurel::ui::css

namespace viewer {

/// Takes back what a sheet did to components. A sheet only ever sets what its rules tell: what a declaration has set
/// stays when the declaration goes, unless somebody puts back what was there before. Of a component that is what the
/// template or the program declared; its state, text, focus and scroll offset are no sheet's.
class StyleUndo {
public:
    StyleUndo();
    ~StyleUndo();
    StyleUndo(const StyleUndo &) = delete;
    StyleUndo &operator=(const StyleUndo &) = delete;

    /// Notes what sheets can set as it is now. To be called ahead of the first styling; later calls change nothing. The
    /// component is held until `forgetUnused` finds that nobody else does.
    void remember(nurel::ui::Component &component);

    /// To be called when components have gone, and while nobody is about to give away new ones.
    void forgetUnused();

    /// Lets go of everything. A view holds its skin, so that a skin that holds components has to let go of them some
    /// time.
    void forget();

    /// For every component that was remembered and has a styled view: everything that a rule of the sheet can have set,
    /// whatever states the rule asks for, is again as it was remembered. Only the components' declarations change; the
    /// caller has them styled and placed anew. One that is not on the stage is as soon as it comes back.
    void undo(const nurel::ui::css::CSS &sheet);

private:
    struct Look;
    struct Entry;

    void undoOrder(nurel::ui::Container &container) const;

    std::map<const nurel::ui::Component *, Entry> mEntries;
};

} // namespace viewer
