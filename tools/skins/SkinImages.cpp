#include "SkinImages.h"

#include "Icons.h"

#include <algorithm>
#include <array>

namespace drawing {

namespace {

/// Colours of one control in its states.
struct Faces {
    Color fill[4]; ///< normal, hover, pressed, disabled
    Color edge[4];
};

enum State : unsigned int { NORMAL, HOVER, PRESSED, OFF };
constexpr unsigned int STATES = 4;

constexpr double RADIUS = 6;

void drawFace(Picture &picture, const Box &box, double radius, const Color &fill, const Color &edge) {
    picture.fillBox(box, radius, edge);
    picture.fillBox(box.inset(1), radius - 1, fill);
}

/// Cells: a column a state; the rows are plain, with focus, checked, and checked with focus.
Picture drawButton(const Faces &plain, const Faces &checked, const Color &ring, bool ringInside) {
    constexpr unsigned int SIDE = 20;
    const Box box = {0, 0, SIDE, SIDE};
    Picture picture(SIDE, SIDE, STATES, 4);
    for (unsigned int row = 0; row < 4; ++row) {
        const Faces &faces = row < 2 ? plain : checked;
        for (unsigned int state = 0; state < STATES; ++state) {
            picture.selectCell(state, row);
            drawFace(picture, box, RADIUS, faces.fill[state], faces.edge[state]);
            if (row % 2 == 0 || state == OFF)
                continue;
            if (ringInside)
                picture.strokeBox(box.inset(2), RADIUS - 2, 2, ring);
            else
                picture.strokeBox(box, RADIUS, 2, ring);
        }
    }
    return picture;
}

Faces makeCheckedFaces(Theme theme) {
    const Color soft = getColor(theme, "accentSoft");
    const Color edge = getColor(theme, "accentInk");
    return {
        {soft, getColor(theme, "accentSoftHover"), getColor(theme, "accentSoftHover"), getColor(theme, "raisedOff")},
        {edge, edge, edge, getColor(theme, "edgeOff")}};
}

Picture drawPlainButton(Theme theme) {
    const Color edge = getColor(theme, "edge");
    const Faces plain = {
        {getColor(theme, "raised"), getColor(theme, "raisedHover"), getColor(theme, "raisedPressed"),
         getColor(theme, "raisedOff")},
        {edge, getColor(theme, "edgeHover"), getColor(theme, "edgeHover"), getColor(theme, "edgeOff")}};
    return drawButton(plain, makeCheckedFaces(theme), getColor(theme, "ring"), false);
}

/// A button that is filled with a colour: its ring stands inside, in the colour of its text.
Picture drawFilledButton(Theme theme, const char *normal, const char *hover, const char *pressed) {
    const Color off = getColor(theme, "raisedOff");
    const Faces faces = {
        {getColor(theme, normal), getColor(theme, hover), getColor(theme, pressed), off},
        {getColor(theme, normal), getColor(theme, hover), getColor(theme, pressed), getColor(theme, "edgeOff")}};
    return drawButton(faces, faces, getColor(theme, "onAccent"), true);
}

/// A button that shows no box until the cursor comes, for toolbars and lists of pages.
Picture drawQuietButton(Theme theme) {
    const Color none = getColor(theme, "card", 0);
    const Color hover = getColor(theme, "edge", 0.16);
    const Color pressed = getColor(theme, "edge", 0.30);
    const Color soft = getColor(theme, "accentSoft");
    const Color softHover = getColor(theme, "accentSoftHover");
    const Faces plain = {{none, hover, pressed, none}, {none, none, none, none}};
    const Faces checked = {{soft, softHover, softHover, getColor(theme, "raisedOff")},
                           {soft, softHover, softHover, getColor(theme, "raisedOff")}};
    return drawButton(plain, checked, getColor(theme, "ring"), false);
}

/// A row of a list, with the cells of a button. The row that the keys are at has a ring; where it is the selected one,
/// whose face says enough, only an edge.
Picture drawRow(Theme theme) {
    constexpr unsigned int SIDE = 20;
    constexpr double ROW_RADIUS = 4;
    const Box box = {0, 0, SIDE, SIDE};
    const Color plain[STATES] = {getColor(theme, "card", 0), getColor(theme, "edge", 0.16),
                                 getColor(theme, "edge", 0.30), getColor(theme, "card", 0)};
    const Color checked[STATES] = {getColor(theme, "accentSoft"), getColor(theme, "accentSoftHover"),
                                   getColor(theme, "accentSoftHover"), getColor(theme, "edgeOff", 0.5)};
    Picture picture(SIDE, SIDE, STATES, 4);
    for (unsigned int row = 0; row < 4; ++row) {
        const bool isChecked = row >= 2;
        for (unsigned int state = 0; state < STATES; ++state) {
            picture.selectCell(state, row);
            picture.fillBox(box, ROW_RADIUS, isChecked ? checked[state] : plain[state]);
            if (row % 2 == 1 && state != OFF)
                picture.strokeBox(box, ROW_RADIUS, isChecked ? 1 : 2, getColor(theme, "ring"));
        }
    }
    return picture;
}

/// Cells: normal, hover, focus, disabled.
Picture drawField(Theme theme) {
    constexpr unsigned int SIDE = 20;
    const Box box = {0, 0, SIDE, SIDE};
    Picture picture(SIDE, SIDE, 4, 1);
    const Color fill = getColor(theme, "field");
    drawFace(picture, box, RADIUS, fill, getColor(theme, "edge"));
    picture.selectCell(1, 0);
    drawFace(picture, box, RADIUS, fill, getColor(theme, "edgeHover"));
    picture.selectCell(2, 0);
    drawFace(picture, box, RADIUS, fill, fill);
    picture.strokeBox(box, RADIUS, 2, getColor(theme, "ring"));
    picture.selectCell(3, 0);
    drawFace(picture, box, RADIUS, getColor(theme, "raisedOff"), getColor(theme, "edgeOff"));
    return picture;
}

Color getMarkFill(Theme theme, unsigned int state, bool checked) {
    constexpr const char *FILLS[2][STATES] = {{"field", "raisedHover", "raisedPressed", "raisedOff"},
                                              {"accent", "accentHover", "accentPressed", "edgeOff"}};
    return getColor(theme, FILLS[checked ? 1 : 0][state]);
}

Color getMarkEdge(Theme theme, unsigned int state, bool checked) {
    constexpr const char *EDGES[STATES] = {"edge", "edgeHover", "edgeHover", "edgeOff"};
    return checked ? getMarkFill(theme, state, true) : getColor(theme, EDGES[state]);
}

Color getMarkInk(Theme theme, unsigned int state) {
    return getColor(theme, state == OFF ? "faint" : "onAccent");
}

/// Cells of check, radio and switch: a column a state; the second row is checked.
Picture drawCheck(Theme theme) {
    constexpr unsigned int SIDE = 20;
    constexpr Point TICK[] = {{5.2, 10.4}, {8.6, 13.8}, {14.9, 6.6}};
    Picture picture(SIDE, SIDE, STATES, 2);
    for (unsigned int state = 0; state < STATES; ++state) {
        for (const bool checked : {false, true}) {
            picture.selectCell(state, checked ? 1 : 0);
            drawFace(picture, {1, 1, SIDE - 1, SIDE - 1}, 5, getMarkFill(theme, state, checked),
                     getMarkEdge(theme, state, checked));
        }
        picture.strokePath(TICK, 2.2, getMarkInk(theme, state));
    }
    return picture;
}

Picture drawRadio(Theme theme) {
    constexpr unsigned int SIDE = 20;
    constexpr Point CENTER = {SIDE * 0.5, SIDE * 0.5};
    Picture picture(SIDE, SIDE, STATES, 2);
    for (unsigned int state = 0; state < STATES; ++state) {
        for (const bool checked : {false, true}) {
            picture.selectCell(state, checked ? 1 : 0);
            picture.fillDisc(CENTER, 9, getMarkEdge(theme, state, checked));
            picture.fillDisc(CENTER, 8, getMarkFill(theme, state, checked));
        }
        picture.fillDisc(CENTER, 3.5, getMarkInk(theme, state));
    }
    return picture;
}

Picture drawSwitch(Theme theme) {
    constexpr unsigned int WIDTH = 36;
    constexpr unsigned int HEIGHT = 20;
    Picture picture(WIDTH, HEIGHT, STATES, 2);
    for (unsigned int state = 0; state < STATES; ++state) {
        for (const bool checked : {false, true}) {
            picture.selectCell(state, checked ? 1 : 0);
            drawFace(picture, {0, 0, WIDTH, HEIGHT}, HEIGHT * 0.5, getMarkFill(theme, state, checked),
                     getMarkEdge(theme, state, checked));
            const Color knob = checked ? getMarkInk(theme, state) : getMarkEdge(theme, state, false);
            picture.fillDisc({checked ? WIDTH - 10.0 : 10.0, 10}, 6, knob);
        }
    }
    return picture;
}

/// One cell: the ring that a control without a box of its own gets with the focus.
Picture drawRing(Theme theme) {
    Picture picture(20, 20);
    picture.strokeBox({0, 0, 20, 20}, RADIUS, 2, getColor(theme, "ring"));
    return picture;
}

/// Cells: a card with a shade below it, a well that is let into its ground, a card that asks for attention, and a bar.
Picture drawCard(Theme theme) {
    constexpr double SIDE = 28;
    constexpr double CARD_RADIUS = 8;
    const double shade = theme == Theme::LIGHT ? 0.10 : 0.45;
    const Color line = getColor(theme, "line");
    const Box box = {0, 0, SIDE, SIDE - 2};
    Picture picture(28, 28, 4, 1);
    picture.shadeBox(box.moved(0, 1).inset(1), CARD_RADIUS, 3, makeColor(0x0b1220, shade));
    drawFace(picture, box, CARD_RADIUS, getColor(theme, "card"), line);
    picture.selectCell(1, 0);
    drawFace(picture, {0, 0, SIDE, SIDE}, CARD_RADIUS, getColor(theme, "well"), line);
    picture.selectCell(2, 0);
    drawFace(picture, {0, 0, SIDE, SIDE}, CARD_RADIUS, getColor(theme, "accentSoft"), getColor(theme, "accentInk"));
    picture.selectCell(3, 0);
    drawFace(picture, {0, 0, SIDE, SIDE}, CARD_RADIUS, getColor(theme, "card"), line);
    return picture;
}

/// One cell: a panel that floats above the others; 16 pixels on each side are its shade.
Picture drawDialog(Theme theme) {
    constexpr double SIDE = 56;
    const Box box = {16, 16, SIDE - 16, SIDE - 16};
    const double shade = theme == Theme::LIGHT ? 0.30 : 0.65;
    Picture picture(56, 56);
    picture.shadeBox(box.moved(0, 3).inset(2), 10, 15, makeColor(0x0b1220, shade));
    drawFace(picture, box, 10, getColor(theme, theme == Theme::LIGHT ? "card" : "raised"), getColor(theme, "line"));
    return picture;
}

/// The colour in columns from one x to another, ever denser: what is below fades out.
void fadeIn(Picture &picture, double from, double to, double height, const Color &color) {
    const double step = to > from ? 1 : -1;
    for (double x = from; x != to; x += step) {
        const Color part = {color.red, color.green, color.blue, (x + step * 0.5 - from) / (to - from)};
        picture.fillBox({std::min(x, x + step), 0, std::max(x, x + step), height}, 0, part);
    }
}

/// The two buttons of a selector, a row each, on the selector's ground, into which a text that is too long fades.
/// Cells: normal, hover, pressed, disabled.
Picture drawStep(Theme theme) {
    constexpr unsigned int WIDTH = 40;
    constexpr unsigned int HEIGHT = 28;
    constexpr double FADE = 8;
    constexpr double SIDE = WIDTH - FADE;
    constexpr Point LEFT[] = {{18, 8.5}, {12.5, 14}, {18, 19.5}};
    constexpr Point RIGHT[] = {{22, 8.5}, {27.5, 14}, {22, 19.5}};
    constexpr double DARKNESS[] = {0, 0.16, 0.30, 0};
    Picture picture(WIDTH, HEIGHT, STATES, 2);
    for (unsigned int state = 0; state < STATES; ++state) {
        const Color ground = getColor(theme, state == OFF ? "raisedOff" : "field");
        for (const bool isRight : {false, true}) {
            const double left = isRight ? FADE : 0;
            picture.selectCell(state, isRight ? 1 : 0);
            picture.fillBox({left, 0, left + SIDE, HEIGHT}, 0, ground);
            fadeIn(picture, isRight ? 0 : WIDTH, isRight ? left : SIDE, HEIGHT, ground);
            picture.fillBox({left + 2, 0, left + SIDE - 2, HEIGHT}, 4, getColor(theme, "edge", DARKNESS[state]));
            picture.strokePath(isRight ? RIGHT : LEFT, 2, getColor(theme, state == OFF ? "faint" : "ink"));
        }
    }
    return picture;
}

/// What says that a combo opens, on the combo's ground. Cells: normal, hover, pressed, disabled.
Picture drawArrow(Theme theme) {
    constexpr unsigned int WIDTH = 32;
    constexpr unsigned int HEIGHT = 28;
    constexpr double FADE = 10;
    constexpr Point DOWN[] = {{16, 11.5}, {22, 17.5}, {28, 11.5}};
    constexpr const char *GROUNDS[STATES] = {"raised", "raisedHover", "raisedPressed", "raisedOff"};
    Picture picture(WIDTH, HEIGHT, STATES, 1);
    for (unsigned int state = 0; state < STATES; ++state) {
        const Color ground = getColor(theme, GROUNDS[state]);
        picture.selectCell(state, 0);
        picture.fillBox({FADE, 0, WIDTH, HEIGHT}, 0, ground);
        fadeIn(picture, 0, FADE, HEIGHT, ground);
        picture.strokePath(DOWN, 2, getColor(theme, state == OFF ? "faint" : "ink"));
    }
    return picture;
}

/// Cells: normal, hover, pressed; the first row is a vertical bar, the second a horizontal one. It keeps to the outer
/// edge of its cell, so that it hides little of what lies below.
Picture drawScrollBar(Theme theme) {
    constexpr const char *COLORS[] = {"edge", "edgeHover", "edgeHover"};
    Picture picture(12, 12, 3, 2);
    for (unsigned int state = 0; state < 3; ++state) {
        const Color color = getColor(theme, COLORS[state]);
        const double width = state == NORMAL ? 4 : 6;
        picture.selectCell(state, 0);
        picture.fillBox({11 - width, 2, 11, 10}, width * 0.5, color);
        picture.selectCell(state, 1);
        picture.fillBox({2, 11 - width, 10, 11}, width * 0.5, color);
    }
    return picture;
}

/// Cells: normal, hover, pressed, disabled.
Picture drawThumb(Theme theme) {
    constexpr Point CENTER = {10, 10};
    Picture picture(20, 20, STATES, 1);
    for (unsigned int state = 0; state < STATES; ++state) {
        picture.selectCell(state, 0);
        picture.fillDisc(CENTER, 9, getMarkFill(theme, state, true));
        picture.fillDisc(CENTER, state == PRESSED ? 3.0 : 4.0, getMarkInk(theme, state));
    }
    return picture;
}

/// Cells, a row each for slider and progress bar: the track, the same under the cursor, with focus and disabled; the
/// trough, its bar, and both disabled.
Picture drawTrack(Theme theme) {
    constexpr double SIDE = 20;
    constexpr Box TRACK = {4, 7, SIDE - 4, 13}; // the ring goes around it, and the thumb hardly beyond it
    constexpr Box TROUGH = {0, 2, SIDE, 18};
    const Color edge = getColor(theme, "edge");
    const Color well = getColor(theme, "well");
    const Color off = getColor(theme, "edgeOff");
    const Color wellOff = getColor(theme, "raisedOff");
    Picture picture(20, 20, STATES, 2);
    drawFace(picture, TRACK, 3, well, edge);
    picture.selectCell(1, 0);
    drawFace(picture, TRACK, 3, well, getColor(theme, "edgeHover"));
    picture.selectCell(2, 0);
    drawFace(picture, TRACK, 3, well, edge);
    picture.strokeBox({0, 0, SIDE, SIDE}, RADIUS, 2, getColor(theme, "ring"));
    picture.selectCell(3, 0);
    drawFace(picture, TRACK, 3, wellOff, off);
    picture.selectCell(0, 1);
    drawFace(picture, TROUGH, 6, well, edge);
    picture.selectCell(1, 1);
    drawFace(picture, TROUGH, 6, getColor(theme, "bar"), getColor(theme, "accentInk"));
    picture.selectCell(2, 1);
    drawFace(picture, TROUGH, 6, wellOff, off);
    picture.selectCell(3, 1);
    picture.fillBox(TROUGH, 6, off);
    return picture;
}

/// A picture to show as an image: hills under a low sun.
Picture drawLandscape() {
    Picture picture = Picture::makePlain(160, 100);
    picture.fillGradient({0, 0, 160, 100}, makeColor(0x27407f), makeColor(0xf7b267));
    picture.fillDisc({112, 56}, 17, makeColor(0xffe8b0));
    constexpr std::array<Point, 5> RANGES[] = {{{{-20, 104}, {26, 72}, {64, 92}, {118, 66}, {190, 108}}},
                                               {{{-20, 92}, {40, 108}, {92, 86}, {132, 98}, {190, 78}}},
                                               {{{-20, 118}, {30, 100}, {80, 116}, {124, 102}, {190, 116}}}};
    constexpr std::uint32_t COLORS[] = {0x6a5a8c, 0x41406f, 0x20274d};
    for (std::size_t i = 0; i < std::size(RANGES); ++i)
        picture.strokePath(RANGES[i], 26, makeColor(COLORS[i]));
    return picture;
}

/// A frame whose nine slices can be told apart.
Picture drawSlices() {
    constexpr double SIDE = 48;
    Picture picture(48, 48);
    const Color corner = makeColor(0xe07a5f);
    picture.fillBox({0, 0, SIDE, SIDE}, 12, makeColor(0x3d405b));
    for (const double x : {0.0, SIDE - 16})
        for (const double y : {0.0, SIDE - 16})
            picture.fillBox({x + 3, y + 3, x + 13, y + 13}, 5, corner);
    picture.fillBox({16, 5, 32, 11}, 0, makeColor(0x81b29a));
    picture.fillBox({16, 37, 32, 43}, 0, makeColor(0x81b29a));
    picture.fillBox({5, 16, 11, 32}, 0, makeColor(0xf2cc8f));
    picture.fillBox({37, 16, 43, 32}, 0, makeColor(0xf2cc8f));
    picture.fillBox({16, 16, 32, 32}, 0, makeColor(0xf4f1de));
    return picture;
}

/// Cells: a lamp that is dark, red, amber and green.
Picture drawSignals() {
    constexpr std::uint32_t COLORS[] = {0x5a6270, 0xe5484d, 0xf5a524, 0x30a46c};
    constexpr Point CENTER = {16, 16};
    Picture picture(32, 32, static_cast<unsigned int>(std::size(COLORS)), 1);
    for (unsigned int i = 0; i < std::size(COLORS); ++i) {
        picture.selectCell(i, 0);
        picture.fillDisc(CENTER, 15, makeColor(0x23272f));
        picture.fillDisc(CENTER, 11, makeColor(COLORS[i]));
        picture.fillDisc({12.5, 12}, 3, makeColor(0xffffff, i == 0 ? 0.2 : 0.55));
    }
    return picture;
}

/// A white box with round corners, to be tinted.
Picture drawRound() {
    Picture picture(20, 20);
    picture.fillBox({0, 0, 20, 20}, RADIUS, makeColor(0xffffff));
    return picture;
}

void addTheme(std::vector<SkinImage> &images, Theme theme) {
    const std::string folder = theme == Theme::LIGHT ? "style/light/" : "style/dark/";
    images.push_back({folder + "button.png", drawPlainButton(theme)});
    images.push_back({folder + "primary.png", drawFilledButton(theme, "accent", "accentHover", "accentPressed")});
    images.push_back({folder + "danger.png", drawFilledButton(theme, "danger", "dangerHover", "dangerPressed")});
    images.push_back({folder + "quiet.png", drawQuietButton(theme)});
    images.push_back({folder + "row.png", drawRow(theme)});
    images.push_back({folder + "field.png", drawField(theme)});
    images.push_back({folder + "step.png", drawStep(theme)});
    images.push_back({folder + "arrow.png", drawArrow(theme)});
    images.push_back({folder + "check.png", drawCheck(theme)});
    images.push_back({folder + "radio.png", drawRadio(theme)});
    images.push_back({folder + "switch.png", drawSwitch(theme)});
    images.push_back({folder + "ring.png", drawRing(theme)});
    images.push_back({folder + "card.png", drawCard(theme)});
    images.push_back({folder + "dialog.png", drawDialog(theme)});
    images.push_back({folder + "scroll.png", drawScrollBar(theme)});
    images.push_back({folder + "thumb.png", drawThumb(theme)});
    images.push_back({folder + "track.png", drawTrack(theme)});
}

} // namespace

std::vector<SkinImage> drawImages() {
    std::vector<SkinImage> images;
    addTheme(images, Theme::LIGHT);
    addTheme(images, Theme::DARK);
    images.push_back({"style/shared/icons.png", drawIcons()});
    images.push_back({"style/shared/round.png", drawRound()});
    images.push_back({"gallery/landscape.png", drawLandscape()});
    images.push_back({"gallery/slices.png", drawSlices()});
    images.push_back({"gallery/signals.png", drawSignals()});
    return images;
}

} // namespace drawing
