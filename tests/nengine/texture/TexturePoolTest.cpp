#include "nengine/texture/TexturePool.h"

#include "SamplePictures.h"
#include "foundation/core/Event.h"
#include "foundation/core/Exception.h"
#include "nengine/renderer/RecordingBackend.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/texture/Stage.h"
#include "nmain/stream/InputStream.h"
#include "nmain/vfs/MemoryFileSystem.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace nurel;
using logging::Level;
using test::Color;
using test::encodePng;
using texture::Texture;
using texture::TexturePool;

namespace {

/// Remembers which textures repeat, and refuses textures on request.
class Backend : public renderer::RecordingBackend {
public:
    void setTextureRepeat(renderer::TextureId id, bool repeat) override { repeating[id] = repeat; }

    renderer::TextureId createTexture(unsigned int w, unsigned int h, renderer::PixelFormat format,
                                      const void *pixels) override {
        return full ? renderer::NO_TEXTURE : RecordingBackend::createTexture(w, h, format, pixels);
    }

    std::map<renderer::TextureId, bool> repeating;
    bool full = false;
};

/// Files that can be held back: `open` waits for the gate.
class GatedFiles : public vfs::MemoryFileSystem {
public:
    GatedFiles() { gate.set(); }

    stream::InputStream *open(const char *path) override {
        entered.set();
        gate.wait();
        ++opened;
        return MemoryFileSystem::open(path);
    }
    bool exists(const char *path) override { return *path == 'x' || MemoryFileSystem::exists(path); }

    ::core::Event gate;
    ::core::Event entered;
    std::atomic<int> opened{0};
};

struct TexturePoolTest : testing::Test {
    TexturePoolTest() {
        renderer.setAtlas(&atlas);
        pool = std::make_unique<TexturePool>(renderer);
        pool->setFileSystem(&files);
        renderer.subscribeTextureRegistered([this](Texture *texture) {
            registered.push_back(texture->getName());
            return false;
        });
    }
    ~TexturePoolTest() override { files.gate.set(); }

    /// The picture of a texture, as the backend has it.
    Color getPixel(const Texture &texture, unsigned int x, unsigned int y) {
        atlas.flush();
        const texture::RenderData &data = *texture.getRenderData();
        const auto left = static_cast<unsigned int>(texture.getRegion().u0 * static_cast<float>(data.width));
        const auto top = static_cast<unsigned int>(texture.getRegion().v0 * static_cast<float>(data.height));
        const std::uint8_t *bytes =
            backend.getTextures().at(data.id).pixels.data() + (std::size_t{top + y} * data.width + left + x) * 4;
        return {bytes[0], bytes[1], bytes[2], bytes[3]};
    }

    test::LogCapture log;
    Backend backend;
    renderer::Renderer renderer{backend, 100, 100, true};
    texture::Atlas atlas{backend};
    GatedFiles files;
    std::vector<std::string> registered;
    std::unique_ptr<TexturePool> pool;
};

} // namespace

TEST_F(TexturePoolTest, IsASingletonWhileItLives) {
    EXPECT_TRUE(TexturePool::isSingletonCreated());
    EXPECT_EQ(&TexturePool::getSingleton(), pool.get());
    EXPECT_EQ(TexturePool::getSingletonPtr(), pool.get());
    pool.reset();
    EXPECT_FALSE(TexturePool::isSingletonCreated());
    EXPECT_EQ(TexturePool::getSingletonPtr(), nullptr);
    EXPECT_THROW(TexturePool::getSingleton(), ::core::IllegalStateException);
}

TEST_F(TexturePoolTest, GivesNothingForNoName) {
    EXPECT_EQ((*pool)[nullptr], nullptr);
    EXPECT_EQ((*pool)[""], nullptr);
}

TEST_F(TexturePoolTest, WarnsOnceOfAMissingFileAndRemembersIt) {
    EXPECT_EQ((*pool)["a.png"], nullptr);
    EXPECT_EQ(log.takeOne(Level::WARN), "Cannot find image a.png");
    files.add("a.png", encodePng(1, 1, {1, 2, 3, 255}));
    EXPECT_EQ((*pool)["a.png"], nullptr);
    pool->reload("a.png");
    EXPECT_NE((*pool)["a.png"], nullptr);
}

