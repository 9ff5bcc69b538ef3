#include "nengine/renderer/RenderPass.h"

#include "nengine/geometry/LocalGeometry.h"
#include "nengine/renderer/FrameBuffer.h"
#include "nengine/renderer/Sorter.h"
#include "nengine/scene/properties/AlphaProperty.h"
#include "nengine/scene/properties/DepthProperty.h"
#include "nengine/scene/properties/MaterialProperty.h"
#include "nengine/scene/properties/StencilProperty.h"
#include "nengine/scene/properties/TextureProperty.h"
#include "nengine/support/AllocationCounter.h"
#include "nengine/support/Screen.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace nurel {
namespace {

using namespace scene::properties;
using renderer::RenderPass;
using scene::meshes::SizeableRectangleMesh;

void setColor(scene::Frame &frame, const math::Vector4 &color) {
    auto *material = new MaterialProperty();
    material->setColor(color);
    frame.setProperty(material);
}

void setBlending(scene::Frame &frame) {
    auto *alpha = new AlphaProperty();
    alpha->setBlending(true);
    frame.setProperty(alpha);
}

void setTexture(scene::Frame &frame, texture::Texture *texture) {
    auto *property = new TextureProperty();
    property->getStage(0).setTexture(texture);
    frame.setProperty(property);
}

class Pass : public testing::Test {
public:
    Pass() { screen.pass->setVerify(true); }
    test::LogCapture log;
    test::Screen screen;
};

TEST_F(Pass, DrawsABoxWhereItStands) {
    SizeableRectangleMesh *const box = screen.addBox(100, 50, 40, 20);
    setColor(*box, {1, 0, 0, 1});
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 3\n");
    ASSERT_EQ(screen.getVertices().size(), 4u);
    float x = 0, y = 0;
    screen.backend.getScreenPosition(screen.getVertices()[0], x, y);
    EXPECT_NEAR(x, 80, 1e-2f);
    EXPECT_NEAR(y, 40, 1e-2f);
    screen.backend.getScreenPosition(screen.getVertices()[2], x, y);
    EXPECT_NEAR(x, 120, 1e-2f);
    EXPECT_NEAR(y, 60, 1e-2f);
    EXPECT_EQ(screen.getVertices()[0].rgba, 0xff0000ffu);
}

TEST_F(Pass, NeighboursOfOneStateBecomeOneCommand) {
    const auto texture = screen.makeTexture("t", 8, 8);
    for (int i = 0; i < 5; ++i)
        setColor(*screen.addBox(10, 10, 5, 5), {1, 0.1f * static_cast<float>(i), 0, 1});
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 30 texture 1 blend 0 mask 3\n");

    setTexture(*screen.root->getChild(2), texture.get());
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 12 texture 1 blend 0 mask 3\n"
                                     "indices 6 texture 2 blend 0 mask 3\n"
                                     "indices 12 texture 1 blend 0 mask 3\n");
    EXPECT_EQ(screen.getStatistics().commands, 3u);
    EXPECT_EQ(screen.getStatistics().vertices, 20u);
    EXPECT_EQ(screen.getStatistics().textureSwitches, 2u);

    setBlending(*screen.root->getChild(4));
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 12 texture 1 blend 0 mask 3\n"
                                     "indices 6 texture 2 blend 0 mask 3\n"
                                     "indices 6 texture 1 blend 0 mask 3\n"
                                     "indices 6 texture 1 blend 1 mask 3\n");
}

TEST_F(Pass, FlatBoxesGoOnWithTheBlendedCommandBeforeThem) {
    for (int i = 0; i < 6; ++i) {
        auto *box = screen.addBox(10, 10, 5, 5);
        if (i % 2 == 1)
            setBlending(*box);
    }
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 3\n"
                                     "indices 30 texture 1 blend 1 mask 3\n");
}

TEST_F(Pass, OrderOfDrawingIsOrderOfNodesWhateverTheDepth) {
    for (const float z : {0.0f, 50.0f, -50.0f}) {
        auto *box = screen.addBox(10, 10, 5, 5);
        box->setTranslation({10, 10, z});
        box->setProperty(new DepthProperty("", true, false));
    }
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 18 texture 1 blend 0 mask 3\n");
    EXPECT_EQ(screen.getVertices()[4].z, 50);
    EXPECT_EQ(screen.getVertices()[8].z, -50);
    screen.root->prependChild(screen.root->getChild(2));
    screen.draw();
    EXPECT_EQ(screen.getVertices()[0].z, -50);
}

