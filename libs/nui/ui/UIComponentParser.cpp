#include "nui/ui/UIComponentParser.h"

#include "nui/core/CKHashMap.h"
#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/UIComponentFactory.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Image.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Panel.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Radio.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"

#include "nengine/EngineFactory.h"

#include "foundation/core/Exception.h"
#include "foundation/core/SmartPtr.h"
#include "foundation/logging/Logger.h"

#include <memory>

namespace nurel::ui {

namespace {

using TypeTable = core::CKHashMapValue<const core::Type *>;
using AnchorTable = core::CKHashMapValue<Component::Anchor>;

struct TypeWord {
    const char *word;
    const core::Type *type;
};

constexpr TypeWord TYPE_WORDS[] = {
    {"panel", &components::Panel::TYPE},       {"button", &components::Button::TYPE},
    {"label", &components::Label::TYPE},       {"text", &components::TextField::TYPE},
    {"checkbox", &components::Checkbox::TYPE}, {"radio", &components::Radio::TYPE},
    {"selector", &components::Selector::TYPE}, {"image", &components::Image::TYPE},
    {"slider", &components::Slider::TYPE},     {"combo", &components::Combo::TYPE},
    {"listbox", &components::Listbox::TYPE},   {"widget", &Widget::TYPE},
    {"progress", &components::Progress::TYPE},
};

struct AnchorWord {
    const char *word;
    unsigned int anchor;
};

constexpr AnchorWord ANCHOR_WORDS[] = {
    {"left", 0x08},        {"right", 0x20},        {"top", 0x01},           {"bottom", 0x04},    {"center", 0x12},
    {"center-left", 0x0a}, {"center-right", 0x22}, {"top-left", 0x09},      {"top-right", 0x21}, {"top-center", 0x11},
    {"bottom-left", 0x0c}, {"bottom-right", 0x24}, {"bottom-center", 0x14},
};

constexpr unsigned int ANCHOR_CENTER = 0x12;

TypeTable &typeTable() {
    static TypeTable table(false, nullptr);
    return table;
}

/// The table as a parse sees it: an empty one is filled with the built-in words first.
TypeTable &filledTypeTable() {
    TypeTable &table = typeTable();
    if (table.empty()) {
        for (const TypeWord &entry : TYPE_WORDS)
            table.put(entry.word, entry.type);
    }
    return table;
}

AnchorTable &filledAnchorTable() {
    static AnchorTable table(false, static_cast<Component::Anchor>(ANCHOR_CENTER));
    if (table.empty()) {
        for (const AnchorWord &entry : ANCHOR_WORDS)
            table.put(entry.word, static_cast<Component::Anchor>(entry.anchor));
    }
    return table;
}

} // namespace

Component *UIComponentParser::parse(stream::InputStream *stream) {
    const std::unique_ptr<json::JSObject> json(json::JSObject::parse(stream));
    return parseComponent(json.get());
}

// The order of the steps is part of the template format: later keys see what earlier ones have done.
Component *UIComponentParser::parseComponent(const json::JSObject *json) {
    const char *word = json->getString("type", "");
    core::SmartPtr<Component> component = createComponent(word);
    parseIdentity(*json, word, *component);
    parseGeometry(*json, *component);
    parseEventMask(*json, *component);
    parseClasses(*json, word, *component);
    parseState(*json, *component);
    parseLook(*json, *component);
    if (component->isContainer())
        parseContainer(*json, static_cast<Container &>(*component));
    parseClassKeys(*json, *component);
    parseChildren(*json, word, *component);
    component->update();
    return component.release();
}

core::SmartPtr<Component> UIComponentParser::createComponent(const char *word) const {
    if (const core::Type *type = filledTypeTable().get(word)) {
        UIManager::getSingleton(); // the manager registers what makes the classes
        const core::SmartPtr<core::Object> object = EngineFactory::getSingleton().create(*type);
        if (!object || !object->instanceOf(Component::TYPE))
            throw core::IllegalArgumentException("Unknown component type %s", word);
        return static_cast<Component *>(object.get());
    }
    core::SmartPtr<Component> component = UIComponentFactory::getSingleton().newInstance(word);
    if (!component)
        throw core::IllegalArgumentException("Unknown component template: %s", word);
    return component;
}

void UIComponentParser::parseChildren(const json::JSObject &json, const char *word, Component &component) {
    if (!json.hasKey("children"))
        return;
    if (!component.isContainer())
        throw core::IllegalArgumentException("Invalid children declaration. Parent is not a valid container type (%s)",
                                             word);
    const json::JSObject &list = *json.get("children");
    if (list.getType() != json::JSObject::T_ARRAY)
        throw core::IllegalArgumentException("Invalid children list (not an array)");
    for (unsigned int i = 0; i < list.getLength(); ++i)
        parseChild(list, i, word, static_cast<Container &>(component));
}

void UIComponentParser::parseChild(const json::JSObject &list, unsigned int index, const char *word,
                                   Container &container) {
    try {
        const json::JSObject *json = list.get(index);
        const core::SmartPtr<Component> child = parseComponent(json);
        container.addChild(child.get(), json->getBool("laidout", true));
    } catch (const core::Exception &e) {
        logging::Logger::mROOT_LOGGER.error("Error parsing child #%d for component %s(%s)", e, static_cast<int>(index),
                                            container.getName(), word);
    }
}

Component::Anchor UIComponentParser::parseAnchor(const char *word) {
    return filledAnchorTable().get(word ? word : "");
}

const core::Type &UIComponentParser::registerType(const char *word, const core::Type &type) {
    const core::Type *previous = word ? typeTable().get(word) : nullptr;
    if (word)
        typeTable().put(word, &type);
    return previous ? *previous : type;
}

bool UIComponentParser::unregisterType(const char *word) {
    return word && typeTable().remove(word);
}

bool UIComponentParser::isRegisteredType(const char *word) {
    return word && typeTable().containsKey(word);
}

bool UIComponentParser::isRegistered(const core::Type &type) {
    return getRegisteredTypeName(type) != nullptr;
}

const char *UIComponentParser::getRegisteredTypeName(const core::Type &type) {
    for (const auto &[word, registered] : typeTable()) {
        if (registered == &type)
            return word;
    }
    return nullptr;
}

} // namespace nurel::ui
