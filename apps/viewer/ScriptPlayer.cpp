#include "ScriptPlayer.h"

#include "ComponentFinder.h"
#include "Expectation.h"
#include "Run.h"
#include "ScriptDialogs.h"

#include "ninput/input/InputSystem.h"
#include "ninput/input/Keyboard.h"
#include "nmain/json/JSObject.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace viewer {

using nurel::input::InputSystem;
using nurel::input::Mouse;
using nurel::json::JSObject;
using nurel::math::Vector2;
using nurel::ui::UIManager;

namespace {

constexpr unsigned int DEFAULT_DRAG_STEPS = 10;
constexpr unsigned int MAXIMUM_FRAMES = 1000000;

/// What the steps of one play share.
struct Play {
    Run &run;
    const char *path;
    unsigned int step;
    int wheel = 0;
    bool passed = true;

    void complain(const std::string &reason) {
        std::fprintf(stderr, "%s: step %u: %s\n", path, step, reason.c_str());
        passed = false;
    }
};

bool isNumber(const JSObject &json) {
    return json.getType() == JSObject::T_INT || json.getType() == JSObject::T_FLOAT;
}

bool isPair(const JSObject &json) {
    return json.getType() == JSObject::T_ARRAY && json.getLength() == 2 && isNumber(*json.get(0U)) &&
           isNumber(*json.get(1U));
}

bool isSize(const JSObject &json) {
    return isPair(json) && json.getInt(0U, 0) > 0 && json.getInt(1U, 0) > 0;
}

bool isTarget(const JSObject &json) {
    return isPair(json) || json.getType() == JSObject::T_STRING;
}

bool isTwoPoints(const JSObject &json) {
    return json.getType() == JSObject::T_ARRAY && json.getLength() == 2 && isPair(*json.get(0U)) &&
           isPair(*json.get(1U));
}

bool isInteger(const JSObject &json) {
    return json.getType() == JSObject::T_INT;
}

bool isCount(const JSObject &json) {
    return isInteger(json) && json.asInt(0) >= 0 && json.asInt(0) <= static_cast<int>(MAXIMUM_FRAMES);
}

bool isSeconds(const JSObject &json) {
    return isNumber(json) && json.asFloat(-1) >= 0 &&
           static_cast<double>(json.asFloat(0)) / Run::FRAME_SECONDS <= MAXIMUM_FRAMES;
}

bool isPositive(const JSObject &json) {
    return isNumber(json) && json.asFloat(0) > 0;
}

bool isText(const JSObject &json) {
    return json.getType() == JSObject::T_STRING;
}

bool isFlag(const JSObject &json) {
    return json.getType() == JSObject::T_BOOL;
}

bool isObject(const JSObject &json) {
    return json.getType() == JSObject::T_OBJECT;
}

Vector2 readPoint(const JSObject &json) {
    return {json.getFloat(0U, 0), json.getFloat(1U, 0)};
}

void moveTo(const Vector2 &point) {
    UIManager::getSingleton().setMousePos(
        {static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y))});
}

void runFrames(Play &play, unsigned int count) {
    for (unsigned int i = 0; i < count; ++i)
        play.run.runFrame();
}

void move(Play &play, const Vector2 &point) {
    moveTo(point);
    play.run.runFrame();
}

void button(Play &play, int number, Mouse::ButtonState state) {
    UIManager::getSingleton().setMouseButton(static_cast<Mouse::MouseButton>(number), state);
    play.run.runFrame();
}

void key(Play &play, int code, bool pressed) {
    InputSystem::getSingleton().getKeyboard().inject(code, pressed);
    play.run.runFrame();
}

void playMove(Play &play, const JSObject &value, const JSObject &) {
    move(play, readPoint(value));
}

void playPress(Play &play, const JSObject &value, const JSObject &) {
    button(play, value.asInt(0), Mouse::PRESS);
}

void playRelease(Play &play, const JSObject &value, const JSObject &) {
    button(play, value.asInt(0), Mouse::RELEASE);
}

