#include "nengine/texture/TexturePool.h"

#include "foundation/core/Exception.h"
#include "foundation/logging/Logger.h"
#include "nengine/renderer/Backend.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/texture/ImageFile.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/DirectoryFileSystem.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

namespace nurel::texture {

using logging::Logger;

TexturePool *TexturePool::mSINGLETON = nullptr;

/// One file on its way. The worker writes `image` and `error` before it says that it is done; the render thread has the
/// rest.
struct TexturePool::Job {
    Job(std::string path, vfs::FileSystem *from, Texture *to) : name(std::move(path)), fileSystem(from), texture(to) {}

    void load();

    const std::string name;
    vfs::FileSystem *const fileSystem;
    std::atomic<bool> cancelled{false};
    Image image;
    std::string error; ///< empty: the image is there
    ::core::Future<void> done;
    Texture *texture; ///< null once the texture has gone or does not want the result any more
};

namespace {

/// No picture within the limits of `Image` is larger as a file.
constexpr std::size_t MAXIMUM_FILE_SIZE = std::size_t{320} * 1024 * 1024;

std::string readFile(stream::InputStream &stream) {
    constexpr std::size_t CHUNK = 64 * 1024;
    std::string content;
    for (;;) {
        const std::size_t size = content.size();
        content.resize(std::max(content.capacity(), size + CHUNK));
        const std::size_t count = stream.read(content.data() + size, content.size() - size);
        content.resize(size + count);
        if (count == 0)
            return content;
        if (content.size() > MAXIMUM_FILE_SIZE)
            throw ::core::IOException("the file is larger than %zu MB", MAXIMUM_FILE_SIZE >> 20);
    }
}

std::vector<std::uint8_t> multiplyByAlpha(const void *rgba, unsigned int width, unsigned int height) {
    const auto *bytes = static_cast<const std::uint8_t *>(rgba);
    std::vector<std::uint8_t> pixels(bytes, bytes + std::size_t{4} * width * height);
    premultiply(pixels.data(), std::size_t{width} * height);
    return pixels;
}

} // namespace

void TexturePool::Job::load() {
    if (cancelled)
        return;
    try {
        const std::unique_ptr<stream::InputStream> stream(fileSystem->open(name.c_str()));
        const std::string content = readFile(*stream);
        image = decodeImage(content.data(), content.size());
    } catch (const std::bad_alloc &) {
        error = "out of memory";
    } catch (const std::exception &exception) {
        error = exception.what();
    }
}

TexturePool::TexturePool(renderer::Renderer &renderer)
    : mRenderer(renderer), mAtlas(renderer.getAtlas()),
      mLink(std::make_shared<BackendLink>(BackendLink{&renderer.getBackend()})),
      mWorkingDirectory(std::make_unique<vfs::DirectoryFileSystem>(nullptr)), mFileSystem(mWorkingDirectory.get()),
      mWorker("textures") {
    mSINGLETON = this;
}

TexturePool::~TexturePool() {
    for (const std::shared_ptr<Job> &job : mPending) {
        job->cancelled = true;
        job->texture = nullptr;
    }
    mPending.clear();
    mWorker.stop();
    mTextures.clear();
    mDefault = nullptr;
    for (Texture *texture : mAlive)
        texture->mPool = nullptr;
    mLink->backend = nullptr;
    mSINGLETON = nullptr;
}

TexturePool &TexturePool::getSingleton() {
    if (!mSINGLETON)
        throw ::core::IllegalStateException("There is no texture pool");
    return *mSINGLETON;
}

Texture *TexturePool::operator[](const char *name) {
    if (!name || !*name)
        return nullptr;
    if (const auto found = mTextures.find(name); found != mTextures.end())
        return found->second.texture.get();
    if (mMissing.find(name) != mMissing.end())
        return nullptr;
    if (!mFileSystem->exists(name)) {
        mMissing.emplace(name);
        Logger::mROOT_LOGGER.warn("Cannot find image %s", name);
        return nullptr;
    }
    Texture *texture = makeTexture(name, true);
    startLoading(name, *texture);
    return texture;
}

Texture *TexturePool::makeTexture(const char *name, bool isFile) {
    const ::core::SmartPtr<Texture> texture(new Texture(name));
    mTextures[name] = {texture, isFile};
    mMissing.erase(name);
    mAlive.insert(texture.get());
    texture->mPool = this;
    return texture.get();
}

Texture *TexturePool::add(const char *name, unsigned int width, unsigned int height, const void *rgba) {
    if (!name || !*name)
        throw ::core::IllegalArgumentException("A texture needs a name");
    const unsigned int maximum = std::min(mRenderer.getBackend().getMaximumTextureSize(), Image::MAXIMUM_SIDE);
    if (!rgba || width == 0 || height == 0 || width > maximum || height > maximum)
        throw ::core::IllegalArgumentException("Texture %s cannot have %u x %u pixels", name, width, height);

    const auto found = mTextures.find(name);
    const ::core::SmartPtr<Texture> texture =
        found == mTextures.end() ? makeTexture(name, false) : found->second.texture.get();
    mTextures.find(name)->second.isFile = false;
    cancelLoading(*texture);
    const std::vector<std::uint8_t> pixels = multiplyByAlpha(rgba, width, height);
    if (!fill(*texture, pixels.data(), width, height))
        throw ::core::IllegalStateException("Cannot make a texture of %u x %u pixels", width, height);
    mRenderer.textureRegistered(texture.get());
    return texture.get();
}

void TexturePool::remove(const char *name) {
    if (!name)
        return;
    if (const auto missing = mMissing.find(name); missing != mMissing.end())
        mMissing.erase(missing);
    if (const auto found = mTextures.find(name); found != mTextures.end())
        mTextures.erase(found);
}

void TexturePool::reload(const char *name) {
    if (!name)
        return;
    if (const auto missing = mMissing.find(name); missing != mMissing.end())
        mMissing.erase(missing);
    const auto found = mTextures.find(name);
    if (found == mTextures.end() || !found->second.isFile)
        return;
    if (!mFileSystem->exists(name)) {
        Logger::mROOT_LOGGER.warn("Cannot find image %s", name);
        return;
    }
    cancelLoading(*found->second.texture);
    startLoading(found->first, *found->second.texture);
}

void TexturePool::setFileSystem(vfs::FileSystem *fileSystem) {
    mFileSystem = fileSystem ? fileSystem : mWorkingDirectory.get();
    mMissing.clear();
    if (!mWorkerStarted)
        return;
    // behind everything that still uses the old one
    mWorker.postTask(new ::core::GenericProcess([] {})).wait();
}

std::vector<std::string> TexturePool::getFileNames() const {
    std::vector<std::string> names;
    for (const auto &[name, entry] : mTextures) {
        if (entry.isFile)
            names.push_back(name);
    }
    return names;
}

void TexturePool::startLoading(const std::string &name, Texture &texture) {
    auto job = std::make_shared<Job>(name, mFileSystem, &texture);
    mPending.push_back(job);
    mWorkerStarted = true;
    mWorker.postTask(new ::core::GenericProcess([this, job] {
        job->load();
        job->done.set();
        mRenderer.getTaskQueue().post([this, job] {
            if (job->texture) // else the pool may have gone
                finish(job);
        });
    }));
}

void TexturePool::cancelLoading(Texture &texture) {
    std::erase_if(mPending, [&texture](const std::shared_ptr<Job> &job) {
        if (job->texture != &texture)
            return false;
        job->cancelled = true;
        job->texture = nullptr;
        return true;
    });
}

void TexturePool::finish(const std::shared_ptr<Job> &job) {
    const ::core::SmartPtr<Texture> texture(std::exchange(job->texture, nullptr));
    std::erase(mPending, job);
    if (job->error.empty())
        registerImage(*texture, job->image);
    else
        fail(*texture, job->error.c_str());
}

void TexturePool::waitUntilLoaded() {
    while (!mPending.empty()) {
        const std::shared_ptr<Job> job = mPending.front();
        job->done.wait();
        finish(job);
    }
}

void TexturePool::fail(Texture &texture, const char *reason) {
    Logger::mROOT_LOGGER.error("Cannot decode image %s: %s", texture.getName(), reason);
    if (texture.mData)
        return; // the picture from before the reload stays
    texture.mValid = false;
    texture.touch();
}

void TexturePool::registerImage(Texture &texture, const Image &image) {
    if (fill(texture, image.rgba.get(), image.width, image.height))
        mRenderer.textureRegistered(&texture);
    else
        fail(texture, "the backend cannot make a texture of its size");
}

bool TexturePool::fill(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height) {
    if (!pack(texture, rgba, width, height) && !makeOwn(texture, rgba, width, height)) {
        texture.mValid = texture.mData != nullptr;
        return false;
    }
    texture.mWidth = width;
    texture.mHeight = height;
    texture.mValid = true;
    texture.touch();
    return true;
}

/// Puts a small picture into the atlas, into the old place if it is of the same size.
bool TexturePool::pack(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height) {
    if (texture.mWrapping == Texture::W_REPEAT || std::max(width, height) > MAXIMUM_PACKED_SIDE)
        return false;
    if (texture.mPlace.page && texture.mWidth == width && texture.mHeight == height) {
        mAtlas.update(texture.mPlace, rgba, Atlas::B_EXTEND);
    } else {
        Atlas::Region place;
        if (!mAtlas.allocate(width, height, rgba, Atlas::K_COMMON, place, Atlas::B_EXTEND))
            return false;
        mAtlas.release(texture.mPlace);
        texture.mPlace = place;
        texture.mData = place.page;
        texture.mRectangle = {place.u0, place.v0, place.u1, place.v1};
    }
    return true;
}

bool TexturePool::makeOwn(Texture &texture, const std::uint8_t *rgba, unsigned int width, unsigned int height) {
    renderer::Backend &backend = mRenderer.getBackend();
    const unsigned int maximum = backend.getMaximumTextureSize();
    if (width > maximum || height > maximum)
        return false;
    const renderer::TextureId id = backend.createTexture(width, height, renderer::PixelFormat::RGBA8, rgba);
    if (id == renderer::NO_TEXTURE)
        return false;
    if (texture.mWrapping == Texture::W_REPEAT)
        backend.setTextureRepeat(id, true);
    mAtlas.release(texture.mPlace);
    texture.mData = new RenderData(mLink, id, width, height);
    texture.mRectangle = {};
    return true;
}

void TexturePool::applyWrapping(Texture &texture) {
    if (!texture.mData)
        return; // it will be made so
    if (!texture.mPlace.page) {
        mRenderer.getBackend().setTextureRepeat(texture.mData->id, texture.mWrapping == Texture::W_REPEAT);
        return;
    }
    std::vector<std::uint8_t> pixels(std::size_t{4} * texture.mWidth * texture.mHeight);
    mAtlas.read(texture.mPlace, pixels.data());
    if (makeOwn(texture, pixels.data(), texture.mWidth, texture.mHeight))
        texture.touch();
}

void TexturePool::textureDestroyed(Texture &texture) {
    cancelLoading(texture);
    mAtlas.release(texture.mPlace);
    mAlive.erase(&texture);
}

RenderData *TexturePool::getDefaultTextureRenderData(unsigned int) {
    if (!mDefault) {
        const std::uint8_t white[] = {255, 255, 255, 255};
        mDefault = new RenderData(
            mLink, mRenderer.getBackend().createTexture(1, 1, renderer::PixelFormat::RGBA8, white), 1, 1);
    }
    return mDefault.get();
}

} // namespace nurel::texture