TEST_F(TexturePoolTest, LooksForMissingFilesAgainInAnotherFileSystem) {
    EXPECT_EQ((*pool)["a.png"], nullptr);
    log.takeOne(Level::WARN);
    vfs::MemoryFileSystem other;
    other.add("a.png", encodePng(1, 1, {1, 2, 3, 255}));
    pool->setFileSystem(&other);
    ASSERT_NE((*pool)["a.png"], nullptr);
    pool->waitUntilLoaded();
    EXPECT_NE((*pool)["a.png"]->getRenderData(), nullptr);
    pool->setFileSystem(nullptr);
}

TEST_F(TexturePoolTest, GivesATextureBeforeItsPixelsAreThere) {
    files.add("a.png", encodePng(5, 7, {200, 100, 50, 128}));
    files.gate.reset();
    Texture *texture = (*pool)["a.png"];
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ((*pool)["a.png"], texture);
    EXPECT_STREQ(texture->getName(), "a.png");
    EXPECT_TRUE(texture->isValid());
    EXPECT_EQ(texture->getRenderData(), nullptr);
    EXPECT_EQ(texture->getWidth(), 0u);
    EXPECT_EQ(texture->getHeight(), 0u);
    EXPECT_EQ(pool->getPendingCount(), 1u);
    const std::uint64_t revision = texture->getRevision();

    files.gate.set();
    pool->waitUntilLoaded();
    EXPECT_TRUE(texture->isValid());
    ASSERT_NE(texture->getRenderData(), nullptr);
    EXPECT_EQ(texture->getWidth(), 5u);
    EXPECT_EQ(texture->getHeight(), 7u);
    EXPECT_GT(texture->getRevision(), revision);
    EXPECT_EQ(getPixel(*texture, 4, 6), (Color{100, 50, 25, 128}));
    EXPECT_EQ(registered, std::vector<std::string>{"a.png"});
    EXPECT_EQ(pool->getPendingCount(), 0u);
    EXPECT_EQ(files.opened, 1);
}

