#include "Expectation.h"

#include "ComponentFinder.h"
#include "JsonWriter.h"
#include "Run.h"
#include "ScriptDialogs.h"

#include "nmain/json/JSObject.h"
#include "nui/ui/Component.h"
#include "nui/ui/UIManager.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace viewer {

using nurel::json::JSObject;
using nurel::ui::Component;
using nurel::ui::UIManager;

namespace {

constexpr float NUMBER_TOLERANCE = 1e-3F;

std::string toText(bool flag) {
    return flag ? "true" : "false";
}

std::string toText(const nurel::math::Vector2 &v) {
    std::string text;
    JsonWriter(text).beginArray().value(v.x).value(v.y).endArray();
    return text;
}

template <class Number>
std::string toText(Number number) {
    std::string text;
    JsonWriter(text).value(number);
    return text;
}

std::string quote(const char *text) {
    std::string quoted;
    JsonWriter(quoted).value(text);
    return quoted;
}

bool isClose(float a, float b) {
    return std::abs(a - b) <= NUMBER_TOLERANCE;
}

/// What a check found: empty when it holds, else "expected …, actual …".
using Finding = std::string;

Finding differ(const std::string &expected, const std::string &actual) {
    return "expected " + expected + ", actual " + actual;
}

Finding compareFlag(const JSObject &expected, bool actual) {
    const bool wanted = expected.asBool(false);
    return wanted == actual ? Finding() : differ(toText(wanted), toText(actual));
}

Finding compareVector(const JSObject &expected, const nurel::math::Vector2 &actual) {
    const nurel::math::Vector2 wanted(expected.getFloat(0U, 0), expected.getFloat(1U, 0));
    const bool same = isClose(wanted.x, actual.x) && isClose(wanted.y, actual.y);
    return same ? Finding() : differ(toText(wanted), toText(actual));
}

Finding checkVisible(const JSObject &expected, const Component &component) {
    return compareFlag(expected, component.isVisible());
}

Finding checkEnabled(const JSObject &expected, const Component &component) {
    return compareFlag(expected, component.isEnabled());
}

Finding checkFocused(const JSObject &expected, const Component &component) {
    return compareFlag(expected, UIManager::getSingleton().getFocus() == &component);
}

Finding checkHovered(const JSObject &expected, const Component &component) {
    return compareFlag(expected, UIManager::getSingleton().getComponentAtCursor() == &component);
}

Finding checkChecked(const JSObject &expected, const Component &component) {
    return compareFlag(expected, isComponentChecked(component));
}

Finding checkText(const JSObject &expected, const Component &component) {
    const char *actual = getComponentText(component);
    const char *wanted = expected.asString("");
    const bool same = actual && std::strcmp(actual, wanted) == 0;
    return same ? Finding() : differ(quote(wanted), actual ? quote(actual) : "no text");
}

Finding checkPosition(const JSObject &expected, const Component &component) {
    return compareVector(expected, nurel::math::Vector2(component.getWorldPosition()));
}

Finding checkSize(const JSObject &expected, const Component &component) {
    return compareVector(expected, component.getSize());
}

/// `actual` is nothing where the class of the component has none to compare.
template <class Number>
Finding compareNumber(const JSObject &expected, const std::optional<Number> &actual, const Component &component) {
    const float wanted = expected.asFloat(0);
    if (!actual)
        return "expected " + toText(wanted) + ", actual: a " + component.getType().getName() + " has none";
    return isClose(wanted, static_cast<float>(*actual)) ? Finding() : differ(toText(wanted), toText(*actual));
}

Finding checkValue(const JSObject &expected, const Component &component) {
    return compareNumber(expected, getComponentValue(component), component);
}

Finding checkSelected(const JSObject &expected, const Component &component) {
    return compareNumber(expected, getComponentSelection(component), component);
}

bool isFlag(const JSObject &value) {
    return value.getType() == JSObject::T_BOOL;
}

bool isText(const JSObject &value) {
    return value.getType() == JSObject::T_STRING;
}

bool isNumber(const JSObject &value) {
    return value.getType() == JSObject::T_INT || value.getType() == JSObject::T_FLOAT;
}

bool isList(const JSObject &value, unsigned int count) {
    if (value.getType() != JSObject::T_ARRAY || value.getLength() != count)
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        if (!isNumber(*value.get(i)))
            return false;
    }
    return true;
}

bool isPair(const JSObject &value) {
    return isList(value, 2);
}

bool isPixel(const JSObject &value) {
    return isList(*value.get("at"), 2) && isList(*value.get("color"), 3);
}

/// A key of an expectation about one component.
struct ComponentKey {
    const char *key;
    bool (*accepts)(const JSObject &value);
    Finding (*check)(const JSObject &expected, const Component &component);
};

constexpr ComponentKey COMPONENT_KEYS[] = {
    {"visible", isFlag, checkVisible},     {"enabled", isFlag, checkEnabled}, {"focused", isFlag, checkFocused},
    {"hovered", isFlag, checkHovered},     {"checked", isFlag, checkChecked}, {"text", isText, checkText},
    {"position", isPair, checkPosition},   {"size", isPair, checkSize},       {"value", isNumber, checkValue},
    {"selected", isNumber, checkSelected},
};

