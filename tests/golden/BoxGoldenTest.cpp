// Boxes: nine slices in every border-fix mode, and nested clipping by the stencil.
#include "GoldenFixture.h"

#include "nengine/scene/Node.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/meshes/SizeableRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nengine/texture/TexturePool.h"

#include <cstdint>
#include <vector>

namespace golden {

using nurel::math::Matrix3;
using nurel::math::Vector2;
using nurel::math::Vector3;
using nurel::math::Vector4;
using nurel::scene::Node;
using nurel::scene::meshes::BorderedRectangleMesh;
using nurel::scene::meshes::SizeableRectangleMesh;
using nurel::scene::properties::AlphaProperty;
using nurel::scene::properties::MaterialProperty;
using nurel::scene::properties::StencilProperty;

namespace {

constexpr unsigned int SIDE = 24;
constexpr unsigned int BORDER = 8;

/// Corners red, edges green and blue, the middle a translucent white: each of the nine slices can be told from the
/// others.
std::vector<std::uint8_t> makeSkin() {
    std::vector<std::uint8_t> rgba;
    for (unsigned int y = 0; y < SIDE; ++y) {
        for (unsigned int x = 0; x < SIDE; ++x) {
            const bool edgeX = x < BORDER || x >= SIDE - BORDER;
            const bool edgeY = y < BORDER || y >= SIDE - BORDER;
            const bool dark = ((x + y) & 2U) != 0;
            const std::uint8_t strong = dark ? 160 : 255;
            const std::uint8_t pixel[] = {static_cast<std::uint8_t>(edgeX && edgeY ? strong : 40),
                                          static_cast<std::uint8_t>(edgeX && !edgeY ? strong : 40),
                                          static_cast<std::uint8_t>(!edgeX && edgeY ? strong : 40),
                                          static_cast<std::uint8_t>(edgeX || edgeY ? 255 : 128)};
            rgba.insert(rgba.end(), std::begin(pixel), std::end(pixel));
        }
    }
    return rgba;
}

class BoxGolden : public GoldenFixture {
protected:
    static void addSlices(Node &node, const Vector3 &position, const Vector2 &size,
                          BorderedRectangleMesh::BorderFixMode mode) {
        nurel::texture::Texture *texture = nurel::texture::TexturePool::getSingleton()["skin"];
        const core::SmartPtr<BorderedRectangleMesh> mesh =
            new BorderedRectangleMesh("box", size, Vector4(BORDER, BORDER, BORDER, BORDER), texture, nullptr);
        mesh->setBorderFixMode(mode);
        const core::SmartPtr<AlphaProperty> alpha = new AlphaProperty("");
        alpha->setBlending(true);
        mesh->setProperty(alpha.get());
        mesh->setTranslation(position);
        node.appendChild(mesh.get());
    }

    static core::SmartPtr<SizeableRectangleMesh> addRectangle(Node &node, const Vector2 &size, const Vector3 &color) {
        const core::SmartPtr<SizeableRectangleMesh> mesh = new SizeableRectangleMesh("rectangle", size);
        const core::SmartPtr<MaterialProperty> material = new MaterialProperty("");
        material->setColor(color);
        mesh->setProperty(material.get());
        node.appendChild(mesh.get());
        return mesh;
    }

    static core::SmartPtr<StencilProperty> makeStencil(unsigned int comparison, unsigned int reference,
                                                       unsigned int passing) {
        core::SmartPtr<StencilProperty> stencil = new StencilProperty("");
        stencil->setEnabled(true);
        stencil->setComparison(comparison);
        stencil->setReference(reference);
        stencil->setOperations(0, 0, passing);
        return stencil;
    }

    /// A clip area that raises the stencil level from `level` by one, and an inner node that shows only there.
    static Node &addClip(Node &node, const Vector2 &size, float turn, unsigned int level) {
        const core::SmartPtr<Node> outer = new Node("outer");
        outer->setRotation(Matrix3(turn, Vector3::AXIS_Z));
        node.appendChild(outer.get());
        const core::SmartPtr<SizeableRectangleMesh> clip = addRectangle(*outer, size, Vector3::WHITE);
        static_cast<MaterialProperty &>(*clip->getProperty(1)).setFlags(0);
        clip->setProperty(makeStencil(2, level, 3).get());
        const core::SmartPtr<Node> inner = new Node("inner");
        inner->setProperty(makeStencil(2, level + 1, 0).get());
        outer->appendChild(inner.get());
        return *inner;
    }
};

} // namespace

TEST_F(BoxGolden, NineSlicesKeepTheirBordersInEveryFixMode) {
    nurel::texture::TexturePool::getSingleton().add("skin", SIDE, SIDE, makeSkin().data());
    Node &node = makeNode();
    const BorderedRectangleMesh::BorderFixMode modes[] = {BorderedRectangleMesh::BORDER_FIX_NONE,
                                                          BorderedRectangleMesh::BORDER_FIX_ZERO,
                                                          BorderedRectangleMesh::BORDER_FIX_FIT};
    float y = -100;
    for (const BorderedRectangleMesh::BorderFixMode mode : modes) {
        addSlices(node, Vector3(-160, y, 0), Vector2(120, 70), mode); // both borders fit
        addSlices(node, Vector3(-30, y, 0), Vector2(10, 70), mode);   // too narrow
        addSlices(node, Vector3(60, y, 0), Vector2(90, 10), mode);    // too low
        addSlices(node, Vector3(160, y, 0), Vector2(10, 10), mode);   // too small altogether
        y += 100;
    }
    expectPicture("box-nine-slices");
}

TEST_F(BoxGolden, NestedClippingHoldsUnderRotation) {
    Node &node = makeNode();
    addRectangle(node, Vector2(460, 300), Vector3(0.15F, 0.15F, 0.2F));
    Node &first = addClip(node, Vector2(300, 160), 0.3F, 0);
    addRectangle(first, Vector2(600, 600), Vector3(0.2F, 0.5F, 0.9F));
    Node &second = addClip(first, Vector2(200, 200), 0.5F, 1);
    addRectangle(second, Vector2(600, 600), Vector3(0.9F, 0.6F, 0.1F));
    const core::SmartPtr<SizeableRectangleMesh> bar = addRectangle(second, Vector2(20, 600), Vector3(1, 1, 1));
    bar->setTranslation(Vector3(50, 0, 0));
    expectPicture("box-nested-clipping");
}

} // namespace golden