TEST_F(TexturePoolTest, RegistersOnTheRenderThreadByTheTaskQueue) {
    files.add("a.png", encodePng(5, 7, {200, 100, 50, 128}));
    std::thread::id thread;
    renderer.subscribeTextureRegistered([&thread](Texture *) {
        thread = std::this_thread::get_id();
        return true;
    });
    Texture *texture = (*pool)["a.png"];
    while (pool->getPendingCount() != 0) {
        EXPECT_EQ(texture->getRenderData(), nullptr);
        renderer.getTaskQueue().pump();
        std::this_thread::yield();
    }
    EXPECT_NE(texture->getRenderData(), nullptr);
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_F(TexturePoolTest, PacksSmallPicturesAndGivesLargeOnesATextureOfTheirOwn) {
    files.add("small.png", encodePng(256, 256, {1, 2, 3, 255}));
    files.add("wide.png", encodePng(257, 1, {4, 5, 6, 255}));
    Texture *small = (*pool)["small.png"];
    Texture *wide = (*pool)["wide.png"];
    pool->waitUntilLoaded();
    EXPECT_EQ(small->getRenderData(), atlas.getPage(0));
    EXPECT_EQ(small->getRegion().u1 - small->getRegion().u0, 0.25f);
    ASSERT_NE(wide->getRenderData(), nullptr);
    EXPECT_NE(wide->getRenderData(), atlas.getPage(0));
    EXPECT_EQ(wide->getRenderData()->width, 257u);
    EXPECT_EQ(wide->getRegion().u0, 0.0f);
    EXPECT_EQ(wide->getRegion().v1, 1.0f);
    EXPECT_EQ(getPixel(*wide, 256, 0), (Color{4, 5, 6, 255}));
}

TEST_F(TexturePoolTest, SaysWhatIsWrongWithAFileAndMakesItsTextureInvalid) {
    files.add("a.png", "hello");
    Texture *texture = (*pool)["a.png"];
    ASSERT_NE(texture, nullptr);
    const std::uint64_t revision = texture->getRevision();
    pool->waitUntilLoaded();
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot decode image a.png: not a PNG, JPEG or WebP file");
    EXPECT_FALSE(texture->isValid());
    EXPECT_EQ(texture->getRenderData(), nullptr);
    EXPECT_NE(texture->getRevision(), revision);
    EXPECT_EQ((*pool)["a.png"], texture);
    EXPECT_TRUE(registered.empty());
}

TEST_F(TexturePoolTest, SaysWhenAFileCannotBeOpenedAfterAll) {
    Texture *texture = (*pool)["x.png"];
    pool->waitUntilLoaded();
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot decode image x.png: Cannot open file x.png");
    EXPECT_FALSE(texture->isValid());
}

TEST_F(TexturePoolTest, SaysWhenTheBackendHasNoPlaceForAPicture) {
    backend.setMaximumTextureSize(512);
    files.add("a.png", encodePng(513, 1, {1, 2, 3, 255}));
    Texture *texture = (*pool)["a.png"];
    pool->waitUntilLoaded();
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot decode image a.png: the backend cannot make a texture of its size");
    EXPECT_FALSE(texture->isValid());
}

TEST_F(TexturePoolTest, ReloadsIntoTheSameTexture) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    Texture *texture = (*pool)["a.png"];
    pool->waitUntilLoaded();
    const std::uint64_t revision = texture->getRevision();
    files.add("a.png", encodePng(300, 2, {7, 8, 9, 255}));
    pool->reload("a.png");
    EXPECT_EQ(texture->getWidth(), 5u);
    EXPECT_NE(texture->getRenderData(), nullptr);
    pool->waitUntilLoaded();
    EXPECT_EQ((*pool)["a.png"], texture);
    EXPECT_EQ(texture->getWidth(), 300u);
    EXPECT_EQ(getPixel(*texture, 299, 1), (Color{7, 8, 9, 255}));
    EXPECT_GT(texture->getRevision(), revision);
    files.add("a.png", encodePng(4, 4, {17, 18, 19, 255}));
    pool->reload("a.png");
    pool->waitUntilLoaded();
    EXPECT_EQ(getPixel(*texture, 3, 3), (Color{17, 18, 19, 255}));
    EXPECT_EQ(registered, (std::vector<std::string>{"a.png", "a.png", "a.png"}));
    EXPECT_EQ(backend.getTextures().size(), 1u) << "the picture of 300 pixels has gone";
}

TEST_F(TexturePoolTest, ReloadsAPackedPictureOfTheSameSizeIntoItsPlace) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    Texture *texture = (*pool)["a.png"];
    pool->waitUntilLoaded();
    const float u = texture->getRegion().u0, v = texture->getRegion().v0;
    files.add("a.png", encodePng(5, 7, {7, 8, 9, 255}));
    pool->reload("a.png");
    pool->waitUntilLoaded();
    EXPECT_EQ(texture->getRegion().u0, u);
    EXPECT_EQ(texture->getRegion().v0, v);
    EXPECT_EQ(getPixel(*texture, 4, 6), (Color{7, 8, 9, 255}));
}

TEST_F(TexturePoolTest, KeepsTheOldPictureWhenTheNewOneIsBrokenOrMissing) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    Texture *texture = (*pool)["a.png"];
    pool->waitUntilLoaded();
    files.add("a.png", "");
    pool->reload("a.png");
    pool->waitUntilLoaded();
    EXPECT_EQ(log.takeOne(Level::ERROR), "Cannot decode image a.png: the file is empty");
    files.remove("a.png");
    pool->reload("a.png");
    EXPECT_EQ(log.takeOne(Level::WARN), "Cannot find image a.png");
    EXPECT_TRUE(texture->isValid());
    EXPECT_EQ(getPixel(*texture, 0, 0), (Color{1, 2, 3, 255}));
    EXPECT_EQ(registered.size(), 1u);
}

TEST_F(TexturePoolTest, MakesAnInvalidTextureValidByReloading) {
    files.add("a.png", "broken");
    Texture *texture = (*pool)["a.png"];
    pool->waitUntilLoaded();
    log.takeOne(Level::ERROR);
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    pool->reload("a.png");
    pool->waitUntilLoaded();
    EXPECT_TRUE(texture->isValid());
    EXPECT_NE(texture->getRenderData(), nullptr);
}

