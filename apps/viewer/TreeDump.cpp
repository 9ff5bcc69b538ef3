#include "TreeDump.h"

#include "ComponentFinder.h"
#include "JsonWriter.h"

#include "nui/ui/Container.h"
#include "nui/ui/Layout.h"
#include "nui/ui/UIManager.h"
#include "nui/ui/Widget.h"
#include "nui/ui/css/CSS.h"
#include "nui/ui/css/CSSSkin.h"
#include "nui/ui/css/CSSView.h"
#include "nui/ui/css/Rule.h"

namespace viewer {

using nurel::ui::Component;
using nurel::ui::Container;
using nurel::ui::UIManager;
using nurel::ui::css::CSS;
using nurel::ui::css::CSSSkin;
using nurel::ui::css::CSSView;
using nurel::ui::css::Rule;

namespace {

constexpr unsigned int ALL_DIRTY = 0x7f;

void writeVector(JsonWriter &json, const char *key, const nurel::math::Vector2 &v) {
    json.list(key, v.x, v.y);
}

void writeVector(JsonWriter &json, const char *key, const nurel::math::Vector3 &v) {
    json.list(key, v.x, v.y, v.z);
}

void writeVector(JsonWriter &json, const char *key, const nurel::math::Vector4 &v) {
    json.list(key, v.x, v.y, v.z, v.w);
}

void writeIdentity(JsonWriter &json, const Component &component) {
    json.field("type", component.getType().getName());
    json.field("name", component.getName());
    json.field("element", component.getElement().c_str());
    json.key("classes").beginArray();
    for (const auto &entry : component.getClasses())
        json.value(entry.first);
    json.endArray();
}

void writeGeometry(JsonWriter &json, const Component &component) {
    writeVector(json, "position", component.getPosition());
    writeVector(json, "worldPosition", component.getWorldPosition());
    writeVector(json, "size", component.getSize());
    writeVector(json, "naturalSize", component.getNaturalSize());
    writeVector(json, "minBound", component.getMinBound());
    writeVector(json, "maxBound", component.getMaxBound());
    writeVector(json, "absolutePosition", component.getComponentPosition().absolute);
    writeVector(json, "relativePosition", component.getComponentPosition().relative);
    writeVector(json, "absoluteSize", component.getComponentSize().absolute);
    writeVector(json, "relativeSize", component.getComponentSize().relative);
    writeVector(json, "minimumSize", component.getMinimumSize());
    writeVector(json, "maximumSize", component.getMaximumSize());
    writeVector(json, "margin", component.getBox().margin);
    writeVector(json, "border", component.getBox().border);
    writeVector(json, "padding", component.getBox().padding);
    json.field("anchor", static_cast<unsigned int>(component.getAnchor()));
    json.field("autoSize", component.getComponentSize().autoSize);
    writeVector(json, "scale", component.getScale());
}

void writeState(JsonWriter &json, const Component &component) {
    json.field("opacity", component.getOpacity());
    json.field("zIndex", component.getZIndex());
    json.field("tabStop", component.getTabStop());
    json.field("eventMask", component.getEventMask());
    json.field("state", component.getState());
    json.field("dirty", component.isDirty(ALL_DIRTY));
    json.field("visible", component.isVisible());
    json.field("enabled", component.isEnabled());
    json.field("focused", UIManager::getSingleton().getFocus() == &component);
    if (const char *text = getComponentText(component))
        json.field("text", text);
    if (const std::optional<float> value = getComponentValue(component))
        json.field("value", *value);
    if (const std::optional<int> selected = getComponentSelection(component))
        json.field("selected", *selected);
}

/// The rules that match a component whose view a sheet styles, in the states in which the view stands.
void writeRules(JsonWriter &json, const Component &component) {
    if (!component.hasView() || !component.getView()->instanceOf(CSSView::TYPE))
        return;
    const auto &view = static_cast<const CSSView &>(*component.getView());
    const CSS *sheet = static_cast<const CSSSkin *>(view.getSkin())->getStyleSheet();
    if (!sheet)
        return;
    json.key("rules").beginArray();
    std::string selector;
    for (const Rule *rule : sheet->getMatches(view.getStylable())) {
        json.beginObject();
        json.field("selector", rule->toString(selector));
        json.field("file", rule->getFile());
        json.field("line", rule->getLine());
        json.endObject();
    }
    json.endArray();
}

void writeComponent(JsonWriter &json, const Component &component);

void writeContainer(JsonWriter &json, const Container &container) {
    writeVector(json, "containerSize", container.getContainerSize());
    writeVector(json, "contentExtentMin", container.getContentExtentMin());
    writeVector(json, "contentExtentMax", container.getContentExtentMax());
    json.field("scrollMask", container.getScrollMask());
    writeVector(json, "scrollOffset", container.getScrollOffset());
    writeVector(json, "scrollMin", container.getScrollMin());
    writeVector(json, "scrollMax", container.getScrollMax());
    json.field("clipChildren", container.getClipChildren());
    json.field("layout", container.hasLayout() ? container.getLayout()->getType().getName() : nullptr);
    json.key("children").beginArray();
    for (unsigned int i = 0; i < countEntries(container); ++i)
        writeComponent(json, *container.getChildAt(i));
    json.endArray();
}

void writeComponent(JsonWriter &json, const Component &component) {
    json.beginObject();
    writeIdentity(json, component);
    writeGeometry(json, component);
    writeState(json, component);
    writeRules(json, component);
    if (component.isContainer())
        writeContainer(json, static_cast<const Container &>(component));
    json.endObject();
}

} // namespace

std::string dumpTree(double time) {
    const UIManager &manager = UIManager::getSingleton();
    std::string text;
    JsonWriter json(text);
    json.beginObject();
    json.field("time", time);
    json.list("viewport", manager.getScreenWidth(), manager.getScreenHeight());
    json.key("widgets").beginArray();
    for (unsigned int i = 0; i < manager.getWidgetCount(); ++i)
        writeComponent(json, *manager.getWidgetAt(i));
    json.endArray().endObject();
    text += '\n';
    return text;
}

} // namespace viewer
