#include "nengine/support/Screen.h"

#include <cstdio>

namespace test {

namespace math = nurel::math;
namespace renderer = nurel::renderer;
namespace scene = nurel::scene;
namespace texture = nurel::texture;

void setUpScreenCamera(scene::Camera &camera, float width, float height) {
    const float halfWidth = width * 0.5f;
    const float halfHeight = height * 0.5f;
    math::Matrix4 projection;
    projection.perspective(90, 1, 500, 2000);
    projection(0, 0) = -1000 / halfWidth;
    projection(1, 1) = 1000 / halfHeight;
    camera.setProjection(projection);
    camera.setTranslation({halfWidth, halfHeight, -1000});
    camera.setRotation(math::Matrix3(-math::Vector3::AXIS_X, -math::Vector3::AXIS_Y, math::Vector3::AXIS_Z, true),
                       false);
    camera.update(0, true);
}

Screen::Screen(unsigned int width, unsigned int height)
    : renderer(backend, width, height, true), atlas(std::make_unique<texture::Atlas>(backend)),
      camera(new scene::Camera("camera")), root(new scene::Node("root")),
      pass(new renderer::RenderPass(nullptr, nullptr)),
      mLink(std::make_shared<texture::BackendLink>(texture::BackendLink{&backend})) {
    renderer.setAtlas(atlas.get());
    setUpScreenCamera(*camera, static_cast<float>(width), static_cast<float>(height));
    pass->append(new renderer::RenderView(new scene::Culler(&set), camera.get(), root.get()));
    pass->clearMask = 0;
}

Screen::~Screen() {
    mLink->backend = nullptr;
}

void Screen::draw() {
    root->update(time, true);
    pass->prepare();
    pass->render();
}

scene::meshes::SizeableRectangleMesh *Screen::addBox(float x, float y, float width, float height, scene::Node *parent) {
    auto *box = new scene::meshes::SizeableRectangleMesh("box", {width, height});
    box->setTranslation({x, y, 0});
    (parent ? parent : root.get())->appendChild(box);
    return box;
}

core::SmartPtr<texture::Texture> Screen::makeTexture(const char *name, unsigned int width, unsigned int height) {
    const renderer::TextureId id = backend.createTexture(width, height, renderer::PixelFormat::RGBA8, nullptr);
    return new texture::Texture(name, new texture::RenderData(mLink, id, width, height));
}

std::string Screen::dumpCommands() const {
    std::string text;
    for (const renderer::DrawCommand &command : getCommands()) {
        char line[160];
        std::snprintf(line, sizeof line, "indices %u texture %u blend %u mask %u", command.indexCount, command.texture,
                      static_cast<unsigned int>(command.blend), command.colorMask);
        text += line;
        if (command.stencilTest) {
            std::snprintf(line, sizeof line, " stencil %u ref %u ops %u %u %u",
                          static_cast<unsigned int>(command.stencilFunction), command.stencilReference,
                          static_cast<unsigned int>(command.opFail), static_cast<unsigned int>(command.opDepthFail),
                          static_cast<unsigned int>(command.opPass));
            text += line;
        }
        text += '\n';
    }
    return text;
}

} // namespace test