TEST_F(TexturePoolTest, TakesTheLastOfTwoLoadsOfAName) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.gate.reset();
    Texture *texture = (*pool)["a.png"];
    files.entered.wait();
    pool->reload("a.png");
    EXPECT_EQ(pool->getPendingCount(), 1u);
    files.gate.set();
    pool->waitUntilLoaded();
    renderer.getTaskQueue().pump();
    EXPECT_NE(texture->getRenderData(), nullptr);
    EXPECT_EQ(registered.size(), 1u);
}

TEST_F(TexturePoolTest, ForgetsARemovedTextureButFillsItForThoseWhoHoldIt) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.gate.reset();
    const ::core::SmartPtr<Texture> texture = (*pool)["a.png"];
    pool->remove("a.png");
    files.gate.set();
    pool->waitUntilLoaded();
    EXPECT_NE(texture->getRenderData(), nullptr);
    EXPECT_NE((*pool)["a.png"], texture.get());
    pool->remove("no such texture");
    pool->remove(nullptr);
}

TEST_F(TexturePoolTest, DoesNotLoadForATextureThatHasGone) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.add("b.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.gate.reset();
    (*pool)["a.png"];
    files.entered.wait();
    (*pool)["b.png"];
    pool->remove("a.png");
    pool->remove("b.png");
    EXPECT_EQ(pool->getPendingCount(), 0u);
    files.gate.set();
    pool->setFileSystem(nullptr); // waits for the worker
    renderer.getTaskQueue().pump();
    EXPECT_EQ(files.opened, 1) << "only the one that was being loaded";
    EXPECT_TRUE(registered.empty());
}

TEST_F(TexturePoolTest, ReleasesThePlaceOfATextureThatHasGone) {
    files.add("a.png", encodePng(200, 200, {1, 2, 3, 255}));
    for (int i = 0; i < 100; ++i) {
        (*pool)["a.png"];
        pool->waitUntilLoaded();
        pool->remove("a.png");
    }
    EXPECT_EQ(atlas.getPageCount(), 1u);
}

TEST_F(TexturePoolTest, EndsSafelyWhileFilesAreBeingLoaded) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.add("b.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.gate.reset();
    const ::core::SmartPtr<Texture> texture = (*pool)["a.png"];
    (*pool)["b.png"];
    files.entered.wait();
    std::thread opener([this] { files.gate.set(); });
    pool.reset();
    opener.join();
    renderer.getTaskQueue().pump();
    EXPECT_EQ(texture->getRenderData(), nullptr);
    EXPECT_TRUE(registered.empty());
    EXPECT_LE(files.opened, 2);
}

TEST_F(TexturePoolTest, DropsWhatWasReadyButNotRegistered) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    const ::core::SmartPtr<Texture> texture = (*pool)["a.png"];
    pool->setFileSystem(nullptr); // the picture has been decoded, its task waits
    pool.reset();
    renderer.getTaskQueue().pump();
    EXPECT_EQ(texture->getRenderData(), nullptr);
}

TEST_F(TexturePoolTest, LeavesTexturesBehindThatMayOutliveIt) {
    const std::vector<Color> pixels(300 * 300, Color{1, 2, 3, 255});
    ::core::SmartPtr<Texture> own = pool->add("own", 300, 300, pixels.data());
    ::core::SmartPtr<Texture> packed = pool->add("packed", 30, 30, pixels.data());
    pool->add("dropped", 300, 300, pixels.data());
    const unsigned int before = backend.getDestroyedTextureCount();
    pool.reset();
    EXPECT_EQ(backend.getDestroyedTextureCount(), before + 1);
    own->setWrapping(Texture::W_REPEAT);
    packed->setWrapping(Texture::W_REPEAT);
    own = nullptr;
    packed = nullptr;
    EXPECT_EQ(backend.getDestroyedTextureCount(), before + 1);
}

