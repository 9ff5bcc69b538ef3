#include "nengine/renderer/RenderPass.h"

#include "nengine/renderer/Backend.h"
#include "nengine/renderer/FrameBuffer.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/renderer/Sorter.h"
#include "nengine/renderer/detail/DrawListBuilder.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/texture/Atlas.h"

#include "foundation/logging/Logger.h"

#include <algorithm>

namespace nurel::renderer {

constinit const ::core::Type RenderPass::TYPE("RenderPass", &core::Object::TYPE);

struct RenderPass::Entry {
    core::SmartPtr<RenderView> view;
    std::unique_ptr<DrawListBuilder> builder;
    std::uint64_t submittedRevision = 0;
};

RenderPass::RenderPass(FrameBuffer *frameBuffer, Sorter *sorter)
    : clearColor(math::Vector4::ZERO), mFrameBuffer(frameBuffer), mSorter(sorter) {}

RenderPass::~RenderPass() = default;

void RenderPass::setFrameBuffer(FrameBuffer *frameBuffer) {
    mFrameBuffer = frameBuffer;
}

void RenderPass::append(RenderView *view) {
    if (view)
        mViews.push_back({view, std::make_unique<DrawListBuilder>(), 0});
}

void RenderPass::remove(RenderView *view) {
    std::erase_if(mViews, [view](const Entry &entry) { return entry.view == view; });
}

RenderView *RenderPass::getView(unsigned int index) const {
    return index < mViews.size() ? mViews[index].view.get() : nullptr;
}

FrameTarget RenderPass::getTarget(const Renderer &renderer) const {
    FrameTarget target;
    target.width = mFrameBuffer ? mFrameBuffer->getWidth() : renderer.getScreenSettings().width;
    target.height = mFrameBuffer ? mFrameBuffer->getHeight() : renderer.getScreenSettings().height;
    target.frameBuffer = mFrameBuffer ? mFrameBuffer->getNumber() : 0;
    target.clearColor = (clearMask & CLEAR_COLOR) != 0;
    for (unsigned int i = 0; i < 3; ++i)
        target.clear[i] = clearColor[i] * clearColor.w;
    target.clear[3] = clearColor.w;
    return target;
}

void RenderPass::prepare() {
    Renderer *const renderer = Renderer::getSingletonPtr();
    if (!renderer)
        return;
    const FrameTarget target = getTarget(*renderer);
    mStatistics.commands = mStatistics.vertices = mStatistics.textureSwitches = 0;
    for (Entry &entry : mViews)
        prepareView(entry, target, *renderer);
}

void RenderPass::prepareView(Entry &entry, const FrameTarget &target, Renderer &renderer) {
    static const std::vector<scene::Mesh *> NOTHING;
    entry.view->prepare();
    scene::VisibilitySet *const set = entry.view->getVisibilitySet();
    if (mSorter) {
        mSorter->clear();
        mSorter->add(set);
        mSorter->sort();
    }
    const std::vector<scene::Mesh *> &meshes = set ? set->getMeshes() : NOTHING;
    const scene::Camera *const camera = entry.view->getCamera();
    DrawListBuilder &builder = *entry.builder;
    builder.update(meshes, camera ? camera->getViewProjection() : math::Matrix4::IDENTITY, target.width, target.height,
                   renderer.getAtlasPtr(), mStatistics);

    mStatistics.commands += static_cast<std::uint32_t>(builder.getList().commandCount);
    mStatistics.vertices += static_cast<std::uint32_t>(builder.getList().vertexCount);
    mStatistics.textureSwitches += builder.getTextureSwitches();
    if (mVerify && !builder.verify(meshes)) {
        ++mStatistics.verifyFailures;
        logging::Logger::mROOT_LOGGER.error("The draw list differs from one that was made from nothing");
    }
}

void RenderPass::render() {
    Renderer *const renderer = Renderer::getSingletonPtr();
    if (!renderer)
        return;
    if (texture::Atlas *const atlas = renderer->getAtlasPtr())
        atlas->flush();
    FrameTarget target = getTarget(*renderer);
    for (Entry &entry : mViews) {
        const DrawList &list = entry.builder->getList();
        if (list.revision == 0)
            continue; // not prepared yet
        renderer->getBackend().submit(list, target);
        target.clearColor = false;
        ++mStatistics.framesSubmitted;
        mStatistics.listsSubmittedAgain += list.revision == entry.submittedRevision;
        entry.submittedRevision = list.revision;
    }
}

} // namespace nurel::renderer