TEST_F(Pass, StencilStateReachesTheCommand) {
    auto *stencil = new StencilProperty();
    stencil->setEnabled(true);
    stencil->setComparison(StencilProperty::EQUAL);
    stencil->setReference(1);
    stencil->setOperations(0, 0, 3);
    auto *marker = screen.addBox(10, 10, 5, 5);
    marker->setProperty(stencil);
    auto *material = new MaterialProperty();
    material->setFlags(0);
    marker->setProperty(material);
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 0 stencil 2 ref 1 ops 0 0 3\n");

    stencil->setComparison(StencilProperty::LESS_EQUAL);
    stencil->setOperations(1, 2, 2);
    material->setFlags(MaterialProperty::WRITE_ALPHA);
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 2 stencil 3 ref 1 ops 1 2 2\n");
    stencil->setReference(2);
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 2 stencil 3 ref 2 ops 1 2 2\n");
    stencil->setEnabled(false);
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 2\n");
}

TEST_F(Pass, AStencilOfANodeHoldsForItsChildren) {
    auto *node = new scene::Node();
    auto *stencil = new StencilProperty();
    stencil->setEnabled(true);
    stencil->setComparison(StencilProperty::EQUAL);
    stencil->setReference(2);
    node->setProperty(stencil);
    screen.addBox(10, 10, 5, 5);
    screen.root->appendChild(node);
    screen.addBox(20, 10, 5, 5, node);
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 3\n"
                                     "indices 6 texture 1 blend 0 mask 3 stencil 2 ref 2 ops 0 0 0\n");
}

TEST_F(Pass, NothingChangedSubmitsTheSameListAgain) {
    screen.addBox(10, 10, 5, 5);
    screen.draw();
    const std::uint64_t revision = screen.backend.getList().revision;
    const std::uint64_t rebuilt = screen.getStatistics().verticesRebuilt;
    screen.draw();
    screen.draw();
    EXPECT_EQ(screen.backend.getList().revision, revision);
    EXPECT_EQ(screen.backend.getSubmitCount(), 3u);
    EXPECT_EQ(screen.backend.getSameRevisionCount(), 2u);
    EXPECT_EQ(screen.getStatistics().framesSubmitted, 3u);
    EXPECT_EQ(screen.getStatistics().listsSubmittedAgain, 2u);
    EXPECT_EQ(screen.getStatistics().listsRebuilt, 1u);
    EXPECT_EQ(screen.getStatistics().verticesRebuilt, rebuilt);
}

TEST_F(Pass, AMovedMeshIsPatchedInPlace) {
    for (int i = 0; i < 10; ++i)
        screen.addBox(static_cast<float>(i) * 10, 10, 5, 5);
    screen.draw();
    const std::uint64_t revision = screen.backend.getList().revision;
    const std::uint64_t written = screen.getStatistics().verticesWritten;
    screen.root->getChild(3)->setTranslation({500, 10, 0});
    screen.root->getChild(5)->setTranslation({500, 10, 0});
    screen.draw();
    EXPECT_EQ(screen.getStatistics().meshesPatched, 2u);
    EXPECT_EQ(screen.getStatistics().verticesWritten - written, 8u);
    EXPECT_EQ(screen.getStatistics().listsRebuilt, 1u);
    const renderer::DrawList &list = screen.backend.getList();
    EXPECT_NE(list.revision, revision);
    EXPECT_EQ(list.basedOn, revision);
    EXPECT_EQ(list.changedFirst, 12u);
    EXPECT_EQ(list.changedCount, 12u) << "from the first patched vertex to the last";
    EXPECT_EQ(screen.getVertices()[12].x, 497.5f);
    EXPECT_EQ(screen.getStatistics().verifyFailures, 0u);
}

TEST_F(Pass, AnotherColourIsPatchedToo) {
    auto *material = new MaterialProperty();
    screen.addBox(10, 10, 5, 5)->setProperty(material);
    screen.draw();
    material->setColor(math::Vector3(0, 1, 0));
    screen.draw();
    EXPECT_EQ(screen.getVertices()[0].rgba, 0xff00ff00u);
    EXPECT_EQ(screen.getStatistics().listsRebuilt, 1u);
    EXPECT_EQ(screen.getStatistics().meshesPatched, 1u);
}

