#pragma once

#include "nmain/core/Object.h"

#include <vector>

namespace nurel::scene {
class VisibilitySet;
}

namespace nurel::renderer {

class Renderer;

/// Puts the meshes of a pass in the order in which they are drawn. This one leaves them in the order of nodes, so that
/// what comes later in the scene lies above; a derived class may override `sort`.
class Sorter : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// The renderer is looked at and may be null.
    explicit Sorter(Renderer *renderer);

    Renderer *getRenderer() const { return mRenderer; }

    /// Forgets the sets of the last frame.
    void clear();

    /// The set stays its owner's and is valid until the end of the pass's `prepare`. Null is skipped.
    void add(scene::VisibilitySet *set);

    /// Called for each view of a pass, after its set was added. May change the order inside a set.
    virtual void sort();

protected:
    const std::vector<scene::VisibilitySet *> &getSets() const { return mSets; }

private:
    Renderer *mRenderer;
    std::vector<scene::VisibilitySet *> mSets;
};

} // namespace nurel::renderer
