// A screen made in code: a window with a label that counts the clicks on it. Without a display it draws one picture.
#include "backends/egl/HeadlessContext.h"
#include "backends/gles/GlesBackend.h"
#include "backends/sdl/Window.h"
#include "nengine/Engine.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/texture/ImageFile.h"
#include "nui/nui.h"

#include "foundation/core/Exception.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

using namespace nurel::ui;
using nurel::math::Vector2;

namespace {

constexpr unsigned int WIDTH = 640;
constexpr unsigned int HEIGHT = 360;

core::SmartPtr<Widget> makeScreen() {
    core::SmartPtr<Widget> screen = new Widget("screen");
    const core::SmartPtr<components::Label> label = new components::Label("counter");
    label->setText("Click me");
    label->setSize(Vector2(240, 40));
    label->enableEvents(UIEvent::ET_CLICK_EVENT);
    label->ClickCallbacks::subscribeCallback([clicks = 0](UIEventHandler *handler, const ClickEvent &) mutable {
        static_cast<components::Label *>(handler)->setText(("Clicked " + std::to_string(++clicks) + " times").c_str());
        return false; // stay subscribed
    });
    screen->addChild(label.get());
    return screen;
}

/// The toolkit's part of the program: a skin and a screen.
class Toolkit {
public:
    Toolkit() : mSkin(new skins::DefaultSkin()) {
        SkinManager::getSingleton().addSkin(mSkin.get());
        SkinManager::getSingleton().setDefaultSkin(mSkin.get());
        const core::SmartPtr<Widget> screen = makeScreen();
        UIManager::getSingleton().setView(screen.get());
        UIManager::getSingleton().addWidget(screen.get(), nullptr);
    }
    ~Toolkit() { UIManager::shutdown(); }
    Toolkit(const Toolkit &) = delete;
    Toolkit &operator=(const Toolkit &) = delete;

    void drawFrame(nurel::Engine &engine) {
        UIManager &manager = UIManager::getSingleton();
        manager.updateEvents();
        manager.update();
        engine.renderFrame(*manager.getRenderPass());
    }

private:
    core::SmartPtr<Skin> mSkin;
};

nurel::EngineConfig makeConfig() {
    nurel::EngineConfig config;
    config.width = WIDTH;
    config.height = HEIGHT;
    config.backend = std::make_shared<nurel::gles::GlesBackend>();
    return config;
}

void runInWindow() {
    nurel::sdl::Window window({.title = "hello", .width = WIDTH, .height = HEIGHT});
    nurel::Engine engine(makeConfig());
    Toolkit toolkit;
    nurel::sdl::WindowCallbacks callbacks;
    callbacks.cursorMoved = [](float x, float y) {
        UIManager::getSingleton().setMousePos({static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y))});
    };
    callbacks.buttonChanged = [](auto button, auto state) { UIManager::getSingleton().setMouseButton(button, state); };
    callbacks.resized = [&engine](unsigned int width, unsigned int height) { engine.resize(width, height); };
    window.setCallbacks(std::move(callbacks));
    while (window.pollEvents()) {
        toolkit.drawFrame(engine);
        window.present();
    }
}

void drawPicture(const char *path) {
    nurel::egl::HeadlessContext context(WIDTH, HEIGHT);
    nurel::Engine engine(makeConfig());
    Toolkit toolkit;
    toolkit.drawFrame(engine);
    nurel::texture::savePng(path, WIDTH, HEIGHT, context.readPixels().data());
    std::printf("%s\n", path);
}

} // namespace

/// hello: opens a window. hello PICTURE.png: draws the screen without one.
int main(int argc, char **argv) {
    try {
        if (argc > 1)
            drawPicture(argv[1]);
        else
            runInWindow();
        return EXIT_SUCCESS;
    } catch (const std::exception &e) {
        std::fprintf(stderr, "hello: %s\n", e.what());
        return EXIT_FAILURE;
    }
}
