#include "nmain/math/Matrix4.h"

#include "nmain/math/Near.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

using namespace nurel::math;
using test::expectNear;

namespace {

constexpr float RIGHT_ANGLE = std::numbers::pi_v<float> / 2;

Matrix4 makeCounting() {
    Matrix4 m;
    for (unsigned i = 0; i < 16; ++i)
        m[i] = static_cast<float>(i + 1);
    return m;
}

} // namespace

TEST(Matrix4, IsTheIdentityAtFirst) {
    EXPECT_EQ(Matrix4(), Matrix4::IDENTITY);
    Matrix4 m = makeCounting();
    EXPECT_EQ(m.identity(), Matrix4::IDENTITY);
    for (unsigned i = 0; i < 16; ++i)
        EXPECT_EQ(m[i], i % 5 == 0 ? 1 : 0);
}

TEST(Matrix4, CountsItsElementsByRow) {
    Matrix4 m = makeCounting();
    EXPECT_EQ(m(1, 2), 7);
    m(3, 0) = 50;
    EXPECT_EQ(m[12], 50);
    EXPECT_EQ(m.data()[12], 50);
}

TEST(Matrix4, HasItsTranslationInTheLastRow) {
    Matrix4 m;
    m.setTranslation({1, 2, 3});
    EXPECT_EQ(m.getTranslation(), Vector3(1, 2, 3));
    EXPECT_EQ(m(3, 0), 1);
    EXPECT_EQ(m(3, 2), 3);
    EXPECT_EQ(m * Vector3(10, 10, 10), Vector3(11, 12, 13));
}

TEST(Matrix4, TransformsPointsAndFourComponents) {
    const Matrix4 m = makeCounting();
    EXPECT_EQ(m * Vector4(1, 10, 100, 1000), Vector4(13951, 15062, 16173, 17284));
    EXPECT_EQ(m * Vector3(1, 10, 100), Vector3(964, 1076, 1188));
    EXPECT_EQ(Matrix4(Matrix3(), {5, 5, 5}) * Vector4(1, 2, 3, 0), Vector4(1, 2, 3, 0));
}

TEST(Matrix4, AppliesScaleThenRotationThenTranslation) {
    const Matrix4 m({2, 3, 4}, Matrix3(RIGHT_ANGLE, Vector3::AXIS_Z), {10, 20, 30});
    expectNear(m * Vector3(1, 0, 0), {10, 22, 30});
    expectNear(m * Vector3(0, 1, 0), {7, 20, 30});
    expectNear(m * Vector3(0, 0, 1), {10, 20, 34});
}

TEST(Matrix4, AProductAppliesItsLeftSideFirst) {
    const Matrix4 scale({2, 2, 2}, Matrix3(), Vector3::ZERO);
    const Matrix4 move(Matrix3(), {1, 0, 0});
    EXPECT_EQ((scale * move) * Vector3(1, 1, 1), Vector3(3, 2, 2));
    EXPECT_EQ((move * scale) * Vector3(1, 1, 1), Vector3(4, 2, 2));
    const Matrix4 counting = makeCounting();
    const Matrix4 product = counting * counting;
    EXPECT_EQ(product(0, 0), 90);
    EXPECT_EQ(product(3, 3), 600);
    EXPECT_EQ(product(1, 2), 254);
    Matrix4 m = scale;
    m *= move;
    EXPECT_EQ(m, scale * move);
}

TEST(Matrix4, GivesScaleAndRotationBack) {
    const Matrix3 rotation(0.7f, Vector3(1, 2, 3));
    const Matrix4 m({2, 3, 4}, rotation, {10, 20, 30});
    expectNear(m.getScale(), {2, 3, 4});
    expectNear(m.getRotation(), rotation);
    EXPECT_EQ(Matrix4().getScale(), Vector3::ONE);
    EXPECT_EQ(Matrix4().getRotation(), Matrix3::IDENTITY);
}

