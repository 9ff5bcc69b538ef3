#include "nui/ui/components/Image.h"

#include "../TestComponents.h"
#include "support/EngineFixture.h"

#include "nengine/Engine.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/texture/Texture.h"
#include "nengine/texture/TexturePool.h"

#include <cstdint>
#include <vector>

namespace test {

namespace {

class TestImage : public components::Image {
public:
    using Image::getAutoSize;
    using Image::Image;
};

class PlainMeshImage : public TestImage {
public:
    using TestImage::TestImage;

protected:
    nurel::scene::Mesh *createMesh() override {
        return new nurel::scene::meshes::SizeableRectangleMesh("plain", Vector2(1, 1));
    }
};

class ImageTest : public EngineFixture {};

} // namespace

TEST_F(ImageTest, ANewOneIsAComponent) {
    const components::Image image("image");
    EXPECT_STREQ(image.getName(), "image");
    EXPECT_STREQ(components::Image().getName(), "");
    EXPECT_EQ(image.getElement(), "image");
    EXPECT_EQ(&image.getType(), &components::Image::TYPE);
    EXPECT_EQ(image.getEventMask(), 0x20bU);
    EXPECT_FALSE(image.isContainer());
}

TEST_F(ImageTest, WithoutAMeshItHasTheSizeThatItIsGiven) {
    TestImage image("image");
    EXPECT_EQ(image.getAutoSize(Vector2(12, 34)), Vector2(12, 34));
    EXPECT_FALSE(image.hasMesh());
    PlainMeshImage plain("plain");
    plain.getMesh();
    EXPECT_EQ(plain.getAutoSize(Vector2(12, 34)), Vector2(12, 34));
}

TEST_F(ImageTest, ABorderedRectangleGivesThePicturesOwnSize) {
    const std::vector<std::uint8_t> pixels(20 * 10 * 4, 255);
    nurel::texture::TexturePool::getSingleton().add("picture", 20, 10, pixels.data());
    TestImage image("image");
    image.getMesh();
    EXPECT_EQ(image.getAutoSize(Vector2(12, 34)), Vector2(0, 0)); // as yet without a picture
    image.setMeshTexture("picture", 0);
    engine().pump();
    EXPECT_EQ(image.getAutoSize(Vector2(12, 34)), Vector2(20, 10));
    static_cast<nurel::scene::meshes::BorderedRectangleMesh *>(image.getMesh())->setSkinCount(2, 1);
    EXPECT_EQ(image.getAutoSize(Vector2(12, 34)), Vector2(10, 10));
}

TEST_F(ImageTest, IsCloned) {
    components::Image source("source");
    source.setMeshColor(Vector3(1, 0, 0));
    const core::SmartPtr<components::Image> copy(static_cast<components::Image *>(source.clone()));
    EXPECT_EQ(&copy->getType(), &components::Image::TYPE);
    EXPECT_STREQ(copy->getName(), "source");
    EXPECT_EQ(copy->getMeshColor(), Vector3(1, 0, 0));
}

} // namespace test