TEST_F(TexturePoolTest, TakesPicturesFromMemory) {
    const std::vector<Color> pixels = {{200, 100, 50, 128}, {1, 2, 3, 255}};
    Texture *texture = pool->add("mine", 2, 1, pixels.data());
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ((*pool)["mine"], texture);
    EXPECT_EQ(texture->getWidth(), 2u);
    EXPECT_EQ(getPixel(*texture, 0, 0), (Color{100, 50, 25, 128}));
    EXPECT_EQ(getPixel(*texture, 1, 0), (Color{1, 2, 3, 255}));
    EXPECT_EQ(registered, std::vector<std::string>{"mine"});
    const std::vector<Color> others = {{9, 9, 9, 255}};
    EXPECT_EQ(pool->add("mine", 1, 1, others.data()), texture);
    EXPECT_EQ(getPixel(*texture, 0, 0), (Color{9, 9, 9, 255}));
    pool->reload("mine");
    EXPECT_EQ(pool->getPendingCount(), 0u);
}

TEST_F(TexturePoolTest, PutsAPictureFromMemoryBeforeAFileThatIsBeingLoaded) {
    files.add("a.png", encodePng(5, 7, {1, 2, 3, 255}));
    files.gate.reset();
    Texture *texture = (*pool)["a.png"];
    const Color pixel = {9, 9, 9, 255};
    EXPECT_EQ(pool->add("a.png", 1, 1, &pixel), texture);
    files.gate.set();
    pool->setFileSystem(nullptr);
    renderer.getTaskQueue().pump();
    EXPECT_EQ(texture->getWidth(), 1u);
    EXPECT_TRUE(pool->getFileNames().empty());
}

TEST_F(TexturePoolTest, RefusesPicturesFromMemoryThatAreNone) {
    const auto getMessage = [this](const char *name, unsigned int w, unsigned int h, const void *rgba) -> std::string {
        try {
            pool->add(name, w, h, rgba);
        } catch (const ::core::IllegalArgumentException &exception) {
            return exception.what();
        }
        return {};
    };
    const Color pixel = {1, 2, 3, 4};
    EXPECT_EQ(getMessage(nullptr, 1, 1, &pixel), "A texture needs a name");
    EXPECT_EQ(getMessage("", 1, 1, &pixel), "A texture needs a name");
    EXPECT_EQ(getMessage("a", 0, 1, &pixel), "Texture a cannot have 0 x 1 pixels");
    EXPECT_EQ(getMessage("a", 1, 0, &pixel), "Texture a cannot have 1 x 0 pixels");
    EXPECT_EQ(getMessage("a", 1, 1, nullptr), "Texture a cannot have 1 x 1 pixels");
    EXPECT_EQ(getMessage("a", 4097, 1, &pixel), "Texture a cannot have 4097 x 1 pixels");
    EXPECT_EQ((*pool)["a"], nullptr);
    EXPECT_EQ(log.takeOne(Level::WARN), "Cannot find image a");
}

TEST_F(TexturePoolTest, SaysWhenTheBackendHasNoPlaceForAPictureFromMemory) {
    const std::vector<Color> pixels(300, Color{1, 2, 3, 255});
    backend.full = true;
    EXPECT_THROW(pool->add("a", 300, 1, pixels.data()), ::core::IllegalStateException);
    ASSERT_NE((*pool)["a"], nullptr);
    EXPECT_FALSE((*pool)["a"]->isValid());
}

TEST_F(TexturePoolTest, ListsTheNamesThatComeFromFiles) {
    files.add("b.png", encodePng(1, 1, {1, 2, 3, 255}));
    files.add("a.png", encodePng(1, 1, {1, 2, 3, 255}));
    const Color pixel = {1, 2, 3, 4};
    (*pool)["b.png"];
    (*pool)["a.png"];
    pool->add("c", 1, 1, &pixel);
    EXPECT_EQ(pool->getFileNames(), (std::vector<std::string>{"a.png", "b.png"}));
}

