#include "Stage.h"

#include "Options.h"
#include "Settings.h"

#include <chrono>
#include <cstdio>
#include <filesystem>

namespace gallery {

namespace {

constexpr int FRAMES_BETWEEN_RELOADS = 6;

/// Enough for sizes, queues and images to settle.
constexpr int FRAMES_OF_A_PICTURE = 5;

viewer::Options makeOptions(const Settings &settings) {
    viewer::Options options;
    options.title = "nui gallery";
    options.headless = settings.headless || !settings.pngDir.empty();
    options.width = settings.width;
    options.height = settings.height;
    options.font = settings.font;
    options.script = settings.script;
    return options;
}

} // namespace

Stage::Stage(const Settings &settings) : Run(makeOptions(settings)) {
    mGallery = std::make_unique<Gallery>(settings.assets);
    for (std::size_t i = 0; i < getPages().size(); ++i) {
        if (settings.page == getPages()[i].name)
            mGallery->showPage(i);
    }
    mGallery->setDark(settings.dark);
}

void Stage::beginFrame() {
    mGallery->update();
}

void Stage::run() {
    for (int frame = 0; pollWindow(); ++frame) {
        if (frame % FRAMES_BETWEEN_RELOADS == 0)
            mGallery->reloadChanged(std::chrono::steady_clock::now());
        runFrame();
    }
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
