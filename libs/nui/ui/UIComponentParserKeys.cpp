// The keys that every component has, in the order in which parseComponent applies them.
#include "nui/ui/UIComponentParser.h"

#include "nui/core/CKHashMap.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/css/Common.h"

#include "nengine/EngineFactory.h"
#include "nengine/scene/meshes/BorderedRectangleMesh.h"

#include "foundation/logging/Logger.h"
#include "foundation/text/StringUtil.h"

#include <string>

namespace nurel::ui {

using json::JSObject;
using logging::Logger;
using scene::meshes::BorderedRectangleMesh;

namespace {

constexpr unsigned int AUTO_WIDTH = 1;
constexpr unsigned int AUTO_HEIGHT = 2;
constexpr unsigned int COLOR_CHANNELS = 3;

/// [x, y] or [x, y, fractionX, fractionY], with "auto" allowed for each.
struct Coordinates {
    math::Vector2 absolute = math::Vector2::ZERO;
    math::Vector2 fraction = math::Vector2::ZERO;
    bool hasFraction = false;
    bool autoAbsolute[2] = {false, false};
    bool autoFraction[2] = {false, false};
};

bool isAuto(const JSObject &value) {
    return std::string_view(value.asString("")) == "auto";
}

bool hasElement(const JSObject &array, unsigned int index) {
    return array.getType() == JSObject::T_ARRAY && index < array.getLength();
}

/// Reads the pair at the index when both of its elements are there.
bool readPair(const JSObject &array, unsigned int index, math::Vector2 &pair, bool (&isAutomatic)[2]) {
    if (!hasElement(array, index + 1))
        return false;
    pair = math::Vector2(array.getFloat(index, 0), array.getFloat(index + 1, 0));
    isAutomatic[0] = isAuto(*array.get(index));
    isAutomatic[1] = isAuto(*array.get(index + 1));
    return true;
}

Coordinates readCoordinates(const JSObject &json) {
    Coordinates result;
    readPair(json, 0, result.absolute, result.autoAbsolute);
    result.hasFraction = readPair(json, 2, result.fraction, result.autoFraction);
    return result;
}

unsigned int autoSizeFlags(const Coordinates &size) {
    unsigned int flags = 0;
    if (size.autoAbsolute[0] && (size.autoFraction[0] || !size.hasFraction))
        flags |= AUTO_WIDTH;
    if (size.autoAbsolute[1] && (size.autoFraction[1] || !size.hasFraction))
        flags |= AUTO_HEIGHT;
    return flags;
}

struct EventWord {
    const char *word;
    unsigned int bit;
};

constexpr EventWord EVENT_WORDS[] = {
    {"focus", 0x001}, {"hover", 0x002}, {"mouse", 0x008}, {"wheel", 0x010},
    {"drag", 0x020},  {"key", 0x040},   {"click", 0x080}, {"text", 0x100},
};

unsigned int readEvent(const JSObject &json) {
    if (json.getType() == JSObject::T_INT)
        return static_cast<unsigned int>(json.asInt(0));
    if (json.getType() == JSObject::T_STRING) {
        for (const EventWord &event : EVENT_WORDS) {
            if (text::StringUtil::compareIgnoreCase(json.asString(""), event.word) == 0)
                return event.bit;
        }
        return 0;
    }
    Logger::mROOT_LOGGER.warn("Invalid event definition: got %s, expected int, string or array",
                              JSObject::unparse(json.getType()));
    return 0;
}

/// A word, a number, or an array of those; the elements of an array are combined.
unsigned int readEvents(const JSObject &json) {
    if (json.getType() != JSObject::T_ARRAY)
        return readEvent(json);
    unsigned int events = 0;
    for (unsigned int i = 0; i < json.getLength(); ++i)
        events |= readEvent(*json.get(i));
    return events;
}

math::Vector3 readColor(const JSObject &json) {
    if (json.getType() == JSObject::T_ARRAY && json.getLength() >= COLOR_CHANNELS)
        return {json.getFloat(0U, 1), json.getFloat(1U, 1), json.getFloat(2U, 1)};
    const char *text = json.asString(nullptr);
    if (!text)
        return math::Vector3::WHITE;
    // What a failing parser wrote before it failed counts, on top of white.
    math::Vector4 color(1, 1, 1, 1);
    css::Common::parseColor(text, color);
    return {color.x, color.y, color.z};
}

struct ScrollWord {
    const char *word;
    unsigned int mask;
};

constexpr ScrollWord SCROLL_WORDS[] = {{"none", 0}, {"horizontal", 1}, {"vertical", 2}, {"both", 3}};

unsigned int scrollMask(const char *word) {
    static core::CKHashMapValue<unsigned int> table(false, 0);
    if (table.empty()) {
        for (const ScrollWord &entry : SCROLL_WORDS)
            table.put(entry.word, entry.mask);
    }
    return table.get(word);
}

struct BorderFixWord {
    const char *word;
    BorderedRectangleMesh::BorderFixMode mode;
};

constexpr BorderFixWord BORDER_FIX_WORDS[] = {
    {"none", BorderedRectangleMesh::BORDER_FIX_NONE},
    {"zero", BorderedRectangleMesh::BORDER_FIX_ZERO},
    {"fit", BorderedRectangleMesh::BORDER_FIX_FIT},
};

BorderedRectangleMesh::BorderFixMode readBorderFix(const char *word) {
    for (const BorderFixWord &entry : BORDER_FIX_WORDS) {
        if (std::string_view(entry.word) == word)
            return entry.mode;
    }
    return BorderedRectangleMesh::BORDER_FIX_NONE;
}

} // namespace

void UIComponentParser::parseIdentity(const JSObject &json, const char *word, Component &component) const {
    const char *name = json.getString("name", nullptr);
    if (!name) {
        Logger::mROOT_LOGGER.info("Component '%s' with no name", word);
        name = "";
    }
    component.setName(name);
    // A template without the key, or with an unknown word, gets the centre, whatever its class or base template had.
    component.setAnchor(parseAnchor(json.getString("anchor", nullptr)));
}

void UIComponentParser::parseGeometry(const JSObject &json, Component &component) const {
    if (json.hasKey("size")) {
        const Coordinates size = readCoordinates(*json.get("size"));
        component.setSize(size.absolute, size.fraction);
        component.setAutoSize(autoSizeFlags(size), math::Vector2::ZERO);
    }
    if (json.hasKey("min-width"))
        component.setMinimumWidth(json.getFloat("min-width", 0));
    if (json.hasKey("max-width"))
        component.setMaximumWidth(json.getFloat("max-width", 0));
    if (json.hasKey("min-height"))
        component.setMinimumHeight(json.getFloat("min-height", 0));
    if (json.hasKey("max-height"))
        component.setMaximumHeight(json.getFloat("max-height", 0));
    if (json.hasKey("position")) {
        const Coordinates position = readCoordinates(*json.get("position"));
        component.setPosition(position.absolute, position.fraction);
    }
    if (json.hasKey("scale")) {
        const float scale = json.getFloat("scale", 1);
        component.setScale(math::Vector2(scale, scale));
    }
}

void UIComponentParser::parseEventMask(const JSObject &json, Component &component) const {
    unsigned int mask = component.getEventMask();
    if (json.hasKey("event-mask"))
        mask = readEvents(*json.get("event-mask"));
    if (json.hasKey("event-mask-enable"))
        mask |= readEvents(*json.get("event-mask-enable"));
    if (json.hasKey("event-mask-disable"))
        mask &= ~readEvents(*json.get("event-mask-disable"));
    component.setEventMask(mask);
}

void UIComponentParser::parseClasses(const JSObject &json, const char *word, Component &component) const {
    if (!json.hasKey("class"))
        return;
    const JSObject &classes = *json.get("class");
    if (classes.getType() == JSObject::T_STRING) {
        component.addClass(classes.asString(""));
    } else if (classes.getType() == JSObject::T_ARRAY) {
        for (unsigned int i = 0; i < classes.getLength(); ++i)
            component.addClass(classes.getString(i, nullptr));
    } else {
        throw core::IllegalArgumentException("Invalid class attribute type (%s)", word);
    }
}

void UIComponentParser::parseState(const JSObject &json, Component &component) const {
    if (json.hasKey("visible"))
        component.setVisible(json.getBool("visible", false));
    if (json.hasKey("opacity"))
        component.setOpacity(json.getFloat("opacity", 0), false);
    component.setEnabled(json.getBool("enabled", true));
    if (json.hasKey("tab-stop"))
        component.setTabStop(json.getInt("tab-stop", 0));
}

void UIComponentParser::parseLook(const JSObject &json, Component &component) const {
    if (json.hasKey("background-color"))
        component.setMeshColor(readColor(*json.get("background-color")));
    if (json.hasKey("border-fix") && component.hasMesh() &&
        component.getMesh()->instanceOf(BorderedRectangleMesh::TYPE)) {
        auto &mesh = static_cast<BorderedRectangleMesh &>(*component.getMesh());
        mesh.setBorderFixMode(readBorderFix(json.getString("border-fix", "")));
    }
    const int zIndex = json.getInt("z-index", component.getZIndex());
    if (zIndex != component.getZIndex())
        component.setZIndex(zIndex);
}

void UIComponentParser::parseContainer(const JSObject &json, Container &container) const {
    const char *scroll = json.getString("scroll-mask", "");
    if (*scroll)
        container.setScrollMask(scrollMask(scroll));
    if (json.hasKey("layout")) {
        if (const core::SmartPtr<Layout> layout = parseLayout(*json.get("layout"), &container))
            container.setLayout(layout.get());
    }
    // A template that leaves the key out sets clipping on, whatever its base template had.
    container.setClipChildren(json.getBool("clip-children", true));
}

core::SmartPtr<Layout> UIComponentParser::parseLayout(const JSObject &json, const Component *component) {
    const char *owner = component ? component->getName() : "";
    const char *ownerType = component ? component->getType().getName() : "UNKNOWN";
    const bool isArray = json.getType() == JSObject::T_ARRAY;
    if (!isArray && json.getType() != JSObject::T_STRING) {
        Logger::mROOT_LOGGER.error(
            "Invalid layout attribute for container %s(%s): expeceted T_STRING or T_ARRAY, got %s", owner, ownerType,
            JSObject::unparse(json.getType()));
        return nullptr;
    }
    const JSObject &nameValue = isArray ? *json.get(0U) : json;
    if (nameValue.getType() != JSObject::T_STRING) {
        Logger::mROOT_LOGGER.error("Invalid layout name for container %s(%s): expected T_STRING, got %s", owner,
                                   ownerType, JSObject::unparse(nameValue.getType()));
        return nullptr;
    }
    const char *name = nameValue.asString("");
    if (!*name) {
        Logger::mROOT_LOGGER.error("Empty layout name for container %s(%s)", owner, ownerType);
        return nullptr;
    }
    const JSObject *parameters = hasElement(json, 1) ? json.get(1U) : nullptr;
    if (parameters && parameters->getType() != JSObject::T_OBJECT) {
        Logger::mROOT_LOGGER.error(
            "Invalid layout parameters for layout %s on container %s(%s): expected T_OBJECT, got %s", name, owner,
            ownerType, JSObject::unparse(parameters->getType()));
        return nullptr;
    }
    const core::SmartPtr<core::Object> object = EngineFactory::getSingleton().create(name);
    if (!object || !object->instanceOf(Layout::TYPE)) {
        Logger::mROOT_LOGGER.error("Unable to create layout instance %s for container %s(%s)", name, owner, ownerType);
        return nullptr;
    }
    core::SmartPtr<Layout> layout = static_cast<Layout *>(object.get());
    layout->setParameters(parameters);
    return layout;
}

} // namespace nurel::ui
