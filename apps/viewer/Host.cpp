#include "Host.h"

#include "Options.h"
#include "TextEntry.h"

#include "backends/egl/HeadlessContext.h"
#include "backends/gles/GlesBackend.h"
#include "backends/sdl/Window.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"

#include <epoxy/gl.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

namespace viewer {

using nurel::gles::GlesBackend;
using nurel::ui::UIManager;

namespace {

constexpr std::chrono::milliseconds FRAME_PAUSE(12);

/// What shows where no widget is.
void clearBackground() {
    constexpr float RED = 24 / 255.0F;
    constexpr float GREEN = 26 / 255.0F;
    constexpr float BLUE = 30 / 255.0F;
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(RED, GREEN, BLUE, 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

class OffscreenHost : public Host {
public:
    OffscreenHost(unsigned int width, unsigned int height)
        : mContext(width, height), mBackend(std::make_shared<GlesBackend>()) {}

    std::shared_ptr<nurel::renderer::Backend> getBackend() override { return mBackend; }
    unsigned int getWidth() const override { return mContext.getWidth(); }
    unsigned int getHeight() const override { return mContext.getHeight(); }
    void resize(unsigned int width, unsigned int height) override { mContext.resize(width, height); }
    bool isWindow() const override { return false; }

    void beginDrawing() override {
        mContext.makeCurrent();
        clearBackground();
    }

    std::vector<std::uint8_t> readPixels() override { return mContext.readPixels(); }

private:
    nurel::egl::HeadlessContext mContext;
    std::shared_ptr<GlesBackend> mBackend;
};

nurel::sdl::WindowConfig makeWindowConfig(const Options &options) {
    nurel::sdl::WindowConfig config;
    config.title = options.title.empty() ? options.screen + " - nui-viewer" : options.title;
    config.width = options.width;
    config.height = options.height;
    return config;
}

class WindowHost : public Host {
public:
    explicit WindowHost(const Options &options)
        : mWindow(makeWindowConfig(options)), mBackend(std::make_shared<GlesBackend>()) {
        nurel::sdl::WindowCallbacks callbacks;
        callbacks.cursorMoved = [](float x, float y) {
            UIManager::getSingleton().setMousePos({static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y))});
        };
        callbacks.buttonChanged = [](nurel::input::Mouse::MouseButton button, nurel::input::Mouse::ButtonState state) {
            UIManager::getSingleton().setMouseButton(button, state);
        };
        callbacks.wheelMoved = [](int counter) { UIManager::getSingleton().setMouseWheel(counter); };
        callbacks.textEntered = enterText;
        mWindow.setCallbacks(std::move(callbacks));
    }

    std::shared_ptr<nurel::renderer::Backend> getBackend() override { return mBackend; }
    unsigned int getWidth() const override { return mWindow.getWidth(); }
    unsigned int getHeight() const override { return mWindow.getHeight(); }
    void resize(unsigned int width, unsigned int height) override { mWindow.resize(width, height); }
    bool isWindow() const override { return true; }
    bool pollInput() override {
        followTextInput();
        return mWindow.pollEvents();
    }

    void beginDrawing() override {
        mWindow.makeCurrent();
        clearBackground();
    }

    void present() override {
        mWindow.present();
        if (!mWindow.isVerticalSync())
            std::this_thread::sleep_for(FRAME_PAUSE); // a still screen does not need a whole processor
    }

    std::vector<std::uint8_t> readPixels() override {
        std::vector<std::uint8_t> pixels(std::size_t{4} * getWidth() * getHeight());
        mBackend->readPixels(0, 0, getWidth(), getHeight(), pixels.data());
        return pixels;
    }

private:
    /// Input methods are on while something takes text, and compose where it stands.
    void followTextInput() {
        nurel::math::Vector2 low;
        nurel::math::Vector2 high;
        const bool on = UIManager::getSingleton().getTextInputBounds(low, high);
        if (on != mTakesText)
            mWindow.setTextInput(on);
        mTakesText = on;
        if (!on)
            return;
        const auto toPixel = [](float position) { return static_cast<int>(std::lround(position)); };
        const std::array<int, 4> place = {toPixel(low.x), toPixel(low.y), toPixel(high.x - low.x),
                                          toPixel(high.y - low.y)};
        if (place == mTextPlace)
            return;
        mTextPlace = place;
        mWindow.setTextInputRectangle(place[0], place[1], place[2], place[3]);
    }

    nurel::sdl::Window mWindow;
    std::shared_ptr<GlesBackend> mBackend;
    bool mTakesText = true;             ///< as the window at first
    std::array<int, 4> mTextPlace = {}; ///< left, top, width, height
};

bool hasDisplay() {
    const char *x11 = std::getenv("DISPLAY");
    const char *wayland = std::getenv("WAYLAND_DISPLAY");
    return (x11 && *x11) || (wayland && *wayland);
}

} // namespace

std::unique_ptr<Host> Host::create(const Options &options) {
    if (!options.isOffscreen() && hasDisplay())
        return std::make_unique<WindowHost>(options);
    return std::make_unique<OffscreenHost>(options.width, options.height);
}

} // namespace viewer
