#include "EventTrace.h"

#include "JsonWriter.h"

#include "nui/ui/Component.h"
#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"

#include "foundation/core/Exception.h"

#include <cerrno>
#include <cstring>

namespace viewer {

using nurel::ui::Component;
using nurel::ui::UIEvent;
using nurel::ui::UIEventHandler;
using nurel::ui::UIManager;

namespace {

const char *nameOf(const UIEventHandler *handler) {
    return handler ? handler->getName() : nullptr;
}

/// The fields that only some kinds of event have.
void writeDetails(JsonWriter &json, const UIEvent &event) {
    using namespace nurel::ui;
    switch (event.getType()) {
    case UIEvent::ET_NONE_EVENT:
    case UIEvent::ET_CLICK_EVENT:
        break;
    case UIEvent::ET_FOCUS_EVENT:
        json.field("action", static_cast<const FocusEvent &>(event).getAction());
        break;
    case UIEvent::ET_HOVER_EVENT:
        json.field("action", static_cast<const HoverEvent &>(event).getAction());
        break;
    case UIEvent::ET_MOUSE_EVENT:
        json.field("action", static_cast<const MouseEvent &>(event).getAction());
        break;
    case UIEvent::ET_WHEEL_EVENT:
        json.field("delta", static_cast<const WheelEvent &>(event).getDelta());
        break;
    case UIEvent::ET_DRAG_EVENT: {
        const auto &drag = static_cast<const DragEvent &>(event);
        json.field("action", drag.getAction());
        json.list("delta", drag.getDelta().x, drag.getDelta().y);
        break;
    }
    case UIEvent::ET_KEY_EVENT: {
        const auto &key = static_cast<const KeyEvent &>(event);
        json.field("key", key.getKey()).field("pressed", key.isPressed());
        break;
    }
    case UIEvent::ET_TEXT_EVENT:
        json.field("text", static_cast<const TextEvent &>(event).getText());
        break;
    }
}

} // namespace

EventTrace::EventTrace(const std::string &path) : mFile(std::fopen(path.c_str(), "w")) {
    if (!mFile)
        throw core::IOException("cannot write %s: %s", path.c_str(), std::strerror(errno));
    mSubscription = UIManager::getSingleton().getEventObserver().subscribeCallback(
        [this](UIEventHandler *handler, const UIEvent &event, UIEventHandler *&result) {
            write(handler, event, result);
            return false;
        });
}

EventTrace::~EventTrace() {
    UIManager::getSingleton().getEventObserver().unsubscribeCallback(mSubscription);
}

void EventTrace::write(const UIEventHandler *handler, const UIEvent &event, const UIEventHandler *result) {
    std::string line;
    JsonWriter json(line);
    json.beginObject().field("frame", mFrame).field("event", UIEvent::unparse(event.getType()));
    writeDetails(json, event);
    json.field("handler", nameOf(handler)).field("result", nameOf(result)).endObject();
    line += '\n';
    std::fputs(line.c_str(), mFile.get());
}

void EventTrace::writeChange(const char *what, const Component *now, const Component *&last, std::string &lastName) {
    const std::string name = now ? now->getName() : "";
    if (now == last && name == lastName)
        return;
    last = now;
    lastName = name;
    std::string line;
    JsonWriter json(line);
    json.beginObject().field("frame", mFrame).field(what, nameOf(now)).endObject();
    line += '\n';
    std::fputs(line.c_str(), mFile.get());
}

void EventTrace::frameEnded() {
    const UIManager &manager = UIManager::getSingleton();
    writeChange("focus", manager.getFocus(), mFocus, mFocusName);
    writeChange("hovered", manager.getComponentAtCursor(), mHovered, mHoveredName);
    std::fflush(mFile.get());
    ++mFrame;
}

} // namespace viewer
