#include "nengine/scene/meshes/BorderedRectangleMesh.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/support/Screen.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <random>

namespace nurel {
namespace {

using namespace scene::properties;
using scene::Frame;
using scene::Node;
using scene::meshes::BorderedRectangleMesh;

/// Changes a scene at random, as an application may.
class Shaker {
public:
    Shaker(test::Screen &screen, unsigned int seed) : mScreen(screen), mRandom(seed) {
        for (unsigned int i = 0; i < 3; ++i)
            mTextures.push_back(screen.makeTexture("t", 8 << i, 16));
        mTextures.emplace_back(new texture::Texture("pending"));
        mTextures.emplace_back();
    }

    void step() {
        switch (below(16)) {
        case 0:
        case 1:
            addNode();
            break;
        case 2:
        case 3:
        case 4:
            addMesh();
            break;
        case 5:
            anyFrame().setTranslation(randomPlace());
            break;
        case 6:
            anyFrame().setRotation(math::Matrix3(randomFloat(), math::Vector3::AXIS_Z));
            break;
        case 7:
            anyFrame().setScale(math::Vector3(1 + randomFloat(), 1, 1));
            break;
        case 8:
            hideOrShow(anyFrame());
            break;
        case 9:
            changeProperty(anyFrame());
            break;
        case 10:
            changePropertyInPlace(anyFrame());
            break;
        case 11:
            moveFrame();
            break;
        case 12:
            removeFrame();
            break;
        case 13:
            anyFrame().removeProperty(below(scene::Property::INDEX_COUNT));
            break;
        default:
            changeMesh();
            break;
        }
    }

private:
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(mRandom() % limit); }
    float randomFloat() { return static_cast<float>(below(100)) * 0.01f; }
    math::Vector3 randomPlace() {
        return {static_cast<float>(below(800)), static_cast<float>(below(600)), static_cast<float>(below(10))};
    }

    /// All frames below the root, the root included.
    static void collect(Frame &frame, std::vector<Frame *> &out) {
        out.push_back(&frame);
        if (!frame.instanceOf(Node::TYPE))
            return;
        for (const auto &child : static_cast<Node &>(frame).getChildren())
            collect(*child, out);
    }

    Frame &anyFrame() {
        std::vector<Frame *> all;
        collect(*mScreen.root, all);
        return *all[below(static_cast<unsigned int>(all.size()))];
    }

    Node &anyNode() {
        for (;;) {
            Frame &frame = anyFrame();
            if (frame.instanceOf(Node::TYPE))
                return static_cast<Node &>(frame);
        }
    }

    void addNode() { anyNode().insertChild(new Node("node"), below(5)); }

    void addMesh() {
        auto *mesh = new BorderedRectangleMesh("mesh", {10 + randomFloat() * 50, 20}, {2, 3, 4, 5});
        mesh->setTranslation(randomPlace());
        anyNode().insertChild(mesh, below(5));
    }

    void changeMesh() {
        Frame &frame = anyFrame();
        if (!frame.instanceOf(BorderedRectangleMesh::TYPE))
            return;
        auto &mesh = static_cast<BorderedRectangleMesh &>(frame);
        switch (below(3)) {
        case 0:
            mesh.setSize({static_cast<float>(below(60)), 20});
            break;
        case 1:
            mesh.setBorder({0, static_cast<float>(below(10)), 0, static_cast<float>(below(10))});
            break;
        default:
            mesh.setSkinCount(1 + below(3), 1);
            mesh.setCurrentSkin(static_cast<int>(below(3)));
            break;
        }
    }

    void changeProperty(Frame &frame) {
        switch (below(4)) {
        case 0: {
            auto *material = new MaterialProperty();
            material->setColor(math::Vector4(randomFloat(), randomFloat(), 1, randomFloat()));
            frame.setProperty(material);
            break;
        }
        case 1: {
            auto *alpha = new AlphaProperty();
            alpha->setBlending(below(2) == 0);
            frame.setProperty(alpha);
            break;
        }
        case 2: {
            auto *stencil = new StencilProperty();
            stencil->setEnabled(below(2) == 0);
            stencil->setReference(below(4));
            frame.setProperty(stencil);
            break;
        }
        default: {
            auto *property = new TextureProperty();
            property->getStage(0).setTexture(mTextures[below(static_cast<unsigned int>(mTextures.size()))].get());
            frame.setProperty(property);
            break;
        }
        }
    }

    void changePropertyInPlace(Frame &frame) {
        scene::PropertySet &set = frame.getPropertySet();
        if (auto *material = static_cast<MaterialProperty *>(set[scene::Property::MATERIAL])) {
            material->setSecondColor({randomFloat(), 1, 1});
            material->setFlags(below(4));
        }
        if (auto *alpha = static_cast<AlphaProperty *>(set[scene::Property::ALPHA]))
            alpha->setBlending(!alpha->isBlending());
        if (auto *stencil = static_cast<StencilProperty *>(set[scene::Property::STENCIL]))
            stencil->setReference(below(4));
        if (auto *property = static_cast<TextureProperty *>(set[scene::Property::TEXTURE]))
            property->getStage(0).setTexture(mTextures[below(static_cast<unsigned int>(mTextures.size()))].get());
    }

    /// The root stays shown, so that there is something to compare.
    void hideOrShow(Frame &frame) { frame.setHidden(frame.getParent() && below(3) == 0); }

    void moveFrame() {
        Frame &frame = anyFrame();
        Node &node = anyNode();
        for (const Frame *above = &node; above; above = above->getParent()) {
            if (above == &frame)
                return;
        }
        node.insertChild(&frame, below(5));
    }

    void removeFrame() {
        Frame &frame = anyFrame();
        const bool large = frame.instanceOf(Node::TYPE) && static_cast<Node &>(frame).getChildCount() > 3;
        if (frame.getParent() && !large)
            frame.getParent()->removeChild(&frame);
    }

    test::Screen &mScreen;
    std::mt19937 mRandom;
    std::vector<core::SmartPtr<texture::Texture>> mTextures;
};

class RandomScene : public testing::TestWithParam<unsigned int> {};

TEST_P(RandomScene, WhatIsKeptEqualsWhatIsMadeFromNothing) {
    test::LogCapture log; // a difference is an error in the log
    test::Screen screen;
    screen.pass->setVerify(true);
    Shaker shaker(screen, GetParam());
    for (int i = 0; i < 100; ++i)
        shaker.step();
    for (int frame = 0; frame < 150; ++frame) {
        for (int i = frame % 4; i > 0; --i)
            shaker.step();
        screen.draw();
    }
    EXPECT_EQ(screen.getStatistics().verifyFailures, 0u);
    EXPECT_GT(screen.getStatistics().listsRebuilt, 10u) << "the scene is too dull to prove anything";
    EXPECT_GT(screen.getStatistics().meshesPatched, 0u);
    EXPECT_GT(screen.getStatistics().listsSubmittedAgain, 10u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomScene, testing::Range(1u, 31u));

} // namespace
} // namespace nurel
