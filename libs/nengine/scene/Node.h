#pragma once

#include "nengine/scene/Frame.h"

#include <vector>

namespace nurel::scene {

/// A frame with children, which it holds by counted references. Their order is the order in which they are drawn.
///
/// Whatever adds a child skips null, and takes the child out of the node that has it now. Adding a node below itself
/// raises `core::IllegalArgumentException` "Node %s cannot be put below itself".
class Node : public Frame {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    explicit Node(const char *name = "");
    ~Node() override;

    /// Clones the children too.
    using Frame::clone;
    core::Object *clone(core::CloningOptions &options) const override;
    void _clone(core::Object *target, core::CloningOptions &options) const override;

    /// Puts the child last.
    void appendChild(Frame *child);

    /// Puts the child first.
    void prependChild(Frame *child);

    /// Puts the child before the one that is at the position now; a position past the end appends.
    void insertChild(Frame *child, unsigned int position);

    /// A frame that is no child is ignored.
    void removeChild(Frame *child);

    void removeChildren();

    /// Null past the end.
    Frame *getChild(unsigned int index) const;
    unsigned int getChildCount() const { return static_cast<unsigned int>(mChildren.size()); }

    /// The list itself, to be read or put in another order in place. Whoever added to it or took from it calls
    /// `childrenReordered`, which a mere change of order does not need.
    std::vector<core::SmartPtr<Frame>> &getChildren() { return mChildren; }
    const std::vector<core::SmartPtr<Frame>> &getChildren() const { return mChildren; }

    /// Puts things right after the list was written to: null entries and repeated ones are dropped, and each entry has
    /// this parent. A frame that was taken out of the list must be given to `removeChild` instead.
    void childrenReordered();

    bool updateInternal(float time, bool parentChanged) override;
    void updateFX() override;
    void onVisible(Culler *culler, math::Frustum::EFrustumResult result) override;

private:
    void adopt(Frame &child);

    std::vector<core::SmartPtr<Frame>> mChildren;
};

} // namespace nurel::scene
