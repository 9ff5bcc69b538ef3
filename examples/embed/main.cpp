// The toolkit inside an engine of another make: the engine has a window, a picture in memory and a 3D scene of its own,
// and the toolkit draws a panel above the scene that governs it. RasterizerBackend is all that joins the two.
#include "CubeScene.h"
#include "Rasterizer.h"
#include "RasterizerBackend.h"

#include "nengine/Engine.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/texture/ImageFile.h"
#include "nengine/texture/TexturePool.h"
#include "nmain/vfs/DirectoryFileSystem.h"
#include "nmain/vfs/File.h"
#include "nui/nui.h"

#include <SDL.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

using namespace nurel::ui;
using nurel::input::Mouse;

namespace {

constexpr unsigned int WIDTH = 960;
constexpr unsigned int HEIGHT = 540;
constexpr float SPEED_OF_ONE = 50; // what the slider shows for a radian a second

nurel::EngineConfig makeConfig(engine3d::Target &target, bool manualClock) {
    nurel::EngineConfig config;
    config.width = target.width;
    config.height = target.height;
    config.backend = std::make_shared<RasterizerBackend>(target);
    config.manualClock = manualClock;
    return config;
}

/// The child of that name and class.
template <class T>
T &getChild(const Container &container, const std::string &name) {
    for (unsigned int i = 0; i < container.getChildCount(); ++i) {
        Component *child = container.getChildAt(i);
        if (name == child->getName() && child->instanceOf(T::TYPE))
            return static_cast<T &>(*child);
    }
    throw std::runtime_error("the panel has no '" + name + "'");
}

/// The panel above the scene.
class Hud {
public:
    explicit Hud(CubeScene &scene) : mScreens(SCREENS), mStyles(STYLES), mSkin(new css::CSSSkin("hud")) {
        UIComponentFactory::getSingleton().setLoadResolver(&mScreens);
        nurel::texture::TexturePool::getSingleton().setFileSystem(&mStyles);
        nurel::vfs::File sheet(mStyles, "dark.css");
        mSkin->setStyleSheet(&sheet);
        SkinManager::getSingleton().addSkin(mSkin.get());
        SkinManager::getSingleton().setDefaultSkin(mSkin.get());

        const core::SmartPtr<Component> hud = UIComponentFactory::getSingleton().newInstance("hud");
        connect(*static_cast<Container *>(hud.get()), scene);
        UIManager::getSingleton().addWidget(static_cast<Widget *>(hud.get()));
    }
    ~Hud() {
        UIManager::shutdown();
        nurel::texture::TexturePool::getSingleton().setFileSystem(nullptr);
    }
    Hud(const Hud &) = delete;
    Hud &operator=(const Hud &) = delete;

    void update() {
        UIManager &manager = UIManager::getSingleton();
        manager.updateEvents();
        manager.update();
    }

private:
    static void connect(Container &hud, CubeScene &scene) {
        auto &card = getChild<Container>(hud, "card");
        auto &told = getChild<components::Label>(card, "told");
        auto &slider = getChild<components::Slider>(card, "speed");
        auto &pause = getChild<components::Button>(card, "pause");
        const auto follow = [&scene, &told](const components::Slider &changed) {
            scene.setSpeed(changed.getValue() / SPEED_OF_ONE);
            char text[32];
            std::snprintf(text, sizeof text, "%.1f radians a second", static_cast<double>(scene.getSpeed()));
            told.setText(text);
        };
        follow(slider);
        slider.ChangeCallbacks::subscribeCallback([follow](components::Slider *changed, float) {
            follow(*changed);
            return false; // stay subscribed
        });
        pause.ClickCallbacks::subscribeCallback([&scene](UIEventHandler *clicked, const ClickEvent &) {
            scene.setRunning(!static_cast<components::Button *>(clicked)->isChecked());
            return false;
        });
    }

