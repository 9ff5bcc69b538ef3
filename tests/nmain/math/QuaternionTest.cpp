#include "nmain/math/Quaternion.h"

#include "nmain/math/Near.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

using namespace nurel::math;
using test::expectNear;

namespace {

constexpr float PI = std::numbers::pi_v<float>;

Matrix3 between(const Matrix3 &from, const Matrix3 &to, float t) {
    return Quaternion(from).slerp(Quaternion(to), t).buildMatrix();
}

} // namespace

TEST(Quaternion, IsNoRotationAtFirst) {
    EXPECT_EQ(Quaternion().buildMatrix(), Matrix3::IDENTITY);
    EXPECT_EQ(Quaternion(Matrix3::IDENTITY), Quaternion());
}

TEST(Quaternion, GivesTheMatrixBack) {
    std::mt19937 random(3);
    std::uniform_real_distribution<float> any(-1, 1);
    for (int round = 0; round < 500; ++round) {
        const Matrix3 rotation(any(random) * PI, Vector3(any(random), any(random), any(random)));
        expectNear(Quaternion(rotation).buildMatrix(), rotation);
    }
    // Half turns, where the real part vanishes.
    for (const Vector3 &axis :
         {Vector3::AXIS_X, Vector3::AXIS_Y, Vector3::AXIS_Z, Vector3(1, 1, 1), Vector3(-1, 2, 0)}) {
        const Matrix3 rotation(PI, axis);
        expectNear(Quaternion(rotation).buildMatrix(), rotation);
    }
}

TEST(Quaternion, SlerpGoesFromOneEndToTheOther) {
    const Matrix3 from(0.3f, Vector3(1, 2, 3));
    const Matrix3 to(1.9f, Vector3(-1, 0, 2));
    expectNear(between(from, to, 0), from);
    expectNear(between(from, to, 1), to);
}

TEST(Quaternion, SlerpTurnsEvenly) {
    for (const float angle : {0.0f, 0.001f, 0.02f, 0.5f, 1.5f, 3.0f}) {
        for (const float t : {0.0f, 0.25f, 0.5f, 0.9f, 1.0f})
            expectNear(between(Matrix3::IDENTITY, Matrix3(angle, Vector3::AXIS_Z), t),
                       Matrix3(angle * t, Vector3::AXIS_Z));
    }
}

TEST(Quaternion, SlerpMayGoBeyondTheEnds) {
    expectNear(between(Matrix3::IDENTITY, Matrix3(0.5f, Vector3::AXIS_Z), 1.5f), Matrix3(0.75f, Vector3::AXIS_Z));
    expectNear(between(Matrix3::IDENTITY, Matrix3(0.5f, Vector3::AXIS_Z), -1), Matrix3(-0.5f, Vector3::AXIS_Z));
}

TEST(Quaternion, SlerpTakesTheShorterWay) {
    // From 170 to -170 degrees by way of 180.
    const Matrix3 from(170 * PI / 180, Vector3::AXIS_Z);
    const Matrix3 to(-170 * PI / 180, Vector3::AXIS_Z);
    expectNear(between(from, to, 0.5f), Matrix3(PI, Vector3::AXIS_Z));
    const Quaternion q(from);
    const Quaternion negative(-q.x, -q.y, -q.z, -q.w);
    expectNear(q.slerp(negative, 0.5f).buildMatrix(), from);
}

TEST(Quaternion, AnAlmostHalfTurnRemembersItsDirection) {
    expectNear(between(Matrix3(-3.14159f, Vector3::AXIS_Y), Matrix3::IDENTITY, 0.5f),
               Matrix3(-3.14159f / 2, Vector3::AXIS_Y), 1e-4f);
    expectNear(between(Matrix3(3.14159f, Vector3::AXIS_Y), Matrix3::IDENTITY, 0.5f),
               Matrix3(3.14159f / 2, Vector3::AXIS_Y), 1e-4f);
}

TEST(Quaternion, OfAMatrixThatIsNoRotationIsStillOne) {
    const Matrix3 zero(Vector3::ZERO, Vector3::ZERO, Vector3::ZERO);
    const Matrix3 scaled({3, 0, 0}, {0, 3, 0}, {0, 0, 3});
    for (const Matrix3 &m : {zero, scaled})
        EXPECT_NEAR(Quaternion(m).dot(Quaternion(m)), 1, 1e-5f);
    Quaternion none(0, 0, 0, 0);
    EXPECT_EQ(none.normalize(), Quaternion());
}
