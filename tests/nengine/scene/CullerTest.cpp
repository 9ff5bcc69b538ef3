#include "nengine/scene/Culler.h"

#include "nengine/scene/Camera.h"
#include "nengine/scene/Mesh.h"
#include "nengine/scene/Node.h"
#include "nengine/scene/VisibilitySet.h"
#include "nengine/scene/properties/StencilProperty.h"

#include <gtest/gtest.h>

#include <string>

namespace nurel {
namespace {

using scene::Culler;
using scene::Mesh;
using scene::Node;

std::string names(const scene::VisibilitySet &set) {
    std::string text;
    for (std::size_t i = 0; i < set.getCount(); ++i)
        text += set[i]->getName();
    return text;
}

TEST(Culler, CollectsMeshesInTheOrderOfNodes) {
    const core::SmartPtr<Node> root(new Node());
    auto *first = new Node();
    root->appendChild(new Mesh("a"));
    root->appendChild(first);
    root->appendChild(new Mesh("d"));
    first->appendChild(new Mesh("b"));
    first->appendChild(new Mesh("c"));
    scene::VisibilitySet set;
    const core::SmartPtr<Culler> culler(new Culler(&set));
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "abcd");
    root->prependChild(root->getChild(2));
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "dabc") << "each cull starts anew";
}

/// Notes the camera that it is looked at with.
class Looked : public Node {
public:
    void onVisible(Culler *culler, math::Frustum::EFrustumResult) override { mCamera = culler->getCamera(); }

    const scene::Camera *mCamera = nullptr;
};

TEST(Culler, TellsFramesOfItsCameraWhileItWalks) {
    const core::SmartPtr<Looked> root(new Looked());
    const core::SmartPtr<scene::Camera> camera(new scene::Camera());
    const core::SmartPtr<Culler> culler(new Culler(nullptr));
    culler->cull(camera.get(), root.get());
    EXPECT_EQ(root->mCamera, camera.get());
    EXPECT_EQ(culler->getCamera(), nullptr);
    culler->cull(nullptr, root.get());
    EXPECT_EQ(root->mCamera, nullptr);
}

/// Shows its back.
class Turned : public Node {
public:
    void onVisible(Culler *culler, math::Frustum::EFrustumResult result) override {
        culler->setBackSeen(true);
        Node::onVisible(culler, result);
    }
};

TEST(Culler, LeavesOutBacksButNotWhatOthersDependOnInTheStencil) {
    using scene::properties::StencilProperty;
    const core::SmartPtr<Turned> root(new Turned());
    for (const char *name : {"a", "b", "c", "d"})
        root->appendChild(new Mesh(name));
    const auto setStencil = [&root](unsigned int index, bool enabled, unsigned int pass) {
        core::SmartPtr<StencilProperty> stencil(new StencilProperty(""));
        stencil->setEnabled(enabled);
        stencil->setOperations(StencilProperty::KEEP, StencilProperty::KEEP, pass);
        root->getChild(index)->setProperty(stencil.get());
    };
    setStencil(1, true, StencilProperty::INCREMENT);
    setStencil(2, true, StencilProperty::KEEP);
    setStencil(3, false, StencilProperty::INCREMENT);
    root->update(0, true);
    scene::VisibilitySet set;
    const core::SmartPtr<Culler> culler(new Culler(&set));
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "b");
    EXPECT_TRUE(culler->isBackSeen());
    const core::SmartPtr<Mesh> mesh(new Mesh("e"));
    culler->cull(nullptr, mesh.get());
    EXPECT_EQ(names(set), "e") << "each cull starts anew";
}

TEST(Culler, SkipsHiddenFramesWithEverythingBelow) {
    const core::SmartPtr<Node> root(new Node());
    auto *inner = new Node();
    root->appendChild(inner);
    inner->appendChild(new Mesh("a"));
    root->appendChild(new Mesh("b"));
    root->getChild(1)->setHidden(true);
    scene::VisibilitySet set;
    const core::SmartPtr<Culler> culler(new Culler(&set));
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "a");
    inner->setHidden(true);
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "");
    inner->setHidden(false);
    root->setHidden(true);
    culler->cull(nullptr, root.get());
    EXPECT_EQ(names(set), "");
}

TEST(Culler, AFrameMayKeepItsSubtreeOut) {
    class Shy : public Node {
    public:
        void onVisible(Culler *culler, math::Frustum::EFrustumResult result) override {
            if (shown)
                Node::onVisible(culler, result);
        }
        bool shown = false;
    };
    const core::SmartPtr<Shy> shy(new Shy());
    shy->appendChild(new Mesh("a"));
    scene::VisibilitySet set;
    const core::SmartPtr<Culler> culler(new Culler(&set));
    culler->cull(nullptr, shy.get());
    EXPECT_EQ(set.getCount(), 0u);
    shy->shown = true;
    culler->cull(nullptr, shy.get());
    EXPECT_EQ(set.getCount(), 1u);
}

TEST(Culler, NullIsLegal) {
    scene::VisibilitySet set;
    const core::SmartPtr<Mesh> mesh(new Mesh("a"));
    const core::SmartPtr<Culler> culler(new Culler(&set));
    set.append(mesh.get());
    culler->cull(nullptr, nullptr);
    EXPECT_EQ(set.getCount(), 0u);
    culler->insert(nullptr);
    EXPECT_EQ(set.getCount(), 0u);
    const core::SmartPtr<Culler> blind(new Culler(nullptr));
    blind->cull(nullptr, mesh.get());
    EXPECT_EQ(blind->getVisibilitySet(), nullptr);
}

} // namespace
} // namespace nurel