    nurel::vfs::DirectoryFileSystem mScreens;
    nurel::vfs::DirectoryFileSystem mStyles;
    core::SmartPtr<css::CSSSkin> mSkin;
};

/// A frame of the program: the engine's scene, and the toolkit above it.
void drawFrame(const CubeScene &scene, Hud &hud, engine3d::Target &target, nurel::Engine &engine) {
    hud.update();
    scene.draw(target);
    engine.renderFrame(*UIManager::getSingleton().getRenderPass());
}

void drawPicture(const char *path) {
    constexpr double FRAME_SECONDS = 1.0 / 60;
    constexpr int FRAMES = 3; // the panel's sizes settle
    engine3d::Target target;
    target.resize(WIDTH, HEIGHT);
    nurel::Engine engine(makeConfig(target, true));
    CubeScene scene;
    Hud hud(scene);
    for (int i = 0; i < FRAMES; ++i) {
        engine.advance(FRAME_SECONDS);
        scene.advance(static_cast<float>(FRAME_SECONDS));
        drawFrame(scene, hud, target, engine);
        nurel::texture::TexturePool::getSingleton().waitUntilLoaded();
    }
    nurel::texture::savePng(path, target.width, target.height, target.toBytes().data());
    std::printf("%s\n", path);
}

void require(bool done) {
    if (!done)
        throw std::runtime_error(SDL_GetError());
}

/// The engine's window, which shows pictures from memory.
class PictureWindow {
public:
    PictureWindow() {
        require(SDL_Init(SDL_INIT_VIDEO) == 0);
        mWindow = SDL_CreateWindow("embed", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, WIDTH, HEIGHT, 0);
        if (!mWindow) {
            SDL_Quit();
            require(false);
        }
    }
    ~PictureWindow() {
        SDL_DestroyWindow(mWindow);
        SDL_Quit();
    }
    PictureWindow(const PictureWindow &) = delete;
    PictureWindow &operator=(const PictureWindow &) = delete;

    void show(const engine3d::Target &target) {
        std::vector<std::uint8_t> bytes = target.toBytes();
        SDL_Surface *picture = SDL_CreateRGBSurfaceWithFormatFrom(
            bytes.data(), static_cast<int>(target.width), static_cast<int>(target.height), 32,
            static_cast<int>(4 * target.width), SDL_PIXELFORMAT_RGBA32);
        require(picture != nullptr);
        SDL_BlitSurface(picture, nullptr, SDL_GetWindowSurface(mWindow), nullptr);
        SDL_FreeSurface(picture);
        SDL_UpdateWindowSurface(mWindow);
    }

private:
    SDL_Window *mWindow = nullptr;
};

/// What the engine hears of its window goes on to the toolkit. Returns false when the window is to close.
bool passOn(const SDL_Event &event) {
    UIManager &manager = UIManager::getSingleton();
    if (event.type == SDL_MOUSEMOTION)
        manager.setMousePos({event.motion.x, event.motion.y});
    if ((event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP) &&
        event.button.button == SDL_BUTTON_LEFT)
        manager.setMouseButton(Mouse::LEFT, event.button.state == SDL_PRESSED ? Mouse::PRESS : Mouse::RELEASE);
    return event.type != SDL_QUIT;
}

void runInWindow() {
    PictureWindow window;
    engine3d::Target target;
    target.resize(WIDTH, HEIGHT);
    nurel::Engine engine(makeConfig(target, false));
    CubeScene scene;
    Hud hud(scene);
    Uint64 last = SDL_GetTicks64();
    for (bool open = true; open;) {
        for (SDL_Event event; SDL_PollEvent(&event) != 0;)
            open = passOn(event) && open;
        const Uint64 now = SDL_GetTicks64();
        scene.advance(static_cast<float>(now - last) / 1000);
        last = now;
        drawFrame(scene, hud, target, engine);
        window.show(target);
    }
}

} // namespace

/// embed: opens a window. embed PICTURE.png: draws one frame without one.
int main(int argc, char **argv) {
    try {
        if (argc > 1)
            drawPicture(argv[1]);
        else
            runInWindow();
        return EXIT_SUCCESS;
    } catch (const std::exception &e) {
        std::fprintf(stderr, "embed: %s\n", e.what());
        return EXIT_FAILURE;
    }
}
