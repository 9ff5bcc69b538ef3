#include "backends/sdl/Window.h"

#include "backends/sdl/detail/EventTranslator.h"
#include "foundation/core/Exception.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace nurel::sdl {

namespace {

[[noreturn]] void fail(const char *reason) {
    throw ::core::IllegalStateException("Cannot open a window: %s", reason);
}

/// SDL's video part for as long as a window wants it. Its other parts may be in use by the program.
class Video {
public:
    explicit Video(const WindowConfig &config) {
        SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"); // this is no full-screen game
        SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
        SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1"); // the list of candidates
        SDL_SetHint(SDL_HINT_IME_INTERNAL_EDITING, config.showsComposition ? "1" : "0");
#ifdef __linux__
        if (!std::getenv("XDG_RUNTIME_DIR")) // Wayland needs it, and its library complains on stderr of its absence
            SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11,KMSDRM");
#endif
        if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
            fail((std::string("there is no display (") + SDL_GetError() + ")").c_str());
        if (isInvisible(SDL_GetCurrentVideoDriver())) {
            SDL_QuitSubSystem(SDL_INIT_VIDEO);
            fail("there is no display");
        }
    }
    ~Video() {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }
    Video(const Video &) = delete;
    Video &operator=(const Video &) = delete;

private:
    /// What SDL falls back to without a word when there is no display.
    static bool isInvisible(const char *driver) {
        return !driver || std::strcmp(driver, "offscreen") == 0 || std::strcmp(driver, "dummy") == 0 ||
               std::strcmp(driver, "evdev") == 0;
    }
};

struct Api {
    int profile;
    int major;
    int minor;
};

constexpr Api APIS[] = {{SDL_GL_CONTEXT_PROFILE_CORE, 3, 3}, {SDL_GL_CONTEXT_PROFILE_ES, 3, 0}};

} // namespace

struct Window::State {
    explicit State(const WindowConfig &config);
    ~State() { close(); }
    State(const State &) = delete;
    State &operator=(const State &) = delete;

    bool open(const WindowConfig &config, const Api &api);
    void close();

    void updateSize();
    void handleWindowEvent(const SDL_WindowEvent &event);

    Video video;
    SDL_Window *window = nullptr;
    SDL_GLContext context = nullptr;
    EventTranslator translator;
    unsigned int width = 0; ///< pixels
    unsigned int height = 0;
    float scaleX = 1; ///< pixels for each unit of the display
    float scaleY = 1;
};

Window::State::State(const WindowConfig &config) : video(config) {
    std::string reason;
    for (const Api &api : APIS) {
        if (open(config, api))
            break;
        reason = SDL_GetError();
        close();
    }
    if (!window)
        fail(reason.c_str());
    const bool synchronised =
        config.verticalSync && (SDL_GL_SetSwapInterval(-1) == 0 || SDL_GL_SetSwapInterval(1) == 0);
    if (!synchronised)
        SDL_GL_SetSwapInterval(0);
    updateSize();
    SDL_StartTextInput();
}

bool Window::State::open(const WindowConfig &config, const Api &api) {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, api.profile);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, api.major);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, api.minor);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    Uint32 flags = SDL_WINDOW_OPENGL | SDL_WINDOW_ALLOW_HIGHDPI;
    if (config.resizable)
        flags |= SDL_WINDOW_RESIZABLE;
    window = SDL_CreateWindow(config.title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                              static_cast<int>(std::max(config.width, 1u)),
                              static_cast<int>(std::max(config.height, 1u)), flags);
    context = window ? SDL_GL_CreateContext(window) : nullptr;
    return context && SDL_GL_MakeCurrent(window, context) == 0;
}

void Window::State::close() {
    if (context)
        SDL_GL_DeleteContext(context);
    if (window)
        SDL_DestroyWindow(window);
    context = nullptr;
    window = nullptr;
}

void Window::State::updateSize() {
    int pixelWidth = 0;
    int pixelHeight = 0;
    int unitWidth = 0;
    int unitHeight = 0;
    SDL_GL_GetDrawableSize(window, &pixelWidth, &pixelHeight);
    SDL_GetWindowSize(window, &unitWidth, &unitHeight);
    width = static_cast<unsigned int>(std::max(pixelWidth, 0));
    height = static_cast<unsigned int>(std::max(pixelHeight, 0));
    if (unitWidth > 0 && unitHeight > 0) {
        scaleX = static_cast<float>(pixelWidth) / static_cast<float>(unitWidth);
        scaleY = static_cast<float>(pixelHeight) / static_cast<float>(unitHeight);
    }
    translator.setScale(scaleX, scaleY);
}

void Window::State::handleWindowEvent(const SDL_WindowEvent &event) {
    if (event.windowID != SDL_GetWindowID(window))
        return;
    updateSize();
    translator.setSize(width, height);
    if (event.event == SDL_WINDOWEVENT_CLOSE)
        translator.requestClose();
}

Window::Window(const WindowConfig &config) : mState(std::make_unique<State>(config)) {
    mState->translator.setSize(mState->width, mState->height);
}

Window::~Window() = default;

void Window::setCallbacks(WindowCallbacks callbacks) {
    mState->translator.setCallbacks(std::move(callbacks));
}

bool Window::pollEvents() {
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        if (event.type == SDL_WINDOWEVENT)
            mState->handleWindowEvent(event.window);
        else
            mState->translator.translate(event);
        if (event.type == SDL_TEXTEDITING_EXT)
            SDL_free(event.editExt.text);
    }
    return !mState->translator.isCloseRequested();
}

void Window::present() {
    SDL_GL_SwapWindow(mState->window);
}

void Window::makeCurrent() {
    SDL_GL_MakeCurrent(mState->window, mState->context);
}

unsigned int Window::getWidth() const {
    return mState->width;
}

unsigned int Window::getHeight() const {
    return mState->height;
}

void Window::resize(unsigned int width, unsigned int height) {
    const auto toUnits = [](unsigned int pixels, float scale) {
        return std::max(1, static_cast<int>(std::lround(static_cast<float>(pixels) / scale)));
    };
    SDL_SetWindowSize(mState->window, toUnits(width, mState->scaleX), toUnits(height, mState->scaleY));
}

void Window::setTitle(const char *title) {
    SDL_SetWindowTitle(mState->window, title ? title : "");
}

bool Window::isVerticalSync() const {
    return SDL_GL_GetSwapInterval() != 0;
}

void Window::setTextInput(bool on) {
    if (on)
        SDL_StartTextInput();
    else
        SDL_StopTextInput();
}

void Window::setTextInputRectangle(int x, int y, int width, int height) {
    const auto toUnits = [](int pixels, float scale) {
        return static_cast<int>(std::lround(static_cast<float>(pixels) / scale));
    };
    const SDL_Rect rectangle{toUnits(x, mState->scaleX), toUnits(y, mState->scaleY), toUnits(width, mState->scaleX),
                             toUnits(height, mState->scaleY)};
    SDL_SetTextInputRect(&rectangle);
}

std::string Window::getClipboard() const {
    char *text = SDL_GetClipboardText();
    std::string copy(text ? text : "");
    SDL_free(text);
    return copy;
}

void Window::setClipboard(const char *text) {
    SDL_SetClipboardText(text ? text : "");
}

} // namespace nurel::sdl
