#pragma once

#include "foundation/core/SmartPtr.h"
#include "foundation/core/Type.h"
#include "nmain/json/JSObject.h"
#include "nmain/stream/InputStream.h"
#include "nui/ui/Component.h"

namespace nurel::ui {

class Container;
class Layout;

/// Turns a component template, a JSON object, into a live component tree. The template format is described in
/// docs/templates.md. The parser itself has no state; the words for component types are shared by all parsers, and an
/// application may add its own.
///
/// Bad input costs as little as possible: a value of the wrong kind reads as its default, a bad layout costs the
/// layout, a bad child costs that child with its subtree, each with a logged error. Only the root's own faults raise
/// `core::IllegalArgumentException`. Used from the thread that drives the `UIManager`.
class UIComponentParser {
public:
    /// Parses the template of a stream, which stays the caller's. The new component's reference belongs to the caller.
    /// Text that is no JSON raises `json::JSONException`.
    Component *parse(stream::InputStream *stream);

    /// Builds the component of one JSON object, its children included. The new component's reference belongs to the
    /// caller.
    Component *parseComponent(const json::JSObject *json);

    /// The anchor of a word such as "top-left" or "left"; an unknown word and null give the centre.
    static Component::Anchor parseAnchor(const char *word);

    /// Lets templates name the type by the word, which `EngineFactory` has to be able to create. Gives the type that
    /// was under the word before, or `type` itself. Words registered before the first template is parsed replace the
    /// built-in list: they are then the only ones.
    static const core::Type &registerType(const char *word, const core::Type &type);

    /// Takes a word out; false when it was not there. With no word left the built-in ones come back at the next parse.
    static bool unregisterType(const char *word);

    static bool isRegisteredType(const char *word);
    static bool isRegistered(const core::Type &type);

    /// A word of the type, the first in the order of words; null when it has none.
    static const char *getRegisteredTypeName(const core::Type &type);

private:
    core::SmartPtr<Component> createComponent(const char *word) const;
    void parseIdentity(const json::JSObject &json, const char *word, Component &component) const;
    void parseGeometry(const json::JSObject &json, Component &component) const;
    void parseEventMask(const json::JSObject &json, Component &component) const;
    void parseClasses(const json::JSObject &json, const char *word, Component &component) const;
    void parseState(const json::JSObject &json, Component &component) const;
    void parseLook(const json::JSObject &json, Component &component) const;
    void parseContainer(const json::JSObject &json, Container &container) const;
    void parseClassKeys(const json::JSObject &json, Component &component) const;
    void parseChildren(const json::JSObject &json, const char *word, Component &component);
    void parseChild(const json::JSObject &list, unsigned int index, const char *word, Container &container);

    static core::SmartPtr<Layout> parseLayout(const json::JSObject &json, const Component *component);
};

} // namespace nurel::ui
