#pragma once

#include "Rasterizer.h"

/// The engine's own scene: a cube that turns above a floor of squares.
class CubeScene {
public:
    /// Radians a second.
    void setSpeed(float speed) { mSpeed = speed; }
    float getSpeed() const { return mSpeed; }

    void setRunning(bool running) { mRunning = running; }

    void advance(float seconds);

    /// Clears the target and draws the scene into it.
    void draw(engine3d::Target &target) const;

private:
    float mSpeed = 1;
    float mAngle = 0.6F;
    bool mRunning = true;
};