TEST_F(Pass, AnotherCameraKeepsTheVertices) {
    screen.addBox(10, 10, 5, 5);
    screen.draw();
    const std::uint64_t revision = screen.backend.getList().revision;
    screen.camera->setTranslation({0, 0, -1000});
    screen.draw();
    EXPECT_NE(screen.backend.getList().revision, revision);
    EXPECT_EQ(screen.backend.getList().basedOn, revision);
    EXPECT_EQ(screen.backend.getList().changedCount, 0u);
    float x = 0, y = 0;
    screen.backend.getScreenPosition({0, 0, 0, 0, 0, 0}, x, y);
    EXPECT_NEAR(x, 400, 1e-2f);
    EXPECT_EQ(screen.getStatistics().verticesRebuilt, 4u);
}

TEST_F(Pass, HidingAndShowingRebuildsTheListButNoVertices) {
    for (int i = 0; i < 3; ++i)
        screen.addBox(static_cast<float>(i) * 10, 10, 5, 5);
    screen.draw();
    const std::uint64_t rebuilt = screen.getStatistics().verticesRebuilt;
    screen.root->getChild(1)->setHidden(true);
    screen.draw();
    EXPECT_EQ(screen.getVertices().size(), 8u);
    EXPECT_EQ(screen.backend.getList().basedOn, 0u);
    screen.root->getChild(1)->setHidden(false);
    screen.draw();
    EXPECT_EQ(screen.getVertices().size(), 12u);
    EXPECT_EQ(screen.getStatistics().verticesRebuilt, rebuilt);
    EXPECT_EQ(screen.getStatistics().listsRebuilt, 3u);
}

TEST_F(Pass, AMeshThatTookTheAddressOfAnotherIsNoticed) {
    for (int i = 0; i < 50; ++i) {
        screen.root->removeChildren();
        screen.addBox(static_cast<float>(i), 10, 5, 5);
        screen.draw();
        ASSERT_EQ(screen.getVertices()[0].x, static_cast<float>(i) - 2.5f);
    }
}

TEST_F(Pass, ANewChildIsDrawnWithTheDefaultsWithoutAnyUpdate) {
    auto *box = screen.addBox(10, 10, 5, 5);
    box->setTranslation(math::Vector3::ZERO);
    screen.pass->prepare();
    screen.pass->render();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 3\n");
    EXPECT_EQ(screen.getVertices()[0].rgba, 0xffffffffu);
}

TEST_F(Pass, AnEmptySceneSubmitsAnEmptyList) {
    screen.draw();
    EXPECT_EQ(screen.backend.getSubmitCount(), 1u);
    EXPECT_EQ(screen.getCommands().size(), 0u);
    screen.addBox(1, 1, 1, 1);
    screen.draw();
    screen.root->removeChildren();
    screen.draw();
    EXPECT_EQ(screen.getVertices().size(), 0u);
    EXPECT_EQ(screen.getCommands().size(), 0u);
}

TEST_F(Pass, ClearsWhatItsMaskSays) {
    screen.draw();
    EXPECT_FALSE(screen.backend.getTarget().clearColor);
    EXPECT_EQ(RenderPass(nullptr, nullptr).clearMask, RenderPass::CLEAR_COLOR);
    screen.pass->clearMask = RenderPass::CLEAR_COLOR;
    screen.pass->clearColor = {1, 0.5f, 0, 0.5f};
    screen.draw();
    EXPECT_TRUE(screen.backend.getTarget().clearColor);
    EXPECT_EQ(screen.backend.getTarget().clear[0], 0.5f);
    EXPECT_EQ(screen.backend.getTarget().clear[1], 0.25f);
    EXPECT_EQ(screen.backend.getTarget().clear[3], 0.5f);
    EXPECT_EQ(screen.backend.getTarget().width, 800u);
    EXPECT_EQ(screen.backend.getTarget().frameBuffer, 0u);
}

