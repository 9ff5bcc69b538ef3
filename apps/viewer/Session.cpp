#include "Session.h"

#include "ScriptPlayer.h"
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
using nurel::ui::UIManager;

namespace {

/// How many frames a picture is given when nothing else says: enough for queues and images to settle.
constexpr int OFFSCREEN_FRAMES = 4;
constexpr std::chrono::milliseconds TIME_BETWEEN_RELOADS(100);

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

Session::Session(const Options &options)
    : mOptions(options), mHost(Host::create(options)), mIsScripted(!mHost->isWindow() || !options.script.empty()) {
    mEngine = std::make_unique<nurel::Engine>(makeConfig(options, *mHost, mIsScripted));
    UIManager::getSingleton().setScale(Vector2(options.scale, options.scale));
    mScreen = std::make_unique<Screen>(options.screen, options.styles, options.locale);
    // The screen is on the stage before the first frame is counted.
    updateToolkit();
    if (!options.trace.empty())
        mTrace = std::make_unique<EventTrace>(options.trace);
}

Session::Toolkit::~Toolkit() {
    UIManager::shutdown();
}

double Session::getTime() const {
    return nurel::renderer::Renderer::getSingleton().getFrameTimeExact();
}

void Session::runFrame() {
    mEngine->advance(FRAME_SECONDS);
    mDialogs.beginFrame();
    updateToolkit();
    if (mTrace)
        mTrace->frameEnded();
    if (mHost->isWindow()) {
        draw();
        mHost->present();
    }
}

void Session::updateToolkit() {
    if (mIsScripted)
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
    mEngine->pump();
    UIManager::getSingleton().updateEvents();
    UIManager::getSingleton().update();
}

void Session::draw() {
    mHost->beginDrawing();
    mEngine->renderFrame(*UIManager::getSingleton().getRenderPass());
}

bool Session::isFinished(int frame) const {
    if (mOptions.frames >= 0)
        return frame >= mOptions.frames;
    return !mHost->isWindow() && frame >= OFFSCREEN_FRAMES;
}

void Session::reloadChanged() {
    const auto now = std::chrono::steady_clock::now();
    if (now - mLastReload < TIME_BETWEEN_RELOADS)
        return;
    mLastReload = now;
    const nurel::ui::Widget *before = mScreen->getWidget();
    mScreen->reloadChanged(now);
    if (mScreen->getWidget() != before)
        mDialogs.bindAgain();
}

void Session::run() {
    for (int frame = 0; !isFinished(frame); ++frame) {
        if (!mHost->pollInput())
            return;
        if (mHost->isWindow())
            reloadChanged();
        const auto &settings = nurel::renderer::Renderer::getSingleton().getScreenSettings();
        if (mHost->getWidth() != settings.width || mHost->getHeight() != settings.height)
            mEngine->resize(mHost->getWidth(), mHost->getHeight());
        runFrame();
    }
}

Session::Picture Session::capture() {
    draw();
    return {mHost->getWidth(), mHost->getHeight(), mHost->readPixels()};
}

void Session::savePicture(const std::string &path) {
    const Picture picture = capture();
    nurel::texture::savePng(path.c_str(), picture.width, picture.height, picture.rgba.data());
}

void Session::saveDump(const std::string &path) {
    const std::string text = dumpTree(getTime());
    std::FILE *file = std::fopen(path.c_str(), "w");
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = file && std::fclose(file) == 0;
    if (!written || !closed)
        throw core::IOException("cannot write %s: %s", path.c_str(), std::strerror(errno));
}

void Session::resize(unsigned int width, unsigned int height) {
    mHost->resize(width, height);
    mEngine->resize(width, height);
}

void Session::setScale(float scale) {
    UIManager::getSingleton().setScale(Vector2(scale, scale));
}

} // namespace viewer
