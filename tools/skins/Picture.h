#pragma once

#include "Palette.h"

#include <cstdint>
#include <span>
#include <vector>

namespace drawing {

struct Point {
    double x = 0;
    double y = 0;
};

/// Edges in pixels from the top left.
struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    Box inset(double by) const { return {left + by, top + by, right - by, bottom - by}; }
    Box moved(double x, double y) const { return {left + x, top + y, right + x, bottom + y}; }
};

/// A picture of equal cells, row by row, with one transparent pixel around each, so that the filtering of a scaled
/// control never reaches its neighbour. In a style sheet its cells are chosen by
/// `-n-background: CELL COLUMNS ROWS 1px 1px WIDTHpx HEIGHTpx 2px`.
///
/// Everything is drawn with smooth edges over what is there, in the coordinates of one cell and never outside it.
class Picture {
public:
    Picture(unsigned int cellWidth, unsigned int cellHeight, unsigned int columns = 1, unsigned int rows = 1);

    /// A picture without the rim: one cell that is all of it.
    static Picture makePlain(unsigned int width, unsigned int height);

    /// What is drawn from now on goes into this cell.
    void selectCell(unsigned int column, unsigned int row);

    void fillBox(const Box &box, double radius, const Color &color);
    /// A line of this width along the inside of the box's edge.
    void strokeBox(const Box &box, double radius, double width, const Color &color);
    /// Darkness around a box that fades to nothing at the distance of `blur`.
    void shadeBox(const Box &box, double radius, double blur, const Color &color);
    void fillDisc(const Point &center, double radius, const Color &color);
    void strokeDisc(const Point &center, double radius, double width, const Color &color);
    /// A line through the points with round ends and corners.
    void strokePath(std::span<const Point> points, double width, const Color &color);
    /// From one colour at the top of the box to another at its bottom.
    void fillGradient(const Box &box, const Color &top, const Color &bottom);

    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }

    /// Rows from the top, four bytes a pixel, straight alpha.
    std::vector<std::uint8_t> getBytes() const;

private:
    Picture(unsigned int cellWidth, unsigned int cellHeight, unsigned int columns, unsigned int rows, unsigned int rim);

    /// Calls `getCoverage(x, y)` for the middle of every pixel of the cell and blends the colour by the result.
    template <class Coverage>
    void paint(const Color &color, Coverage getCoverage);
    void blend(std::size_t pixel, const Color &color, double coverage);

    unsigned int mCellWidth;
    unsigned int mCellHeight;
    unsigned int mRim;
    unsigned int mWidth;
    unsigned int mHeight;
    unsigned int mLeft;
    unsigned int mTop;
    std::vector<Color> mPixels;
};

} // namespace drawing
