#pragma once

#include "foundation/core/Runnable.h"
#include "nengine/texture/Texture.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace nurel::renderer {
class Renderer;
}

namespace nurel::vfs {
class FileSystem;
}

namespace nurel::texture {

struct Image;

/// All textures by name. A name is the path of a PNG, JPEG or WebP file, or what `add` was given.
///
/// Files are opened and decoded by a worker. A finished picture is registered on the render thread, by the renderer's
/// task queue: up to `MAXIMUM_PACKED_SIDE` pixels a side it is packed into the atlas, else it becomes a texture of its
/// own; then the renderer's texture-registration callbacks run. The pool keeps every texture until `remove`. Render
/// thread.
class TexturePool {
public:
    static constexpr unsigned int MAXIMUM_PACKED_SIDE = 256;

    static bool isSingletonCreated() { return mSINGLETON != nullptr; }

    /// Raises `core::IllegalStateException` "There is no texture pool".
    static TexturePool &getSingleton();

    /// Null when there is none.
    static TexturePool *getSingletonPtr() { return mSINGLETON; }

    /// Made by the engine, which keeps the renderer longer than the pool.
    explicit TexturePool(renderer::Renderer &renderer);

    /// Waits for the picture that is being decoded and forgets those that are queued. Textures that are still held stay
    /// as they are, without the backend's textures.
    ~TexturePool();

    TexturePool(const TexturePool &) = delete;
    TexturePool &operator=(const TexturePool &) = delete;

    /// The texture of this name. On first use of a name its file starts loading. Null for a null or empty name, and
    /// when there is no such file: that is logged once, "Cannot find image <name>", and remembered until `reload` or
    /// `setFileSystem`. A file that cannot be read or decoded is logged, "Cannot decode image <name>: <reason>", and
    /// its texture is invalid from then on.
    Texture *operator[](const char *name);

    /// Gives a name a picture from memory: rows without gaps, RGBA8 with alpha not multiplied in, as in a file. A
    /// texture of this name gets the new picture and stays the same object. The callbacks run before the call returns.
    /// Raises `core::IllegalArgumentException` for a null or empty name, null pixels, or a side that is 0 or too long.
    Texture *add(const char *name, unsigned int width, unsigned int height, const void *rgba);

    /// Forgets a name, whether it is known or was missing. Its texture lives on with those who hold it.
    void remove(const char *name);

    /// Loads a file again. Its texture keeps the old picture until the new one is there, and for good if there is no
    /// such file or it cannot be decoded, which is logged. A name that is not in use is only looked for again at its
    /// next use; a picture from memory stays.
    void reload(const char *name);

    /// Where files come from; null, as at first: the working directory. The pool does not own it; it must be safe to
    /// use from the worker. Forgets which files were missing. Waits for the files that are being loaded: when the call
    /// returns the old file system is no longer in use.
    void setFileSystem(vfs::FileSystem *fileSystem);

    /// The names of all textures that come from files, in order.
    std::vector<std::string> getFileNames() const;

    /// How many files are being loaded.
    unsigned int getPendingCount() const { return static_cast<unsigned int>(mPending.size()); }

    /// Waits for all files that are being loaded and registers them: for programs that draw one picture and end.
    void waitUntilLoaded();

    /// A valid white pixel, the same for every kind: what is drawn where a texture must be and none is.
    RenderData *getDefaultTextureRenderData(unsigned int kind);

private:
    friend class Texture;

    struct Entry {
        ::core::SmartPtr<Texture> texture;
        bool isFile = false;
    };
    struct Job;

    Texture *makeTexture(const char *name, bool isFile);
    void startLoading(const std::string &name, Texture &texture);
    void cancelLoading(Texture &texture);
    void finish(const std::shared_ptr<Job> &job);
    static void fail(Texture &texture, const char *reason);
    void registerImage(Texture &texture, const Image &image);
    bool fill(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height);
    bool pack(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height);
    bool makeOwn(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height);
    void applyWrapping(Texture &texture);
    void textureDestroyed(Texture &texture);

    static TexturePool *mSINGLETON;

    renderer::Renderer &mRenderer;
    Atlas &mAtlas;
    std::shared_ptr<BackendLink> mLink;
    std::unique_ptr<vfs::FileSystem> mWorkingDirectory;
    vfs::FileSystem *mFileSystem;
    std::map<std::string, Entry, std::less<>> mTextures;
    std::set<std::string, std::less<>> mMissing;
    std::set<Texture *> mAlive; ///< everything that points back at the pool, removed textures included
    std::vector<std::shared_ptr<Job>> mPending;
    ::core::SmartPtr<RenderData> mDefault;
    bool mWorkerStarted = false; ///< it has a thread from its first task on
    ::core::Runnable mWorker;
};

} // namespace nurel::texture
