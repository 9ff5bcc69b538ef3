#pragma once

#include "nengine/renderer/FrameStatistics.h"
#include "nengine/renderer/RenderView.h"
#include "nmain/math/Vector4.h"

#include <memory>
#include <vector>

namespace nurel::renderer {

class DrawListBuilder;
class FrameBuffer;
class Renderer;
class Sorter;
struct FrameTarget;

/// Draws its views one after the other into one target. Each view is one draw list: built when something that is seen
/// has changed, mended where only vertices have, and otherwise submitted again as it is.
///
/// Needs the `Renderer` for `prepare` and `render`, which do nothing without it.
class RenderPass : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// A bit of `clearMask`. The stencil buffer is cleared for each view in any case.
    static constexpr unsigned int CLEAR_COLOR = 1;

    /// Both may be null: the screen, and the order of nodes. The pass holds references.
    RenderPass(FrameBuffer *frameBuffer, Sorter *sorter);
    ~RenderPass() override;

    void setFrameBuffer(FrameBuffer *frameBuffer);
    FrameBuffer *getFrameBuffer() const { return mFrameBuffer.get(); }
    Sorter *getSorter() const { return mSorter.get(); }

    /// Adds a view, drawn over those before it. The pass holds a reference. Null is skipped.
    void append(RenderView *view);
    void remove(RenderView *view);
    RenderView *getView(unsigned int index) const;

    /// Culls, and brings the draw lists up to date.
    void prepare();

    /// Submits the draw lists of the last `prepare`.
    void render();

    /// Makes each `prepare` build every list a second time from nothing, compare, and log an error where they differ.
    /// Slow.
    void setVerify(bool verify) { mVerify = verify; }

    const FrameStatistics &getStatistics() const { return mStatistics; }

    /// What is cleared before the first view: 0 draws over what is there.
    unsigned int clearMask = CLEAR_COLOR;

    /// Red, green, blue and alpha, not premultiplied.
    math::Vector4 clearColor;

private:
    struct Entry;

    FrameTarget getTarget(const Renderer &renderer) const;
    void prepareView(Entry &entry, const FrameTarget &target, Renderer &renderer);

    core::SmartPtr<FrameBuffer> mFrameBuffer;
    core::SmartPtr<Sorter> mSorter;
    std::vector<Entry> mViews;
    FrameStatistics mStatistics;
    bool mVerify = false;
};

} // namespace nurel::renderer
