#include "Meter.h"

#include "nengine/font/FontManager.h"
#include "nengine/font/ShapingStatistics.h"
#include "nengine/renderer/RenderPass.h"
#include "nui/ui/UIManager.h"

namespace bench {

namespace {

std::uint64_t shapedSoFar() {
    return nurel::font::FontManager::getSingleton().getStatistics().shapedParagraphs;
}

const nurel::renderer::FrameStatistics &statistics() {
    return nurel::ui::UIManager::getSingleton().getRenderPass()->getStatistics();
}

} // namespace

Meter::Meter(benchmark::State &state)
    : mState(state), mHeap(getHeapUse()), mShaped(shapedSoFar()), mBefore(statistics()) {}

Meter::~Meter() {
    const HeapUse heap = getHeapUse();
    const nurel::renderer::FrameStatistics &after = statistics();
    mState.counters["allocations"] = perIteration(heap.allocations - mHeap.allocations, mState);
    mState.counters["paragraphs_shaped"] = perIteration(shapedSoFar() - mShaped, mState);
    mState.counters["lists_rebuilt"] = perIteration(after.listsRebuilt - mBefore.listsRebuilt, mState);
    mState.counters["lists_same"] = perIteration(after.listsSubmittedAgain - mBefore.listsSubmittedAgain, mState);
    mState.counters["meshes_built"] = perIteration(after.meshesBuilt - mBefore.meshesBuilt, mState);
    mState.counters["vertices_rebuilt"] = perIteration(after.verticesRebuilt - mBefore.verticesRebuilt, mState);
    mState.counters["vertices_written"] = perIteration(after.verticesWritten - mBefore.verticesWritten, mState);
    mState.counters["commands"] = static_cast<double>(after.commands);
    mState.counters["vertices"] = static_cast<double>(after.vertices);
    mState.counters["texture_switches"] = static_cast<double>(after.textureSwitches);
}

} // namespace bench
