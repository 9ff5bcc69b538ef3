#include "Picture.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr Color NOTHING = {0, 0, 0, 0};

/// How far a point lies outside a box with round corners; below 0 inside.
double getDistance(const Box &box, double radius, double x, double y) {
    const double dx = std::abs(x - (box.left + box.right) * 0.5) - (box.right - box.left) * 0.5 + radius;
    const double dy = std::abs(y - (box.top + box.bottom) * 0.5) - (box.bottom - box.top) * 0.5 + radius;
    const double outX = std::max(dx, 0.0);
    const double outY = std::max(dy, 0.0);
    return std::sqrt(outX * outX + outY * outY) + std::min(std::max(dx, dy), 0.0) - radius;
}

double getSegmentDistance(const Point &a, const Point &b, double x, double y) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double along = length > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length, 0.0, 1.0) : 0;
    const double ox = x - a.x - along * dx;
    const double oy = y - a.y - along * dy;
    return std::sqrt(ox * ox + oy * oy);
}

/// How much of a pixel lies inside an edge at this distance from its middle.
double toCoverage(double distance) {
    return std::clamp(0.5 - distance, 0.0, 1.0);
}

std::uint8_t toByte(double channel) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(channel, 0.0, 1.0) * 255));
}

} // namespace

Picture::Picture(unsigned int cellWidth, unsigned int cellHeight, unsigned int columns, unsigned int rows)
    : Picture(cellWidth, cellHeight, columns, rows, 1) {}

Picture::Picture(unsigned int cellWidth, unsigned int cellHeight, unsigned int columns, unsigned int rows,
                 unsigned int rim)
    : mCellWidth(cellWidth), mCellHeight(cellHeight), mRim(rim), mWidth(columns * (cellWidth + 2 * rim)),
      mHeight(rows * (cellHeight + 2 * rim)), mLeft(rim), mTop(rim), mPixels(std::size_t{mWidth} * mHeight, NOTHING) {}

Picture Picture::makePlain(unsigned int width, unsigned int height) {
    return {width, height, 1, 1, 0};
}

void Picture::selectCell(unsigned int column, unsigned int row) {
    mLeft = column * (mCellWidth + 2 * mRim) + mRim;
    mTop = row * (mCellHeight + 2 * mRim) + mRim;
}

template <class Coverage>
void Picture::paint(const Color &color, Coverage getCoverage) {
    for (unsigned int y = 0; y < mCellHeight; ++y) {
        for (unsigned int x = 0; x < mCellWidth; ++x)
            blend(std::size_t{mTop + y} * mWidth + mLeft + x, color, getCoverage(x + 0.5, y + 0.5));
    }
}

void Picture::blend(std::size_t pixel, const Color &color, double coverage) {
    const double over = color.alpha * coverage;
    if (over <= 0)
        return;
    Color &under = mPixels[pixel];
    const double kept = under.alpha * (1 - over);
    const double alpha = over + kept;
    under = {(color.red * over + under.red * kept) / alpha, (color.green * over + under.green * kept) / alpha,
             (color.blue * over + under.blue * kept) / alpha, alpha};
}

void Picture::fillBox(const Box &box, double radius, const Color &color) {
    paint(color, [&](double x, double y) { return toCoverage(getDistance(box, radius, x, y)); });
}

void Picture::strokeBox(const Box &box, double radius, double width, const Color &color) {
    const Box hole = box.inset(width);
    const double holeRadius = std::max(radius - width, 0.0);
    paint(color, [&](double x, double y) {
        return std::max(toCoverage(getDistance(box, radius, x, y)) - toCoverage(getDistance(hole, holeRadius, x, y)),
                        0.0);
    });
}

void Picture::shadeBox(const Box &box, double radius, double blur, const Color &color) {
    paint(color, [&](double x, double y) {
        const double near = std::clamp(1 - getDistance(box, radius, x, y) / blur, 0.0, 1.0);
        return near * near * near;
    });
}

void Picture::fillDisc(const Point &center, double radius, const Color &color) {
    fillBox({center.x - radius, center.y - radius, center.x + radius, center.y + radius}, radius, color);
}

void Picture::strokeDisc(const Point &center, double radius, double width, const Color &color) {
    strokeBox({center.x - radius, center.y - radius, center.x + radius, center.y + radius}, radius, width, color);
}

void Picture::strokePath(std::span<const Point> points, double width, const Color &color) {
    paint(color, [&](double x, double y) {
        double distance = mCellWidth + mCellHeight;
        for (std::size_t i = 0; i + 1 < points.size(); ++i)
            distance = std::min(distance, getSegmentDistance(points[i], points[i + 1], x, y));
        return toCoverage(distance - width * 0.5);
    });
}

void Picture::fillGradient(const Box &box, const Color &top, const Color &bottom) {
    for (unsigned int y = 0; y < mCellHeight; ++y) {
        const double part = std::clamp((y + 0.5 - box.top) / (box.bottom - box.top), 0.0, 1.0);
        const Color color = {top.red + (bottom.red - top.red) * part, top.green + (bottom.green - top.green) * part,
                             top.blue + (bottom.blue - top.blue) * part, top.alpha + (bottom.alpha - top.alpha) * part};
        for (unsigned int x = 0; x < mCellWidth; ++x)
            blend(std::size_t{mTop + y} * mWidth + mLeft + x, color, toCoverage(getDistance(box, 0, x + 0.5, y + 0.5)));
    }
}

std::vector<std::uint8_t> Picture::getBytes() const {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(mPixels.size() * 4);
    for (const Color &pixel : mPixels) {
        for (const double channel : {pixel.red, pixel.green, pixel.blue, pixel.alpha})
            bytes.push_back(toByte(channel));
    }
    return bytes;
}

} // namespace drawing
