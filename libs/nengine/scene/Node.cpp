#include "nengine/scene/Node.h"

#include "nengine/scene/Culler.h"

#include "foundation/core/Exception.h"

#include <algorithm>
#include <iterator>

namespace nurel::scene {

constinit const ::core::Type Node::TYPE("Node", &Frame::TYPE);

namespace {

/// While any node walks its children, frames that leave the scene are kept here: one of them may be on its way through
/// its own `updateInternal`.
class Walk {
public:
    Walk() { ++mDepth; }
    ~Walk() {
        if (--mDepth > 0 || mGone.empty())
            return;
        // What the frames' destructors let go of must find the list in order.
        std::vector<core::SmartPtr<Frame>> gone;
        gone.swap(mGone);
    }
    Walk(const Walk &) = delete;
    Walk &operator=(const Walk &) = delete;

    static void keep(const core::SmartPtr<Frame> &frame) {
        if (mDepth > 0)
            mGone.push_back(frame);
    }

private:
    static constinit unsigned int mDepth;
    static std::vector<core::SmartPtr<Frame>> mGone;
};

constinit unsigned int Walk::mDepth = 0;
std::vector<core::SmartPtr<Frame>> Walk::mGone;

} // namespace

Node::Node(const char *name) : Frame(name) {}

Node::~Node() {
    for (const auto &child : mChildren) {
        if (child && child->mParent == this)
            child->setParent(nullptr);
    }
}

core::Object *Node::clone(core::CloningOptions &options) const {
    auto *copy = new Node(getName());
    _clone(copy, options);
    return copy;
}

void Node::_clone(core::Object *target, core::CloningOptions &options) const {
    Frame::_clone(target, options);
    if (!target || target == this || !target->instanceOf(TYPE))
        return;
    auto &node = *static_cast<Node *>(target);
    for (const auto &child : mChildren) {
        if (child)
            node.appendChild(static_cast<Frame *>(child->clone(options)));
    }
}

void Node::adopt(Frame &child) {
    for (const Frame *frame = this; frame; frame = frame->mParent) {
        if (frame == &child)
            throw core::IllegalArgumentException("Node %s cannot be put below itself", child.getName());
    }
    if (child.mParent)
        child.mParent->removeChild(&child);
    child.setParent(this);
}

void Node::appendChild(Frame *child) {
    insertChild(child, ~0u);
}

void Node::prependChild(Frame *child) {
    insertChild(child, 0);
}

void Node::insertChild(Frame *child, unsigned int position) {
    if (!child)
        return;
    const core::SmartPtr<Frame> guard(child);
    adopt(*child);
    const std::size_t index = std::min<std::size_t>(position, mChildren.size());
    mChildren.insert(mChildren.begin() + static_cast<std::ptrdiff_t>(index), guard);
}

void Node::removeChild(Frame *child) {
    if (!child || child->mParent != this)
        return;
    const core::SmartPtr<Frame> guard(child);
    Walk::keep(guard);
    child->setParent(nullptr);
    // The last first, so that children which leave from the last to the first cost the same each.
    const auto last = std::find(mChildren.rbegin(), mChildren.rend(), guard);
    if (last != mChildren.rend())
        mChildren.erase(std::next(last).base());
}

void Node::removeChildren() {
    while (!mChildren.empty()) {
        const core::SmartPtr<Frame> last = mChildren.back();
        Walk::keep(last);
        if (last && last->mParent == this)
            last->setParent(nullptr);
        mChildren.pop_back();
    }
}

Frame *Node::getChild(unsigned int index) const {
    return index < mChildren.size() ? mChildren[index].get() : nullptr;
}

void Node::childrenReordered() {
    std::vector<core::SmartPtr<Frame>> written;
    written.swap(mChildren);
    for (const auto &child : written) {
        if (child && child->mParent == this)
            child->mParent = nullptr; // entered again below, once
    }
    for (const auto &child : written) {
        if (!child || child->mParent == this)
            continue;
        appendChild(child.get());
    }
}

bool Node::updateInternal(float time, bool parentChanged) {
    const bool moved = Frame::updateInternal(time, parentChanged);
    bool changed = moved;
    const Walk walk;
    for (std::size_t i = 0; i < mChildren.size(); ++i) {
        if (Frame *const child = mChildren[i].get())
            changed |= child->updateInternal(time, moved);
    }
    setFlag(PROPERTIES_PASSED_ON, false);
    return changed;
}

void Node::updateFX() {
    const Walk walk;
    for (std::size_t i = 0; i < mChildren.size(); ++i) {
        if (Frame *const child = mChildren[i].get())
            child->updateFX();
    }
}

void Node::onVisible(Culler *culler, math::Frustum::EFrustumResult result) {
    for (const auto &child : mChildren) {
        if (child)
            culler->process(child.get(), result);
    }
}

} // namespace nurel::scene
