#include "nengine/renderer/Renderer.h"

#include "foundation/core/Exception.h"

#include <utility>

namespace nurel::renderer {

constinit Renderer *Renderer::mSINGLETON = nullptr;

Renderer::Renderer(Backend &backend, unsigned int width, unsigned int height, bool manualClock)
    : mBackend(backend), mTimer(manualClock), mScreenSettings{width, height} {
    if (mSINGLETON)
        throw core::IllegalStateException("The renderer is there already");
    mSINGLETON = this;
    beginFrame();
}

Renderer::~Renderer() {
    mSINGLETON = nullptr;
}

Renderer &Renderer::getSingleton() {
    if (!mSINGLETON)
        throw core::IllegalStateException("There is no renderer: the engine is not running");
    return *mSINGLETON;
}

void Renderer::resize(unsigned int width, unsigned int height) {
    const ResizeEventData data = {ResizeEventData::SCREEN, mScreenSettings.width, mScreenSettings.height, width,
                                  height};
    mScreenSettings.width = width;
    mScreenSettings.height = height;
    mResizeSubscribers.notify(data);
}

void Renderer::beginFrame() {
    mFrameTime = mTimer.getSeconds();
}

unsigned int Renderer::subscribeResize(std::function<bool(const ResizeEventData &)> callback) {
    return mResizeSubscribers.subscribe(std::move(callback));
}

bool Renderer::unsubscribeResize(unsigned int id) {
    return mResizeSubscribers.unsubscribe(id);
}

unsigned int Renderer::subscribeTextureRegistered(std::function<bool(texture::Texture *)> callback) {
    return mTextureSubscribers.subscribe(std::move(callback));
}

bool Renderer::unsubscribeTextureRegistered(unsigned int id) {
    return mTextureSubscribers.unsubscribe(id);
}

void Renderer::textureRegistered(texture::Texture *texture) {
    mTextureSubscribers.notify(texture);
}

Sorter *Renderer::prepareSorter(Sorter *sorter) {
    return sorter;
}

texture::Atlas &Renderer::getAtlas() {
    if (!mAtlas)
        throw core::IllegalStateException("There is no atlas: the engine is not running");
    return *mAtlas;
}

} // namespace nurel::renderer
