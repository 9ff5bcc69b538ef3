#include "nmain/math/Vector2.h"
#include "nmain/math/Vector3.h"
#include "nmain/math/Vector4.h"
#include "nmain/math/ViewPort.h"

#include <gtest/gtest.h>

using namespace nurel::math;

static_assert(Vector2::ONE - Vector2::HALF == Vector2::HALF, "the constants are there at compile time");
static_assert(sizeof(Vector2) == 8 && sizeof(Vector3) == 12 && sizeof(Vector4) == 16, "plain floats");

TEST(Vector2, HasItsConstants) {
    EXPECT_EQ(Vector2(), Vector2::ZERO);
    EXPECT_EQ(Vector2(0, 0), Vector2::ZERO);
    EXPECT_EQ(Vector2(1, 1), Vector2::ONE);
    EXPECT_EQ(Vector2(0.5f, 0.5f), Vector2::HALF);
    EXPECT_EQ(Vector2(1, 0), Vector2::AXIS_X);
    EXPECT_EQ(Vector2(0, 1), Vector2::AXIS_Y);
}

TEST(Vector2, CalculatesByComponent) {
    const Vector2 a(6, 8);
    const Vector2 b(3, 2);
    EXPECT_EQ(a + b, Vector2(9, 10));
    EXPECT_EQ(a - b, Vector2(3, 6));
    EXPECT_EQ(a * b, Vector2(18, 16));
    EXPECT_EQ(a / b, Vector2(2, 4));
    EXPECT_EQ(a * 2, Vector2(12, 16));
    EXPECT_EQ(2 * a, Vector2(12, 16));
    EXPECT_EQ(a / 2, Vector2(3, 4));
    EXPECT_EQ(-a, Vector2(-6, -8));
    Vector2 c(a);
    EXPECT_EQ(c += b, Vector2(9, 10));
    EXPECT_EQ(c -= b, a);
    EXPECT_EQ(c *= b, Vector2(18, 16));
    EXPECT_EQ(c /= b, a);
    EXPECT_EQ(c *= 2, Vector2(12, 16));
    EXPECT_EQ(c /= 2, a);
}

TEST(Vector2, MeasuresItself) {
    EXPECT_EQ(Vector2(3, 4).length(), 5);
    EXPECT_EQ(Vector2(3, 4).lengthSquared(), 25);
    EXPECT_EQ(Vector2(3, 4).dot({2, 1}), 10);
    Vector2 v(3, 4);
    EXPECT_EQ(v.normalize(), Vector2(0.6f, 0.8f));
    EXPECT_EQ(Vector2().normalize(), Vector2::ZERO);
}

TEST(Vector2, GivesItsComponentsByIndex) {
    Vector2 v(1, 2);
    v[0] = 5;
    v[1] += 4;
    EXPECT_EQ(v, Vector2(5, 6));
    const Vector2 &constant = v;
    EXPECT_EQ(constant[1], 6);
}

TEST(Vector2, ComparesExactly) {
    EXPECT_NE(Vector2(1, 1), Vector2(1, 1.0000001f));
    EXPECT_NE(Vector2(1, 2), Vector2(2, 1));
}

TEST(Vector2, DropsTheThirdComponent) {
    EXPECT_EQ(Vector2(Vector3(1, 2, 3)), Vector2(1, 2));
}

TEST(Vector3, HasItsConstants) {
    EXPECT_EQ(Vector3(), Vector3::ZERO);
    EXPECT_EQ(Vector3(0, 0, 0), Vector3::ZERO);
    EXPECT_EQ(Vector3(1, 1, 1), Vector3::ONE);
    EXPECT_EQ(Vector3(1, 1, 1), Vector3::WHITE);
    EXPECT_EQ(Vector3(0.5f, 0.5f, 0.5f), Vector3::HALF);
    EXPECT_EQ(Vector3(1, 0, 0), Vector3::AXIS_X);
    EXPECT_EQ(Vector3(0, 1, 0), Vector3::AXIS_Y);
    EXPECT_EQ(Vector3(0, 0, 1), Vector3::AXIS_Z);
}

TEST(Vector3, CalculatesByComponent) {
    const Vector3 a(6, 8, 10);
    const Vector3 b(3, 2, 5);
    EXPECT_EQ(a + b, Vector3(9, 10, 15));
    EXPECT_EQ(a - b, Vector3(3, 6, 5));
    EXPECT_EQ(a * b, Vector3(18, 16, 50));
    EXPECT_EQ(a / b, Vector3(2, 4, 2));
    EXPECT_EQ(a * 2, Vector3(12, 16, 20));
    EXPECT_EQ(2 * a, Vector3(12, 16, 20));
    EXPECT_EQ(a / 2, Vector3(3, 4, 5));
    EXPECT_EQ(-a, Vector3(-6, -8, -10));
    Vector3 c(a);
    EXPECT_EQ(c += b, Vector3(9, 10, 15));
    EXPECT_EQ(c -= b, a);
    EXPECT_EQ(c *= b, Vector3(18, 16, 50));
    EXPECT_EQ(c /= b, a);
    EXPECT_EQ(c *= 2, Vector3(12, 16, 20));
    EXPECT_EQ(c /= 2, a);
}