TEST(Matrix4, SetScaleKeepsRotationAndTranslation) {
    const Matrix3 rotation(0.7f, Vector3(1, 2, 3));
    Matrix4 m({2, 3, 4}, rotation, {10, 20, 30});
    m.setScale({5, 0.5f, 1});
    expectNear(m, Matrix4({5, 0.5f, 1}, rotation, {10, 20, 30}));
    Matrix4 plain;
    plain.setScale({2, 3, 4});
    EXPECT_EQ(plain, Matrix4({2, 3, 4}, Matrix3(), Vector3::ZERO));
}

TEST(Matrix4, AnAxisScaledToNothingComesBackAsItself) {
    Matrix4 m;
    m.setScale({0, 2, 0});
    EXPECT_EQ(m.getScale(), Vector3(0, 2, 0));
    EXPECT_EQ(m.getRotation(), Matrix3::IDENTITY);
    m.setScale({3, 3, 3});
    EXPECT_EQ(m.getScale(), Vector3(3, 3, 3));
    EXPECT_EQ(m * Vector3(1, 1, 1), Vector3(3, 3, 3));
}

TEST(Matrix4, PerspectiveHasTheDepthAsW) {
    Matrix4 m = makeCounting();
    m.perspective(90, 2, 500, 2000);
    EXPECT_NEAR(m(0, 0), 0.5f, 1e-6f);
    EXPECT_NEAR(m(1, 1), 1, 1e-6f);
    EXPECT_EQ(m[11], 1);
    EXPECT_EQ(m[15], 0);
    EXPECT_EQ(m[3] + m[7] + m[12] + m[13], 0);
    const Vector4 nearest = m * Vector4(0, 0, 500, 1);
    const Vector4 farthest = m * Vector4(0, 0, 2000, 1);
    EXPECT_EQ(nearest.w, 500);
    EXPECT_NEAR(nearest.z / nearest.w, -1, 1e-5f);
    EXPECT_EQ(farthest.w, 2000);
    EXPECT_NEAR(farthest.z / farthest.w, 1, 1e-5f);
    // 90 degrees: as high as it is far.
    const Vector4 top = m * Vector4(0, 1000, 1000, 1);
    EXPECT_NEAR(top.y / top.w, 1, 1e-5f);
    EXPECT_NEAR(Matrix4().perspective(60, 1, 1, 2)(1, 1), std::sqrt(3.0f), 1e-6f);
}

TEST(Matrix4, OrthographicMapsItsBoxToTheUnitCube) {
    Matrix4 m = makeCounting();
    m.orthographic(400, 300, 10, 110);
    EXPECT_EQ(m[11], 0);
    EXPECT_TRUE(m.isAffine());
    expectNear(m * Vector3(200, 150, 10), {1, 1, -1});
    expectNear(m * Vector3(-200, -150, 110), {-1, -1, 1});
    expectNear(m * Vector3(0, 0, 60), {0, 0, 0});
}

TEST(Matrix4, ValuesThatGiveNoProjectionLeaveTheMatrixAlone) {
    const Matrix4 before = makeCounting();
    Matrix4 m = before;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    m.perspective(0, 1, 1, 2);
    m.perspective(180, 1, 1, 2);
    m.perspective(nan, 1, 1, 2);
    m.perspective(90, 0, 1, 2);
    m.perspective(90, 1, 2, 2);
    m.orthographic(0, 1, 1, 2);
    m.orthographic(1, 0, 1, 2);
    m.orthographic(1, 1, 2, 2);
    EXPECT_EQ(m, before);
}

TEST(Matrix4, Transposes) {
    const Matrix4 m = makeCounting().transpose();
    EXPECT_EQ(m(0, 3), 13);
    EXPECT_EQ(m(3, 0), 4);
    EXPECT_EQ(m.transpose(), makeCounting());
}

