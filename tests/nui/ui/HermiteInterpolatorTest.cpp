#include "nui/ui/HermiteInterpolator.h"

#include "foundation/core/SmartPtr.h"

#include <gtest/gtest.h>

using namespace nurel::ui;
using nurel::math::Vector2;
using nurel::math::Vector3;

TEST(HermiteInterpolator, IsWithoutTangentsUnlessToldOtherwise) {
    const HermiteInterpolator curve;
    EXPECT_EQ(curve.getTangentOut(), 0);
    EXPECT_EQ(curve.getTangentIn(), 0);
    const HermiteInterpolator other(1.2f, -3);
    EXPECT_EQ(other.getTangentOut(), 1.2f);
    EXPECT_EQ(other.getTangentIn(), -3);
}

TEST(HermiteInterpolator, SetsItsTangents) {
    HermiteInterpolator curve;
    curve.setTangentOut(2);
    curve.setTangentIn(5);
    EXPECT_EQ(curve.getTangentOut(), 2);
    EXPECT_EQ(curve.getTangentIn(), 5);
}

TEST(HermiteInterpolator, MeetsBothEndsWhateverTheTangents) {
    for (const float tangent : {0.0f, 1.0f, -7.0f, 100.0f}) {
        const HermiteInterpolator curve(tangent, -2 * tangent);
        EXPECT_EQ(curve.interpolate(0, 3, 11), 3) << tangent;
        EXPECT_EQ(curve.interpolate(1, 3, 11), 11) << tangent;
    }
}

TEST(HermiteInterpolator, GivesTheKnownValues) {
    struct Row {
        const char *name;
        float out, in, t, a, b, value;
    };
    const Row rows[] = {
        {"the middle of an ease", 0, 0, 0.5f, 0, 1, 0.5f},
        {"a quarter of an ease", 0, 0, 0.25f, 0, 1, 0.15625f},
        {"a tangent out alone lifts the middle", 1, 0, 0.5f, 0, 0, 0.125f},
        {"a tangent in alone lowers it", 0, 1, 0.5f, 0, 0, -0.125f},
        {"tangents are not scaled by the distance", 1, 0, 0.5f, 0, 100, 50.125f},
        {"past the end it goes on", 0, 0, 2, 0, 1, -4},
        {"before the start too", 0, 0, -1, 0, 1, 5},
    };
    for (const Row &row : rows)
        EXPECT_FLOAT_EQ(HermiteInterpolator(row.out, row.in).interpolate(row.t, row.a, row.b), row.value) << row.name;
}

TEST(HermiteInterpolator, TakesVectorsAxisByAxisInBothForms) {
    const HermiteInterpolator curve;
    const Vector2 two = curve.interpolate(0.25f, Vector2(0, 10), Vector2(1, 10));
    EXPECT_EQ(two, Vector2(0.15625f, 10));
    Vector2 twoResult(9, 9);
    curve.interpolate(0.25f, Vector2(0, 10), Vector2(1, 10), twoResult);
    EXPECT_EQ(twoResult, two);
    const Vector3 three = curve.interpolate(0.25f, Vector3(0, 10, 2), Vector3(1, 10, 4));
    EXPECT_EQ(three, Vector3(0.15625f, 10, 2.3125f));
    Vector3 threeResult(9, 9, 9);
    curve.interpolate(0.25f, Vector3(0, 10, 2), Vector3(1, 10, 4), threeResult);
    EXPECT_EQ(threeResult, three);
}

TEST(HermiteInterpolator, WritesAResultThatIsOneOfTheEnds) {
    const HermiteInterpolator curve;
    Vector3 end(0, 0, 0);
    curve.interpolate(0.5f, end, Vector3(2, 4, 6), end);
    EXPECT_EQ(end, Vector3(1, 2, 3));
}
