#include "Icons.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace drawing {

namespace {

constexpr unsigned int SIDE = 20;
constexpr unsigned int COLUMNS = 8;
constexpr double STROKE = 2;
constexpr Point CENTER = {10, 10};
constexpr Color WHITE = {1, 1, 1, 1};

void drawLine(Picture &picture, std::initializer_list<Point> points, double width = STROKE) {
    picture.strokePath({points.begin(), points.size()}, width, WHITE);
}

Point getPointAround(double turn, double radius) {
    const double angle = turn * 2 * std::numbers::pi;
    return {CENTER.x + std::sin(angle) * radius, CENTER.y - std::cos(angle) * radius};
}

void drawRays(Picture &picture, unsigned int count, double from, double to, double width) {
    for (unsigned int i = 0; i < count; ++i) {
        const double turn = static_cast<double>(i) / count;
        drawLine(picture, {getPointAround(turn, from), getPointAround(turn, to)}, width);
    }
}

void drawPlus(Picture &picture) {
    drawLine(picture, {{10, 4}, {10, 16}});
    drawLine(picture, {{4, 10}, {16, 10}});
}

void drawMinus(Picture &picture) {
    drawLine(picture, {{4, 10}, {16, 10}});
}

void drawCheckMark(Picture &picture) {
    drawLine(picture, {{4, 10.5}, {8, 14.5}, {16, 5.5}});
}

void drawCross(Picture &picture) {
    drawLine(picture, {{5, 5}, {15, 15}});
    drawLine(picture, {{15, 5}, {5, 15}});
}

void drawLeft(Picture &picture) {
    drawLine(picture, {{12.5, 4}, {6.5, 10}, {12.5, 16}});
}

void drawRight(Picture &picture) {
    drawLine(picture, {{7.5, 4}, {13.5, 10}, {7.5, 16}});
}

void drawUp(Picture &picture) {
    drawLine(picture, {{4, 12.5}, {10, 6.5}, {16, 12.5}});
}

void drawDown(Picture &picture) {
    drawLine(picture, {{4, 7.5}, {10, 13.5}, {16, 7.5}});
}

void drawMenu(Picture &picture) {
    for (const double y : {5.0, 10.0, 15.0})
        drawLine(picture, {{4, y}, {16, y}});
}

void drawSearch(Picture &picture) {
    picture.strokeDisc({8.5, 8.5}, 6, STROKE, WHITE);
    drawLine(picture, {{13, 13}, {16.5, 16.5}}, 2.4);
}

void drawGear(Picture &picture) {
    drawRays(picture, 8, 6, 7.6, 2.6);
    picture.strokeDisc(CENTER, 6.6, 3.4, WHITE);
}

void drawStar(Picture &picture) {
    std::array<Point, 11> points;
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = getPointAround(static_cast<double>(i) / 10, i % 2 == 0 ? 7.6 : 3.4);
    picture.strokePath(points, 1.6, WHITE);
}

void drawSun(Picture &picture) {
    picture.fillDisc(CENTER, 4, WHITE);
    drawRays(picture, 8, 6.6, 8, 1.8);
}

/// Points along a circle from one turn to another.
std::array<Point, 17> makeArc(const Point &center, double radius, double from, double to) {
    std::array<Point, 17> points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double turn = from + (to - from) * static_cast<double>(i) / 16;
        const Point around = getPointAround(turn, radius);
        points[i] = {around.x - CENTER.x + center.x, around.y - CENTER.y + center.y};
    }
    return points;
}

void drawMoon(Picture &picture) {
    const auto back = makeArc({10, 10}, 6.6, 0.06, -0.69);
    const auto front = makeArc({14.2, 6.2}, 5.6, 0.44, 0.81);
    picture.strokePath(back, 1.9, WHITE);
    picture.strokePath(front, 1.9, WHITE);
}

void drawInformation(Picture &picture) {
    picture.strokeDisc(CENTER, 8, 1.8, WHITE);
    drawLine(picture, {{10, 9.5}, {10, 13.8}});
    picture.fillDisc({10, 6.3}, 1.25, WHITE);
}

