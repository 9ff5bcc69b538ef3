#include "nmain/math/Matrix3.h"

#include "nmain/math/Near.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace nurel::math;
using test::expectNear;

namespace {

constexpr float RIGHT_ANGLE = std::numbers::pi_v<float> / 2;
constexpr Matrix3 COUNTING({1, 2, 3}, {4, 5, 6}, {7, 8, 9});

} // namespace

TEST(Matrix3, IsTheIdentityAtFirst) {
    EXPECT_EQ(Matrix3(), Matrix3::IDENTITY);
    EXPECT_EQ(Matrix3::IDENTITY, Matrix3(Vector3::AXIS_X, Vector3::AXIS_Y, Vector3::AXIS_Z));
}

TEST(Matrix3, IsMadeOfRowsOrColumns) {
    for (unsigned i = 0; i < 9; ++i)
        EXPECT_EQ(COUNTING[i], static_cast<float>(i + 1));
    EXPECT_EQ(COUNTING(1, 2), 6);
    EXPECT_EQ(COUNTING.getRow(2), Vector3(7, 8, 9));
    const Matrix3 columns({1, 2, 3}, {4, 5, 6}, {7, 8, 9}, false);
    EXPECT_EQ(columns(1, 2), 8);
    EXPECT_EQ(columns, COUNTING.transpose());
}

TEST(Matrix3, CanBeWrittenByElement) {
    Matrix3 m;
    m(0, 2) = 5;
    m[3] = 7;
    EXPECT_EQ(m, Matrix3({1, 0, 5}, {7, 1, 0}, {0, 0, 1}));
}

TEST(Matrix3, RowsAreTheImagesOfTheAxes) {
    EXPECT_EQ(COUNTING * Vector3::AXIS_Y, Vector3(4, 5, 6));
    EXPECT_EQ(COUNTING * Vector3(1, 10, 100), Vector3(741, 852, 963));
}

TEST(Matrix3, TurnsAroundAnAxis) {
    expectNear(Matrix3(RIGHT_ANGLE, Vector3::AXIS_Z) * Vector3::AXIS_X, Vector3::AXIS_Y);
    expectNear(Matrix3(RIGHT_ANGLE, Vector3::AXIS_X) * Vector3::AXIS_Y, Vector3::AXIS_Z);
    expectNear(Matrix3(RIGHT_ANGLE, Vector3::AXIS_Y) * Vector3::AXIS_Z, Vector3::AXIS_X);
    expectNear(Matrix3(-RIGHT_ANGLE, Vector3::AXIS_Z) * Vector3::AXIS_X, -Vector3::AXIS_Y);
    expectNear(Matrix3(4 * RIGHT_ANGLE / 3, Vector3(1, 1, 1)) * Vector3::AXIS_X, Vector3::AXIS_Y);
}

TEST(Matrix3, TakesAnAxisOfAnyLength) {
    expectNear(Matrix3(1, Vector3(0, 0, 250)), Matrix3(1, Vector3::AXIS_Z));
    EXPECT_EQ(Matrix3(1, Vector3::ZERO), Matrix3::IDENTITY);
}

TEST(Matrix3, NoAngleIsExactlyTheIdentity) {
    EXPECT_EQ(Matrix3(0, Vector3::AXIS_Y), Matrix3::IDENTITY);
}

TEST(Matrix3, AProductAppliesItsLeftSideFirst) {
    const Matrix3 aroundZ(RIGHT_ANGLE, Vector3::AXIS_Z);
    const Matrix3 aroundX(RIGHT_ANGLE, Vector3::AXIS_X);
    expectNear((aroundZ * aroundX) * Vector3::AXIS_X, Vector3::AXIS_Z);
    expectNear((aroundX * aroundZ) * Vector3::AXIS_X, Vector3::AXIS_Y);
    EXPECT_EQ(COUNTING * COUNTING, Matrix3({30, 36, 42}, {66, 81, 96}, {102, 126, 150}));
}

TEST(Matrix3, TheTransposeOfARotationTurnsBack) {
    const Matrix3 rotation(0.7f, Vector3(1, 2, 3));
    expectNear(rotation * rotation.transpose(), Matrix3::IDENTITY);
    EXPECT_NE(rotation, rotation.transpose());
}
