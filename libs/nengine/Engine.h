#pragma once

#include <memory>
#include <string>

namespace nurel {

namespace renderer {
class Backend;
class RecordingBackend;
class RenderPass;
class Renderer;
} // namespace renderer

/// What an `Engine` is started with.
struct EngineConfig {
    unsigned int width = 1280; ///< of the screen, in pixels
    unsigned int height = 720;

    /// What draws; none: a `renderer::RecordingBackend`.
    std::shared_ptr<renderer::Backend> backend;

    /// The clock moves by `Engine::advance` only, so that runs can be repeated.
    bool manualClock = false;

    /// False: there is no `input::InputSystem` at all, and no key events.
    bool input = true;

    /// The default font by its family; empty: the system's sans-serif.
    std::string fontFamily;

    /// A font file, which comes before the family.
    std::string fontFile;

    /// Nothing shown and nothing left to chance: recording backend, manual clock, input.
    static EngineConfig headless(unsigned int width, unsigned int height);
};

/// Starts the engine layer and takes it down: the object factory, the renderer with its clocks, textures, fonts, input
/// and texts, in this order, and in reverse at the end. One at a time in a process; a second raises
/// `core::IllegalStateException` "The engine is running already".
///
/// The thread that makes it is the render thread, and destroys it. A program that uses the toolkit calls
/// `ui::UIManager::shutdown()` before; a warning in the log tells of it if it did not.
class Engine {
public:
    explicit Engine(const EngineConfig &config = EngineConfig());
    ~Engine();
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;

    /// Starts a frame: moves a manual clock by the seconds (a real one runs by itself and takes no notice of them) and
    /// sets the frame clock to it.
    void advance(double seconds);

    /// Takes over what other threads have ready: tasks posted to the render thread and decoded textures. A real frame
    /// clock moves on here.
    void pump();

    /// Draws one frame of the pass: pumps, prepares, renders.
    void renderFrame(renderer::RenderPass &pass);

    /// The screen has another size, in pixels. 0 is legal.
    void resize(unsigned int width, unsigned int height);

    renderer::Renderer &getRenderer();
    renderer::Backend &getBackend();

    /// The backend if it is a recording one, else null.
    renderer::RecordingBackend *getRecordingBackend();

private:
    struct Singletons;
    std::shared_ptr<renderer::Backend> mBackend;
    std::unique_ptr<Singletons> mSingletons;
};

} // namespace nurel
