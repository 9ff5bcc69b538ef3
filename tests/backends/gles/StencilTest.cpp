#include "GlFixture.h"

#include <cmath>

using namespace nurel;
using namespace test;
using renderer::StencilFunction;
using renderer::StencilOperation;

namespace {

class StencilTest : public GlFixture {
protected:
    /// Sets the stencil buffer to a value in a rectangle without drawing.
    void mark(float x, float y, float width, float height, std::uint8_t value) {
        setStencil(StencilFunction::ALWAYS, value, StencilOperation::REPLACE);
        canvas.state.colorMask = 0;
        canvas.addRectangle(x, y, width, height, WHITE);
        canvas.state.colorMask = 3;
    }

    /// Draws where the stencil buffer has the value.
    void show(std::uint8_t value, Color color) {
        setStencil(StencilFunction::EQUAL, value, StencilOperation::KEEP);
        canvas.addRectangle(0, 0, SIZE, SIZE, color);
    }

    void setStencil(StencilFunction function, std::uint8_t reference, StencilOperation pass) {
        canvas.state.stencilTest = true;
        canvas.state.stencilFunction = function;
        canvas.state.stencilReference = reference;
        canvas.state.opFail = canvas.state.opDepthFail = StencilOperation::KEEP;
        canvas.state.opPass = pass;
    }
};

/// A rectangle around its middle, turned.
std::array<Point, 4> turn(float x, float y, float width, float height, float radians) {
    const float c = std::cos(radians), s = std::sin(radians);
    std::array<Point, 4> corners = {{{-0.5f, -0.5f}, {0.5f, -0.5f}, {0.5f, 0.5f}, {-0.5f, 0.5f}}};
    for (Point &corner : corners) {
        const float dx = corner.x * width, dy = corner.y * height;
        corner = {x + dx * c - dy * s, y + dx * s + dy * c};
    }
    return corners;
}

/// How far a point lies inside the corners, negative outside.
float getDepth(const std::array<Point, 4> &corners, float x, float y) {
    float depth = 1000;
    for (std::size_t i = 0; i < 4; ++i) {
        const Point a = corners[i], b = corners[(i + 1) % 4];
        const float length = std::hypot(b.x - a.x, b.y - a.y);
        depth = std::min(depth, ((b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x)) / length);
    }
    return depth;
}

} // namespace

TEST_F(StencilTest, PassesByItsFunction) {
    const struct {
        StencilFunction function;
        bool passes[3]; // with the reference 1, 2 and 3, where the buffer has 2
        const char *name;
    } rows[] = {
        {StencilFunction::NEVER, {false, false, false}, "never"},
        {StencilFunction::LESS, {true, false, false}, "less"},
        {StencilFunction::EQUAL, {false, true, false}, "equal"},
        {StencilFunction::LESS_EQUAL, {true, true, false}, "less or equal"},
        {StencilFunction::GREATER, {false, false, true}, "greater"},
        {StencilFunction::NOT_EQUAL, {true, false, true}, "not equal"},
        {StencilFunction::GREATER_EQUAL, {false, true, true}, "greater or equal"},
        {StencilFunction::ALWAYS, {true, true, true}, "always"},
    };
    for (const auto &row : rows) {
        for (std::uint8_t reference = 1; reference <= 3; ++reference) {
            canvas.clear();
            mark(0, 0, SIZE, SIZE, 2);
            setStencil(row.function, reference, StencilOperation::KEEP);
            canvas.addRectangle(0, 0, SIZE, SIZE, RED);
            draw();
            EXPECT_EQ(getPixel(9, 9), row.passes[reference - 1] ? RED : BLACK)
                << row.name << " with " << int{reference};
        }
    }
}

TEST_F(StencilTest, ChangesTheBufferByItsOperation) {
    const struct {
        StencilOperation operation;
        std::uint8_t before, reference, after;
    } rows[] = {
        {StencilOperation::KEEP, 5, 9, 5},          {StencilOperation::ZERO, 5, 9, 0},
        {StencilOperation::REPLACE, 5, 9, 9},       {StencilOperation::INCREMENT, 5, 9, 6},
        {StencilOperation::INCREMENT, 255, 9, 255},
    };
    for (const auto &row : rows) {
        for (const bool passing : {true, false}) {
            canvas.clear();
            mark(0, 0, SIZE, SIZE, row.before);
            setStencil(passing ? StencilFunction::ALWAYS : StencilFunction::NEVER, row.reference,
                       passing ? row.operation : StencilOperation::KEEP);
            canvas.state.opFail = passing ? StencilOperation::KEEP : row.operation;
            canvas.addRectangle(0, 0, SIZE, SIZE, BLUE);
            show(row.after, GREEN);
            draw();
            EXPECT_EQ(getPixel(9, 9), GREEN)
                << int{row.before} << " to " << int{row.after} << (passing ? "" : " failing");
        }
    }
}

