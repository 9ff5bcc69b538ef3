#pragma once

#include "nui/ui/UIEvent.h"
#include "nui/ui/UIManager.h"

namespace nurel::ui::detail {

/// Whether the cursor was released nearer to where it was pressed than a drag begins.
inline bool isInPlace(const ClickEvent &event) {
    const CursorPosition &from = event.getPressPosition();
    const CursorPosition &to = event.getCursor();
    const float dx = static_cast<float>(static_cast<long long>(to.x) - from.x);
    const float dy = static_cast<float>(static_cast<long long>(to.y) - from.y);
    return dx * dx + dy * dy < UIManager::MIN_DRAG_DISTANCE_SQR;
}

} // namespace nurel::ui::detail
