#include "Run.h"

#include "Options.h"
#include "TreeDump.h"

#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace viewer {

using nurel::math::Vector2;
using nurel::texture::TexturePool;
using nurel::ui::UIManager;

namespace {

nurel::EngineConfig makeConfig(const Options &options, Host &host, bool manualClock) {
    nurel::EngineConfig config;
    config.width = host.getWidth();
    config.height = host.getHeight();
    config.backend = host.getBackend();
    config.manualClock = manualClock;
    config.input = true;
    config.fontFile = options.font;
    return config;
}

} // namespace

Run::Run(const Options &options)
    : mHost(Host::create(options)), mIsScripted(!mHost->isWindow() || !options.script.empty()) {
    mEngine = std::make_unique<nurel::Engine>(makeConfig(options, *mHost, mIsScripted));
    setScale(options.scale);
}

Run::~Run() = default;

Run::Toolkit::~Toolkit() {
    UIManager::shutdown();
}

double Run::getTime() const {
    return nurel::renderer::Renderer::getSingleton().getFrameTimeExact();
}

void Run::runFrame() {
    mEngine->advance(FRAME_SECONDS);
    beginFrame();
    mDialogs.beginFrame();
    updateToolkit();
    endFrame();
    if (isWindow()) {
        draw();
        mHost->present();
    }
}

void Run::updateToolkit() {
    if (mIsScripted)
        TexturePool::getSingleton().waitUntilLoaded();
    mEngine->pump();
    UIManager::getSingleton().updateEvents();
    UIManager::getSingleton().update();
}

void Run::draw() {
    mHost->beginDrawing();
    mEngine->renderFrame(*UIManager::getSingleton().getRenderPass());
}

bool Run::pollWindow() {
    if (!mHost->pollInput())
        return false;
    const auto &settings = nurel::renderer::Renderer::getSingleton().getScreenSettings();
    if (mHost->getWidth() != settings.width || mHost->getHeight() != settings.height)
        mEngine->resize(mHost->getWidth(), mHost->getHeight());
    return true;
}

Run::Picture Run::capture() {
    draw();
    return {mHost->getWidth(), mHost->getHeight(), mHost->readPixels()};
}

void Run::savePicture(const std::string &path) {
    const Picture picture = capture();
    nurel::texture::savePng(path.c_str(), picture.width, picture.height, picture.rgba.data());
}

void Run::saveDump(const std::string &path) {
    const std::string text = dumpTree(getTime());
    std::FILE *file = std::fopen(path.c_str(), "w");
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = file && std::fclose(file) == 0;
    if (!written || !closed)
        throw core::IOException("cannot write %s: %s", path.c_str(), std::strerror(errno));
}

void Run::resize(unsigned int width, unsigned int height) {
    mHost->resize(width, height);
    mEngine->resize(width, height);
}

void Run::setScale(float scale) {
    UIManager::getSingleton().setScale(Vector2(scale, scale));
}

} // namespace viewer