/// The keys that are about no component's property.
struct OtherKey {
    const char *key;
    bool (*accepts)(const JSObject &value);
};

constexpr OtherKey OTHER_KEYS[] = {{"name", isText}, {"exists", isFlag}, {"answer", isText}, {"pixel", isPixel}};

Finding checkPixel(const JSObject &expected, Run &run) {
    const Run::Picture picture = run.capture();
    const int x = expected.get("at")->getInt(0U, 0);
    const int y = expected.get("at")->getInt(1U, 0);
    const auto inside = [](int value, unsigned int limit) {
        return value >= 0 && static_cast<unsigned int>(value) < limit;
    };
    if (!inside(x, picture.width) || !inside(y, picture.height))
        return "expected a pixel inside the picture, actual: outside of it";
    const std::size_t index = (static_cast<std::size_t>(y) * picture.width + static_cast<std::size_t>(x)) * 4;
    const float tolerance = expected.getFloat("tolerance", 0);
    std::string wanted;
    std::string actual;
    JsonWriter wantedList(wanted);
    JsonWriter actualList(actual);
    wantedList.beginArray();
    actualList.beginArray();
    bool same = true;
    for (unsigned int i = 0; i < 3; ++i) {
        const float channel = expected.get("color")->getFloat(i, 0);
        wantedList.value(channel);
        actualList.value(static_cast<unsigned int>(picture.rgba[index + i]));
        same = same && std::abs(channel - static_cast<float>(picture.rgba[index + i])) <= tolerance;
    }
    wantedList.endArray();
    actualList.endArray();
    return same ? Finding() : differ(wanted, actual);
}

Finding checkAnswer(const JSObject &expected, const char *name, Run &run) {
    const char *actual = run.getDialogs().getAnswer(name);
    const char *wanted = expected.asString("");
    const bool same = actual && std::strcmp(actual, wanted) == 0;
    return same ? Finding() : differ(quote(wanted), actual ? quote(actual) : "no such dialog");
}

void addFailure(std::vector<std::string> &failures, const std::string &subject, const Finding &finding) {
    if (!finding.empty())
        failures.push_back(subject + ": " + finding);
}

void checkComponent(const JSObject &expectation, const char *name, Run &run, std::vector<std::string> &failures) {
    const Component *component = findComponent(name);
    const std::string subject = std::string("'") + name + "'";
    if (expectation.hasKey("exists"))
        addFailure(failures, subject + " exists", compareFlag(*expectation.get("exists"), component != nullptr));
    for (const ComponentKey &entry : COMPONENT_KEYS) {
        if (!expectation.hasKey(entry.key))
            continue;
        const std::string what = subject + " " + entry.key;
        if (!component)
            addFailure(failures, what, "expected the component, actual: there is none");
        else
            addFailure(failures, what, entry.check(*expectation.get(entry.key), *component));
    }
    if (expectation.hasKey("answer"))
        addFailure(failures, subject + " answer", checkAnswer(*expectation.get("answer"), name, run));
    const bool onlyName = expectation.getLength() == 1;
    if (onlyName && !component)
        addFailure(failures, subject + " exists", differ("true", "false"));
}

} // namespace

std::vector<std::string> checkExpectation(const JSObject &expectation, Run &run) {
    std::vector<std::string> failures;
    if (const char *name = expectation.getString("name", nullptr))
        checkComponent(expectation, name, run, failures);
    if (expectation.hasKey("pixel"))
        addFailure(failures, "pixel", checkPixel(*expectation.get("pixel"), run));
    return failures;
}

std::string findExpectationFault(const JSObject &expectation) {
    bool needsName = false;
    for (unsigned int i = 0; i < expectation.getLength(); ++i) {
        const char *key = expectation.getKey(i);
        const auto sameKey = [key](const auto &entry) { return std::strcmp(entry.key, key) == 0; };
        const auto *component = std::find_if(std::begin(COMPONENT_KEYS), std::end(COMPONENT_KEYS), sameKey);
        const auto *other = std::find_if(std::begin(OTHER_KEYS), std::end(OTHER_KEYS), sameKey);
        const bool isComponentKey = component != std::end(COMPONENT_KEYS);
        if (!isComponentKey && other == std::end(OTHER_KEYS))
            return std::string("'expect' has no '") + key + "'";
        const JSObject &value = *expectation.get(key);
        if (!(isComponentKey ? component->accepts(value) : other->accepts(value)))
            return std::string("'") + key + "' has a value of the wrong kind";
        needsName = needsName || isComponentKey || std::strcmp(key, "exists") == 0 || std::strcmp(key, "answer") == 0;
    }
    if (needsName && !expectation.hasKey("name"))
        return "'expect' wants a 'name'";
    if (expectation.getLength() == 0)
        return "'expect' is empty";
    return {};
}

} // namespace viewer
