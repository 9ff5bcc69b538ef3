// The camera that a user interface is seen by: one unit in the plane z = 0 is one pixel, the origin is the top left
// corner and y points down.
#include "nmain/math/Frustum.h"
#include "nmain/math/Matrix4.h"

#include "nmain/math/Near.h"

#include <gtest/gtest.h>

using namespace nurel::math;
using test::expectNear;

namespace {

struct Camera {
    Camera(float width, float height)
        : world(Matrix3(-Vector3::AXIS_X, -Vector3::AXIS_Y, Vector3::AXIS_Z, true), {width / 2, height / 2, -1000}) {
        projection.perspective(90, 1, 500, 2000);
        projection(0, 0) = -1000 / (width / 2);
        projection(1, 1) = 1000 / (height / 2);
        viewProjection = world.inverse() * projection;
    }

    Vector3 toScreen(const Vector3 &point) const {
        const Vector4 clip = viewProjection * Vector4(point, 1);
        return Vector3(clip / clip.w);
    }

    Matrix4 world;
    Matrix4 projection;
    Matrix4 viewProjection;
};

} // namespace

TEST(Camera, SeesTheStagePixelByPixel) {
    for (const auto &[width, height] : {std::pair(1280.0f, 720.0f), {640.0f, 480.0f}, {720.0f, 1280.0f}}) {
        const Camera camera(width, height);
        EXPECT_NEAR((camera.viewProjection * Vector4(0, 0, 0, 1)).w, 1000, 1e-3f);
        const float depth = camera.toScreen(Vector3::ZERO).z;
        EXPECT_GT(depth, -1);
        EXPECT_LT(depth, 1);
        expectNear(camera.toScreen({0, 0, 0}), {-1, 1, depth});
        expectNear(camera.toScreen({width / 2, height / 2, 0}), {0, 0, depth});
        expectNear(camera.toScreen({width, height, 0}), {1, -1, depth});
        expectNear(camera.toScreen({width, 0, 0}), {1, 1, depth});
        expectNear(camera.toScreen({1, 1, 0}), {-1 + 2 / width, 1 - 2 / height, depth});
    }
}

TEST(Camera, SeesFartherThingsSmallerAndNearerToTheMiddle) {
    const Camera camera(1280, 720);
    const Vector3 atStage = camera.toScreen({0, 0, 0});
    const Vector3 behind = camera.toScreen({0, 0, 500});
    EXPECT_NEAR(behind.x, atStage.x / 1.5f, 1e-5f);
    EXPECT_NEAR(behind.y, atStage.y / 1.5f, 1e-5f);
    EXPECT_GT(behind.z, atStage.z);
}

TEST(Frustum, TellsWhatACameraSees) {
    const Camera camera(1280, 720);
    const Frustum frustum(camera.viewProjection);
    const struct {
        const char *name;
        Vector3 minimum;
        Vector3 maximum;
        Frustum::EFrustumResult result;
    } rows[] = {{"in the middle", {600, 300, -10}, {700, 400, 10}, Frustum::INSIDE},
                {"over the left edge", {-50, 300, 0}, {50, 400, 0}, Frustum::INTERSECT},
                {"over the top edge", {600, -50, 0}, {700, 50, 0}, Frustum::INTERSECT},
                {"over all edges", {-9000, -9000, 0}, {9000, 9000, 0}, Frustum::INTERSECT},
                {"left", {-150, 300, 0}, {-50, 400, 0}, Frustum::OUTSIDE},
                {"right", {1290, 300, 0}, {1400, 400, 0}, Frustum::OUTSIDE},
                {"above", {600, -150, 0}, {700, -50, 0}, Frustum::OUTSIDE},
                {"below", {600, 730, 0}, {700, 800, 0}, Frustum::OUTSIDE},
                {"before the near plane", {600, 300, -900}, {700, 400, -600}, Frustum::OUTSIDE},
                {"through the near plane", {600, 300, -600}, {700, 400, 0}, Frustum::INTERSECT},
                {"behind the far plane", {600, 300, 1100}, {700, 400, 1200}, Frustum::OUTSIDE},
                {"through the far plane", {600, 300, 900}, {700, 400, 1200}, Frustum::INTERSECT}};
    for (const auto &row : rows)
        EXPECT_EQ(frustum.test(row.minimum, row.maximum), row.result) << row.name;
}