TEST_F(Pass, DrawsToItsFrameBuffer) {
    screen.pass->setFrameBuffer(new renderer::FrameBuffer(3, 64, 32));
    screen.draw();
    EXPECT_EQ(screen.backend.getTarget().frameBuffer, 3u);
    EXPECT_EQ(screen.backend.getTarget().width, 64u);
    EXPECT_EQ(screen.backend.getTarget().height, 32u);
    screen.pass->setFrameBuffer(nullptr);
    screen.renderer.resize(0, 0);
    screen.draw();
    EXPECT_EQ(screen.backend.getTarget().width, 0u);
}

TEST_F(Pass, DrawsItsViewsOneAfterTheOther) {
    scene::VisibilitySet set;
    const core::SmartPtr<scene::Node> above(new scene::Node("above"));
    screen.addBox(10, 10, 5, 5);
    screen.addBox(20, 10, 5, 5, above.get());
    screen.addBox(30, 10, 5, 5, above.get());
    const core::SmartPtr<renderer::RenderView> view(
        new renderer::RenderView(new scene::Culler(&set), screen.camera.get(), above.get()));
    screen.pass->append(nullptr);
    screen.pass->append(view.get());
    EXPECT_EQ(screen.pass->getView(1), view.get());
    EXPECT_EQ(screen.pass->getView(2), nullptr);
    screen.pass->clearMask = RenderPass::CLEAR_COLOR;
    above->update(0, true);
    screen.draw();
    EXPECT_EQ(screen.backend.getSubmitCount(), 2u);
    EXPECT_EQ(screen.getVertices().size(), 8u);
    EXPECT_FALSE(screen.backend.getTarget().clearColor) << "only the first view clears";
    EXPECT_EQ(screen.getStatistics().vertices, 12u);
    screen.draw();
    EXPECT_EQ(screen.getStatistics().listsSubmittedAgain, 2u);
    screen.pass->remove(view.get());
    screen.draw();
    EXPECT_EQ(screen.backend.getSubmitCount(), 5u);
}

TEST_F(Pass, TwoPassesOfOneSceneBothSeeEachChange) {
    scene::VisibilitySet set;
    const core::SmartPtr<RenderPass> second(new RenderPass(nullptr, nullptr));
    second->append(new renderer::RenderView(new scene::Culler(&set), screen.camera.get(), screen.root.get()));
    second->setVerify(true);
    const auto drawSecond = [&] {
        second->prepare();
        second->render();
    };
    auto *box = screen.addBox(10, 10, 5, 5);
    auto *material = new MaterialProperty();
    box->setProperty(material);
    screen.draw();
    drawSecond();
    box->setTranslation({50, 10, 0});
    screen.draw();
    drawSecond();
    EXPECT_EQ(screen.getVertices()[0].x, 47.5f);
    material->setColor(math::Vector3(1, 0, 0));
    screen.draw();
    drawSecond();
    EXPECT_EQ(screen.getVertices()[0].rgba, 0xff0000ffu);
    drawSecond();
    EXPECT_EQ(second->getStatistics().listsSubmittedAgain, 1u);
}

TEST_F(Pass, ATextureThatIsLoadedLaterAppears) {
    auto *box = screen.addBox(10, 10, 5, 5);
    auto *property = new TextureProperty();
    box->setProperty(property);
    property->getStage(0).setTexture(new texture::Texture("pending"));
    screen.draw();
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "") << "nothing is drawn in its place";
    property->getStage(0).setTexture(screen.makeTexture("loaded", 8, 8).get());
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 2 blend 0 mask 3\n");
    property->getStage(0) = texture::Stage();
    screen.draw();
    EXPECT_EQ(screen.dumpCommands(), "indices 6 texture 1 blend 0 mask 3\n");
}

TEST_F(Pass, AViewMayLackEverything) {
    RenderPass pass(nullptr, nullptr);
    pass.append(new renderer::RenderView(nullptr, nullptr, nullptr));
    pass.render();
    EXPECT_EQ(screen.backend.getSubmitCount(), 0u) << "not prepared";
    pass.prepare();
    pass.render();
    EXPECT_EQ(screen.backend.getSubmitCount(), 1u);
}

TEST_F(Pass, ItsSorterMayChooseAnotherOrder) {
    class Backward : public renderer::Sorter {
    public:
        using Sorter::Sorter;
        void sort() override {
            for (scene::VisibilitySet *set : getSets())
                std::ranges::reverse(set->getMeshes());
        }
    };
    const core::SmartPtr<RenderPass> pass(new RenderPass(nullptr, new Backward(&screen.renderer)));
    pass->append(screen.pass->getView(0));
    screen.addBox(10, 10, 5, 5);
    screen.addBox(20, 10, 5, 5);
    screen.root->update(0, true);
    pass->prepare();
    pass->render();
    EXPECT_EQ(screen.getVertices()[0].x, 17.5f);
    EXPECT_EQ(screen.getVertices()[4].x, 7.5f);
}

