#pragma once

#include "foundation/core/Timer.h"
#include "nengine/renderer/ResizeEventData.h"
#include "nengine/renderer/ScreenSettings.h"
#include "nengine/renderer/SubscriberList.h"
#include "nengine/renderer/TaskQueue.h"

namespace nurel::texture {
class Atlas;
class Texture;
} // namespace nurel::texture

namespace nurel::renderer {

class Backend;
class Sorter;

/// What the scene needs of the place where it is drawn: the screen's size, the clocks, the backend, the atlas, and the
/// road into the render thread. A singleton that the `Engine` makes and takes down; used on the render thread, but for
/// the task queue and the timer.
class Renderer {
public:
    /// The backend outlives the renderer. Makes this the singleton.
    Renderer(Backend &backend, unsigned int width, unsigned int height, bool manualClock);
    virtual ~Renderer();
    Renderer(const Renderer &) = delete;
    Renderer &operator=(const Renderer &) = delete;

    static bool isSingletonCreated() { return mSINGLETON != nullptr; }
    static Renderer &getSingleton();
    static Renderer *getSingletonPtr() { return mSINGLETON; }

    Backend &getBackend() { return mBackend; }

    ScreenSettings &getScreenSettings() { return mScreenSettings; }
    const ScreenSettings &getScreenSettings() const { return mScreenSettings; }

    /// Stores the new size and tells the subscribers, also when it is the same one; 0 is legal.
    void resize(unsigned int width, unsigned int height);

    // Two clocks: the frame clock stands still during a frame, the timer runs.

    /// Seconds since the start of the process, or by a manual clock what it was advanced by.
    float getFrameTime() const { return static_cast<float>(mFrameTime); }
    double getFrameTimeExact() const { return mFrameTime; }
    core::Timer &getTimer() { return mTimer; }

    /// Sets the frame clock to the time of the timer.
    void beginFrame();

    // Subscriptions. A callback that returns true is unsubscribed.

    unsigned int subscribeResize(std::function<bool(const ResizeEventData &)> callback);
    bool unsubscribeResize(unsigned int id);
    std::size_t getResizeSubscriberCount() const { return mResizeSubscribers.getCount(); }

    /// Called on the render thread when a texture's pixels have reached the backend.
    unsigned int subscribeTextureRegistered(std::function<bool(texture::Texture *)> callback);
    bool unsubscribeTextureRegistered(unsigned int id);
    std::size_t getTextureSubscriberCount() const { return mTextureSubscribers.getCount(); }

    /// For the texture pool: tells the subscribers.
    void textureRegistered(texture::Texture *texture);

    TaskQueue &getTaskQueue() { return mTaskQueue; }

    /// Gives the sorter that a render pass is to use for the one that its maker wants. This one gives that one back; a
    /// renderer with another idea of order overrides it. Whoever overrides it takes over the sorter that he gets, be it
    /// by wrapping it or by disposing of it; the sorter that he gives back is the caller's, with count 0 if it is new.
    virtual Sorter *prepareSorter(Sorter *sorter);

    /// The pages that textures and glyphs are packed in. Null before the engine made it.
    texture::Atlas *getAtlasPtr() const { return mAtlas; }
    texture::Atlas &getAtlas();
    void setAtlas(texture::Atlas *atlas) { mAtlas = atlas; }

private:
    static Renderer *mSINGLETON;

    Backend &mBackend;
    core::Timer mTimer;
    double mFrameTime = 0;
    ScreenSettings mScreenSettings;
    SubscriberList<const ResizeEventData &> mResizeSubscribers;
    SubscriberList<texture::Texture *> mTextureSubscribers;
    TaskQueue mTaskQueue;
    texture::Atlas *mAtlas = nullptr;
};

} // namespace nurel::renderer
