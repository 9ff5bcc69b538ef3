#include "CubeScene.h"

#include <cmath>
#include <numbers>

using engine3d::Color;
using engine3d::Corner;
using engine3d::Fragment;
using engine3d::Target;

namespace {

struct Place {
    float x, y, z;
};

constexpr Color SKY{0.05F, 0.07F, 0.12F, 1};
constexpr float EYE_HEIGHT = 2.2F;
constexpr float EYE_DISTANCE = 6.5F;
constexpr float LENS_SHIFT = 0.55F; // what is straight ahead stands above the picture's middle
constexpr float FOCAL_LENGTH = 1.8F;
constexpr float NEAR = 0.1F;
constexpr float FAR = 40.0F;

constexpr int FLOOR_SQUARES = 8; // from the middle to each side
constexpr Color FLOOR_COLORS[] = {{0.16F, 0.19F, 0.27F, 1}, {0.20F, 0.24F, 0.33F, 1}};

/// The faces of a cube from -1 to 1: the axis that a face looks along, which way, and its colour.
struct Face {
    int axis;
    float way;
    Color color;
};
constexpr Face FACES[] = {{0, 1, {0.88F, 0.48F, 0.37F, 1}}, {0, -1, {0.37F, 0.65F, 0.47F, 1}},
                          {1, 1, {0.95F, 0.72F, 0.29F, 1}}, {1, -1, {0.20F, 0.23F, 0.37F, 1}},
                          {2, 1, {0.24F, 0.52F, 0.66F, 1}}, {2, -1, {0.48F, 0.42F, 0.70F, 1}}};

Corner see(const Place &place, const Color &color, const Target &target) {
    const float distance = EYE_DISTANCE - place.z;
    const float aspect = static_cast<float>(target.width) / static_cast<float>(target.height);
    const float depth = (FAR + NEAR) / (FAR - NEAR) * distance - 2 * FAR * NEAR / (FAR - NEAR);
    return {FOCAL_LENGTH / aspect * place.x,
            FOCAL_LENGTH * (place.y - EYE_HEIGHT) + LENS_SHIFT * distance,
            depth,
            distance,
            0,
            0,
            color};
}

/// Corners in order around the square.
void drawSquare(Target &target, const Place (&places)[4], const Color &color) {
    Corner corners[4];
    for (std::size_t i = 0; i < 4; ++i)
        corners[i] = see(places[i], color, target);
    for (const std::size_t second : {1U, 2U}) {
        const Corner triangle[3] = {corners[0], corners[second], corners[second + 1]};
        drawTriangle(target, triangle, [&target](const Fragment &fragment) {
            if (fragment.depth >= target.depth[fragment.pixel])
                return;
            target.depth[fragment.pixel] = fragment.depth;
            target.color[fragment.pixel] = fragment.color;
        });
    }
}

void drawFloor(Target &target) {
    constexpr float HEIGHT = -1.3F;
    for (int column = -FLOOR_SQUARES; column < FLOOR_SQUARES; ++column) {
        for (int row = -FLOOR_SQUARES; row < FLOOR_SQUARES; ++row) {
            const auto x = static_cast<float>(column);
            const auto z = static_cast<float>(row);
            drawSquare(target, {{x, HEIGHT, z}, {x + 1, HEIGHT, z}, {x + 1, HEIGHT, z + 1}, {x, HEIGHT, z + 1}},
                       FLOOR_COLORS[(column + row) & 1]);
        }
    }
}

Place turn(const Place &place, float angle) {
    const float cosine = std::cos(angle);
    const float sine = std::sin(angle);
    return {cosine * place.x + sine * place.z, place.y, cosine * place.z - sine * place.x};
}

void drawFace(Target &target, const Face &face, float angle) {
    constexpr float AROUND[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    Place places[4];
    for (std::size_t i = 0; i < 4; ++i) {
        const float a = AROUND[i][0];
        const float b = AROUND[i][1];
        const Place place = face.axis == 0   ? Place{face.way, a, b}
                            : face.axis == 1 ? Place{a, face.way, b}
                                             : Place{a, b, face.way};
        places[i] = turn(place, angle);
    }
    drawSquare(target, places, face.color);
}

} // namespace

void CubeScene::advance(float seconds) {
    if (mRunning)
        mAngle = std::fmod(mAngle + mSpeed * seconds, 2 * std::numbers::pi_v<float>);
}

void CubeScene::draw(Target &target) const {
    target.clear(SKY);
    if (target.width == 0 || target.height == 0)
        return;
    drawFloor(target);
    for (const Face &face : FACES)
        drawFace(target, face, mAngle);
}