TEST_F(Pass, TheBaseSorterKeepsTheOrder) {
    const core::SmartPtr<renderer::Sorter> sorter(new renderer::Sorter(&screen.renderer));
    EXPECT_EQ(sorter->getRenderer(), &screen.renderer);
    EXPECT_EQ(screen.renderer.prepareSorter(sorter.get()), sorter.get());
    const core::SmartPtr<RenderPass> pass(new RenderPass(nullptr, sorter.get()));
    pass->append(screen.pass->getView(0));
    screen.addBox(10, 10, 5, 5);
    screen.addBox(20, 10, 5, 5);
    screen.root->update(0, true);
    pass->prepare();
    pass->render();
    EXPECT_EQ(screen.getVertices()[0].x, 7.5f);
}

TEST_F(Pass, VerifyTellsWhenWhatIsKeptIsWrong) {
    class Liar : public SizeableRectangleMesh {
    public:
        Liar() : SizeableRectangleMesh("liar", {5, 5}) {}
        float width = 1;

    protected:
        bool buildGeometry(geometry::LocalGeometry &out) override {
            out.beginRun(nullptr);
            out.addQuad(0, 0, width++, 1, 0, 0, 0, 0); // another one each time
            return true;
        }
    };
    screen.root->appendChild(new Liar());
    screen.draw();
    EXPECT_EQ(log.takeOne(logging::Level::ERROR), "The draw list differs from one that was made from nothing");
    EXPECT_EQ(screen.getStatistics().verifyFailures, 1u);
}

TEST(RenderPass, DoesNothingWithoutARenderer) {
    RenderPass pass(nullptr, nullptr);
    pass.append(new renderer::RenderView(nullptr, nullptr, nullptr));
    pass.prepare();
    pass.render();
    EXPECT_EQ(pass.getStatistics().framesSubmitted, 0u);
}

TEST(RenderPass, AnIdleFrameAllocatesNothing) {
    test::Screen screen;
    const auto texture = screen.makeTexture("t", 8, 8);
    for (int i = 0; i < 1000; ++i) {
        auto *row = new scene::Node("row");
        row->setTranslation({0, static_cast<float>(i), 0});
        screen.root->appendChild(row);
        auto *box = screen.addBox(10, 10, 5, 5, row);
        setColor(*box, {1, 1, 1, 0.5f});
        setBlending(*box);
        if (i % 7 == 0)
            setTexture(*box, texture.get());
    }
    screen.draw();
    screen.draw();
    const std::size_t before = test::getAllocationCount();
    const std::uint64_t rebuilt = screen.getStatistics().verticesRebuilt;
    const std::uint64_t written = screen.getStatistics().verticesWritten;
    for (int i = 0; i < 3; ++i) {
        screen.time += 1;
        screen.draw();
    }
    EXPECT_EQ(test::getAllocationCount(), before);
    EXPECT_EQ(screen.getStatistics().verticesRebuilt, rebuilt);
    EXPECT_EQ(screen.getStatistics().verticesWritten, written);
    EXPECT_EQ(screen.backend.getSameRevisionCount(), 4u);
}

TEST(RenderPass, AMoveOfOneAmongManyAllocatesNothingAndWritesOne) {
    test::Screen screen;
    for (int i = 0; i < 1000; ++i)
        screen.addBox(static_cast<float>(i), 10, 5, 5);
    screen.draw();
    screen.root->getChild(500)->setTranslation({1, 1, 0});
    screen.root->update(0, true);
    screen.pass->prepare();
    const std::size_t before = test::getAllocationCount();
    const std::uint64_t written = screen.getStatistics().verticesWritten;
    screen.root->getChild(500)->setTranslation({2, 1, 0});
    screen.root->update(0, true);
    screen.pass->prepare();
    EXPECT_EQ(test::getAllocationCount(), before);
    EXPECT_EQ(screen.getStatistics().verticesWritten - written, 4u);
}

} // namespace
} // namespace nurel
