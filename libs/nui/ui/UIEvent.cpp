#include "nui/ui/UIEvent.h"

namespace nurel::ui {

const char *UIEvent::unparse(unsigned int type) {
    switch (static_cast<Type>(type)) {
    case ET_NONE_EVENT:
        return "ET_NONE_EVENT";
    case ET_FOCUS_EVENT:
        return "ET_FOCUS_EVENT";
    case ET_HOVER_EVENT:
        return "ET_HOVER_EVENT";
    case ET_MOUSE_EVENT:
        return "ET_MOUSE_EVENT";
    case ET_WHEEL_EVENT:
        return "ET_WHEEL_EVENT";
    case ET_DRAG_EVENT:
        return "ET_DRAG_EVENT";
    case ET_KEY_EVENT:
        return "ET_KEY_EVENT";
    case ET_CLICK_EVENT:
        return "ET_CLICK_EVENT";
    case ET_TEXT_EVENT:
        return "ET_TEXT_EVENT";
    }
    return "unknown";
}

} // namespace nurel::ui