TEST_F(StencilTest, StartsEveryFrameWithZero) {
    mark(0, 0, SIZE, SIZE, 7);
    draw();
    canvas.clear();
    show(0, GREEN);
    drawOver();
    expectRectangle(0, 0, SIZE, SIZE, GREEN, GREEN);
}

TEST_F(StencilTest, NeitherTestsNorWritesWhenOff) {
    mark(0, 0, 16, SIZE, 1);
    canvas.state.stencilTest = false;
    canvas.state.stencilFunction = StencilFunction::NEVER;
    canvas.state.opPass = StencilOperation::ZERO;
    canvas.addRectangle(0, 0, SIZE, SIZE, RED);
    show(1, GREEN);
    draw();
    expectRectangle(0, 0, 16, SIZE, GREEN, RED);
}

TEST_F(StencilTest, ClipsNestedRectangles) {
    const auto raise = [this](float x, float y, float width, float height, std::uint8_t level) {
        setStencil(StencilFunction::EQUAL, level, StencilOperation::INCREMENT);
        canvas.state.colorMask = 0;
        canvas.addRectangle(x, y, width, height, WHITE);
        canvas.state.colorMask = 3;
    };
    const auto lower = [this](float x, float y, float width, float height, std::uint8_t level) {
        setStencil(StencilFunction::LESS_EQUAL, level, StencilOperation::REPLACE);
        canvas.state.colorMask = 0;
        canvas.addRectangle(x, y, width, height, WHITE);
        canvas.state.colorMask = 3;
    };
    mark(0, 0, SIZE, SIZE, 1);
    raise(2, 2, 20, 20, 1);
    show(2, RED);
    raise(10, 10, 20, 20, 2); // sticks out of the outer one
    show(3, GREEN);
    lower(10, 10, 20, 20, 2);
    setStencil(StencilFunction::EQUAL, 2, StencilOperation::KEEP);
    canvas.addRectangle(18, 0, 14, 32, BLUE); // a sibling sees the outer level as it was
    lower(2, 2, 20, 20, 1);
    setStencil(StencilFunction::EQUAL, 1, StencilOperation::KEEP);
    canvas.addRectangle(0, 20, 32, 1, WHITE);
    draw();
    for (unsigned int y = 0; y < SIZE; ++y) {
        for (unsigned int x = 0; x < SIZE; ++x) {
            const bool outer = x >= 2 && x < 22 && y >= 2 && y < 22;
            const bool inner = outer && x >= 10 && y >= 10;
            Color expected = inner ? GREEN : outer ? RED : BLACK;
            if (outer && x >= 18)
                expected = BLUE;
            if (y == 20)
                expected = WHITE;
            ASSERT_EQ(getPixel(x, y), expected) << x << ", " << y;
        }
    }
}

TEST_F(StencilTest, ClipsNestedTurnedRectangles) {
    const std::array<Point, 4> outer = turn(15, 16, 22, 14, 0.4f), inner = turn(19, 17, 16, 16, -0.7f);
    mark(0, 0, SIZE, SIZE, 1);
    canvas.state.colorMask = 0;
    setStencil(StencilFunction::EQUAL, 1, StencilOperation::INCREMENT);
    canvas.addQuad(outer, WHITE);
    setStencil(StencilFunction::EQUAL, 2, StencilOperation::INCREMENT);
    canvas.addQuad(inner, WHITE);
    canvas.state.colorMask = 3;
    show(2, RED);
    show(3, GREEN);
    draw();
    unsigned int compared = 0;
    for (unsigned int y = 0; y < SIZE; ++y) {
        for (unsigned int x = 0; x < SIZE; ++x) {
            const float px = static_cast<float>(x) + 0.5f, py = static_cast<float>(y) + 0.5f;
            const float a = getDepth(outer, px, py), b = getDepth(inner, px, py);
            if (std::abs(a) < 0.02f || std::abs(b) < 0.02f)
                continue; // on an edge, as far as the rasteriser's precision goes
            ++compared;
            ASSERT_EQ(getPixel(x, y), a < 0 ? BLACK : b < 0 ? RED : GREEN) << x << ", " << y;
        }
    }
    EXPECT_GT(compared, 1000u);
}
