// The keys of a template that only one class of component has.
#include "nui/ui/UIComponentParser.h"

#include "nui/ui/components/Button.h"
#include "nui/ui/components/Checkbox.h"
#include "nui/ui/components/Label.h"

#include "nxml/i18n/Bundle.h"
#include "nxml/i18n/I18N.h"

#include <string>

namespace nurel::ui {

using json::JSObject;

namespace {

/// The text of the key with its translation keys replaced; the buffer keeps it. Null when the key is no text.
const char *readText(const JSObject &json, const char *key, std::string &buffer) {
    const char *text = json.getString(key, nullptr);
    if (text && i18n::Bundle::needsResolving(text) && i18n::I18N::isSingletonCreated())
        text = i18n::I18N::getSingleton().resolve(text, buffer, false);
    return text;
}

void parseLabelKeys(const JSObject &json, Component &component) {
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        static_cast<components::Label &>(component).setText(text);
}

void parseCheckboxKeys(const JSObject &json, Component &component) {
    auto &checkbox = static_cast<components::Checkbox &>(component);
    std::string buffer;
    if (const char *text = readText(json, "text", buffer))
        checkbox.setText(text);
    checkbox.setChecked(json.getBool("checked", false)); // a missing key unchecks, also over a base template
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

/// The keys that a class adds. The first row whose type fits is the only one that counts, so a class stands ahead of the
/// ones that it derives from.
struct ClassKeys {
    const core::Type *type;
    void (*parse)(const JSObject &json, Component &component);
};

constexpr ClassKeys CLASS_KEYS[] = {
    {&components::Label::TYPE, parseLabelKeys},
    {&components::Checkbox::TYPE, parseCheckboxKeys},
    {&components::Button::TYPE, parseButtonKeys},
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