void playWheel(Play &play, const JSObject &value, const JSObject &) {
    play.wheel += value.asInt(0);
    UIManager::getSingleton().setMouseWheel(play.wheel);
    play.run.runFrame();
}

void playClick(Play &play, const JSObject &value, const JSObject &) {
    Vector2 point;
    if (isText(value)) {
        const char *name = value.asString("");
        const nurel::ui::Component *component = findComponent(name);
        if (!component) {
            play.complain(std::string("expected a component '") + name + "' to click, actual: there is none");
            return;
        }
        point = getScreenCenter(*component);
    } else {
        point = readPoint(value);
    }
    move(play, point);
    button(play, Mouse::LEFT, Mouse::PRESS);
    button(play, Mouse::LEFT, Mouse::RELEASE);
}

void playDrag(Play &play, const JSObject &value, const JSObject &step) {
    const Vector2 from = readPoint(*value.get(0U));
    const Vector2 to = readPoint(*value.get(1U));
    const int count = step.getInt("steps", DEFAULT_DRAG_STEPS);
    move(play, from);
    button(play, Mouse::LEFT, Mouse::PRESS);
    for (int i = 1; i <= count; ++i)
        move(play, from + (to - from) * (static_cast<float>(i) / static_cast<float>(count)));
    moveTo(to);
    button(play, Mouse::LEFT, Mouse::RELEASE);
}

void playKey(Play &play, const JSObject &value, const JSObject &step) {
    key(play, value.asInt(0), step.getBool("pressed", true));
}

void playTap(Play &play, const JSObject &value, const JSObject &) {
    key(play, value.asInt(0), true);
    key(play, value.asInt(0), false);
}

void playShift(Play &, const JSObject &value, const JSObject &) {
    InputSystem::getSingleton().setShiftPressed(value.asBool(false));
}

void playText(Play &play, const JSObject &value, const JSObject &) {
    UIManager::getSingleton().textInput(value.asString(""));
    play.run.runFrame();
}

void playFrames(Play &play, const JSObject &value, const JSObject &) {
    runFrames(play, static_cast<unsigned int>(value.asInt(0)));
}

void playWait(Play &play, const JSObject &value, const JSObject &) {
    const double frames = static_cast<double>(value.asFloat(0)) / Run::FRAME_SECONDS;
    constexpr double ROUNDING = 1e-3;
    runFrames(play, static_cast<unsigned int>(std::ceil(frames - ROUNDING)));
}

void playResize(Play &play, const JSObject &value, const JSObject &) {
    play.run.resize(static_cast<unsigned int>(value.getInt(0U, 1)), static_cast<unsigned int>(value.getInt(1U, 1)));
}

void playScale(Play &play, const JSObject &value, const JSObject &) {
    play.run.setScale(value.asFloat(1));
}

void playPng(Play &play, const JSObject &value, const JSObject &) {
    play.run.savePicture(value.asString(""));
}

void playDump(Play &play, const JSObject &value, const JSObject &) {
    play.run.saveDump(value.asString(""));
}

void playDialog(Play &play, const JSObject &value, const JSObject &) {
    try {
        play.run.getDialogs().play(value);
    } catch (const core::Exception &e) {
        play.complain(e.getMessage());
    }
}

void playExpect(Play &play, const JSObject &value, const JSObject &) {
    for (const std::string &failure : checkExpectation(value, play.run))
        play.complain(failure);
}

/// A kind of step: its key, the form of its value, and what it does. `option` is a second key that the step may have.
struct StepKind {
    const char *key;
    bool (*accepts)(const JSObject &value);
    const char *form;
    void (*play)(Play &play, const JSObject &value, const JSObject &step);
    const char *option;
    bool (*acceptsOption)(const JSObject &value);
};

