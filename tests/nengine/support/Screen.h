#pragma once

#include "nengine/renderer/RecordingBackend.h"
#include "nengine/renderer/RenderPass.h"
#include "nengine/renderer/Renderer.h"
#include "nengine/scene/Camera.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/texture/Atlas.h"
#include "nengine/texture/Texture.h"

#include <memory>
#include <string>

namespace test {

/// Places a camera as a user interface needs it: one unit at z 0 is one pixel, the origin is the top left, y is
/// downward.
void setUpScreenCamera(nurel::scene::Camera &camera, float width, float height);

/// A renderer on a recording backend with an atlas, a scene and a pass that draws it.
class Screen {
public:
    explicit Screen(unsigned int width = 800, unsigned int height = 600);
    ~Screen();

    /// Updates the scene and draws one frame.
    void draw();

    /// Appends a rectangle to a node (null: the root).
    nurel::scene::meshes::SizeableRectangleMesh *addBox(float x, float y, float width, float height,
                                                        nurel::scene::Node *parent = nullptr);

    /// A loaded texture of its own, not in the atlas.
    core::SmartPtr<nurel::texture::Texture> makeTexture(const char *name, unsigned int width, unsigned int height);

    const std::vector<nurel::renderer::DrawCommand> &getCommands() const { return backend.getCommands(); }
    const std::vector<nurel::renderer::DrawVertex> &getVertices() const { return backend.getVertices(); }
    const nurel::renderer::FrameStatistics &getStatistics() const { return pass->getStatistics(); }

    /// One line for each command: "indices 6 texture 1 blend 0 stencil off mask 3".
    std::string dumpCommands() const;

    nurel::renderer::RecordingBackend backend;
    nurel::renderer::Renderer renderer;
    std::unique_ptr<nurel::texture::Atlas> atlas;
    core::SmartPtr<nurel::scene::Camera> camera;
    core::SmartPtr<nurel::scene::Node> root;
    nurel::scene::VisibilitySet set;
    core::SmartPtr<nurel::renderer::RenderPass> pass;
    float time = 0;

private:
    std::shared_ptr<nurel::texture::BackendLink> mLink;
};

} // namespace test