TEST_F(TexturePoolTest, GivesARepeatingTextureRenderDataOfItsOwn) {
    const std::vector<Color> pixels = {{200, 100, 50, 255}, {1, 2, 3, 255}};
    Texture *texture = pool->add("a", 2, 1, pixels.data());
    EXPECT_EQ(texture->getWrapping(), Texture::W_CLAMP);
    EXPECT_EQ(texture->getRenderData(), atlas.getPage(0));
    const std::uint64_t revision = texture->getRevision();
    texture->setWrapping(2);
    EXPECT_EQ(texture->getRevision(), revision);

    texture->setWrapping(Texture::W_REPEAT);
    EXPECT_GT(texture->getRevision(), revision);
    const renderer::TextureId id = texture->getRenderData()->id;
    EXPECT_NE(id, atlas.getPage(0)->id);
    EXPECT_EQ(texture->getRenderData()->width, 2u);
    EXPECT_TRUE(backend.repeating.at(id));
    EXPECT_EQ(getPixel(*texture, 1, 0), (Color{1, 2, 3, 255}));

    texture->setWrapping(2);
    EXPECT_FALSE(backend.repeating.at(id));
    texture->setWrapping(77);
    EXPECT_EQ(texture->getWrapping(), Texture::W_CLAMP);
}

TEST_F(TexturePoolTest, DoesNotPackATextureThatIsToRepeat) {
    files.add("a.png", encodePng(2, 2, {1, 2, 3, 255}));
    Texture *texture = (*pool)["a.png"];
    texture->setWrapping(Texture::W_REPEAT);
    pool->waitUntilLoaded();
    EXPECT_NE(texture->getRenderData(), atlas.getPage(0));
    EXPECT_TRUE(backend.repeating.at(texture->getRenderData()->id));
}

TEST_F(TexturePoolTest, HasAWhitePixelForWhereNoTextureIs) {
    texture::RenderData *data = pool->getDefaultTextureRenderData(2);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data, pool->getDefaultTextureRenderData(0));
    EXPECT_EQ(data->width, 1u);
    EXPECT_EQ(data->height, 1u);
    EXPECT_EQ(backend.getTextures().at(data->id).pixels, (std::vector<std::uint8_t>{255, 255, 255, 255}));
}

TEST_F(TexturePoolTest, LetsACallbackRemoveTheTextureThatItIsToldOf) {
    files.add("a.png", encodePng(2, 2, {1, 2, 3, 255}));
    renderer.subscribeTextureRegistered([this](Texture *texture) {
        pool->remove(texture->getName());
        return true;
    });
    (*pool)["a.png"];
    pool->waitUntilLoaded();
    EXPECT_EQ(registered.size(), 1u);
    EXPECT_TRUE(pool->getFileNames().empty());
}

TEST_F(TexturePoolTest, LoadsManyFilesInOrder) {
    std::vector<std::string> names;
    for (int i = 0; i < 50; ++i) {
        names.push_back("image" + std::to_string(i));
        files.add(names.back().c_str(), encodePng(3, 3, {static_cast<std::uint8_t>(i), 0, 0, 255}));
        (*pool)[names.back().c_str()];
    }
    pool->waitUntilLoaded();
    EXPECT_EQ(registered, names);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(getPixel(*(*pool)[names[static_cast<std::size_t>(i)].c_str()], 1, 1)[0], i);
}

TEST(Texture, WrapsRenderDataThatIsThereAlready) {
    const ::core::SmartPtr<texture::RenderData> data(new texture::RenderData(nullptr, 5, 64, 32));
    const Texture texture("page", data.get());
    EXPECT_TRUE(texture.isValid());
    EXPECT_EQ(texture.getRenderData(), data.get());
    EXPECT_EQ(texture.getWidth(), 64u);
    EXPECT_EQ(texture.getHeight(), 32u);
    EXPECT_STREQ(texture.getType().getName(), "Texture");
    const Texture other("page", data.get());
    EXPECT_NE(texture.getRevision(), other.getRevision());
}

TEST(Stage, HoldsItsTexture) {
    texture::Stage stage;
    EXPECT_EQ(stage.getTexture(), nullptr);
    auto *texture = new Texture("a");
    stage.setTexture(texture);
    EXPECT_EQ(stage.getTexture(), texture);
    EXPECT_EQ(texture->getRefCount(), 1u);
    {
        const texture::Stage copy(stage);
        EXPECT_EQ(texture->getRefCount(), 2u);
    }
    const ::core::SmartPtr<Texture> kept(texture);
    stage.setTexture(nullptr);
    EXPECT_EQ(stage.getTexture(), nullptr);
    EXPECT_EQ(texture->getRefCount(), 1u);
}