constexpr StepKind STEPS[] = {
    {"move", isPair, "[x, y]", playMove, nullptr, nullptr},
    {"press", isInteger, "a button number", playPress, nullptr, nullptr},
    {"release", isInteger, "a button number", playRelease, nullptr, nullptr},
    {"wheel", isInteger, "a whole number", playWheel, nullptr, nullptr},
    {"click", isTarget, "[x, y] or a name", playClick, nullptr, nullptr},
    {"drag", isTwoPoints, "[[x, y], [x, y]]", playDrag, "steps", isCount},
    {"key", isInteger, "a scan code", playKey, "pressed", isFlag},
    {"tap", isInteger, "a scan code", playTap, nullptr, nullptr},
    {"shift", isFlag, "true or false", playShift, nullptr, nullptr},
    {"text", isText, "a text", playText, nullptr, nullptr},
    {"frames", isCount, "a count of frames", playFrames, nullptr, nullptr},
    {"wait", isSeconds, "seconds", playWait, nullptr, nullptr},
    {"resize", isSize, "[width, height]", playResize, nullptr, nullptr},
    {"scale", isPositive, "a number above 0", playScale, nullptr, nullptr},
    {"png", isText, "a file name", playPng, nullptr, nullptr},
    {"dump", isText, "a file name", playDump, nullptr, nullptr},
    {"dialog", isObject, "an object", playDialog, nullptr, nullptr},
    {"expect", isObject, "an object", playExpect, nullptr, nullptr},
};

/// What is wrong inside a value of the right form; empty when nothing is.
std::string findFault(const StepKind &kind, const JSObject &value) {
    if (std::strcmp(kind.key, "expect") == 0)
        return findExpectationFault(value);
    if (std::strcmp(kind.key, "dialog") == 0)
        return ScriptDialogs::findFault(value);
    return {};
}

const StepKind *findKind(const JSObject &step) {
    for (const StepKind &kind : STEPS) {
        if (step.hasKey(kind.key))
            return &kind;
    }
    return nullptr;
}

} // namespace

ScriptPlayer::ScriptPlayer(const std::string &path) : mPath(path) {
    nurel::stream::FileInputStream stream(path.c_str());
    mScript.reset(JSObject::parse(&stream));
    if (mScript->getType() != JSObject::T_ARRAY)
        throw core::IllegalArgumentException("%s: a script is an array of steps", path.c_str());
    for (unsigned int i = 0; i < mScript->getLength(); ++i)
        check(i);
}

ScriptPlayer::~ScriptPlayer() = default;

void ScriptPlayer::fail(unsigned int step, const std::string &reason) const {
    throw core::IllegalArgumentException("%s: step %u: %s", mPath.c_str(), step, reason.c_str());
}

void ScriptPlayer::check(unsigned int step) const {
    const JSObject &json = *mScript->get(step);
    if (json.getType() != JSObject::T_OBJECT)
        fail(step, "a step is an object");
    const StepKind *kind = findKind(json);
    if (!kind)
        fail(step, json.getLength() ? std::string("unknown step '") + json.getKey(0) + "'" : "an empty step");
    if (!kind->accepts(*json.get(kind->key)))
        fail(step, std::string("'") + kind->key + "' wants " + kind->form);
    for (unsigned int i = 0; i < json.getLength(); ++i) {
        const char *name = json.getKey(i);
        const bool isOption = kind->option && std::strcmp(name, kind->option) == 0;
        if (!isOption && std::strcmp(name, kind->key) != 0)
            fail(step, std::string("'") + kind->key + "' has no '" + name + "'");
        if (isOption && !kind->acceptsOption(*json.get(name)))
            fail(step, std::string("'") + name + "' has a value of the wrong kind");
    }
    const std::string fault = findFault(*kind, *json.get(kind->key));
    if (!fault.empty())
        fail(step, fault);
}

bool ScriptPlayer::play(Run &run) {
    Play play{run, mPath.c_str(), 0};
    for (play.step = 0; play.step < mScript->getLength(); ++play.step) {
        const JSObject &step = *mScript->get(play.step);
        const StepKind &kind = *findKind(step);
        kind.play(play, *step.get(kind.key), step);
    }
    return play.passed;
}

} // namespace viewer
