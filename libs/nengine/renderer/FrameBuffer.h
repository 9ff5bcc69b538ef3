#pragma once

#include "nmain/core/Object.h"

#include <cstdint>

namespace nurel::renderer {

/// A place to draw to that is not the screen. The backend's owner made it and knows it by a number, which each
/// submission carries; the toolkit passes the number on.
class FrameBuffer : public core::Object {
public:
    static const ::core::Type TYPE;
    static const ::core::Type &type() { return TYPE; }
    const ::core::Type &getType() const override { return TYPE; }

    /// The number is not 0, which stands for the screen; sizes in pixels.
    FrameBuffer(std::uint32_t number, unsigned int width, unsigned int height)
        : mNumber(number), mWidth(width), mHeight(height) {}

    std::uint32_t getNumber() const { return mNumber; }
    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }
    void setSize(unsigned int width, unsigned int height) {
        mWidth = width;
        mHeight = height;
    }

private:
    const std::uint32_t mNumber;
    unsigned int mWidth;
    unsigned int mHeight;
};

} // namespace nurel::renderer
