#include "Stage.h"

#include "Options.h"
#include "Settings.h"

#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nui/ui/UIManager.h"

#include <chrono>
#include <cstdio>
#include <filesystem>

namespace gallery {

using nurel::ui::UIManager;

namespace {

constexpr double FRAME_SECONDS = 1.0 / 60;

constexpr int FRAMES_BETWEEN_RELOADS = 6;

/// Enough for sizes, queues and images to settle.
constexpr int FRAMES_OF_A_PICTURE = 5;

viewer::Options makeHostOptions(const Settings &settings) {
    viewer::Options options;
    options.title = "nui gallery";
    options.headless = !settings.pngDir.empty();
    options.width = settings.width;
    options.height = settings.height;
    return options;
}

} // namespace

Stage::Stage(const Settings &settings) : mHost(viewer::Host::create(makeHostOptions(settings))) {
    nurel::EngineConfig config;
    config.width = mHost->getWidth();
    config.height = mHost->getHeight();
    config.backend = mHost->getBackend();
    config.manualClock = !mHost->isWindow();
    config.input = true;
    config.fontFile = settings.font;
    mEngine = std::make_unique<nurel::Engine>(config);
    mGallery = std::make_unique<Gallery>(settings.assets);
    for (std::size_t i = 0; i < getPages().size(); ++i) {
        if (settings.page == getPages()[i].name)
            mGallery->showPage(i);
    }
    mGallery->setDark(settings.dark);
}

Stage::Toolkit::~Toolkit() {
    UIManager::shutdown();
}

void Stage::runFrame() {
    mEngine->advance(FRAME_SECONDS);
    mGallery->update();
    if (!mHost->isWindow())
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
    mEngine->pump();
    UIManager::getSingleton().updateEvents();
    UIManager::getSingleton().update();
}

void Stage::draw() {
    mHost->beginDrawing();
    mEngine->renderFrame(*UIManager::getSingleton().getRenderPass());
}

void Stage::run() {
    for (int frame = 0; mHost->pollInput(); ++frame) {
        if (frame % FRAMES_BETWEEN_RELOADS == 0)
            mGallery->reloadChanged(std::chrono::steady_clock::now());
        const auto &settings = nurel::renderer::Renderer::getSingleton().getScreenSettings();
        if (mHost->getWidth() != settings.width || mHost->getHeight() != settings.height)
            mEngine->resize(mHost->getWidth(), mHost->getHeight());
        runFrame();
        draw();
        mHost->present();
    }
}

void Stage::savePicture(const std::string &path) {
    draw();
    nurel::texture::savePng(path.c_str(), mHost->getWidth(), mHost->getHeight(), mHost->readPixels().data());
}

void Stage::drawPages(const std::string &folder) {
    std::filesystem::create_directories(folder);
    for (const bool dark : {false, true}) {
        mGallery->setDark(dark);
        for (std::size_t i = 0; i < getPages().size(); ++i) {
            mGallery->showPage(i);
            for (int frame = 0; frame < FRAMES_OF_A_PICTURE; ++frame)
                runFrame();
            const std::string path = folder + "/" + getPages()[i].name + (dark ? "-dark.png" : "-light.png");
            savePicture(path);
            std::puts(path.c_str());
        }
    }
}

} // namespace gallery
