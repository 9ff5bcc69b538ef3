#include "nengine/Engine.h"

#include "nengine/EngineFactory.h"
#include "nengine/font/FontManager.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/texture/Atlas.h"
#include "nengine/texture/TexturePool.h"
#include "ninput/input/InputSystem.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"

namespace nurel {

namespace {

/// A singleton that is made and destroyed by static operations of its own.
template <class T>
class Scope {
public:
    explicit Scope(bool wanted = true) : mWanted(wanted) {
        if (mWanted)
            T::create();
    }
    ~Scope() {
        if (mWanted)
            T::destroy();
    }
    Scope(const Scope &) = delete;
    Scope &operator=(const Scope &) = delete;

private:
    const bool mWanted;
};

const char *orNull(const std::string &text) {
    return text.empty() ? nullptr : text.c_str();
}

std::shared_ptr<renderer::Backend> chooseBackend(const EngineConfig &config) {
    if (renderer::Renderer::isSingletonCreated())
        throw core::IllegalStateException("The engine is running already");
    return config.backend ? config.backend : std::make_shared<renderer::RecordingBackend>();
}

} // namespace

/// Made from the first to the last member, and destroyed from the last to the first.
struct Engine::Singletons {
    Singletons(renderer::Backend &backend, const EngineConfig &config)
        : renderer(backend, config.width, config.height, config.manualClock), atlas(backend), link(renderer, atlas),
          textures(renderer), fonts(&atlas, orNull(config.fontFamily), orNull(config.fontFile)), input(config.input) {}

    /// Lets the renderer know the atlas while there is one.
    struct AtlasLink {
        AtlasLink(renderer::Renderer &theRenderer, texture::Atlas &atlas) : mRenderer(theRenderer) {
            mRenderer.setAtlas(&atlas);
        }
        ~AtlasLink() { mRenderer.setAtlas(nullptr); }
        AtlasLink(const AtlasLink &) = delete;
        AtlasLink &operator=(const AtlasLink &) = delete;

        renderer::Renderer &mRenderer;
    };

    EngineFactory factory;
    renderer::Renderer renderer;
    texture::Atlas atlas;
    AtlasLink link;
    texture::TexturePool textures;
    font::FontManager fonts;
    Scope<input::InputSystem> input;
    Scope<i18n::I18N> i18n;
};

EngineConfig EngineConfig::headless(unsigned int width, unsigned int height) {
    EngineConfig config;
    config.width = width;
    config.height = height;
    config.manualClock = true;
    return config;
}

Engine::Engine(const EngineConfig &config)
    : mBackend(chooseBackend(config)), mSingletons(std::make_unique<Singletons>(*mBackend, config)) {}

Engine::~Engine() {
    // Threads that wait for a task still get it done, with everything in place that it may need.
    mSingletons->renderer.getTaskQueue().pump();
    const std::size_t left = mSingletons->renderer.getResizeSubscriberCount();
    if (left > 0) {
        logging::Logger::mROOT_LOGGER.warn("The engine goes down with %zu resize subscriptions left: call "
                                           "UIManager::shutdown() before",
                                           left);
    }
}

void Engine::advance(double seconds) {
    mSingletons->renderer.getTimer().advance(seconds);
    mSingletons->renderer.beginFrame();
}

void Engine::pump() {
    renderer::Renderer &renderer = mSingletons->renderer;
    if (!renderer.getTimer().isManual())
        renderer.beginFrame();
    renderer.getTaskQueue().pump();
    mSingletons->fonts.pump();
}

void Engine::renderFrame(renderer::RenderPass &pass) {
    pump();
    pass.prepare();
    pass.render();
}

void Engine::resize(unsigned int width, unsigned int height) {
    mSingletons->renderer.resize(width, height);
}

renderer::Renderer &Engine::getRenderer() {
    return mSingletons->renderer;
}

renderer::Backend &Engine::getBackend() {
    return *mBackend;
}

renderer::RecordingBackend *Engine::getRecordingBackend() {
    return dynamic_cast<renderer::RecordingBackend *>(mBackend.get());
}

} // namespace nurel
