#pragma once

namespace nurel::math {

/// The size of a drawing area in pixels.
class ViewPort {
public:
    constexpr ViewPort() noexcept = default;
    constexpr ViewPort(unsigned width, unsigned height) noexcept : mWidth(width), mHeight(height) {}

    constexpr unsigned getWidth() const noexcept { return mWidth; }
    constexpr unsigned getHeight() const noexcept { return mHeight; }

    constexpr bool operator==(const ViewPort &other) const noexcept = default;

private:
    unsigned mWidth = 0;
    unsigned mHeight = 0;
};

} // namespace nurel::math
