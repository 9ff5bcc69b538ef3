#include "nengine/scene/Camera.h"

#include "nengine/scene/Node.h"
#include "nengine/support/Screen.h"

#include <gtest/gtest.h>

namespace nurel {
namespace {

using scene::Camera;

/// Pixels from the top left that a point of the world is drawn at.
math::Vector2 project(const Camera &camera, const math::Vector3 &point, float width, float height) {
    const math::Vector4 clip = camera.getViewProjection() * math::Vector4(point, 1);
    return {(clip.x / clip.w + 1) * 0.5f * width, (1 - clip.y / clip.w) * 0.5f * height};
}

void expectNear(const math::Vector2 &actual, const math::Vector2 &expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-2f);
    EXPECT_NEAR(actual.y, expected.y, 1e-2f);
}

class ScreenCamera : public testing::Test {
public:
    ScreenCamera() : camera(new Camera("camera")) { test::setUpScreenCamera(*camera, 800, 600); }

    /// Where the ray through a pixel meets a depth.
    math::Vector3 hit(float x, float y, float z, unsigned int width = 800, unsigned int height = 600) const {
        math::Vector3 far;
        camera->unproject({x, y, 0}, far, width, height);
        const math::Vector3 direction = far - camera->getPosition();
        EXPECT_GT(direction.z, 0) << "the ray goes into the screen";
        return camera->getPosition() + direction * ((z - camera->getPosition().z) / direction.z);
    }

    core::SmartPtr<Camera> camera;
};

TEST_F(ScreenCamera, OneUnitAtDepthZeroIsOnePixel) {
    expectNear(project(*camera, {0, 0, 0}, 800, 600), {0, 0});
    expectNear(project(*camera, {400, 300, 0}, 800, 600), {400, 300});
    expectNear(project(*camera, {800, 600, 0}, 800, 600), {800, 600});
    expectNear(project(*camera, {1, 599, 0}, 800, 600), {1, 599});
}

TEST_F(ScreenCamera, WhatIsDeeperIsSmaller) {
    expectNear(project(*camera, {0, 0, 1000}, 800, 600), {200, 150});
    expectNear(project(*camera, {0, 0, -500}, 800, 600), {-400, -300});
}

TEST_F(ScreenCamera, UnprojectGoesTheOtherWay) {
    for (const math::Vector2 &pixel :
         {math::Vector2(0, 0), math::Vector2(400, 300), math::Vector2(799, 1), math::Vector2(123, 456)}) {
        const math::Vector3 atZero = hit(pixel.x, pixel.y, 0);
        EXPECT_NEAR(atZero.x, pixel.x, 5e-3f);
        EXPECT_NEAR(atZero.y, pixel.y, 5e-3f);
        const math::Vector3 deeper = hit(pixel.x, pixel.y, 500);
        expectNear(project(*camera, deeper, 800, 600), pixel);
    }
}

TEST_F(ScreenCamera, UnprojectIsOnTheFarPlane) {
    math::Vector3 far;
    camera->unproject({400, 300, 0}, far, 800, 600);
    EXPECT_NEAR(far.z, 1000, 1) << "2000 from the camera at -1000";
}

TEST_F(ScreenCamera, UnprojectScalesWithTheGivenSize) {
    const math::Vector3 point = hit(200, 150, 0, 400, 300);
    EXPECT_NEAR(point.x, 400, 5e-3f);
    EXPECT_NEAR(point.y, 300, 5e-3f);
}

TEST_F(ScreenCamera, UnprojectOfNoSizeTakesTheScreens) {
    renderer::RecordingBackend backend;
    renderer::Renderer renderer(backend, 400, 300, true);
    const math::Vector3 point = hit(200, 150, 0, 0, 0);
    EXPECT_NEAR(point.x, 400, 5e-3f);
    EXPECT_NEAR(point.y, 300, 5e-3f);
}

TEST_F(ScreenCamera, UnprojectSurvivesAScreenOfNoSize) {
    math::Vector3 out;
    camera->unproject({0, 0, 0}, out, 0, 0);
    EXPECT_TRUE(std::isfinite(out.x) && std::isfinite(out.y) && std::isfinite(out.z));
    renderer::RecordingBackend backend;
    renderer::Renderer renderer(backend, 0, 0, true);
    camera->unproject({5, 5, 0}, out, 0, 0);
    EXPECT_TRUE(std::isfinite(out.x) && std::isfinite(out.y) && std::isfinite(out.z));
}

TEST(Camera, UnprojectSurvivesAProjectionWithoutInverse) {
    const core::SmartPtr<Camera> camera(new Camera());
    math::Matrix4 flat;
    flat(0, 0) = 0;
    camera->setProjection(flat);
    math::Vector3 out;
    camera->unproject({1, 1, 0}, out, 10, 10);
    EXPECT_TRUE(std::isfinite(out.x) && std::isfinite(out.y) && std::isfinite(out.z));
}

TEST(Camera, UnprojectWorksForAParallelProjection) {
    const core::SmartPtr<Camera> camera(new Camera());
    math::Matrix4 projection;
    projection.orthographic(200, 100, 0, 10);
    camera->setProjection(projection);
    camera->setTranslation({1000, 0, 0});
    math::Vector3 out;
    camera->unproject({0, 0, 0}, out, 20, 10);
    EXPECT_NEAR(out.x, 900, 1e-2f);
    EXPECT_NEAR(out.y, 50, 1e-2f);
    EXPECT_NEAR(out.z, 10, 1e-2f);
}

TEST(Camera, FollowsItsParentsWithoutAnUpdate) {
    const core::SmartPtr<scene::Node> dolly(new scene::Node("dolly"));
    auto *camera = new Camera();
    dolly->appendChild(camera);
    dolly->setTranslation({5, 0, 0});
    EXPECT_NEAR((camera->getViewProjection() * math::Vector3(5, 0, 0)).x, 0, 1e-5f);
}

TEST(Camera, ACloneHasTheProjection) {
    const core::SmartPtr<Camera> camera(new Camera("c"));
    test::setUpScreenCamera(*camera, 100, 50);
    const core::SmartPtr<Camera> copy(static_cast<Camera *>(camera->core::Object::clone()));
    EXPECT_EQ(copy->getProjection(), camera->getProjection());
    EXPECT_EQ(copy->getTranslation(), camera->getTranslation());
}

} // namespace
} // namespace nurel
