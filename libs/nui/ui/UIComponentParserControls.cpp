// The keys of a template that only one class of component has.
#include "nui/ui/UIComponentParser.h"

#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Combo.h"
#include "nui/ui/components/Label.h"
#include "nui/ui/components/Listbox.h"
#include "nui/ui/components/Progress.h"
#include "nui/ui/components/Selector.h"
#include "nui/ui/components/Slider.h"
#include "nui/ui/components/TextField.h"

#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include "foundation/core/Exception.h"

#include <string>

namespace nurel::ui {

using json::JSObject;

namespace {

/// The text with its translation keys replaced; the buffer keeps it. Null when the value is no text.
const char *readText(const JSObject &value, std::string &buffer) {
    const char *text = value.asString(nullptr);
    if (text && i18n::Bundle::needsResolving(text) && i18n::I18N::isSingletonCreated())
        text = i18n::I18N::getSingleton().resolve(text, buffer, false);
    return text;
}

const char *readText(const JSObject &json, const char *key, std::string &buffer) {
    return readText(*json.get(key), buffer);
}

/// Hands every text of the key "items" to the function; what is no text is skipped. False without the key.
template <class Add>
bool readItems(const JSObject &json, Add add) {
    if (!json.hasKey("items"))
        return false;
    const JSObject &items = *json.get("items");
    if (items.getType() != JSObject::T_ARRAY)
        throw core::IllegalArgumentException("Invalid item list (not an array)");
    std::string buffer;
    for (unsigned int i = 0; i < items.getLength(); ++i) {
        if (const char *text = readText(*items.get(i), buffer))
            add(text);
    }
    return true;
}

void parseLabelKeys(const JSObject &json, Component &component) {
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        static_cast<components::Label &>(component).setText(text);
}

// A text that stands beside a password key is shown as it is, since the mask comes after it.
void parseTextFieldKeys(const JSObject &json, Component &component) {
    auto &field = static_cast<components::TextField &>(component);
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        field.setText(text);
    if (const char *text = readText(json, "placeholder", buffer))
        field.setPlaceholderText(text);
    if (json.hasKey("password"))
        field.setPasswordChar(json.getString("password", nullptr));
    if (json.hasKey("max-length"))
        field.setMaxLength(json.getInt("max-length", 0));
}

void parseCheckboxKeys(const JSObject &json, Component &component) {
    auto &checkbox = static_cast<components::Checkbox &>(component);
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        checkbox.setText(text);
    checkbox.setChecked(json.getBool("checked", false)); // a missing key unchecks, also over a base template
}

void parseSelectorKeys(const JSObject &json, Component &component) {
    auto &selector = static_cast<components::Selector &>(component);
    if (readItems(json, [&selector](const char *text) { selector.addItem(text, nullptr); }))
        selector.setSelectedIndex(json.getInt("selected", selector.getSelectedIndex()), false);
    if (json.hasKey("cycle"))
        selector.setCycle(json.getBool("cycle", false));
}

void parseButtonKeys(const JSObject &json, Component &component) {
    auto &button = static_cast<components::Button &>(component);
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        button.setText(text);
    if (json.hasKey("icon"))
        button.setIconVisible(json.getBool("icon", false));
    if (json.hasKey("checkable"))
        button.setCheckable(json.getBool("checkable", false));
    if (json.hasKey("checked"))
        button.setChecked(json.getBool("checked", false));
}

/// The keys of a list's rows.
void parseListItems(const JSObject &json, components::Listbox &list) {
    if (!readItems(json, [&list](const char *text) { list.addItem(text, nullptr); }))
        return;
    if (json.hasKey("selected"))
        list.setSelectedIndex(json.getInt("selected", list.getSelectedIndex()), true);
}

void parseComboKeys(const JSObject &json, Component &component) {
    parseButtonKeys(json, component);
    auto &combo = static_cast<components::Combo &>(component);
    if (json.hasKey("items"))
        parseListItems(json, *combo.getList());
    // What is shown by now: the text of the key "selected" where there is one
    if (json.hasKey("text"))
        combo.getList()->setNoItemText(combo.getText());
}

void parseListboxKeys(const JSObject &json, Component &component) {
    auto &list = static_cast<components::Listbox &>(component);
    parseListItems(json, list);
    if (json.hasKey("item-height"))
        list.setItemHeight(json.getFloat("item-height", list.getItemHeight()));
    if (json.hasKey("item-spacing"))
        list.setItemSpacing(json.getFloat("item-spacing", list.getItemSpacing()));
}

// Each key is applied at once, so the value that a later one asks for is kept within what the earlier ones have set.
void parseSliderKeys(const JSObject &json, Component &component) {
    auto &slider = static_cast<components::Slider &>(component);
    const JSObject &range = *json.get("range");
    if (range.getType() == JSObject::T_ARRAY)
        slider.setRange(range.getFloat(0U, 0), range.getFloat(1U, 1), false);
    if (json.hasKey("accuracy"))
        slider.setAccuracy(json.getFloat("accuracy", 0), false);
    if (json.hasKey("value"))
        slider.setValue(json.getFloat("value", 0), false);
}

void parseProgressKeys(const JSObject &json, Component &component) {
    auto &progress = static_cast<components::Progress &>(component);
    if (json.hasKey("min-value"))
        progress.setMinValue(json.getInt("min-value", progress.getMinValue()));
    if (json.hasKey("max-value"))
        progress.setMaxValue(json.getInt("max-value", progress.getMaxValue()));
    if (json.hasKey("value"))
        progress.setValue(json.getInt("value", progress.getValue()));
    if (json.hasKey("show-text"))
        progress.setShowText(json.getBool("show-text", true));
    if (json.hasKey("text-format"))
        progress.setTextFormat(json.getString("text-format", "%d%%"));
}

/// The keys that a class adds. The first row whose type fits is the only one that counts, so a class stands ahead of
/// the ones that it derives from.
struct ClassKeys {
    const core::Type *type;
    void (*parse)(const JSObject &json, Component &component);
};

constexpr ClassKeys CLASS_KEYS[] = {
    {&components::Label::TYPE, parseLabelKeys},       {&components::TextField::TYPE, parseTextFieldKeys},
    {&components::Checkbox::TYPE, parseCheckboxKeys}, {&components::Selector::TYPE, parseSelectorKeys},
    {&components::Combo::TYPE, parseComboKeys},       {&components::Button::TYPE, parseButtonKeys},
    {&components::Slider::TYPE, parseSliderKeys},     {&components::Listbox::TYPE, parseListboxKeys},
    {&components::Progress::TYPE, parseProgressKeys},
};

} // namespace

void UIComponentParser::parseClassKeys(const JSObject &json, Component &component) const {
    for (const ClassKeys &keys : CLASS_KEYS) {
        if (component.instanceOf(*keys.type)) {
            keys.parse(json, component);
            return;
        }
    }
}

} // namespace nurel::ui
