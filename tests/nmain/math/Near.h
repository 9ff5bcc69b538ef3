#pragma once

#include "nmain/math/Matrix4.h"

#include <gtest/gtest.h>

/// Comparisons of math values within a tolerance.
namespace test {

inline void expectNear(const nurel::math::Vector3 &actual, const nurel::math::Vector3 &expected,
                       float tolerance = 1e-5f) {
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

inline void expectNear(const nurel::math::Matrix3 &actual, const nurel::math::Matrix3 &expected,
                       float tolerance = 1e-5f) {
    for (unsigned i = 0; i < 9; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
}

inline void expectNear(const nurel::math::Matrix4 &actual, const nurel::math::Matrix4 &expected,
                       float tolerance = 1e-5f) {
    for (unsigned i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
}

} // namespace test