TEST(Matrix4, TheInverseUndoesATransformation) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int round = 0; round < 500; ++round) {
        const Vector3 scale(0.1f + std::fabs(any(random)) * 5, 0.1f + std::fabs(any(random)) * 5, 1);
        const Matrix3 rotation(any(random) * 4, Vector3(any(random), any(random), any(random)));
        const Matrix4 m(scale, rotation, Vector3(any(random), any(random), any(random)) * 100);
        Matrix4 inverted;
        ASSERT_TRUE(m.inverse(inverted));
        EXPECT_EQ(m.inverse(), inverted);
        expectNear(m * inverted, Matrix4::IDENTITY, 2e-4f);
    }
}

TEST(Matrix4, TheInverseUndoesAnyMatrix) {
    std::mt19937 random(8);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int round = 0; round < 500; ++round) {
        Matrix4 m;
        for (unsigned i = 0; i < 16; ++i)
            m[i] += any(random) * 0.4f;
        Matrix4 inverted;
        ASSERT_TRUE(m.inverse(inverted));
        expectNear(m * inverted, Matrix4::IDENTITY, 1e-3f);
        expectNear(inverted * m, Matrix4::IDENTITY, 1e-3f);
    }
}

TEST(Matrix4, TheInverseOfAProjectionGivesThePointBack) {
    const Matrix4 projection = Matrix4().perspective(90, 1, 500, 2000);
    const Vector4 clip = projection * Vector4(120, -70, 1000, 1);
    Vector4 point = projection.inverse() * clip;
    point /= point.w;
    expectNear(Vector3(point), {120, -70, 1000}, 1e-2f);
}

TEST(Matrix4, AMatrixWithoutInverseGivesTheIdentity) {
    Matrix4 flat;
    flat.setScale({1, 0, 1});
    Matrix4 zero;
    Matrix4 parallel(Matrix3({1, 2, 3}, {2, 4, 6}, {0, 0, 1}));
    Matrix4 nearlyParallel(Matrix3({0.1f, 0.2f, 0.3f}, {0.3f, 0.6f, 0.9f}, {0.7f, 0.1f, 0.2f}));
    nearlyParallel(1, 0) = nearlyParallel(0, 0) * 2;
    nearlyParallel(1, 1) = nearlyParallel(0, 1) * 2;
    nearlyParallel(1, 2) = nearlyParallel(0, 2) * 2;
    for (unsigned i = 0; i < 16; ++i)
        zero[i] = 0;
    Matrix4 noNumber;
    noNumber[5] = std::numeric_limits<float>::quiet_NaN();
    Matrix4 endless;
    endless[12] = std::numeric_limits<float>::infinity();
    for (const Matrix4 &m : {flat, zero, parallel, nearlyParallel, noNumber, endless, makeCounting()}) {
        Matrix4 inverted = makeCounting();
        EXPECT_FALSE(m.inverse(inverted));
        EXPECT_EQ(inverted, Matrix4::IDENTITY);
        EXPECT_EQ(m.inverse(), Matrix4::IDENTITY);
    }
}

TEST(Matrix4, TheInverseMayReplaceItsMatrix) {
    Matrix4 m({2, 4, 8}, Matrix3(), {1, 2, 3});
    EXPECT_TRUE(m.inverse(m));
    EXPECT_EQ(m, Matrix4({0.5f, 0.25f, 0.125f}, Matrix3(), {-0.5f, -0.5f, -0.375f}));
}

TEST(Matrix4, SmallAndFarThingsHaveAnInverse) {
    for (const float scale : {1e-6f, 1.0f, 1e6f}) {
        const Matrix4 m({scale, scale, scale}, Matrix3(1, Vector3(1, 1, 0)), {1e6f, -1e6f, 0});
        Matrix4 inverted;
        EXPECT_TRUE(m.inverse(inverted)) << scale;
        EXPECT_NEAR(inverted.getScale().x * scale, 1, 1e-4f);
    }
}