TEST(Vector3, MeasuresItself) {
    EXPECT_EQ(Vector3(2, 3, 6).length(), 7);
    EXPECT_EQ(Vector3(2, 3, 6).lengthSquared(), 49);
    EXPECT_EQ(Vector3(1, 2, 3).dot({4, 5, 6}), 32);
    EXPECT_EQ(Vector3::AXIS_X.cross(Vector3::AXIS_Y), Vector3::AXIS_Z);
    EXPECT_EQ(Vector3(1, 2, 3).cross({4, 5, 6}), Vector3(-3, 6, -3));
    Vector3 v(0, 3, 4);
    EXPECT_EQ(v.normalize(), Vector3(0, 0.6f, 0.8f));
    EXPECT_EQ(Vector3().normalize(), Vector3::ZERO);
}

TEST(Vector3, GivesItsComponentsByIndex) {
    Vector3 v;
    for (unsigned i = 0; i < 3; ++i)
        v[i] = static_cast<float>(i + 1);
    EXPECT_EQ(v, Vector3(1, 2, 3));
    const Vector3 &constant = v;
    EXPECT_EQ(constant[0] + constant[1] * 10 + constant[2] * 100, 321);
}

TEST(Vector3, ComparesEveryComponent) {
    EXPECT_NE(Vector3(1, 2, 3), Vector3(0, 2, 3));
    EXPECT_NE(Vector3(1, 2, 3), Vector3(1, 0, 3));
    EXPECT_NE(Vector3(1, 2, 3), Vector3(1, 2, 0));
}

TEST(Vector3, KeepsZWhenItIsAssignedTwoComponents) {
    Vector3 v(1, 2, 3);
    v = Vector2(4, 5);
    EXPECT_EQ(v, Vector3(4, 5, 3));
}

TEST(Vector3, IsMadeOfTwoOrFourComponents) {
    EXPECT_EQ(Vector3(Vector2(1, 2)), Vector3(1, 2, 0));
    EXPECT_EQ(Vector3(Vector2(1, 2), 3), Vector3(1, 2, 3));
    EXPECT_EQ(Vector3(Vector4(1, 2, 3, 4)), Vector3(1, 2, 3));
}

TEST(Vector4, HasItsConstants) {
    EXPECT_EQ(Vector4(), Vector4::ZERO);
    EXPECT_EQ(Vector4(0, 0, 0, 0), Vector4::ZERO);
    EXPECT_EQ(Vector4(1, 1, 1, 1), Vector4::ONE);
    EXPECT_EQ(Vector4(1, 1, 1, 1), Vector4::WHITE);
    EXPECT_EQ(Vector4(0.5f, 0.5f, 0.5f, 0.5f), Vector4::HALF);
}

TEST(Vector4, CalculatesByComponent) {
    const Vector4 a(6, 8, 10, 12);
    const Vector4 b(3, 2, 5, 4);
    EXPECT_EQ(a + b, Vector4(9, 10, 15, 16));
    EXPECT_EQ(a - b, Vector4(3, 6, 5, 8));
    EXPECT_EQ(a * b, Vector4(18, 16, 50, 48));
    EXPECT_EQ(a / b, Vector4(2, 4, 2, 3));
    EXPECT_EQ(a * 2, Vector4(12, 16, 20, 24));
    EXPECT_EQ(2 * a, Vector4(12, 16, 20, 24));
    EXPECT_EQ(a / 2, Vector4(3, 4, 5, 6));
    EXPECT_EQ(-a, Vector4(-6, -8, -10, -12));
    Vector4 c(a);
    EXPECT_EQ(c += b, Vector4(9, 10, 15, 16));
    EXPECT_EQ(c -= b, a);
    EXPECT_EQ(c *= b, Vector4(18, 16, 50, 48));
    EXPECT_EQ(c /= b, a);
    EXPECT_EQ(c *= 2, Vector4(12, 16, 20, 24));
    EXPECT_EQ(c /= 2, a);
}

TEST(Vector4, MeasuresItself) {
    EXPECT_EQ(Vector4(2, 4, 5, 6).length(), 9);
    EXPECT_EQ(Vector4(2, 4, 5, 6).lengthSquared(), 81);
    EXPECT_EQ(Vector4(1, 2, 3, 4).dot({5, 6, 7, 8}), 70);
    Vector4 v(0, 0, 3, 4);
    EXPECT_EQ(v.normalize(), Vector4(0, 0, 0.6f, 0.8f));
    EXPECT_EQ(Vector4().normalize(), Vector4::ZERO);
}

TEST(Vector4, GivesItsComponentsByIndex) {
    Vector4 v;
    for (unsigned i = 0; i < 4; ++i)
        v[i] = static_cast<float>(i + 1);
    EXPECT_EQ(v, Vector4(1, 2, 3, 4));
    const Vector4 &constant = v;
    EXPECT_EQ(constant[0] + constant[1] * 10 + constant[2] * 100 + constant[3] * 1000, 4321);
}

TEST(Vector4, KeepsWWhenItIsAssignedThreeComponents) {
    Vector4 v(1, 2, 3, 4);
    v = Vector3(5, 6, 7);
    EXPECT_EQ(v, Vector4(5, 6, 7, 4));
    EXPECT_EQ(Vector4(Vector3(5, 6, 7), 8), Vector4(5, 6, 7, 8));
}

TEST(ViewPort, KeepsItsSize) {
    constexpr ViewPort VIEW_PORT(1280, 720);
    EXPECT_EQ(VIEW_PORT.getWidth(), 1280u);
    EXPECT_EQ(VIEW_PORT.getHeight(), 720u);
    EXPECT_EQ(ViewPort(), ViewPort(0, 0));
    EXPECT_NE(VIEW_PORT, ViewPort(720, 1280));
}