void drawWarning(Picture &picture) {
    drawLine(picture, {{10, 3}, {17.5, 16.2}, {2.5, 16.2}, {10, 3}}, 1.8);
    drawLine(picture, {{10, 8}, {10, 11.4}});
    picture.fillDisc({10, 14}, 1.2, WHITE);
}

void drawQuestion(Picture &picture) {
    picture.strokeDisc(CENTER, 8, 1.8, WHITE);
    const auto bow = makeArc({10, 7.9}, 2.4, -0.27, 0.36);
    picture.strokePath(bow, 1.8, WHITE);
    drawLine(picture, {bow.back(), {10, 10.4}, {10, 11.2}}, 1.8);
    picture.fillDisc({10, 14}, 1.2, WHITE);
}

void drawError(Picture &picture) {
    picture.strokeDisc(CENTER, 8, 1.8, WHITE);
    drawLine(picture, {{7.2, 7.2}, {12.8, 12.8}});
    drawLine(picture, {{12.8, 7.2}, {7.2, 12.8}});
}

void drawPerson(Picture &picture) {
    picture.strokeDisc({10, 6.6}, 3.8, 1.8, WHITE);
    const auto shoulders = makeArc({10, 17.6}, 6.2, -0.25, 0.25);
    picture.strokePath(shoulders, 1.8, WHITE);
    drawLine(picture, {shoulders.front(), shoulders.back()}, 1.8);
}

void drawLock(Picture &picture) {
    picture.fillBox({4, 9, 16, 18}, 2.4, WHITE);
    const auto shackle = makeArc({10, 6.8}, 3.6, -0.25, 0.25);
    drawLine(picture, {{6.4, 9.5}, shackle.front()}, 1.8);
    picture.strokePath(shackle, 1.8, WHITE);
    drawLine(picture, {shackle.back(), {13.6, 9.5}}, 1.8);
}

void drawEye(Picture &picture) {
    picture.strokePath(makeArc({10, 14.6}, 9, -0.17, 0.17), 1.8, WHITE);
    picture.strokePath(makeArc({10, 5.4}, 9, 0.33, 0.67), 1.8, WHITE);
    picture.fillDisc(CENTER, 2.7, WHITE);
}

void drawBackspace(Picture &picture) {
    drawLine(picture, {{7, 4.5}, {18, 4.5}, {18, 15.5}, {7, 15.5}, {1.8, 10}, {7, 4.5}}, 1.8);
    drawLine(picture, {{9.4, 7.6}, {14.2, 12.4}}, 1.8);
    drawLine(picture, {{14.2, 7.6}, {9.4, 12.4}}, 1.8);
}

void drawShift(Picture &picture) {
    drawLine(picture, {{10, 2.8}, {17.2, 10}, {13.4, 10}, {13.4, 16.8}, {6.6, 16.8}, {6.6, 10}, {2.8, 10}, {10, 2.8}},
             1.8);
}

void drawReturn(Picture &picture) {
    drawLine(picture, {{16.5, 4}, {16.5, 11.5}, {3.5, 11.5}});
    drawLine(picture, {{7.5, 7.5}, {3.5, 11.5}, {7.5, 15.5}});
}

using Draw = void (*)(Picture &);
constexpr Draw ICONS[] = {drawPlus,   drawMinus, drawCheckMark,   drawCross,     drawLeft,     drawRight,
                          drawUp,     drawDown,  drawMenu,        drawSearch,    drawGear,     drawStar,
                          drawSun,    drawMoon,  drawInformation, drawWarning,   drawQuestion, drawError,
                          drawPerson, drawLock,  drawEye,         drawBackspace, drawShift,    drawReturn};
static_assert(std::size(ICONS) % COLUMNS == 0);

} // namespace

Picture drawIcons() {
    Picture picture(SIDE, SIDE, COLUMNS, static_cast<unsigned int>(std::size(ICONS)) / COLUMNS);
    for (unsigned int i = 0; i < std::size(ICONS); ++i) {
        picture.selectCell(i % COLUMNS, i / COLUMNS);
        ICONS[i](picture);
    }
    return picture;
}

} // namespace drawing
