#pragma once

#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"

#include "nmain/core/CloningOptions.h"

#include <utility>
#include <vector>

/// For controls that are cloned: their parts come along with the other children.
namespace nurel::ui::detail {

/// The component in the tree below the container; null when it is not there. What it points at is not looked at, so it
/// may be gone.
inline Component *findInTree(const Container &container, const core::Object *component) {
    const unsigned int count = container.getChildCount();
    for (unsigned int i = 0; i < count; ++i) {
        Component *child = container.getChildAt(i);
        if (child == component)
            return child;
        if (!child->isContainer())
            continue;
        if (Component *found = findInTree(*static_cast<Container *>(child), component))
            return found;
    }
    return nullptr;
}

/// The copy of a control's part in the tree of the control's copy; null when the part was not in the control's.
inline Component *findClonedPart(const Container &copy, const Component *part, const core::CloningOptions &options) {
    const core::Object *clonedPart = options.getCloned(part);
    return clonedPart ? findInTree(copy, clonedPart) : nullptr;
}

/// Puts a part that the copy has made itself in the place of the copy of the source's, among the siblings of its own
/// z-index, so that what lies over the one lies over the other.
inline void replaceClonedPart(Container &copy, const Component *part, Component *own,
                              const core::CloningOptions &options) {
    std::vector<std::pair<core::SmartPtr<Component>, bool>> above; // and whether it is under the layout
    if (Component *clonedPart = findClonedPart(copy, part, options)) {
        const unsigned int count = copy.getChildCount();
        const int index = copy.getChildIndex(clonedPart);
        for (auto i = static_cast<unsigned int>(index) + 1; index >= 0 && i < count; ++i) {
            Component *child = copy.getChildAt(i);
            if (child->getZIndex() == own->getZIndex())
                above.emplace_back(child, copy.hasLayout() && copy.getLayout()->hasComponent(child));
        }
        clonedPart->getParent()->removeChild(clonedPart);
    }
    for (const auto &[child, isLaidOut] : above)
        copy.removeChild(child.get());
    if (Container *elsewhere = own->getParent())
        elsewhere->removeChild(own);
    copy.addChild(own, true);
    for (const auto &[child, isLaidOut] : above)
        copy.addChild(child.get(), isLaidOut);
}

} // namespace nurel::ui::detail
